#include "bank/BankFile.h"

#include "platform/Diagnostics.h"
#include "tests/bank/KnownBank.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace scenewright {

namespace {

using testing::TempFolder;

std::vector<std::uint8_t> bytesOf(const std::string& text) {
    return {text.begin(), text.end()};
}

std::string errorOf(const Result<BankFile>& bank) {
    return bank ? "none" : bank.error();
}

// What is told of the known image with one byte changed.
std::string imageError(std::size_t byte, std::uint8_t value) {
    BankImage image = testing::knownImage();
    image.at(byte) = value;
    return errorOf(parseBank(image, "my.bank"));
}

void writeText(const std::string& path, const std::string& text) {
    testing::writeBytes(path, bytesOf(text));
}

TEST(BankFile, EverySizeButABanksIsRefusedByNameAndSize) {
    const TempFolder folder;
    const std::string file = folder.file("bank");
    for (std::size_t size = 0; size <= 1100; size += size == 1011 || size == 1012 ? 1 : 11) {
        testing::writeBytes(file, std::vector<std::uint8_t>(size, 0x41));
        EXPECT_EQ(errorOf(readBank(file)),
                  size == 1012 ? "none"
                               : file + ": not a bank: it holds " + std::to_string(size) +
                                     " bytes, and a bank holds 1012 or is JSON");
    }
}

TEST(BankFile, WrittenBankIsTheImageOfTheFirstFourScenes) {
    const TempFolder folder;
    SceneList scenes = parseScenes(BankImage{});
    scenes.at(2)->commonValue()->setSceneName("LIVE");
    scenes.push_back(scenes.front());
    ASSERT_TRUE(writeBank(folder.file("bank"), scenes, BankFormat::Image, {}));
    const auto bytes = testing::readBytes(folder.file("bank"));
    ASSERT_EQ(bytes.size(), 1012U);
    EXPECT_EQ(std::string(bytes.begin() + 506, bytes.begin() + 511), std::string("LIVE\0", 5));
}

TEST(BankFile, ContentTellsTheFormWhateverTheName) {
    const TempFolder folder;
    writeText(folder.file("text.bank"), testing::knownJson());
    testing::writeBytes(folder.file("image.json"), testing::knownImage());
    const BankFile text = readBank(folder.file("text.bank")).value();
    const BankFile image = readBank(folder.file("image.json")).value();
    EXPECT_EQ(text.form, BankFormat::Json);
    EXPECT_EQ(image.form, BankFormat::Image);
    EXPECT_EQ(encodeBank(text.scenes), testing::knownImage());
    EXPECT_EQ(encodeBank(image.scenes), testing::knownImage());
}

TEST(BankFile, NameAsksForTheFormOfANewFile) {
    for (const char* const name : {"a/b.json", "B.JSON"})
        EXPECT_EQ(formatForName(name), BankFormat::Json) << name;
    for (const char* const name : {"b.bank", "json", ".json", "b.json.bak"})
        EXPECT_EQ(formatForName(name), BankFormat::Image) << name;
}

TEST(BankFile, ByteOrderMarkAndBlanksMayStandBeforeTheText) {
    EXPECT_TRUE(parseBank(bytesOf("\xEF\xBB\xBF \r\n\t" + testing::knownJson()), "bank"));
}

TEST(BankFile, ErrorInATextNamesTheFileAndThePlace) {
    const TempFolder folder;
    writeText(folder.file("bank"),
              testing::replaced(testing::knownJson(), "{", "\"KeyTranspose\"", "\"keys\""));
    EXPECT_EQ(errorOf(readBank(folder.file("bank"))),
              folder.file("bank") + ": scenes[0].common.keys is unknown");
}

TEST(BankFile, ByteOfAnImageThatIsNoValueIsToldWithItsPlace) {
    struct Case {
        std::size_t byte;
        std::uint8_t value;
        std::string place;
    };
    for (const Case& c : {Case{12, 128, "scenes[0].common.GlobalMIDICh"},
                          Case{253 + 229 + 3, 200, "scenes[1].pads[3].CR"},
                          Case{506 + 20, 255, "scenes[2].keys[0].AssignType"},
                          Case{506 + 148, 255, "scenes[2].groups[3].MIDIChannel"},
                          Case{1011, 129, "scenes[3].pads[7].CB"}})
        EXPECT_EQ(imageError(c.byte, c.value),
                  "my.bank: " + c.place + " must be a whole number from 0 to 127, and is " +
                      std::to_string(c.value));
}

TEST(BankFile, AnyByteOfANameAndAnyValueUpTo127AreRead) {
    EXPECT_EQ(imageError(0, 255), "none");
    EXPECT_EQ(imageError(11, 128), "none");
    EXPECT_EQ(imageError(12, 127), "none");
}

TEST(BankFile, ImageIsReadAsTheControllersIs) {
    const BankFile bank = parseBank(testing::knownImage(), "known").value();
    const SceneList parsed = testing::knownScenes();
    ASSERT_EQ(bank.scenes.size(), parsed.size());
    for (std::size_t scene = 0; scene < parsed.size(); ++scene)
        for (std::size_t control = 0; control < 45; ++control)
            for (const IndexField<ButtonValue>& field : kButtonOptionFields)
                EXPECT_EQ(field.of(*bank.scenes[scene]->buttonValueArray()[control]),
                          field.of(*parsed[scene]->buttonValueArray()[control]));
}

TEST(BankFile, ReadingAnImageLogsNothing) {
    std::vector<std::string> log;
    Diagnostics::setLog([&](std::string_view line) { log.emplace_back(line); });
    EXPECT_TRUE(parseBank(testing::knownImage(), "known"));
    Diagnostics::setLog({});
    EXPECT_TRUE(log.empty());
}

TEST(BankFile, TextCutToTheSizeOfAnImageIsNotTakenForOne) {
    const std::string text = testing::knownJson().substr(0, 1012);
    EXPECT_EQ(errorOf(parseBank(bytesOf(text), "cut")),
              "cut: its JSON text ends too soon, in line " +
                  std::to_string(std::ranges::count(text, '\n') + 1));
}

TEST(BankFile, ImageWhoseFirstNameBeginsWithABraceIsAnImage) {
    BankImage image = testing::knownImage();
    std::ranges::copy(std::string("{\n \"format\""), image.begin());
    EXPECT_EQ(encodeBank(parseBank(image, "brace").value().scenes), image);
}

TEST(BankFile, AnyCutOfAnImageIsRefused) {
    const BankImage image = testing::knownImage();
    for (std::size_t length = 0; length < image.size(); ++length)
        ASSERT_EQ(errorOf(parseBank(std::span(image).first(length), "cut")),
                  "cut: not a bank: it holds " + std::to_string(length) +
                      " bytes, and a bank holds 1012 or is JSON");
}

TEST(BankFile, AnyFlippedByteOfAnImageIsReadOrTold) {
    for (std::size_t at = 0; at < kBankSize; ++at) {
        BankImage image = testing::knownImage();
        image.at(at) ^= 0x80U;
        const auto bank = parseBank(image, "flipped");
        ASSERT_EQ(bank.has_value(), at % 253 < 12) << at;
        ASSERT_TRUE(!bank || encodeBank(bank->scenes) == image) << at;
    }
}

TEST(BankFile, BothFormsAreWrittenAndReadBack) {
    const TempFolder folder;
    const auto lists = loadPopUpValue();
    const SceneList scenes = testing::knownScenes();
    ASSERT_TRUE(writeBank(folder.file("a"), scenes, BankFormat::Json, *lists));
    ASSERT_TRUE(writeBank(folder.file("b"), scenes, BankFormat::Image, *lists));
    EXPECT_EQ(testing::readBytes(folder.file("a")), bytesOf(testing::knownJson()));
    EXPECT_EQ(testing::readBytes(folder.file("b")), bankBytes(scenes, BankFormat::Image, *lists));
    EXPECT_EQ(encodeBank(readBank(folder.file("b")).value().scenes), testing::knownImage());
}

TEST(BankFile, SceneHasAFileOfItsOwn) {
    const TempFolder folder;
    const SceneList scenes = testing::knownScenes();
    ASSERT_TRUE(writeScene(folder.file("scene"), *scenes[1], *loadPopUpValue()));
    const auto scene = readBankOrScene(folder.file("scene"));
    ASSERT_TRUE(scene) << scene.error();
    ASSERT_EQ(scene->scenes.size(), 1U);
    EXPECT_EQ(encodeScene(*scene->scenes[0]), encodeScene(*scenes[1]));
    EXPECT_EQ(errorOf(readBank(folder.file("scene"))),
              folder.file("scene") +
                  ": format must be \"scenewright-bank\", and is \"scenewright-scene\"");
}

TEST(BankFile, ShorterListOfScenesIsACallersFault) {
    EXPECT_THROW(static_cast<void>(encodeBank({})), std::out_of_range);
}

using testing::knownJson;
using testing::knownScenes;

TEST(BankJsonWriter, KnownBankIsItsKnownText) {
    EXPECT_EQ(writeBankJson(knownScenes(), *loadPopUpValue()), knownJson());
}

TEST(BankJsonWriter, OnlyTheFirstFourScenesAreWritten) {
    SceneList scenes = knownScenes();
    scenes.push_back(scenes.front());
    EXPECT_EQ(writeBankJson(scenes, *loadPopUpValue()), knownJson());
}

TEST(BankJsonWriter, ThreeScenesAreACallersFault) {
    SceneList scenes = knownScenes();
    scenes.pop_back();
    EXPECT_THROW(static_cast<void>(writeBankJson(scenes, PopUpValue())), std::out_of_range);
}

TEST(BankJsonWriter, SceneAloneIsTheSameTextUnderAnotherHead) {
    const std::string text = writeSceneJson(*knownScenes().front(), *loadPopUpValue());
    EXPECT_TRUE(text.starts_with("{\n"
                                 "  \"format\": \"scenewright-scene\",\n"
                                 "  \"version\": 1,\n"
                                 "  \"scene\": {\n"
                                 "    \"name\": \"LIVE\",\n"
                                 "    \"common\": {\n"
                                 "      \"GlobalMIDICh\": 8, \"//GlobalMIDICh\": \"9\",\n"))
        << text.substr(0, 200);
    EXPECT_TRUE(text.ends_with("\n      }\n    ]\n  }\n}\n")) << text.substr(text.size() - 100);
}

TEST(BankJsonWriter, WithoutListsThereAreNoTitles) {
    const std::string text = writeSceneJson(*knownScenes().front(), PopUpValue());
    EXPECT_NE(text.find("\"GlobalMIDICh\": 8,\n"), std::string::npos);
    EXPECT_EQ(text.find("\"//GlobalMIDICh\""), std::string::npos);
}

TEST(BankJsonWriter, ValueOutsideTheImagesRangeIsWrittenAsZero) {
    const SceneList scenes = knownScenes();
    scenes.front()->commonValue()->setGlobalMIDICh(128);
    scenes.front()->commonValue()->setPianoKeyCh(-1);
    const std::string text = writeSceneJson(*scenes.front(), *loadPopUpValue());
    EXPECT_NE(text.find("\"GlobalMIDICh\": 0,\n"), std::string::npos);
    EXPECT_NE(text.find("\"PianoKeyCh\": 0,\n"), std::string::npos);
}

TEST(BankJsonWriter, TitleOfAListIsEscapedAsJsonWants) {
    PopUpValue lists;
    lists.setCommon_GlobalMIDICh_Array(std::make_shared<const std::vector<std::string>>(
        std::vector<std::string>(9, "a\"b\\c\n\xFF")));
    const std::string text = writeSceneJson(*knownScenes().front(), lists);
    EXPECT_NE(text.find("\"//GlobalMIDICh\": \"a\\\"b\\\\c\\n\xEF\xBF\xBD\",\n"),
              std::string::npos);
}

} // namespace

} // namespace scenewright
