#include "editor/ControlDescription.h"

#include "tests/editor/EditorBench.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace scenewright::testing {

namespace {

using ControlDescription = LoadedEditor;

} // namespace

TEST(ControlName, CountsWithinItsKindFromOne) {
    for (const auto& [index, name] : {std::pair{0, "Common"},
                                      {1, "Group 1"},
                                      {8, "Knob 4"},
                                      {9, "Slider 1"},
                                      {15, "Pad 3"},
                                      {45, "Key 25"},
                                      {46, "Control 46"},
                                      {-1, "Control -1"}})
        EXPECT_EQ(controlName(index), name);
}

// What each kind does by default, as a controller, and off.
TEST_F(ControlDescription, SaysWhatAControlDoes) {
    const auto say = [this](std::int32_t index) {
        return describeControl(*view.pu(), *view.sceneValue(), index);
    };
    EXPECT_EQ(say(0), "Common: global channel common-globalMIDICh:3, "
                      "keyboard channel common-pianoKeyCh:4, "
                      "pitch-bend speed common-PitchBendSpeed:50, "
                      "transposition common-keyTranspose:6, "
                      "key velocity curve common-velocityCurve:3, "
                      "pad velocity curve common-velocityCurve:1");
    EXPECT_EQ(say(2), "Group 2: channel button-MIDICh:2");
    EXPECT_EQ(say(5), "Knob 1: CC select127:20, left select127:10, right select127:100");
    EXPECT_EQ(say(9), "Slider 1: CC select127:30, lower select127:11, upper select127:101");
    const std::string colour = "red select127:10, green select127:20, blue select127:30";
    EXPECT_EQ(say(15), "Pad 3: Note button-note:36, channel button-MIDICh:9, "
                       "behaviour button-behavior:3, " +
                           colour);
    EXPECT_EQ(say(21), "Key 1: Note button-note:60, behaviour button-behavior:4");
    for (const std::int32_t index : {15, 21})
        record(index).setAssignType(1);
    EXPECT_EQ(say(15), "Pad 3: CC select127:36, channel button-MIDICh:9, behaviour "
                       "button-behavior:3, on select127:127, off select127:1, " +
                           colour);
    EXPECT_EQ(say(21), "Key 1: CC select127:60, behaviour button-behavior:4, on select127:126, "
                       "off select127:2");
    record(5).setEnable(0);
    for (const std::int32_t index : {15, 21})
        record(index).setAssignType(0);
    record(1).setMIDIChannel(127);
    EXPECT_EQ(say(5), "Knob 1: button-enable:0");
    EXPECT_EQ(say(15), "Pad 3: button-assginType:0, " + colour);
    EXPECT_EQ(say(21), "Key 1: button-assginType:0");
    EXPECT_EQ(say(1), "Group 1: channel unknown") << "outside its list";
}

// A group and the scene's own settings send nothing of their own, and nothing is said of it.
TEST_F(ControlDescription, SaysWhatIsSentByMidisNames) {
    ButtonValue& knob = record(5);
    knob.setEnable(1);
    knob.setMIDIChannel(2);
    record(1).setMIDIChannel(2);
    knob.setCCOrNoteNumber(74);
    record(13).setAssignType(0);
    const auto say = [&](std::int32_t index) {
        return describeOutput(*view.pu(), *view.sceneValue(), index);
    };
    EXPECT_EQ(say(5), "Sends CC 74 Brightness on channel 3");
    EXPECT_EQ(say(13), "Sends nothing");
    EXPECT_EQ(say(0), "");
    EXPECT_EQ(say(1), "");
    EXPECT_EQ(say(46), "");
}

TEST_F(ControlDescription, ControlWithoutARecordIsNamedOnly) {
    removeDefaultScene();
    loaded();
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), 13), "Pad 1");
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), 46), "Control 46");
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), -1), "Control -1");
    EXPECT_EQ(describeControl(*view.pu(), SceneValue{}, 0), "Common");
}

TEST(PadColour, ScalesItsLevelsToFullFromTheNearestEnds) {
    ButtonValue record;
    for (const auto& [levels, colour] : {std::pair{std::array{0, 64, 127}, Colour{0, 128, 255}},
                                         {std::array{-1, 200, INT32_MAX}, Colour{0, 255, 255}}}) {
        record.setCR(levels[0]);
        record.setCG(levels[1]);
        record.setCB(levels[2]);
        EXPECT_EQ(padColour(record), colour);
    }
}

