#include "model/FileAction.h"

#include "platform/Resources.h"
#include "tests/model/RecordFields.h"
#include "tests/platform/TextFile.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace scenewright {
namespace {

// Only the test's own resource folder is seen: the user's is one without files, and the test
// program stands in a folder of its own (see CMakeLists.txt), beside no resources.
class FileActionTest : public ::testing::Test {
protected:
    FileActionTest() {
        ::setenv("XDG_CONFIG_HOME", folder_.file("no-config").c_str(), 1);
        Resources::setFolder(folder_.path());
    }
    ~FileActionTest() override { Resources::setFolder({}); }

    void writeDefault(const std::string& rootEntries) const {
        writeFile(R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)" +
                  rootEntries + "</dict></plist>");
    }
    void writeFile(const std::string& content) const {
        const std::filesystem::path file = folder_.file("default.plist");
        if (std::filesystem::exists(file))
            rewriteText(file, content); // as the same file by its time
        else
            writeText(file, content);
    }

private:
    testing::TempFolder folder_;
};

std::string entry(const std::string& key, const std::string& node) {
    return "<key>" + key + "</key>" + node;
}

std::string numberOf(const std::string& key, int value) {
    return entry(key, "<integer>" + std::to_string(value) + "</integer>");
}

std::string arrayOf(const std::string& first, const std::string& second) {
    return entry("ButtonArray",
                 "<array><dict>" + first + "</dict><dict>" + second + "</dict></array>");
}

using Dictionary = PropertyValue::Dictionary;

PropertyValue number(std::int64_t value) {
    return PropertyValue(PropertyValue::Node(value));
}

PropertyValue text(std::string value) {
    return PropertyValue(PropertyValue::Node(std::move(value)));
}

std::shared_ptr<ButtonValue> buttonOf(Dictionary dictionary) {
    return ButtonAction::GetButtonValueFromDic(
        PropertyValue(PropertyValue::Node(std::move(dictionary))));
}

std::shared_ptr<CommonValue> commonOf(Dictionary dictionary) {
    return CommonAction::GetCommonValueFromDic(
        PropertyValue(PropertyValue::Node(std::move(dictionary))));
}

// Each key of the fields with its place in the table.
template <typename Record, std::size_t Count>
Dictionary places(const std::array<testing::RecordField<Record>, Count>& fields) {
    Dictionary dictionary;
    for (const auto& field : fields)
        dictionary.emplace(field.key, number(static_cast<std::int64_t>(dictionary.size()) + 1));
    return dictionary;
}

TEST(ButtonAction, EachKeyFillsItsField) {
    testing::expectPlaces(*buttonOf(places(testing::kButtonFields)), testing::kButtonFields);
}

TEST(ButtonAction, MissingKeyGivesZeroNotAbsent) {
    const auto button = buttonOf({{"CR", number(127)}});
    EXPECT_EQ(button->CR(), 127);
    EXPECT_EQ(button->CG(), 0);
    EXPECT_EQ(button->Enable(), 0);
    EXPECT_EQ(button->ButtonID(), 0);
}

TEST(ButtonAction, NumbersAndTheirTextsReadAlike) {
    EXPECT_EQ(buttonOf({{"OnValue", text("12")}})->OnValue(), 12);
    EXPECT_EQ(buttonOf({{"OnValue", number(12)}})->OnValue(), 12);
}

TEST(ButtonAction, IdentifierIsReadUnderItsShortKeyOnly) {
    EXPECT_EQ(buttonOf({{"ButtonID", number(9)}})->ButtonID(), 0);
}

TEST(ButtonAction, ElementThatIsNoDictionaryGivesZeros) {
    const auto button = ButtonAction::GetButtonValueFromDic(number(5));
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->MIDIChannel(), 0);
}

TEST(CommonAction, EachKeyFillsItsField) {
    testing::expectPlaces(*commonOf(places(testing::kCommonFields)), testing::kCommonFields);
}

TEST(CommonAction, MissingKeyGivesZeroAndSparesTheOthers) {
    Dictionary dictionary = places(testing::kCommonFields);
    dictionary.erase("pitchBendSpeed");
    const auto common = commonOf(dictionary);
    EXPECT_EQ(common->PitchBendSpeed(), 0);
    EXPECT_EQ(common->PianoKeyCh(), 2);
    EXPECT_EQ(common->KeyTranspose(), 4);
}

