#include "model/Setting.h"

#include "tests/support/KnownTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

using enum ControlKind;
using Strings = std::vector<std::string>;

struct Expected {
    ControlKind kind;
    const char* field;
    const char* list;
    const char* noteList; // null where a note makes no difference
    const char* title;
};

// What the device stores, in its order.
constexpr auto kExpected = std::to_array<Expected>({
    {Common, "GlobalMIDICh", "common_GlobalMIDICh_Array", nullptr, "Global MIDI channel"},
    {Common, "PianoKeyCh", "common_PianoKeyCh_Array", nullptr, "Keyboard MIDI channel"},
    {Common, "PitchBendSpeed", "common_PitchBendSpeed_Array", nullptr, "Pitch-bend speed"},
    {Common, "KeyTranspose", "common_KeyTranspose_Array", nullptr, "Octave transposition"},
    {Common, "KeyVelocityCurve", "common_KeyVelocityCurve_Array", nullptr, "Key velocity curve"},
    {Common, "KeyConstVelocity", "common_KeyConstVelocity_Array", nullptr, "Key constant velocity"},
    {Common, "PadVelocityCurve", "common_PadVelocityCurve_Array", nullptr, "Pad velocity curve"},
    {Common, "PadConstVelocity", "common_PadConstVelocity_Array", nullptr, "Pad constant velocity"},
    {Key, "AssignType", "key_AssignType_Array", nullptr, "Type"},
    {Key, "KeyBehavior", "key_KeyBehavior_Array", nullptr, "Behaviour"},
    {Key, "CCOrNoteNumber", "key_CCNumber_Array", "key_NoteNumber_Array", "CC or note number"},
    {Key, "OnValue", "key_OnValue_Array", nullptr, "On value"},
    {Key, "OffValue", "key_OffValue_Array", nullptr, "Off value"},
    {Group, "MIDIChannel", "group_MIDIChannel_Array", nullptr, "MIDI channel"},
    {Knob, "Enable", "knob_Enable_Array", nullptr, "Enabled"},
    {Knob, "CCOrNoteNumber", "knob_CCNumber_Array", nullptr, "CC number"},
    {Knob, "UpperOrRightValue", "knob_UpperOrRightValue_Array", nullptr, "Right value"},
    {Knob, "LowerOrLeftValue", "knob_LowerOrLeftValue_Array", nullptr, "Left value"},
    {Slider, "Enable", "slider_Enable_Array", nullptr, "Enabled"},
    {Slider, "CCOrNoteNumber", "slider_CCNumber_Array", nullptr, "CC number"},
    {Slider, "UpperOrRightValue", "slider_UpperOrRightValue_Array", nullptr, "Upper value"},
    {Slider, "LowerOrLeftValue", "slider_LowerOrLeftValue_Array", nullptr, "Lower value"},
    {Pad, "AssignType", "pad_AssignType_Array", nullptr, "Type"},
    {Pad, "CCOrNoteNumber", "pad_CCNumber_Array", "pad_NoteNumber_Array", "CC or note number"},
    {Pad, "MIDIChannel", "pad_MIDIChannel_Array", nullptr, "MIDI channel"},
    {Pad, "PadBehavior", "pad_PadBehavior_Array", nullptr, "Behaviour"},
    {Pad, "OnValue", "pad_OnValue_Array", nullptr, "On value"},
    {Pad, "OffValue", "pad_OffValue_Array", nullptr, "Off value"},
    {Pad, "CR", "pad_CR_Array", nullptr, "Red"},
    {Pad, "CG", "pad_CG_Array", nullptr, "Green"},
    {Pad, "CB", "pad_CB_Array", nullptr, "Blue"},
});

// Each list holds one title, its own name.
PopUpValue selfNamedLists() {
    PopUpValue lists;
    for (const OptionList& list : optionLists())
        list.set(lists, std::make_shared<const Strings>(Strings{std::string(list.name)}));
    return lists;
}

std::shared_ptr<SceneValue> fullScene() {
    auto scene = std::make_shared<SceneValue>();
    scene->setCommonValue(std::make_shared<CommonValue>());
    std::vector<std::shared_ptr<ButtonValue>> buttons;
    for (int i = 0; i < 45; ++i)
        buttons.push_back(std::make_shared<ButtonValue>());
    scene->setButtonValueArray(buttons);
    return scene;
}