namespace {

using Strings = std::vector<std::string>;
using enum ControlKind;

// Every display list has its own titles, its name and the place, so that a title tells where it
// was looked up. Ten entries each.
PopUpValue ownLists() {
    PopUpValue lists;
    for (const OptionList& list : optionLists()) {
        Strings titles;
        for (int place = 0; place < 10; ++place)
            titles.push_back(std::string(list.name) + ":" + std::to_string(place));
        list.set(lists, std::make_shared<const Strings>(titles));
    }
    return lists;
}

// Every field holds a value of its own.
ButtonValue fullRecord(std::int32_t assignType, std::int32_t enable) {
    ButtonValue record;
    record.setMIDIChannel(1);
    record.setAssignType(assignType);
    record.setCCOrNoteNumber(2);
    record.setUpperOrRightValue(3);
    record.setLowerOrLeftValue(4);
    record.setPadBehavior(5);
    record.setKeyBehavior(6);
    record.setOnValue(7);
    record.setOffValue(8);
    record.setEnable(enable);
    return record;
}

std::string title(ControlKind kind, const ButtonValue& record, std::int32_t mode) {
    return displaySummary(ownLists(), kind, record, mode);
}

Strings titlesInEveryMode(ControlKind kind, const ButtonValue& record) {
    Strings titles;
    for (std::int32_t mode = 0; mode < 8; ++mode)
        titles.push_back(title(kind, record, mode));
    return titles;
}

const std::string kChannel = "display_MIDIChannel_Array:1";
const std::string kControllerNumber = "CC#\ndisplay_CCNumber_Array:2";
const std::string kNoteNumber = "Note\ndisplay_NoteNumber_Array:2";
const std::string kLower = "L/L\ndisplay_LowerOrLeftValue_Array:4";
const std::string kUpper = "U/R\ndisplay_UpperOrRightValue_Array:3";
const std::string kPadBehavior = "display_PadBehavior_Array:5";
const std::string kKeyBehavior = "display_KeyBehavior_Array:6";
const std::string kOff = "OFF\ndisplay_OnValue_Array:8";
const std::string kOn = "ON\ndisplay_OffValue_Array:7";
const std::string kNone = "---";

} // namespace

TEST(DisplaySummary, GroupShowsItsChannelInEveryMode) {
    ButtonValue absent = fullRecord(1, 1);
    absent.setMIDIChannel(-1);
    for (const std::int32_t mode : {0, 1, 2, 3, 4, 5, 6, 7, 8, -1, 1000}) {
        EXPECT_EQ(title(Group, fullRecord(0, 0), mode), kChannel) << mode;
        EXPECT_EQ(title(Group, absent, mode), kNone) << mode;
    }
}

// Off values are looked up in the on values' list, and the reverse.
TEST(DisplaySummary, EachKindInEveryMode) {
    struct Case {
        ControlKind kind;
        std::int32_t assignType;
        std::int32_t enable;
        Strings titles;
    };
    const std::string on = "display_Enable_Array:1";
    const std::string off = "display_Enable_Array:0";
    const Strings otherPad{kChannel, kNone, kNone, kLower, kUpper, kPadBehavior, kNone, kNone};
    const std::vector<Case> cases{
        {Knob, 0, 1, {kChannel, on, kControllerNumber, kLower, kUpper, kKeyBehavior, kOff, kOn}},
        {Knob, 1, 0, {kChannel, off, kNone, kNone, kNone, kNone, kNone, kNone}},
        {Pad, 0, 1, {kNone, kNone, kNone, kLower, kUpper, kNone, kNone, kNone}},
        {Pad, 1, 1, {kChannel, "CC", kControllerNumber, kLower, kUpper, kPadBehavior, kOff, kOn}},
        {Pad, 2, 1, {kChannel, "Note", kNoteNumber, kLower, kUpper, kPadBehavior, kNone, kNone}},
        {Pad, -1, 1, otherPad},
        {Pad, 3, 1, otherPad},
        {Pad, 127, 1, otherPad},
        {Key, 0, 1, {kChannel, kNone, kNone, kLower, kUpper, kNone, kNone, kNone}},
        {Key, 1, 1, {kChannel, "CC", kControllerNumber, kLower, kUpper, kKeyBehavior, kOff, kOn}},
        {Key, 2, 1, {kChannel, "Note", kNoteNumber, kLower, kUpper, kKeyBehavior, kNone, kNone}},
    };
    for (const Case& each : cases)
        EXPECT_EQ(titlesInEveryMode(each.kind, fullRecord(each.assignType, each.enable)),
                  each.titles)
            << static_cast<int>(each.kind) << " " << each.assignType << " " << each.enable;
}