TEST(CommonAction, NumbersAndTheirTextsReadAlike) {
    EXPECT_EQ(commonOf({{"keyTranspose", text("12")}})->KeyTranspose(), 12);
    EXPECT_EQ(commonOf({{"keyTranspose", number(12)}})->KeyTranspose(), 12);
}

TEST(CommonAction, ValuesAreNotChecked) {
    EXPECT_EQ(commonOf({{"keyTranspose", number(-300)}})->KeyTranspose(), -300);
}

TEST(CommonAction, KeysWithACapitalInitialAreNotKnown) {
    EXPECT_EQ(commonOf({{"KeyTranspose", number(3)}})->KeyTranspose(), 0);
}

TEST(CommonAction, NameIsEmptyWhateverTheFileHolds) {
    EXPECT_EQ(commonOf({{"SceneName", text("X")}, {"sceneName", text("Y")}})->SceneName(), "");
}

TEST(CommonAction, AbsentDictionaryGivesZeros) {
    const auto common = CommonAction::GetCommonValueFromDic(PropertyValue());
    ASSERT_NE(common, nullptr);
    EXPECT_EQ(common->GlobalMIDICh(), 0);
    EXPECT_EQ(common->SceneName(), "");
}

TEST_F(FileActionTest, ControlsComeInTheOrderOfTheFile) {
    writeDefault(arrayOf(numberOf("MIDIChannel", 3), numberOf("CR", 127)) +
                 entry("CommonValue", "<dict>" + numberOf("keyTranspose", 2) + "</dict>"));
    const auto scene = FileAction::GetSceneFromDefault();
    ASSERT_EQ(scene->buttonValueArray().size(), 2U);
    EXPECT_EQ(scene->buttonValueArray()[0]->MIDIChannel(), 3);
    EXPECT_EQ(scene->buttonValueArray()[0]->CR(), 0);
    EXPECT_EQ(scene->buttonValueArray()[1]->CR(), 127);
    EXPECT_EQ(scene->commonValue()->KeyTranspose(), 2);
    EXPECT_TRUE(scene->displayValue().empty());
}

TEST_F(FileActionTest, NameIsEmptyWhateverTheFileHolds) {
    writeDefault(
        entry("CommonValue", "<dict>" + entry("SceneName", "<string>X</string>") + "</dict>") +
        entry("SceneName", "<string>Y</string>"));
    EXPECT_EQ(FileAction::GetSceneFromDefault()->commonValue()->SceneName(), "");
}

TEST_F(FileActionTest, TwoScenesShareNothing) {
    writeDefault(arrayOf(numberOf("CR", 1), numberOf("CR", 2)));
    const auto first = FileAction::GetSceneFromDefault();
    const auto second = FileAction::GetSceneFromDefault();
    first->buttonValueArray()[0]->setCR(99);
    first->commonValue()->setKeyTranspose(8);
    EXPECT_EQ(second->buttonValueArray()[0]->CR(), 1);
    EXPECT_EQ(second->commonValue()->KeyTranspose(), 0);
}

TEST_F(FileActionTest, FileIsReadAnewAtEachCall) {
    for (const int red : {1, 7, 3}) {
        writeDefault(arrayOf(numberOf("CR", red), numberOf("CR", 2)));
        EXPECT_EQ(FileAction::GetSceneFromDefault()->buttonValueArray()[0]->CR(), red);
    }
}

TEST_F(FileActionTest, FileThatIsMissingUnreadableOrEmptyGivesNoControlsAndZeros) {
    ASSERT_EQ(Resources::find("default", "plist"), std::nullopt);
    const auto expectNothing = [] {
        const auto scene = FileAction::GetSceneFromDefault();
        EXPECT_TRUE(scene->buttonValueArray().empty());
        ASSERT_NE(scene->commonValue(), nullptr);
        EXPECT_EQ(scene->commonValue()->SceneName(), "");
        testing::expectZeros(*scene->commonValue(), testing::kCommonFields);
    };
    expectNothing();
    writeFile("this is no property list");
    expectNothing();
    writeDefault("");
    expectNothing();
}

} // namespace
} // namespace scenewright
