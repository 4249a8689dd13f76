#include "model/Setting.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace scenewright {

namespace {

using Strings = std::vector<std::string>;

struct Expected {
    ControlKind kind;
    const char* field;
    const char* list;
    const char* noteList; // the same list again where a note makes no difference
    const char* title;
};

using enum ControlKind;

constexpr Expected kExpected[] = {
    {Common, "GlobalMIDICh", "common_GlobalMIDICh_Array", "common_GlobalMIDICh_Array",
     "Global MIDI channel"},
    {Common, "PianoKeyCh", "common_PianoKeyCh_Array", "common_PianoKeyCh_Array",
     "Keyboard MIDI channel"},
    {Common, "PitchBendSpeed", "common_PitchBendSpeed_Array", "common_PitchBendSpeed_Array",
     "Pitch-bend speed"},
    {Common, "KeyTranspose", "common_KeyTranspose_Array", "common_KeyTranspose_Array",
     "Octave transposition"},
    {Common, "KeyVelocityCurve", "common_KeyVelocityCurve_Array", "common_KeyVelocityCurve_Array",
     "Key velocity curve"},
    {Common, "KeyConstVelocity", "common_KeyConstVelocity_Array", "common_KeyConstVelocity_Array",
     "Key constant velocity"},
    {Common, "PadVelocityCurve", "common_PadVelocityCurve_Array", "common_PadVelocityCurve_Array",
     "Pad velocity curve"},
    {Common, "PadConstVelocity", "common_PadConstVelocity_Array", "common_PadConstVelocity_Array",
     "Pad constant velocity"},
    {Group, "MIDIChannel", "group_MIDIChannel_Array", "group_MIDIChannel_Array", "MIDI channel"},
    {Knob, "Enable", "knob_Enable_Array", "knob_Enable_Array", "Enabled"},
    {Knob, "CCOrNoteNumber", "knob_CCNumber_Array", "knob_CCNumber_Array", "CC number"},
    {Knob, "UpperOrRightValue", "knob_UpperOrRightValue_Array", "knob_UpperOrRightValue_Array",
     "Right value"},
    {Knob, "LowerOrLeftValue", "knob_LowerOrLeftValue_Array", "knob_LowerOrLeftValue_Array",
     "Left value"},
    {Slider, "Enable", "slider_Enable_Array", "slider_Enable_Array", "Enabled"},
    {Slider, "CCOrNoteNumber", "slider_CCNumber_Array", "slider_CCNumber_Array", "CC number"},
    {Slider, "UpperOrRightValue", "slider_UpperOrRightValue_Array",
     "slider_UpperOrRightValue_Array", "Upper value"},
    {Slider, "LowerOrLeftValue", "slider_LowerOrLeftValue_Array", "slider_LowerOrLeftValue_Array",
     "Lower value"},
    {Pad, "AssignType", "pad_AssignType_Array", "pad_AssignType_Array", "Type"},
    {Pad, "CCOrNoteNumber", "pad_CCNumber_Array", "pad_NoteNumber_Array", "CC or note number"},
    {Pad, "OnValue", "pad_OnValue_Array", "pad_OnValue_Array", "On value"},
    {Pad, "OffValue", "pad_OffValue_Array", "pad_OffValue_Array", "Off value"},
    {Pad, "PadBehavior", "pad_PadBehavior_Array", "pad_PadBehavior_Array", "Behavior"},
    {Pad, "MIDIChannel", "pad_MIDIChannel_Array", "pad_MIDIChannel_Array", "MIDI channel"},
    {Pad, "CR", "pad_CR_Array", "pad_CR_Array", "Red"},
    {Pad, "CG", "pad_CG_Array", "pad_CG_Array", "Green"},
    {Pad, "CB", "pad_CB_Array", "pad_CB_Array", "Blue"},
    {Key, "AssignType", "key_AssignType_Array", "key_AssignType_Array", "Type"},
    {Key, "CCOrNoteNumber", "key_CCNumber_Array", "key_NoteNumber_Array", "CC or note number"},
    {Key, "OnValue", "key_OnValue_Array", "key_OnValue_Array", "On value"},
    {Key, "OffValue", "key_OffValue_Array", "key_OffValue_Array", "Off value"},
    {Key, "KeyBehavior", "key_KeyBehavior_Array", "key_KeyBehavior_Array", "Behavior"},
};
static_assert(std::size(kExpected) == kSettingCount);

// Each list holds one title, its own name.
PopUpValue selfNamedLists() {
    PopUpValue lists;
    for (const OptionList& list : optionLists())
        list.set(lists, std::make_shared<const Strings>(Strings{std::string(list.name)}));
    return lists;
}

SceneValue sceneOfZeros() {
    SceneValue scene;
    scene.setCommonValue(std::make_shared<CommonValue>());
    std::vector<std::shared_ptr<ButtonValue>> buttons;
    for (std::int32_t control = 0; control < kControlCount; ++control)
        buttons.push_back(std::make_shared<ButtonValue>());
    scene.setButtonValueArray(std::move(buttons));
    return scene;
}

const Setting& setting(ControlKind kind, const char* field) {
    return *findSetting(kind, field);
}

} // namespace