TEST(DisplaySummary, SliderFollowsTheKnobsRulesWhichKnowNoAssignType) {
    for (const std::int32_t enable : {-1, 0, 1, 2})
        for (const std::int32_t assignType : {-1, 0, 1, 2, 3})
            for (const ControlKind kind : {Knob, ControlKind::Slider})
                EXPECT_EQ(titlesInEveryMode(kind, fullRecord(assignType, enable)),
                          titlesInEveryMode(Knob, fullRecord(0, enable)));
}

TEST(DisplaySummary, KeysAndPadsAreTestedOnEnableInModesThreeAndFour) {
    for (const ControlKind kind : {Pad, Key}) {
        EXPECT_EQ(title(kind, fullRecord(1, 0), 3), kNone);
        EXPECT_EQ(title(kind, fullRecord(1, 0), 4), kNone);
        EXPECT_EQ(title(kind, fullRecord(0, 1), 3), kLower);
        EXPECT_EQ(title(kind, fullRecord(0, -1), 4), kUpper);
    }
}

TEST(DisplaySummary, ModeEightAndAboveAndBelowZeroShowDashes) {
    for (const ControlKind kind : {Knob, ControlKind::Slider, Pad, Key}) {
        for (const std::int32_t mode : {8, 9, 127, -1, -2, INT32_MIN})
            EXPECT_EQ(title(kind, fullRecord(1, 1), mode), kNone);
    }
}

TEST(DisplaySummary, AbsentFieldShowsDashes) {
    ButtonValue record;
    for (void (ButtonValue::*write)(std::int32_t) :
         {&ButtonValue::setMIDIChannel, &ButtonValue::setCCOrNoteNumber,
          &ButtonValue::setUpperOrRightValue, &ButtonValue::setLowerOrLeftValue,
          &ButtonValue::setPadBehavior, &ButtonValue::setKeyBehavior, &ButtonValue::setOnValue,
          &ButtonValue::setOffValue, &ButtonValue::setEnable})
        (record.*write)(-1);
    record.setAssignType(1);
    for (const ControlKind kind : {Group, Knob, ControlKind::Slider, Pad, Key}) {
        for (std::int32_t mode = 0; mode < 8; ++mode) {
            const bool isType = mode == 1 && (kind == Pad || kind == Key);
            EXPECT_EQ(title(kind, record, mode), isType ? "CC" : kNone) << mode;
        }
    }
}

TEST(DisplaySummary, IndexOutsideItsListShowsDashes) {
    for (const std::int32_t value : {10, 127, -2, INT32_MAX, INT32_MIN}) {
        ButtonValue record = fullRecord(1, 1);
        record.setOnValue(value);
        EXPECT_EQ(title(Pad, record, 7), kNone) << value;
    }
}

TEST(DisplaySummary, LastEntryOfAListIsInside) {
    ButtonValue record = fullRecord(1, 1);
    record.setOnValue(9);
    EXPECT_EQ(title(Pad, record, 7), "ON\ndisplay_OffValue_Array:9");
}

TEST(DisplaySummary, ListThatTheResourceLacksAndCommonSettingsShowDashes) {
    EXPECT_EQ(title(Common, fullRecord(1, 1), 0), kNone);
    EXPECT_EQ(displaySummary(PopUpValue{}, Group, fullRecord(1, 1), 0), kNone);
}

TEST(DisplaySummary, PercentSignInATitleIsShownAsItIs) {
    PopUpValue lists;
    lists.setDisplay_CCNumber_Array(std::make_shared<const Strings>(Strings{"", "", "100%s%d"}));
    EXPECT_EQ(displaySummary(lists, Knob, fullRecord(0, 1), 2), "CC#\n100%s%d");
}

} // namespace scenewright::testing
