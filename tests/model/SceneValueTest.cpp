#include "model/SceneValue.h"

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
#include <string_view>
#include <utility>

namespace scenewright {

namespace {

using ButtonList = std::vector<std::shared_ptr<ButtonValue>>;

// What is written into each field is another number, and none changes another's.
template <typename Record, std::size_t Count>
Record filled(const std::array<testing::RecordField<Record>, Count>& fields) {
    Record record;
    std::int32_t place = 0;
    for (const auto& field : fields)
        (record.*field.write)(++place);
    return record;
}

TEST(SceneRecords, FreshRecordsReadZeroWithAnEmptyName) {
    testing::expectZeros(ButtonValue{}, testing::kButtonFields);
    testing::expectZeros(CommonValue{}, testing::kCommonFields);
    EXPECT_EQ(CommonValue{}.SceneName(), "");
}

TEST(SceneRecords, EachFieldIsKeptApart) {
    testing::expectPlaces(filled(testing::kButtonFields), testing::kButtonFields);
    CommonValue common = filled(testing::kCommonFields);
    common.setSceneName("LIVE");
    testing::expectPlaces(common, testing::kCommonFields);
    EXPECT_EQ(common.SceneName(), "LIVE");
}

TEST(SceneRecords, SceneCopiesItsArraysAndSharesWhatIsInThem) {
    SceneValue scene;
    EXPECT_EQ(scene.commonValue(), nullptr);
    EXPECT_TRUE(scene.displayValue().empty());
    EXPECT_TRUE(scene.buttonValueArray().empty());
    ButtonList source{std::make_shared<ButtonValue>()};
    const auto common = std::make_shared<CommonValue>();
    scene.setButtonValueArray(source);
    scene.setDisplayValue(source);
    scene.setCommonValue(common);
    source[0]->setCR(99);
    common->setKeyTranspose(4);
    source.clear();
    ASSERT_EQ(scene.buttonValueArray().size(), 1U);
    ASSERT_EQ(scene.displayValue().size(), 1U);
    EXPECT_EQ(scene.buttonValueArray()[0]->CR(), 99);
    EXPECT_EQ(scene.displayValue()[0]->CR(), 99);
    EXPECT_EQ(scene.commonValue(), common);
    EXPECT_EQ(scene.commonValue()->KeyTranspose(), 4);
}

TEST(SceneRecords, WritersAcceptAnyValue) {
    ButtonValue button;
    button.setEnable(200);
    button.setCCOrNoteNumber(-5);
    EXPECT_EQ(button.Enable(), 200);
    EXPECT_EQ(button.CCOrNoteNumber(), -5);
    CommonValue common;
    common.setPitchBendSpeed(200);
    common.setSceneName(std::string("A\0B\0", 4));
    EXPECT_EQ(common.PitchBendSpeed(), 200);
    EXPECT_EQ(common.SceneName().size(), 4U);
}

TEST(SceneRecords, RangeKeepsItsSevenNumbers) {
    using R = ButtonRange;
    const std::pair<std::int32_t (R::*)() const, void (R::*)(std::int32_t)> fields[] = {
        {&R::common_start, &R::setCommon_start},
        {&R::group_start, &R::setGroup_start},
        {&R::knob_start, &R::setKnob_start},
        {&R::slider_start, &R::setSlider_start},
        {&R::pad_start, &R::setPad_start},
        {&R::key_start, &R::setKey_start},
        {&R::all, &R::setAll}};
    R range;
    std::int32_t number = 0;
    for (const auto& [read, write] : fields) {
        EXPECT_EQ((range.*read)(), 0);
        (range.*write)(++number);
    }
    number = 0;
    for (const auto& [read, write] : fields)
        EXPECT_EQ((range.*read)(), ++number);
}

TEST(SceneRecords, OptionFieldsAreAllButTheIdentifierInTheirOrder) {
    std::vector<std::string_view> names;
    for (const auto& field : kButtonOptionFields)
        names.push_back(field.name);
    EXPECT_EQ(names, (std::vector<std::string_view>{"MIDIChannel", "AssignType", "CCOrNoteNumber",
                                                    "UpperOrRightValue", "LowerOrLeftValue",
                                                    "PadBehavior", "KeyBehavior", "OnValue",
                                                    "OffValue", "Enable", "CR", "CG", "CB"}));
}

TEST(Control, RangesFollowEachOtherFromTheCommonSettingsToTheKeys) {
    struct Range {
        ControlKind kind;
        std::string_view name;
        std::int32_t start;
        std::int32_t end;
    };
    for (const auto& [kind, name, start, end] :
         {Range{ControlKind::Common, "common", 0, 1}, Range{ControlKind::Group, "group", 1, 5},
          Range{ControlKind::Knob, "knob", 5, 9}, Range{ControlKind::Slider, "slider", 9, 13},
          Range{ControlKind::Pad, "pad", 13, 21}, Range{ControlKind::Key, "key", 21, 46}}) {
        const ControlRange& range = controlRange(kind);
        EXPECT_EQ(range.kind, kind);
        EXPECT_EQ(range.name, name);
        EXPECT_EQ(range.start, start) << name;
        EXPECT_EQ(range.end(), end) << name;
    }
    EXPECT_EQ(kControlCount, 45);
    EXPECT_EQ(kControlIndexEnd, 46);
    EXPECT_EQ(kSceneCount, 4);
}

using namespace std::string_view_literals;

struct Row {
    const char* rule;
    std::string_view stored;
    std::string_view shown;
};

constexpr Row kRows[] = {
    {"zero bytes at the end are not shown", "ABC\0\0\0\0\0\0\0\0\0"sv, "ABC"},
    {"nor twelve of them", "\0\0\0\0\0\0\0\0\0\0\0\0"sv, ""},
    {"nothing is nothing", "", ""},
    {"plain characters are as they are", "Main stage 1", "Main stage 1"},
    {"blanks at the end stay", "AB  \0"sv, "AB  "},
    {"two bytes a character", "Bühne", "Bühne"},
    {"three", "舞台", "舞台"},
    {"four", "\xF0\x9F\x8E\xB9", "\xF0\x9F\x8E\xB9"},
    {"first of one byte", "\x20", "\x20"},
    {"last of one byte", "\x7E", "\x7E"},
    {"first of two that is no control", "\xC2\xA0", "\xC2\xA0"},
    {"last of two", "\xDF\xBF", "\xDF\xBF"},
    {"first of three", "\xE0\xA0\x80", "\xE0\xA0\x80"},
    {"last before the surrogates", "\xED\x9F\xBF", "\xED\x9F\xBF"},
    {"first after them", "\xEE\x80\x80", "\xEE\x80\x80"},
    {"last of three", "\xEF\xBF\xBF", "\xEF\xBF\xBF"},
    {"first of four", "\xF0\x90\x80\x80", "\xF0\x90\x80\x80"},
    {"last of all", "\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},
    {"a zero byte within", "A\0B\0"sv, "A\uFFFDB"},
    {"an escape", "A\x1B[2J", "A\uFFFD[2J"},
    {"line feed, tab and delete", "A\nB\tC\x7F", "A\uFFFDB\uFFFDC\uFFFD"},
    {"the last control character", "\x1F\x20", "\uFFFD "},
    {"first control character of two bytes", "\xC2\x80", "\uFFFD\uFFFD"},
    {"last control character of two bytes", "\xC2\x9F", "\uFFFD\uFFFD"},
    {"bytes of no character", "\xFF\xFE\x41", "\uFFFD\uFFFDA"},
    {"a byte that only goes on", "\x80", "\uFFFD"},
    {"five bytes", "\xF8\x88\x80\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"a character cut at the end", "Eleven char\xC3", "Eleven char\uFFFD"},
    {"one of three bytes cut", "A\xE8\x88", "A\uFFFD\uFFFD"},
    {"one that another interrupts", "\xE8\x41\x9E", "\uFFFDA\uFFFD"},
    {"a longer form, of two bytes", "\xC1\x81", "\uFFFD\uFFFD"},
    {"of three", "\xE0\x9F\xBF", "\uFFFD\uFFFD\uFFFD"},
    {"of four", "\xF0\x8F\xBF\xBF", "\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"the first surrogate", "\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
    {"the last", "\xED\xBF\xBF", "\uFFFD\uFFFD\uFFFD"},
    {"a point past the last", "\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
};

TEST(SceneName, WhatIsNoTextShowsAsReplacementAndTheRestAsItIs) {
    for (const Row& row : kRows)
        EXPECT_EQ(displayName(row.stored), row.shown) << row.rule;
}

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

// A missing key gives zero and not absent, whatever else there is.
TEST(ButtonAction, ReadsNumbersAndTheirTextsAndZerosElse) {
    const auto button = buttonOf({{"CR", number(127)}, {"ButtonID", number(9)}});
    EXPECT_EQ(button->CR(), 127);
    EXPECT_EQ(button->CG(), 0);
    EXPECT_EQ(button->Enable(), 0);
    EXPECT_EQ(button->ButtonID(), 0) << "its key is a shorter one";
    EXPECT_EQ(buttonOf({{"OnValue", text("12")}})->OnValue(), 12);
    EXPECT_EQ(buttonOf({{"OnValue", number(12)}})->OnValue(), 12);
    const auto none = ButtonAction::GetButtonValueFromDic(number(5)); // no dictionary
    ASSERT_NE(none, nullptr);
    EXPECT_EQ(none->MIDIChannel(), 0);
}

TEST(CommonAction, EachKeyFillsItsField) {
    testing::expectPlaces(*commonOf(places(testing::kCommonFields)), testing::kCommonFields);
}

TEST(CommonAction, ReadsNumbersUncheckedAndTheirTextsAndZerosElse) {
    Dictionary dictionary = places(testing::kCommonFields);
    dictionary.erase("pitchBendSpeed");
    const auto common = commonOf(dictionary);
    EXPECT_EQ(common->PitchBendSpeed(), 0);
    EXPECT_EQ(common->PianoKeyCh(), 2);
    EXPECT_EQ(common->KeyTranspose(), 4);
    EXPECT_EQ(commonOf({{"keyTranspose", text("12")}})->KeyTranspose(), 12);
    EXPECT_EQ(commonOf({{"keyTranspose", number(-300)}})->KeyTranspose(), -300);
    EXPECT_EQ(commonOf({{"KeyTranspose", number(3)}})->KeyTranspose(), 0);
    EXPECT_EQ(commonOf({{"SceneName", text("X")}, {"sceneName", text("Y")}})->SceneName(), "");
    const auto none = CommonAction::GetCommonValueFromDic(PropertyValue());
    ASSERT_NE(none, nullptr);
    testing::expectZeros(*none, testing::kCommonFields);
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

TEST_F(FileActionTest, FileIsReadAnewAtEachCallAndTwoScenesShareNothing) {
    for (const int red : {1, 7, 3}) {
        writeDefault(arrayOf(numberOf("CR", red), numberOf("CR", 2)));
        const auto first = FileAction::GetSceneFromDefault();
        const auto second = FileAction::GetSceneFromDefault();
        first->buttonValueArray()[0]->setCR(99);
        first->commonValue()->setKeyTranspose(8);
        EXPECT_EQ(second->buttonValueArray()[0]->CR(), red);
        EXPECT_EQ(second->commonValue()->KeyTranspose(), 0);
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
