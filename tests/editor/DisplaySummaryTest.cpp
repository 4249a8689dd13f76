#include "editor/ControlDescription.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace scenewright {

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

} // namespace scenewright
