#include "bank/BankFile.h"
#include "tests/bank/KnownBank.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

namespace scenewright {

using testing::knownImage;
using testing::knownJson;
using testing::replaced;

namespace {

using Rows = std::initializer_list<std::pair<const char*, std::string>>;

std::string errorWith(const std::string& text) {
    const auto read = readBankJson(text);
    return read ? "none" : read.error();
}

// The known bank with one thing replaced in its second scene's fourth pad.
std::string padError(const std::string& from, const std::string& to) {
    std::string text = knownJson();
    const std::size_t pad = text.find("pad4", text.find("Caf"));
    return errorWith(text.replace(text.find(from, pad), from.size(), to));
}

std::string headError(const std::string& from, const std::string& to) {
    return errorWith(replaced(knownJson(), "{", from, to));
}

// The third known scene without blanks and titles: short, so that it can be tried byte by byte.
std::string denseScene() {
    std::string text = writeSceneJson(*testing::knownScenes()[2], PopUpValue());
    std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
    return text;
}

std::string crLine() {
    const std::string text = knownJson();
    const std::size_t at = text.find("\"CR\"", text.find("pad4", text.find("Caf")));
    return text.substr(at, text.find('\n', at) - at);
}

} // namespace

TEST(BankJsonReader, ScenesAreWhatAReadOfTheImageGives) {
    const SceneList read = readBankJson(knownJson()).value();
    EXPECT_EQ(encodeBank(read), knownImage());
    const SceneList parsed = testing::knownScenes();
    ASSERT_EQ(read.size(), 4U);
    EXPECT_EQ(read[0]->commonValue()->SceneName(), parsed[0]->commonValue()->SceneName());
    for (const IndexField<ButtonValue>& field : kButtonOptionFields)
        for (std::size_t control = 0; control < 45; ++control)
            EXPECT_EQ(field.of(*read[1]->buttonValueArray()[control]),
                      field.of(*parsed[1]->buttonValueArray()[control]))
                << field.name << control;
}

TEST(BankJsonReader, CommentsAreIgnoredWhateverTheyHold) {
    EXPECT_EQ(headError("\"version\"", "\"//\": [1, {\"a\": null}], \"//version\": 2, \"version\""),
              "none");
    EXPECT_EQ(padError("\"CR\"", "\"//CR is\": \"red\", \"CR\""), "none");
}

TEST(BankJsonReader, KeysMayStandInAnyOrderAndOnOneLine) {
    std::string text = knownJson();
    std::erase(text, '\n');
    text = replaced(text, "{", "\"format\": \"scenewright-bank\",", "");
    text = replaced(text, "{", "\"version\": 1,", "");
    text.replace(text.rfind('}'), 1, ", \"version\": 1, \"format\": \"scenewright-bank\"}");
    EXPECT_EQ(errorWith(text), "none");
}

TEST(BankJsonReader, FormatIsChecked) {
    EXPECT_EQ(headError("\"format\": \"scenewright-bank\",", ""), "format is missing");
    EXPECT_EQ(headError("scenewright-bank", "other\\n"),
              "format must be \"scenewright-bank\", and is \"other\xEF\xBF\xBD\"");
    EXPECT_EQ(headError("\"scenewright-bank\"", "7"),
              "format must be \"scenewright-bank\", and is 7");
    EXPECT_EQ(headError("scenewright-bank", "scenewright-scene"),
              "format must be \"scenewright-bank\", and is \"scenewright-scene\"");
}

TEST(BankJsonReader, VersionIsCheckedBeforeWhatOnlyALaterOneKnows) {
    EXPECT_EQ(headError("\"version\": 1,", ""), "version is missing");
    EXPECT_EQ(headError("\"version\": 1", "\"novelty\": 5, \"version\": 2"),
              "version is 2, and this program knows version 1 only");
    EXPECT_EQ(headError("\"version\": 1", "\"version\": 1.0"),
              "version is 1.0, and this program knows version 1 only");
    EXPECT_EQ(headError("\"version\": 1", "\"version\": \"1\""),
              "version is a text, and this program knows version 1 only");
}

TEST(BankJsonReader, PadsColourStandsForItsThreeFields) {
    const std::string text = knownJson();
    const std::size_t pad = text.find("pad4", text.find("Caf"));
    const std::size_t from = text.find("\"CR\"", pad);
    const std::size_t to = text.find('}', from);
    const auto withColour = [&](const std::string& colour) {
        return text.substr(0, from) + "\"colour\": " + colour + text.substr(to);
    };
    const auto read = readBankJson(withColour("\"#FF8000\""));
    ASSERT_TRUE(read) << read.error();
    BankImage image = knownImage();
    image.at(253 + 229 + 3) = 127;
    image.at(253 + 237 + 3) = 64;
    image.at(253 + 245 + 3) = 0;
    EXPECT_EQ(encodeBank(*read), image);
    const std::string place = "scenes[1].pads[3].colour must ";
    EXPECT_EQ(errorWith(withColour("\"red\"")),
              place + "be # and six hexadecimal digits, and is \"red\"");
    EXPECT_EQ(errorWith(withColour("5")), place + "be # and six hexadecimal digits, and is 5");
    EXPECT_EQ(padError("\"CR\"", "\"colour\": \"#ff8000\", \"CR\""),
              place + "not stand beside CR, CG and CB");
    EXPECT_EQ(errorWith(replaced(knownJson(), "\"knobs\"", "\"Enable\"",
                                 "\"colour\": \"#ff8000\", \"Enable\"")),
              "scenes[0].knobs[0].colour is unknown");
}

TEST(BankJsonReader, ValueOutsideItsRangeIsToldWithItsPlace) {
    const std::string start = crLine().substr(0, crLine().find(','));
    for (const auto& [value, found] : Rows{{"128", "128"},
                                           {"-1", "-1"},
                                           {"18446744073709551616", "1.8446744073709552e+19"},
                                           {"18446744073709551615", "18446744073709551615"},
                                           {"1.0", "1.0"},
                                           {"1e1", "10.0"},
                                           {"\"1\"", "a text"},
                                           {"null", "null"},
                                           {"true", "true"},
                                           {"false", "false"},
                                           {"[1]", "an array"},
                                           {"{}", "an object"}})
        EXPECT_EQ(padError(start, std::string("\"CR\": ") + value),
                  "scenes[1].pads[3].CR must be a whole number from 0 to 127, and is " + found);
    for (const char* const value : {"127", "0", "-0"})
        EXPECT_EQ(padError(start, std::string("\"CR\": ") + value), "none");
}

TEST(BankJsonReader, MissingFieldIsToldWithItsPlace) {
    EXPECT_EQ(padError("\"CR\"", "\"//was CR\""), "scenes[1].pads[3].CR is missing");
    EXPECT_EQ(headError("\"KeyTranspose\"", "\"//\""), "scenes[0].common.KeyTranspose is missing");
    EXPECT_EQ(headError("\"knobs\"", "\"//\""), "scenes[0].knobs is missing");
    EXPECT_EQ(headError("\"scenes\"", "\"//\""), "scenes is missing");
}

TEST(BankJsonReader, UnknownFieldIsToldWithItsPlace) {
    EXPECT_EQ(padError("\"CR\"", "\"cr\""), "scenes[1].pads[3].cr is unknown");
    EXPECT_EQ(padError("\"CR\"", "\"Enable\": 1, \"CR\""), "scenes[1].pads[3].Enable is unknown");
    EXPECT_EQ(padError("\"CR\"", "\"\": 1, \"CR\""), "scenes[1].pads[3]. is unknown");
    EXPECT_EQ(padError("\"CR\"", "\"a\\nb\": 1, \"CR\""), "scenes[1].pads[3].a\xEF\xBF\xBD"
                                                          "b is unknown");
    EXPECT_EQ(headError("\"knobs\"", "\"dials\": [], \"knobs\""), "scenes[0].dials is unknown");
    EXPECT_EQ(headError("\"version\"", "\"author\": \"me\", \"version\""), "author is unknown");
}

TEST(BankJsonReader, DuplicateKeyIsToldWithItsPlace) {
    EXPECT_EQ(padError("\"CR\"", "\"CR\": 1, \"CR\""), "scenes[1].pads[3].CR stands twice");
    EXPECT_EQ(headError("\"version\"", "\"version\": 1, \"version\""), "version stands twice");
    EXPECT_EQ(headError("\"//GlobalMIDICh\"", "\"//GlobalMIDICh\": \"\", \"//GlobalMIDICh\""),
              "scenes[0].common.//GlobalMIDICh stands twice");
    // A key counts by what it spells, not by how it is written.
    EXPECT_EQ(padError("\"CR\"", "\"\\u0043R\": 1, \"CR\""), "scenes[1].pads[3].CR stands twice");
}

TEST(BankJsonReader, MissingControlIsToldWithItsPlace) {
    std::string text = knownJson();
    const std::size_t key25 = text.find("\"//\": \"key25\"");
    const std::size_t from = text.rfind("},", key25);
    const std::size_t to = text.find('}', key25);
    EXPECT_EQ(errorWith(text.erase(from, to - from)), "scenes[0].keys[24] is missing");
    EXPECT_EQ(errorWith(replaced(knownJson(), "pad8", "}", "}, {}")),
              "scenes[0].pads[8] is one too many, as a scene has 8 pads");
    EXPECT_EQ(headError("\"pads\": [", "\"pads\": 5, \"//\": ["),
              "scenes[0].pads must be an array, and is 5");
    EXPECT_EQ(errorWith(replaced(knownJson(), "knob2", "},", "}, 7,")),
              "scenes[0].knobs[4] is one too many, as a scene has 4 knobs");
}

TEST(BankJsonReader, AnyOtherNumberOfScenesIsRefused) {
    const std::string head = "{\"format\": \"scenewright-bank\", \"version\": 1, \"scenes\": ";
    EXPECT_EQ(errorWith(head + "[]}"), "scenes[0] is missing");
    EXPECT_EQ(errorWith(head + "[{},{},{}]}"), "scenes[3] is missing");
    EXPECT_EQ(errorWith(head + "[{},{},{},{},{}]}"),
              "scenes[4] is one too many, as a bank has 4 scenes");
    EXPECT_EQ(errorWith(head + "{}}"), "scenes must be an array, and is an object");
    EXPECT_EQ(errorWith(head + "[1,2,3,4]}"), "scenes[0] must be an object, and is 1");
}

TEST(BankJsonReader, NameIsChecked) {
    const std::string must =
        "scenes[0].name must be at most 12 bytes without control characters, and is ";
    EXPECT_EQ(headError("\"LIVE\"", "\"TWELVE BYTES\""), "none");
    EXPECT_EQ(headError("\"LIVE\"", "\"THIRTEEN BYTE\""), must + "\"THIRTEEN BYTE\"");
    EXPECT_EQ(headError("\"LIVE\"", "\"ééééééé\""), must + "\"ééééééé\"");
    EXPECT_EQ(headError("\"LIVE\"", "\"A\\u0000B\""), must + "\"A\xEF\xBF\xBD"
                                                             "B\"");
    EXPECT_EQ(headError("\"LIVE\"", "\"A\\u0000\""), must + "\"A\"");
    EXPECT_EQ(headError("\"LIVE\"", "5"), "scenes[0].name must be a text, and is 5");
    EXPECT_EQ(headError("\"name\": \"LIVE\",", ""), "scenes[0].name is missing");
    EXPECT_EQ(headError("\"LIVE\"", "\"LIVE\", \"nameBytes\": \"00\""),
              "scenes[0].nameBytes must not stand beside a name");
}

TEST(BankJsonReader, NameBytesAreChecked) {
    const std::string must = "scenes[2].nameBytes must be 24 hexadecimal digits, and is ";
    const auto error = [](const std::string& to) {
        return errorWith(
            replaced(knownJson(), "\"nameBytes\"", "\"ff00410a0000000000000042\"", to));
    };
    EXPECT_EQ(error("\"FF00410A0000000000000042\""), "none");
    EXPECT_EQ(error("\"ff00410a00000000000000\""), must + "\"ff00410a00000000000000\"");
    EXPECT_EQ(error("\"ff00410a00000000000000 2\""), must + "\"ff00410a00000000000000 2\"");
    EXPECT_EQ(error("\"ff00410a00000000000000+2\""), must + "\"ff00410a00000000000000+2\"");
    EXPECT_EQ(error("\"\""), must + "\"\"");
    EXPECT_EQ(error("{}"), "scenes[2].nameBytes must be a text, and is an object");
}

TEST(BankJsonReader, BrokenTextIsToldWithLineAndColumn) {
    EXPECT_EQ(errorWith(""), "its JSON text ends too soon, in line 1");
    EXPECT_EQ(errorWith("{\n  \"format\""), "its JSON text ends too soon, in line 2");
    EXPECT_EQ(errorWith("{\n  \"format\" 5}"), "its JSON text is wrong at line 2, column 12");
    EXPECT_EQ(errorWith("{} x"), "its JSON text is wrong at line 1, column 4");
    EXPECT_EQ(errorWith("{\"a\": 1e400}"), "its JSON text is wrong at line 1, column 11");
    EXPECT_EQ(errorWith("{\"\xC3\x28\": 1}"), "its JSON text is wrong at line 1, column 4");
    EXPECT_EQ(errorWith("{\"\\ud800\": 1}"), "its JSON text is wrong at line 1, column 9");
    EXPECT_EQ(errorWith("[]"), "it must be an object, and is an array");
    EXPECT_EQ(errorWith("7"), "it must be an object, and is 7");
}

TEST(BankJsonReader, HostileTextsEndAtALimit) {
    EXPECT_EQ(errorWith(std::string(1'000'000, '[')), "it is nested deeper than 16 levels");
    EXPECT_EQ(errorWith("{\"a\":" + std::string(15, '[') + std::string(15, ']') + "}"),
              "format is missing");
    std::string many = "[0";
    for (int i = 0; i < 1'000'000; ++i)
        many += ",0";
    EXPECT_EQ(errorWith(many + "]"), "it holds more than 1000000 values");
    EXPECT_EQ(errorWith(std::string(kJsonBytes + 1, ' ')), "it is longer than 67108864 bytes");
}

TEST(BankJsonReader, SceneAloneIsReadWithItsOwnPlaces) {
    const SceneList scenes = testing::knownScenes();
    const std::string text = writeSceneJson(*scenes[2], PopUpValue());
    const SceneList read = readBankOrSceneJson(text).value();
    ASSERT_EQ(read.size(), 1U);
    EXPECT_EQ(encodeScene(*read[0]), encodeScene(*scenes[2]));
    EXPECT_EQ(readBankOrSceneJson(knownJson()).value().size(), 4U);
    EXPECT_EQ(readBankOrSceneJson(replaced(text, "pad4", "\"CR\"", "\"CX\"")).error(),
              "scene.pads[3].CX is unknown");
}

TEST(BankJsonReader, TextCutAtAnyLengthIsToldInOnePhrase) {
    const std::string text = denseScene();
    for (std::size_t length = 0; length < text.size(); ++length)
        ASSERT_EQ(readBankOrSceneJson(text.substr(0, length)).error(),
                  "its JSON text ends too soon, in line 1")
            << length;
    EXPECT_TRUE(readBankOrSceneJson(text));
}

TEST(BankJsonReader, AnyFlippedByteIsReadOrToldInOnePhrase) {
    const std::string text = denseScene();
    std::size_t refused = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::string flipped = text;
        flipped[at] = static_cast<char>(flipped[at] ^ (1 << (at % 8)));
        const auto read = readBankOrSceneJson(flipped);
        if (read)
            continue;
        ++refused;
        ASSERT_EQ(read.error().find('\n'), std::string::npos) << read.error();
        ASSERT_FALSE(read.error().empty());
    }
    // What is read after all: other digits in a number, other letters in a comment.
    EXPECT_GT(refused, text.size() * 3 / 4);
}

TEST(BankJsonReader, RandomBanksComeBackByteForByteNamesIncluded) {
    std::mt19937 random(20);
    const auto lists = loadPopUpValue();
    for (int round = 0; round < 20; ++round) {
        BankImage image{};
        for (std::size_t i = 0; i < image.size(); ++i)
            image[i] = static_cast<std::uint8_t>(random() % (i % 253 < 12 ? 256U : 128U));
        const auto read = readBankJson(writeBankJson(parseScenes(image), *lists));
        ASSERT_EQ(encodeBank(read.value()), image);
    }
}

} // namespace scenewright
