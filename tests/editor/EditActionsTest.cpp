#include "app/WindowAction.h"
#include "editor/ValuePopUps.h"
#include "tests/editor/EditorBench.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <utility>
#include <vector>

namespace scenewright::testing {

namespace {

using EditActions = LoadedEditor;

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
class EveryAction : public LoadedEditor, public ::testing::WithParamInterface<PopUpRow> {
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

TEST_P(EveryAction, WritesThePositionIntoItsFieldOfTheStoredSceneAndNothingElse) {
    begin();
    const auto before = everything(*view.sceneValue());
    const auto other = everything(*WindowAction::getSceneWithIndex(1));
    pick(GetParam().name, 1);
    EXPECT_EQ(stored(), 1);
    EXPECT_EQ(differences(before, everything(*view.sceneValue())), 1U);
    EXPECT_EQ(WindowAction::getSceneWithIndex(0), view.sceneValue());
    EXPECT_EQ(everything(*WindowAction::getSceneWithIndex(1)), other);
    pick(GetParam().name, -1); // without a selection
    EXPECT_EQ(stored(), -1);
}

TEST_P(EveryAction, RefreshesTheSummaryUnlessItIsACommonSettingAndChangesNoPane) {
    begin();
    const auto inHand = view.buttonValue();
    view.setButtonValue(nullptr);
    pick(GetParam().name, 1);
    EXPECT_EQ(view.buttonValue(), inHand);
    const std::size_t titles = isCommon() ? 0 : 45;
    EXPECT_EQ(journal.of("button").size(), titles * 3);
    EXPECT_EQ(journal.of("button45.setTitle").size(), isCommon() ? 0U : 1U);
    EXPECT_EQ(journal.of("list."), Lines{});
    for (const Lines& hidden = hiddenPanes(); const std::string& line : hidden)
        EXPECT_EQ(journal.of(line.substr(0, line.find('('))), Lines{});
}

INSTANTIATE_TEST_SUITE_P(ValuePopUps, EveryAction, ::testing::ValuesIn(kPopUpRows), nameOf);

TEST_F(EditActions, GroupChannelMakesItsCallsInThisOrder) {
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
    for (const std::string kind : {"Key", "Pad"}) {
        journal.clear();
        for (const std::int32_t curve : {3, 2})
            pick("common" + kind + "VelocityCurve", curve);
        EXPECT_EQ(journal.lines(), (Lines{"common" + kind + "ConstVelocity.setEnabled(yes)",
                                          "common" + kind + "ConstVelocity.setEnabled(no)"}));
    }
}

TEST_F(EditActions, OtherCommonSettingsCallNoWidget) {
    for (const char* name :
         {"commonGlobalMIDICh", "commonPianoKeyCh", "commonPitchBendSpeed", "commonKeyTranspose",
          "commonKeyConstVelocity", "commonPadConstVelocity"})
        pick(name, 1);
    EXPECT_EQ(journal.lines(), Lines{});
}

TEST_F(EditActions, KnobOrSliderSwitchedOffDisablesThreePopUpsAndShowsDashesInModesTwoToSeven) {
    for (const auto& [kind, control] :
         {std::pair<std::string, std::int32_t>{"knob", 5}, {"slider", 9}}) {
        for (const auto write :
             {&ButtonValue::setKeyBehavior, &ButtonValue::setOffValue, &ButtonValue::setOnValue})
            (record(control).*write)(3);
        const std::int32_t number = record(control).CCOrNoteNumber();
        choose(control);
        for (std::int32_t mode = 2; mode < 8; ++mode) {
            view.setDispaly_index(mode);
            pick(kind + "Enable", 1);
            EXPECT_NE(button(control).title.text, "---") << mode;
            EXPECT_EQ(enabledPopUps(kind).size(), 4U);
            journal.clear();
            pick(kind + "Enable", 0);
            EXPECT_EQ(journal.withoutPicture(), (Lines{kind + "CCNumber.setEnabled(no)",
                                                       kind + "UpperOrRightValue.setEnabled(no)",
                                                       kind + "LowerOrLeftValue.setEnabled(no)"}));
            EXPECT_EQ(button(control).title.text, "---") << mode;
        }
        EXPECT_EQ(record(control).CCOrNoteNumber(), number);
        EXPECT_EQ(popUp(kind + "CCNumber").selected, number);
    }
}

TEST_F(EditActions, ActionWithoutAChosenControlWritesNothing) {
    for (const std::int32_t chosen : {-1, 0, 46, INT32_MIN}) {
        view.setSelectControl(chosen);
        const auto before = everything(*view.sceneValue());
        journal.clear();
        pick("padCR", 5);
        EXPECT_EQ(everything(*view.sceneValue()), before);
        EXPECT_EQ(journal.lines(), Lines{}) << chosen;
    }
}

TEST(ValuePopUps, VelocityIsEnabledByTheConstantCurveAlone) {
    for (std::int32_t curve = 0; curve < 6; ++curve)
        EXPECT_EQ(isEnabled(EnableWhen::ConstantCurve, curve), curve == 3) << curve;
    EXPECT_EQ(isEnabled(EnableWhen::Always, 127), true);
}

TEST(ValuePopUps, AssignTypesOfPadsAndKeysAloneHaveANumber) {
    for (const ValuePopUp& row : valuePopUps()) {
        const ValuePopUp* const number = numberPopUpOf(row);
        ASSERT_EQ(number != nullptr, row.setting->name() == "AssignType") << row.name;
        if (number != nullptr) {
            EXPECT_EQ(number->setting->name(), "CCOrNoteNumber");
            EXPECT_EQ(number->pane(), row.pane());
        }
    }
}

} // namespace scenewright::testing
