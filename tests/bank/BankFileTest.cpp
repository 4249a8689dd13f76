#include "bank/BankFile.h"

#include "platform/Diagnostics.h"
#include "tests/bank/KnownBank.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

namespace scenewright {

using testing::TempFolder;

namespace {

std::vector<std::uint8_t> bytesOf(const std::string& text) {
    return {text.begin(), text.end()};
}

// What is told of the known image with one byte changed.
std::string imageTrouble(std::size_t byte, std::uint8_t value) {
    BankImage image = testing::knownImage();
    image.at(byte) = value;
    return parseBank(image, "my.bank").trouble.value_or("none");
}

void writeText(const std::string& path, const std::string& text) {
    testing::writeBytes(path, bytesOf(text));
}

} // namespace

TEST(BankFile, EverySizeButABanksIsRefused) {
    const TempFolder folder;
    for (std::size_t size = 0; size <= 1100; size += size == 1011 || size == 1012 ? 1 : 11) {
        testing::writeBytes(folder.file("bank"), std::vector<std::uint8_t>(size, 0x41));
        const BankFile bank = readBank(folder.file("bank"));
        EXPECT_EQ(bank.trouble.has_value(), size != 1012) << size;
        EXPECT_EQ(bank.scenes.size(), size == 1012 ? 4U : 0U) << size;
    }
}

TEST(BankFile, TroubleNamesTheFileAndItsSize) {
    const TempFolder folder;
    testing::writeBytes(folder.file("bank"), std::vector<std::uint8_t>(253, 0));
    EXPECT_EQ(readBank(folder.file("bank")).trouble,
              folder.file("bank") +
                  ": not a bank: it holds 253 bytes, and a bank holds 1012 or is JSON");
}

TEST(BankFile, WrittenBankIsTheImageOfTheFirstFourScenes) {
    const TempFolder folder;
    SceneList scenes = parseScenes(BankImage{});
    scenes.at(2)->commonValue()->setSceneName("LIVE");
    scenes.push_back(scenes.front());
    ASSERT_TRUE(writeBank(folder.file("bank"), scenes));
    const auto bytes = testing::readBytes(folder.file("bank"));
    ASSERT_EQ(bytes.size(), 1012U);
    EXPECT_EQ(std::string(bytes.begin() + 506, bytes.begin() + 511), std::string("LIVE\0", 5));
}

TEST(BankFile, ContentTellsTheFormWhateverTheName) {
    const TempFolder folder;
    writeText(folder.file("text.bank"), testing::knownJson());
    testing::writeBytes(folder.file("image.json"), testing::knownImage());
    const BankFile text = readBank(folder.file("text.bank"));
    const BankFile image = readBank(folder.file("image.json"));
    EXPECT_EQ(text.form, BankFormat::Json);
    EXPECT_EQ(image.form, BankFormat::Image);
    EXPECT_EQ(encodeBank(text.scenes), testing::knownImage());
    EXPECT_EQ(encodeBank(image.scenes), testing::knownImage());
}

TEST(BankFile, NameAsksForTheFormOfANewFile) {
    EXPECT_EQ(formatForName("a/b.json"), BankFormat::Json);
    EXPECT_EQ(formatForName("B.JSON"), BankFormat::Json);
    EXPECT_EQ(formatForName("b.bank"), BankFormat::Image);
    EXPECT_EQ(formatForName("json"), BankFormat::Image);
    EXPECT_EQ(formatForName(".json"), BankFormat::Image);
    EXPECT_EQ(formatForName("b.json.bak"), BankFormat::Image);
}

TEST(BankFile, ByteOrderMarkAndBlanksMayStandBeforeTheText) {
    const TempFolder folder;
    writeText(folder.file("bank"), "\xEF\xBB\xBF \r\n\t" + testing::knownJson());
    EXPECT_EQ(readBank(folder.file("bank")).trouble, std::nullopt);
}

TEST(BankFile, TroubleInATextNamesTheFileAndThePlace) {
    const TempFolder folder;
    writeText(folder.file("bank"),
              testing::replaced(testing::knownJson(), "{", "\"KeyTranspose\"", "\"keys\""));
    EXPECT_EQ(readBank(folder.file("bank")).trouble,
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
        EXPECT_EQ(imageTrouble(c.byte, c.value),
                  "my.bank: " + c.place + " must be a whole number from 0 to 127, and is " +
                      std::to_string(c.value));
}

TEST(BankFile, AnyByteOfANameAndAnyValueUpTo127AreRead) {
    EXPECT_EQ(imageTrouble(0, 255), "none");
    EXPECT_EQ(imageTrouble(11, 128), "none");
    EXPECT_EQ(imageTrouble(12, 127), "none");
}

TEST(BankFile, ImageIsReadAsTheControllersIs) {
    const BankFile bank = parseBank(testing::knownImage(), "known");
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
    EXPECT_EQ(parseBank(testing::knownImage(), "known").trouble, std::nullopt);
    Diagnostics::setLog({});
    EXPECT_TRUE(log.empty());
}

TEST(BankFile, TextCutToTheSizeOfAnImageIsNotTakenForOne) {
    const std::string text = testing::knownJson().substr(0, 1012);
    const BankFile bank = parseBank(bytesOf(text), "cut");
    EXPECT_EQ(bank.trouble, "cut: its JSON text ends too soon, in line " +
                                std::to_string(std::ranges::count(text, '\n') + 1));
}

TEST(BankFile, ImageWhoseFirstNameBeginsWithABraceIsAnImage) {
    BankImage image = testing::knownImage();
    std::ranges::copy(std::string("{\n \"format\""), image.begin());
    const BankFile bank = parseBank(image, "brace");
    ASSERT_EQ(bank.trouble, std::nullopt);
    EXPECT_EQ(encodeBank(bank.scenes), image);
}

TEST(BankFile, AnyCutOfAnImageIsRefused) {
    const BankImage image = testing::knownImage();
    for (std::size_t length = 0; length < image.size(); ++length)
        ASSERT_EQ(parseBank(std::span(image).first(length), "cut").trouble,
                  "cut: not a bank: it holds " + std::to_string(length) +
                      " bytes, and a bank holds 1012 or is JSON");
}

TEST(BankFile, AnyFlippedByteOfAnImageIsReadOrTold) {
    for (std::size_t at = 0; at < kBankSize; ++at) {
        BankImage image = testing::knownImage();
        image.at(at) ^= 0x80U;
        const BankFile bank = parseBank(image, "flipped");
        ASSERT_EQ(bank.trouble.has_value(), at % 253 >= 12) << at;
        if (bank.trouble)
            continue;
        ASSERT_EQ(encodeBank(bank.scenes), image);
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
    EXPECT_EQ(encodeBank(readBank(folder.file("b")).scenes), testing::knownImage());
}

TEST(BankFile, SceneHasAFileOfItsOwn) {
    const TempFolder folder;
    const SceneList scenes = testing::knownScenes();
    ASSERT_TRUE(writeScene(folder.file("scene"), *scenes[1], *loadPopUpValue()));
    const auto scene = readScene(folder.file("scene"));
    ASSERT_TRUE(scene) << scene.error();
    EXPECT_EQ(encodeScene(**scene), encodeScene(*scenes[1]));
    EXPECT_EQ(readBank(folder.file("scene")).trouble,
              folder.file("scene") +
                  ": format must be \"scenewright-bank\", and is \"scenewright-scene\"");
    testing::writeBytes(folder.file("bank"), testing::knownImage());
    EXPECT_EQ(readScene(folder.file("bank")).error(),
              folder.file("bank") + ": its JSON text is wrong at line 1, column 1");
    EXPECT_TRUE(readScene(folder.file("none")).error().find(folder.file("none")) !=
                std::string::npos);
}

TEST(BankFile, ShorterListOfScenesIsACallersFault) {
    EXPECT_THROW(static_cast<void>(encodeBank({})), std::out_of_range);
}

} // namespace scenewright