const Setting& settingOf(ControlKind kind, std::string_view name) {
    const Setting* const found = findSetting(kind, name);
    EXPECT_NE(found, nullptr) << name;
    return found != nullptr ? *found : settings()[0];
}

TEST(Setting, RowsAreThoseThatTheDeviceStoresInItsOrderEachWithItsListsAndTitle) {
    const PopUpValue lists = selfNamedLists();
    ASSERT_EQ(settings().size(), kExpected.size());
    for (std::size_t place = 0; place < kExpected.size(); ++place) {
        const Setting& setting = settings()[place];
        const Expected& row = kExpected[place];
        SCOPED_TRACE(std::to_string(place) + " " + row.field);
        EXPECT_EQ(setting.kind(), row.kind);
        EXPECT_EQ(setting.name(), row.field);
        EXPECT_EQ(findSetting(row.kind, row.field), &setting);
        const char* const noteList = row.noteList != nullptr ? row.noteList : row.list;
        EXPECT_EQ(*optionList(lists, setting, 0), Strings{row.list});
        EXPECT_EQ(*optionList(lists, setting, 1), Strings{row.list});
        EXPECT_EQ(*optionList(lists, setting, 2), Strings{noteList});
        EXPECT_EQ(settingTitle(setting), row.title);
    }
}

TEST(Setting, MembersOfEachKindAreItsOwnControls) {
    const auto scene = fullScene();
    settingOf(Common, "KeyTranspose").write(*scene, 0, 7);
    EXPECT_EQ(scene->commonValue()->KeyTranspose(), 7);
    EXPECT_EQ(settingOf(Common, "KeyTranspose").read(*scene, 0), 7);
    struct Row {
        ControlKind kind;
        const char* field;
        std::int32_t member;
        std::int32_t (ButtonValue::*read)() const;
        std::size_t control;
    };
    for (const Row& row : {Row{Group, "MIDIChannel", 0, &ButtonValue::MIDIChannel, 0},
                           Row{Knob, "Enable", 3, &ButtonValue::Enable, 7},
                           Row{Slider, "CCOrNoteNumber", 0, &ButtonValue::CCOrNoteNumber, 8},
                           Row{Pad, "CB", 7, &ButtonValue::CB, 19},
                           Row{Key, "KeyBehavior", 24, &ButtonValue::KeyBehavior, 44}}) {
        const Setting& setting = settingOf(row.kind, row.field);
        setting.write(*scene, row.member, 5);
        EXPECT_EQ((*scene->buttonValueArray()[row.control].*row.read)(), 5) << row.field;
        EXPECT_EQ(setting.read(*scene, row.member), 5) << row.field;
        EXPECT_EQ(setting.read(*scene, 1), 0) << row.field;
    }
}

TEST(Setting, SceneWithoutTheRecordReadsAbsentAndKeepsNothing) {
    const SceneValue scene;
    for (const Setting& setting : settings()) {
        setting.write(scene, 0, 9);
        EXPECT_EQ(setting.read(scene, 0), -1) << setting.name();
    }
}

TEST(Setting, SceneShortOfControlsReadsAbsentForThoseThatItLacks) {
    SceneValue scene;
    scene.setButtonValueArray({std::make_shared<ButtonValue>(), nullptr});
    const Setting& channel = settingOf(Group, "MIDIChannel");
    channel.write(scene, 1, 5);
    channel.write(scene, 2, 5);
    EXPECT_EQ(channel.read(scene, 0), 0);
    EXPECT_EQ(channel.read(scene, 1), -1);
    EXPECT_EQ(channel.read(scene, 2), -1);
}

TEST(Setting, MemberOutsideItsKindTouchesNoOtherKind) {
    const auto scene = fullScene();
    const Setting& channel = settingOf(Group, "MIDIChannel");
    channel.write(*scene, 4, 9);
    channel.write(*scene, -1, 9);
    EXPECT_EQ(channel.read(*scene, 4), -1);
    EXPECT_EQ(channel.read(*scene, -1), -1);
    for (const auto& button : scene->buttonValueArray())
        EXPECT_EQ(button->MIDIChannel(), 0);
}

TEST(Setting, FieldThatAKindDoesNotCarryIsNotFound) {
    EXPECT_EQ(findSetting(Knob, "AssignType"), nullptr);
    EXPECT_EQ(findSetting(Pad, "Enable"), nullptr);
    EXPECT_EQ(findSetting(Common, "SceneName"), nullptr);
    EXPECT_EQ(findSetting(Key, "keybehavior"), nullptr);
}