TEST(SettingOptions, EverySettingHasItsListAndTitle) {
    const PopUpValue lists = selfNamedLists();
    for (const Expected& row : kExpected) {
        const Setting* found = findSetting(row.kind, row.field);
        ASSERT_NE(found, nullptr) << row.field;
        EXPECT_EQ(*optionList(lists, *found, 0), Strings{row.list});
        EXPECT_EQ(*optionList(lists, *found, 1), Strings{row.list});
        EXPECT_EQ(*optionList(lists, *found, 2), Strings{row.noteList});
        EXPECT_EQ(settingTitle(*found), row.title);
    }
}

TEST(SettingOptions, ListThatTheResourceLacksIsNull) {
    EXPECT_EQ(optionList(PopUpValue{}, setting(Pad, "CR"), 0), nullptr);
}

TEST(SettingOptions, TitleIsTheEntryAtTheStoredIndex) {
    PopUpValue lists;
    lists.setKnob_CCNumber_Array(std::make_shared<const Strings>(Strings{"zero", "one", "two"}));
    const SceneValue scene = sceneOfZeros();
    scene.buttonValueArray()[6]->setCCOrNoteNumber(2);
    EXPECT_EQ(optionTitle(lists, setting(Knob, "CCOrNoteNumber"), scene, 2), "two");
    EXPECT_EQ(optionTitle(lists, setting(Knob, "CCOrNoteNumber"), scene, 1), "zero");
}

TEST(SettingOptions, NumberOfANoteIsNamedByTheNoteList) {
    const PopUpValue lists = selfNamedLists();
    const SceneValue scene = sceneOfZeros();
    scene.buttonValueArray()[14]->setAssignType(2);
    scene.buttonValueArray()[44]->setAssignType(2);
    EXPECT_EQ(optionTitle(lists, setting(Pad, "CCOrNoteNumber"), scene, 2), "pad_NoteNumber_Array");
    EXPECT_EQ(optionTitle(lists, setting(Pad, "CCOrNoteNumber"), scene, 3), "pad_CCNumber_Array");
    EXPECT_EQ(optionTitle(lists, setting(Key, "CCOrNoteNumber"), scene, 24),
              "key_NoteNumber_Array");
}

TEST(SettingOptions, ValueOutsideItsListIsShownAsDashes) {
    const PopUpValue lists = selfNamedLists();
    const SceneValue scene = sceneOfZeros();
    for (const std::int32_t value : {-1, 1, 127, INT32_MIN, INT32_MAX}) {
        scene.commonValue()->setPianoKeyCh(value);
        EXPECT_EQ(optionTitle(lists, setting(Common, "PianoKeyCh"), scene, 0), "---") << value;
    }
}

TEST(SettingOptions, WithoutAListEveryValueIsShownAsDashes) {
    EXPECT_EQ(optionTitle(PopUpValue{}, setting(Pad, "CR"), sceneOfZeros(), 0), "---");
}

TEST(SettingOptions, FieldThatAKindDoesNotCarryHasNoListAndKeepsItsName) {
    constexpr Setting kNoSuch(ControlKind::Group, ButtonValue::EnableField);
    const PopUpValue lists = selfNamedLists();
    EXPECT_EQ(optionList(lists, kNoSuch, 0), nullptr);
    EXPECT_EQ(optionTitle(lists, kNoSuch, sceneOfZeros(), 0), "---");
    EXPECT_EQ(settingTitle(kNoSuch), "Enable");
}

} // namespace scenewright
