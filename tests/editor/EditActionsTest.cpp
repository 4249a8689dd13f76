#include "app/WindowAction.h"
#include "tests/editor/EditorBench.h"

#include <algorithm>
#include <cctype>
#include <vector>

namespace scenewright::testing {

namespace {

using EditActions = EditorBench;

// All settings of a scene, one after the other.
std::vector<std::int32_t> everything(const SceneValue& scene) {
    std::vector<std::int32_t> values;
    const CommonValue& common = *scene.commonValue();
    for (const PopUpRow& row : kPopUpRows) {
        if (row.field.readCommon != nullptr)
            values.push_back((common.*row.field.readCommon)());
    }
    for (const auto& record : scene.buttonValueArray()) {
        for (const auto read :
             {&ButtonValue::ButtonID, &ButtonValue::MIDIChannel, &ButtonValue::AssignType,
              &ButtonValue::CCOrNoteNumber, &ButtonValue::UpperOrRightValue,
              &ButtonValue::LowerOrLeftValue, &ButtonValue::PadBehavior, &ButtonValue::KeyBehavior,
              &ButtonValue::OnValue, &ButtonValue::OffValue, &ButtonValue::Enable, &ButtonValue::CR,
              &ButtonValue::CG, &ButtonValue::CB})
            values.push_back((*record.*read)());
    }
    return values;
}

std::size_t differences(const std::vector<std::int32_t>& a, const std::vector<std::int32_t>& b) {
    std::size_t count = 0;
    for (std::size_t place = 0; place < a.size(); ++place)
        count += a[place] != b[place] ? 1U : 0U;
    return count;
}

// One of the 31 popups.
class EveryAction : public EditorBench, public ::testing::WithParamInterface<PopUpRow> {
protected:
    [[nodiscard]] bool isCommon() const { return GetParam().control == 0; }
    // The control that the tests choose: the second of its kind.
    [[nodiscard]] std::int32_t control() const { return isCommon() ? 0 : GetParam().control + 1; }
    std::int32_t stored() {
        const FieldAccess& field = GetParam().field;
        return isCommon() ? (common().*field.readCommon)()
                          : (record(control()).*field.readButton)();
    }
    void store(std::int32_t value) {
        const FieldAccess& field = GetParam().field;
        if (isCommon())
            (common().*field.writeCommon)(value);
        else
            (record(control()).*field.writeButton)(value);
    }
    // A scene with the control chosen and its field at 0, the journal empty.
    void begin() {
        loaded();
        if (control() != 0)
            choose(control());
        store(0);
        journal.clear();
    }
};

std::string nameOf(const ::testing::TestParamInfo<PopUpRow>& info) {
    return info.param.name;
}

} // namespace

TEST_P(EveryAction, WritesThePositionIntoItsFieldAndNothingElse) {
    begin();
    const auto before = everything(*view.sceneValue());
    pick(GetParam().name, 1);
    EXPECT_EQ(stored(), 1);
    EXPECT_EQ(differences(before, everything(*view.sceneValue())), 1U);
}

TEST_P(EveryAction, WritesIntoTheStoredSceneAndInNoOther) {
    begin();
    const auto other = everything(*WindowAction::getSceneWithIndex(1));
    pick(GetParam().name, 1);
    EXPECT_EQ(WindowAction::getSceneWithIndex(0), view.sceneValue());
    EXPECT_EQ(everything(*WindowAction::getSceneWithIndex(1)), other);
}

TEST_P(EveryAction, RefreshesTheSummaryUnlessItIsACommonSetting) {
    begin();
    pick(GetParam().name, 1);
    const std::size_t titles = isCommon() ? 0 : 45;
    EXPECT_EQ(journal.of("button").size(), titles * 3);
    EXPECT_EQ(journal.of("button45.setTitle").size(), isCommon() ? 0U : 1U);
}

TEST_P(EveryAction, LeavesTheRecordOfTheChosenControlInHand) {
    begin();
    const auto before = view.buttonValue();
    view.setButtonValue(nullptr);
    pick(GetParam().name, 1);
    EXPECT_EQ(view.buttonValue(), before);
}

TEST_P(EveryAction, WritesMinusOneForAPopUpWithoutASelection) {
    begin();
    pick(GetParam().name, -1);
    EXPECT_EQ(stored(), -1);
}

TEST_P(EveryAction, ChangesNoPaneAndNoSelection) {
    begin();
    pick(GetParam().name, 1);
    EXPECT_EQ(journal.of("list."), Lines{});
    for (const Lines& hidden = hiddenPanes(); const std::string& line : hidden)
        EXPECT_EQ(journal.of(line.substr(0, line.find('('))), Lines{});
}

INSTANTIATE_TEST_SUITE_P(ValuePopUps, EveryAction, ::testing::ValuesIn(kPopUpRows), nameOf);

TEST_F(EditActions, GroupChannelMakesItsCallsInThisOrder) {
    loaded();
    choose(2);
    journal.clear();
    pick("groupMIDIChannel", 7);
    std::map<std::int32_t, std::string> titles;
    Lines set;
    for (std::int32_t tag = 1; tag <= 45; ++tag) {
        titles[tag] = tag == 2  ? "button-MIDICh:7"
                      : tag < 5 ? "button-MIDICh:2"
                                : button(tag).title.text;
        set.push_back("button" + std::to_string(tag) + ".setTitle(" + titles[tag] + ")");
    }
    EXPECT_EQ(journal.lines(), joined({set, greenTitles(titles)}));
}

TEST_F(EditActions, VelocityCurveThreeEnablesItsConstantAndNothingElseHappens) {
    loaded();
    for (const std::string kind : {"Key", "Pad"}) {
        journal.clear();
        for (const std::int32_t curve : {3, 2})
            pick("common" + kind + "VelocityCurve", curve);
        EXPECT_EQ(journal.lines(), (Lines{"common" + kind + "ConstVelocity.setEnabled(yes)",
                                          "common" + kind + "ConstVelocity.setEnabled(no)"}));
    }
}

TEST_F(EditActions, OtherCommonSettingsCallNoWidget) {
    loaded();
    for (const char* name :
         {"commonGlobalMIDICh", "commonPianoKeyCh", "commonPitchBendSpeed", "commonKeyTranspose",
          "commonKeyConstVelocity", "commonPadConstVelocity"})
        pick(name, 1);
    EXPECT_EQ(journal.lines(), Lines{});
}

TEST_F(EditActions, KnobSwitchedOffDisablesThreePopUpsAndShowsDashesInModesTwoToSeven) {
    loaded();
    for (const auto write :
         {&ButtonValue::setKeyBehavior, &ButtonValue::setOffValue, &ButtonValue::setOnValue})
        (record(5).*write)(3);
    choose(5);
    for (std::int32_t mode = 2; mode < 8; ++mode) {
        view.setDispaly_index(mode);
        pick("knobEnable", 1);
        EXPECT_NE(button(5).title.text, "---") << mode;
        journal.clear();
        pick("knobEnable", 0);
        EXPECT_EQ(journal.withoutPicture(),
                  (Lines{"knobCCNumber.setEnabled(no)", "knobUpperOrRightValue.setEnabled(no)",
                         "knobLowerOrLeftValue.setEnabled(no)"}));
        EXPECT_EQ(button(5).title.text, "---") << mode;
    }
}

TEST_F(EditActions, KnobSwitchedOnAgainKeepsItsNumberAndValues) {
    loaded();
    choose(5);
    pick("knobEnable", 0);
    EXPECT_EQ(record(5).CCOrNoteNumber(), 20);
    EXPECT_EQ(popUp("knobCCNumber").selected, 20);
    pick("knobEnable", 1);
    EXPECT_EQ(enabledPopUps("knob").size(), 4U);
    EXPECT_EQ(button(5).title.text, "CC#\nselect127:20");
}

TEST_F(EditActions, SliderSwitchedOffDisablesItsThreePopUps) {
    loaded();
    choose(9);
    journal.clear();
    pick("sliderEnable", 0);
    EXPECT_EQ(journal.withoutPicture(),
              (Lines{"sliderCCNumber.setEnabled(no)", "sliderUpperOrRightValue.setEnabled(no)",
                     "sliderLowerOrLeftValue.setEnabled(no)"}));
    EXPECT_EQ(enabledPopUps("knob").size(), 4U);
}

TEST_F(EditActions, ActionWithoutAChosenControlWritesNothing) {
    loaded();
    for (const std::int32_t chosen : {-1, 0, 46, INT32_MIN}) {
        view.setSelectControl(chosen);
        const auto before = everything(*view.sceneValue());
        journal.clear();
        pick("padCR", 5);
        EXPECT_EQ(everything(*view.sceneValue()), before);
        EXPECT_EQ(journal.lines(), Lines{}) << chosen;
    }
}

} // namespace scenewright::testing