TEST(Setting, TitleIsTheEntryAtTheStoredIndexAndDashesOutsideTheList) {
    PopUpValue lists;
    lists.setKnob_CCNumber_Array(std::make_shared<const Strings>(Strings{"zero", "one", "two"}));
    const auto scene = fullScene();
    const Setting& number = settingOf(Knob, "CCOrNoteNumber");
    EXPECT_EQ(optionTitle(lists, number, *scene, 1), "zero");
    scene->buttonValueArray()[6]->setCCOrNoteNumber(2);
    EXPECT_EQ(optionTitle(lists, number, *scene, 2), "two");
    for (const std::int32_t value : {-1, 3, 127, INT32_MIN, INT32_MAX}) {
        scene->buttonValueArray()[6]->setCCOrNoteNumber(value);
        EXPECT_EQ(optionTitle(lists, number, *scene, 2), "---") << value;
    }
    EXPECT_EQ(optionList(PopUpValue{}, settingOf(Pad, "CR"), 0), nullptr);
    EXPECT_EQ(optionTitle(PopUpValue{}, settingOf(Pad, "CR"), *scene, 0), "---");
}

TEST(Setting, NumberOfANoteIsNamedByTheNoteList) {
    const PopUpValue lists = selfNamedLists();
    const auto scene = fullScene();
    scene->buttonValueArray()[14]->setAssignType(2);
    scene->buttonValueArray()[44]->setAssignType(2);
    EXPECT_EQ(optionTitle(lists, settingOf(Pad, "CCOrNoteNumber"), *scene, 2),
              "pad_NoteNumber_Array");
    EXPECT_EQ(optionTitle(lists, settingOf(Pad, "CCOrNoteNumber"), *scene, 3),
              "pad_CCNumber_Array");
    EXPECT_EQ(optionTitle(lists, settingOf(Key, "CCOrNoteNumber"), *scene, 24),
              "key_NoteNumber_Array");
}

TEST(Setting, EveryTextOfARowHasItsTranslations) {
    for (const Setting& setting : settings()) {
        EXPECT_TRUE(testing::isTranslated(setting.title())) << setting.title().written;
        EXPECT_TRUE(testing::isTranslated(setting.help())) << setting.help().written;
        for (const Phrase& phrase : setting.details().said)
            if (phrase.place != 0) {
                EXPECT_TRUE(testing::isTranslated(phrase.format)) << phrase.format.written;
            }
    }
}

TEST(KindTitle, NamesOneOrSeveralOfAKind) {
    struct Row {
        ControlKind kind;
        const char* one;
        const char* three;
    };
    for (const Row& row : {Row{Common, "Common", "Common"}, Row{Group, "Group", "3 Groups"},
                           Row{Knob, "Knob", "3 Knobs"}, Row{Slider, "Slider", "3 Sliders"},
                           Row{Pad, "Pad", "3 Pads"}, Row{Key, "Key", "3 Keys"}}) {
        EXPECT_EQ(kindTitle(row.kind), row.one);
        EXPECT_EQ(kindTitle(row.kind, 3), row.three);
    }
}

TEST(ControlCondition, HoldsForTheValuesThatItNames) {
    using enum ControlCondition;
    struct Row {
        ControlCondition condition;
        std::vector<std::int32_t> enable;     // of 0 to 2
        std::vector<std::int32_t> assignType; // of 0 to 3
    };
    for (const Row& row : {Row{Always, {0, 1, 2}, {0, 1, 2, 3}}, Row{Disabled, {0}, {0, 1, 2, 3}},
                           Row{Enabled, {1, 2}, {0, 1, 2, 3}}, Row{Unassigned, {0, 1, 2}, {0}},
                           Row{Assigned, {0, 1, 2}, {1, 2, 3}}, Row{Controller, {0, 1, 2}, {1}},
                           Row{Note, {0, 1, 2}, {2}}})
        for (const std::int32_t enable : {0, 1, 2})
            for (const std::int32_t type : {0, 1, 2, 3}) {
                ButtonValue record;
                record.setEnable(enable);
                record.setAssignType(type);
                EXPECT_EQ(holds(row.condition, record),
                          std::ranges::count(row.enable, enable) == 1 &&
                              std::ranges::count(row.assignType, type) == 1)
                    << static_cast<int>(row.condition) << ' ' << enable << ' ' << type;
            }
}

} // namespace
} // namespace scenewright
