#include "bank/BankFile.h"
#include "bank/BankJson.h"
#include "bank/JsonTree.h"
#include "tests/bank/KnownBank.h"

#include <gtest/gtest.h>

#include <random>

namespace scenewright {

using testing::knownImage;
using testing::knownJson;
using testing::replaced;

namespace {

std::string troubleWith(const std::string& text) {
    const BankContent read = readBankJson(text);
    EXPECT_EQ(read.scenes.empty(), read.trouble.has_value());
    return read.trouble.value_or("none");
}

// The known bank with one thing replaced in its second scene's fourth pad.
std::string padTrouble(const std::string& from, const std::string& to) {
    std::string text = knownJson();
    const std::size_t scene = text.find("Caf");
    const std::size_t pad = text.find("pad4", scene);
    const std::size_t at = text.find(from, pad);
    return troubleWith(text.replace(at, from.size(), to));
}

std::string headTrouble(const std::string& from, const std::string& to) {
    return troubleWith(replaced(knownJson(), "{", from, to));
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

TEST(BankJsonReader, KnownTextIsTheKnownImage) {
    const BankContent read = readBankJson(knownJson());
    ASSERT_EQ(read.trouble, std::nullopt);
    EXPECT_EQ(encodeBank(read.scenes), knownImage());
}

TEST(BankJsonReader, ScenesAreWhatAReadOfTheImageGives) {
    const BankContent read = readBankJson(knownJson());
    const SceneList parsed = testing::knownScenes();
    ASSERT_EQ(read.scenes.size(), 4U);
    EXPECT_EQ(read.scenes[0]->commonValue()->SceneName(), parsed[0]->commonValue()->SceneName());
    for (const IndexField<ButtonValue>& field : kButtonOptionFields)
        for (std::size_t control = 0; control < 45; ++control)
            EXPECT_EQ(field.of(*read.scenes[1]->buttonValueArray()[control]),
                      field.of(*parsed[1]->buttonValueArray()[control]))
                << field.name << control;
}

TEST(BankJsonReader, CommentsAreIgnoredWhateverTheyHold) {
    EXPECT_EQ(
        headTrouble("\"version\"", "\"//\": [1, {\"a\": null}], \"//version\": 2, \"version\""),
        "none");
    EXPECT_EQ(padTrouble("\"CR\"", "\"//CR is\": \"red\", \"CR\""), "none");
}

TEST(BankJsonReader, KeysMayStandInAnyOrderAndOnOneLine) {
    std::string text = knownJson();
    std::erase(text, '\n');
    text = replaced(text, "{", "\"format\": \"scenewright-bank\",", "");
    text = replaced(text, "{", "\"version\": 1,", "");
    text.replace(text.rfind('}'), 1, ", \"version\": 1, \"format\": \"scenewright-bank\"}");
    EXPECT_EQ(troubleWith(text), "none");
}

TEST(BankJsonReader, FormatIsChecked) {
    EXPECT_EQ(headTrouble("\"format\": \"scenewright-bank\",", ""), "format is missing");
    EXPECT_EQ(headTrouble("scenewright-bank", "other\\n"),
              "format must be \"scenewright-bank\", and is \"other\xEF\xBF\xBD\"");
    EXPECT_EQ(headTrouble("\"scenewright-bank\"", "7"),
              "format must be \"scenewright-bank\", and is 7");
    EXPECT_EQ(headTrouble("scenewright-bank", "scenewright-scene"),
              "format must be \"scenewright-bank\", and is \"scenewright-scene\"");
}

TEST(BankJsonReader, VersionIsCheckedBeforeWhatOnlyALaterOneKnows) {
    EXPECT_EQ(headTrouble("\"version\": 1,", ""), "version is missing");
    EXPECT_EQ(headTrouble("\"version\": 1", "\"novelty\": 5, \"version\": 2"),
              "version is 2, and this program knows version 1 only");
    EXPECT_EQ(headTrouble("\"version\": 1", "\"version\": 1.0"),
              "version is 1.0, and this program knows version 1 only");
    EXPECT_EQ(headTrouble("\"version\": 1", "\"version\": \"1\""),
              "version is a text, and this program knows version 1 only");
}

TEST(BankJsonReader, ValueOutsideItsRangeIsToldWithItsPlace) {
    const std::string must = "scenes[1].pads[3].CR must be a whole number from 0 to 127, and is ";
    const std::string start = crLine().substr(0, crLine().find(','));
    EXPECT_EQ(padTrouble(start, "\"CR\": 128"), must + "128");
    EXPECT_EQ(padTrouble(start, "\"CR\": -1"), must + "-1");
    EXPECT_EQ(padTrouble(start, "\"CR\": 18446744073709551616"), must + "18446744073709551616");
    EXPECT_EQ(padTrouble(start, "\"CR\": 18446744073709551615"), must + "18446744073709551615");
    EXPECT_EQ(padTrouble(start, "\"CR\": 1.0"), must + "1.0");
    EXPECT_EQ(padTrouble(start, "\"CR\": 1e1"), must + "1e1");
    EXPECT_EQ(padTrouble(start, "\"CR\": \"1\""), must + "a text");
    EXPECT_EQ(padTrouble(start, "\"CR\": null"), must + "null");
    EXPECT_EQ(padTrouble(start, "\"CR\": true"), must + "true");
    EXPECT_EQ(padTrouble(start, "\"CR\": false"), must + "false");
    EXPECT_EQ(padTrouble(start, "\"CR\": [1]"), must + "an array");
    EXPECT_EQ(padTrouble(start, "\"CR\": {}"), must + "an object");
    EXPECT_EQ(padTrouble(start, "\"CR\": 127"), "none");
    EXPECT_EQ(padTrouble(start, "\"CR\": 0"), "none");
}

TEST(BankJsonReader, MissingFieldIsToldWithItsPlace) {
    EXPECT_EQ(padTrouble("\"CR\"", "\"//was CR\""), "scenes[1].pads[3].CR is missing");
    EXPECT_EQ(headTrouble("\"KeyTranspose\"", "\"//\""),
              "scenes[0].common.KeyTranspose is missing");
    EXPECT_EQ(headTrouble("\"knobs\"", "\"//\""), "scenes[0].knobs is missing");
    EXPECT_EQ(headTrouble("\"scenes\"", "\"//\""), "scenes is missing");
}

TEST(BankJsonReader, UnknownFieldIsToldWithItsPlace) {
    EXPECT_EQ(padTrouble("\"CR\"", "\"cr\""), "scenes[1].pads[3].cr is unknown");
    EXPECT_EQ(padTrouble("\"CR\"", "\"Enable\": 1, \"CR\""), "scenes[1].pads[3].Enable is unknown");
    EXPECT_EQ(padTrouble("\"CR\"", "\"\": 1, \"CR\""), "scenes[1].pads[3]. is unknown");
    EXPECT_EQ(padTrouble("\"CR\"", "\"a\\nb\": 1, \"CR\""), "scenes[1].pads[3].a\xEF\xBF\xBD"
                                                            "b is unknown");
    EXPECT_EQ(headTrouble("\"knobs\"", "\"dials\": [], \"knobs\""), "scenes[0].dials is unknown");
    EXPECT_EQ(headTrouble("\"version\"", "\"author\": \"me\", \"version\""), "author is unknown");
}

TEST(BankJsonReader, DuplicateKeyIsToldWithItsPlace) {
    EXPECT_EQ(padTrouble("\"CR\"", "\"CR\": 1, \"CR\""), "scenes[1].pads[3].CR stands twice");
    EXPECT_EQ(headTrouble("\"version\"", "\"version\": 1, \"version\""), "version stands twice");
    EXPECT_EQ(headTrouble("\"//GlobalMIDICh\"", "\"//GlobalMIDICh\": \"\", \"//GlobalMIDICh\""),
              "scenes[0].common.//GlobalMIDICh stands twice");
    // A key counts by what it spells, not by how it is written.
    EXPECT_EQ(padTrouble("\"CR\"", "\"\\u0043R\": 1, \"CR\""), "scenes[1].pads[3].CR stands twice");
}

TEST(BankJsonReader, MissingControlIsToldWithItsPlace) {
    std::string text = knownJson();
    const std::size_t key25 = text.find("\"//\": \"key25\"");
    const std::size_t from = text.rfind("},", key25);
    const std::size_t to = text.find('}', key25);
    EXPECT_EQ(troubleWith(text.erase(from, to - from)), "scenes[0].keys[24] is missing");
    EXPECT_EQ(troubleWith(replaced(knownJson(), "pad8", "}", "}, {}")),
              "scenes[0].pads[8] is one too many, as a scene has 8 pads");
    EXPECT_EQ(headTrouble("\"pads\": [", "\"pads\": 5, \"//\": ["),
              "scenes[0].pads must be an array, and is 5");
    EXPECT_EQ(troubleWith(replaced(knownJson(), "knob2", "},", "}, 7,")),
              "scenes[0].knobs[4] is one too many, as a scene has 4 knobs");
}

TEST(BankJsonReader, AnyOtherNumberOfScenesIsRefused) {
    const std::string head = "{\"format\": \"scenewright-bank\", \"version\": 1, \"scenes\": ";
    EXPECT_EQ(troubleWith(head + "[]}"), "scenes[0] is missing");
    EXPECT_EQ(troubleWith(head + "[{},{},{}]}"), "scenes[3] is missing");
    EXPECT_EQ(troubleWith(head + "[{},{},{},{},{}]}"),
              "scenes[4] is one too many, as a bank has 4 scenes");
    EXPECT_EQ(troubleWith(head + "{}}"), "scenes must be an array, and is an object");
    EXPECT_EQ(troubleWith(head + "[1,2,3,4]}"), "scenes[0] must be an object, and is 1");
}

TEST(BankJsonReader, NameIsChecked) {
    const std::string must =
        "scenes[0].name must be at most 12 bytes without control characters, and is ";
    EXPECT_EQ(headTrouble("\"LIVE\"", "\"TWELVE BYTES\""), "none");
    EXPECT_EQ(headTrouble("\"LIVE\"", "\"THIRTEEN BYTE\""), must + "\"THIRTEEN BYTE\"");
    EXPECT_EQ(headTrouble("\"LIVE\"", "\"ééééééé\""), must + "\"ééééééé\"");
    EXPECT_EQ(headTrouble("\"LIVE\"", "\"A\\u0000B\""), must + "\"A\xEF\xBF\xBD"
                                                               "B\"");
    EXPECT_EQ(headTrouble("\"LIVE\"", "\"A\\u0000\""), must + "\"A\"");
    EXPECT_EQ(headTrouble("\"LIVE\"", "5"), "scenes[0].name must be a text, and is 5");
    EXPECT_EQ(headTrouble("\"name\": \"LIVE\",", ""), "scenes[0].name is missing");
    EXPECT_EQ(headTrouble("\"LIVE\"", "\"LIVE\", \"nameBytes\": \"00\""),
              "scenes[0].nameBytes must not stand beside a name");
}

TEST(BankJsonReader, NameBytesAreChecked) {
    const std::string must = "scenes[2].nameBytes must be 24 hexadecimal digits, and is ";
    const auto trouble = [](const std::string& to) {
        return troubleWith(
            replaced(knownJson(), "\"nameBytes\"", "\"ff00410a0000000000000042\"", to));
    };
    EXPECT_EQ(trouble("\"FF00410A0000000000000042\""), "none");
    EXPECT_EQ(trouble("\"ff00410a00000000000000\""), must + "\"ff00410a00000000000000\"");
    EXPECT_EQ(trouble("\"ff00410a00000000000000 2\""), must + "\"ff00410a00000000000000 2\"");
    EXPECT_EQ(trouble("\"ff00410a00000000000000+2\""), must + "\"ff00410a00000000000000+2\"");
    EXPECT_EQ(trouble("\"\""), must + "\"\"");
    EXPECT_EQ(trouble("{}"), "scenes[2].nameBytes must be a text, and is an object");
}

TEST(BankJsonReader, BrokenTextIsToldWithLineAndColumn) {
    EXPECT_EQ(troubleWith(""), "its JSON text ends too soon, in line 1");
    EXPECT_EQ(troubleWith("{\n  \"format\""), "its JSON text ends too soon, in line 2");
    EXPECT_EQ(troubleWith("{\n  \"format\" 5}"), "its JSON text is wrong at line 2, column 12");
    EXPECT_EQ(troubleWith("{} x"), "its JSON text is wrong at line 1, column 4");
    EXPECT_EQ(troubleWith("{\"a\": 1e400}"), "its JSON text is wrong at line 1, column 11");
    EXPECT_EQ(troubleWith("{\"\xC3\x28\": 1}"), "its JSON text is wrong at line 1, column 4");
    EXPECT_EQ(troubleWith("{\"\\ud800\": 1}"), "its JSON text is wrong at line 1, column 9");
    EXPECT_EQ(troubleWith("[]"), "it must be an object, and is an array");
    EXPECT_EQ(troubleWith("7"), "it must be an object, and is 7");
}

TEST(BankJsonReader, HostileTextsEndAtALimit) {
    EXPECT_EQ(troubleWith(std::string(1'000'000, '[')), "it is nested deeper than 16 levels");
    EXPECT_EQ(troubleWith("{\"a\":" + std::string(15, '[') + std::string(15, ']') + "}"),
              "format is missing");
    std::string many = "[0";
    for (int i = 0; i < 1'000'000; ++i)
        many += ",0";
    EXPECT_EQ(troubleWith(many + "]"), "it holds more than 1000000 values");
    EXPECT_EQ(troubleWith(std::string(kJsonBytes + 1, ' ')), "it is longer than 67108864 bytes");
}

TEST(BankJsonReader, SceneAloneIsReadWithItsOwnPlaces) {
    const SceneList scenes = testing::knownScenes();
    const std::string text = writeSceneJson(*scenes[2], PopUpValue());
    const BankContent read = readSceneJson(text);
    ASSERT_EQ(read.scenes.size(), 1U);
    EXPECT_EQ(encodeScene(*read.scenes[0]), encodeScene(*scenes[2]));
    EXPECT_EQ(readSceneJson(replaced(text, "pad4", "\"CR\"", "\"CX\"")).trouble,
              "scene.pads[3].CX is unknown");
    EXPECT_EQ(readSceneJson(knownJson()).trouble,
              "format must be \"scenewright-scene\", and is \"scenewright-bank\"");
}

TEST(BankJsonReader, TextCutAtAnyLengthIsToldInOnePhrase) {
    const std::string text = denseScene();
    for (std::size_t length = 0; length < text.size(); ++length) {
        const auto trouble = readSceneJson(text.substr(0, length)).trouble;
        ASSERT_EQ(trouble, "its JSON text ends too soon, in line 1") << length;
    }
    EXPECT_EQ(readSceneJson(text).trouble, std::nullopt);
}

TEST(BankJsonReader, AnyFlippedByteIsReadOrToldInOnePhrase) {
    const std::string text = denseScene();
    std::size_t refused = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::string flipped = text;
        flipped[at] = static_cast<char>(flipped[at] ^ (1 << (at % 8)));
        const BankContent read = readSceneJson(flipped);
        ASSERT_EQ(read.scenes.empty(), read.trouble.has_value()) << at;
        if (!read.trouble)
            continue;
        ++refused;
        ASSERT_EQ(read.trouble->find('\n'), std::string::npos) << *read.trouble;
        ASSERT_FALSE(read.trouble->empty());
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
        const BankContent read = readBankJson(writeBankJson(parseScenes(image), *lists));
        ASSERT_EQ(read.trouble, std::nullopt);
        ASSERT_EQ(encodeBank(read.scenes), image);
    }
}

} // namespace scenewright
