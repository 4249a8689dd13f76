#include "editor/ValuePopUps.h"

#include "app/WindowAction.h"
#include "tests/editor/EditorBench.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <ostream>
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

// The rule of a pad's or key's assign type: what the pane shows of it, and what another choice
// does.
namespace {

// The popups that depend on the assign type, in the order in which they are reached.
const std::vector<std::string> kOfPads{"CCOrNoteNumber", "OnValue", "OffValue", "PadBehavior",
                                       "MIDIChannel"};
const std::vector<std::string> kOfKeys{"CCOrNoteNumber", "OnValue", "OffValue", "KeyBehavior"};

struct Rule {
    const char* name;
    std::int32_t control; // a pad or a key
    std::int32_t type;
    const char* enabled; // a letter for each popup that depends on it, "y" or "n"
    const char* list;    // that the number's popup offers then; null for none
    const char* title;   // of the control in the picture

    [[nodiscard]] bool isPad() const { return control < 21; }
    [[nodiscard]] std::string popUp(const std::string& rest) const {
        return (isPad() ? "pad" : "key") + rest;
    }
    [[nodiscard]] Lines enabling() const {
        Lines lines;
        const char* letter = enabled;
        for (const std::string& each : isPad() ? kOfPads : kOfKeys)
            lines.push_back(popUp(each) + ".setEnabled(" + (*letter++ == 'y' ? "yes)" : "no)"));
        return lines;
    }
    [[nodiscard]] Lines offering() const {
        const std::string added = popUp("CCOrNoteNumber") + ".addItems(";
        return list == nullptr ? Lines{} : Lines{added + list + ":0 x128)"};
    }
    [[nodiscard]] Lines emptying() const { return {popUp("CCOrNoteNumber") + ".removeAllItems()"}; }
    [[nodiscard]] Lines showingNumber() const {
        return {popUp("CCOrNoteNumber") + (isPad() ? ".selectItem(36)" : ".selectItem(60)")};
    }
    // What the pane shows after the number.
    [[nodiscard]] Lines rest() const {
        if (!isPad())
            return {"keyOnValue.selectItem(126)", "keyOffValue.selectItem(2)",
                    "keyKeyBehavior.selectItem(4)"};
        return {"padOnValue.selectItem(127)",   "padOffValue.selectItem(1)",
                "padPadBehavior.selectItem(3)", "padMIDIChannel.selectItem(9)",
                "log: CR---------->10",         "padCR.selectItem(10)",
                "padCG.selectItem(20)",         "padCB.selectItem(30)"};
    }
};

void PrintTo(const Rule& rule, std::ostream* out) {
    *out << rule.name;
}

constexpr Rule kRules[] = {
    {"PadOff", 13, 0, "nnnnn", nullptr, "---"},
    {"PadController", 13, 1, "yyyyy", "select127", "CC#\nselect127:36"},
    {"PadNote", 13, 2, "ynnyy", "button-note", "Note\nbutton-note:36"},
    {"KeyOff", 45, 0, "nnnn", nullptr, "---"},
    {"KeyController", 45, 1, "yyyy", "select127", "CC#\nselect127:60"},
    {"KeyNote", 45, 2, "ynny", "button-note", "Note\nbutton-note:60"},
};

class EachType : public LoadedEditor, public ::testing::WithParamInterface<Rule> {};

using AssignType = LoadedEditor;

} // namespace

TEST_P(EachType, IsShownWithWhatItAllows) {
    const Rule& rule = GetParam();
    record(rule.control).setAssignType(rule.type);
    if (rule.isPad())
        view.showPadValue(rule.control);
    else
        view.showKeyValue(rule.control);
    const std::string select = ".selectItem(" + std::to_string(rule.type) + ")";
    EXPECT_EQ(journal.lines(), joined({hiddenPanes(),
                                       {rule.popUp("AssignType") + select},
                                       rule.emptying(),
                                       rule.enabling(),
                                       rule.offering(),
                                       rule.showingNumber(),
                                       rule.rest(),
                                       {rule.popUp("View.setHidden(no)")}}));
    EXPECT_EQ(popUp(rule.popUp("CCOrNoteNumber")).titles.size(), rule.list != nullptr ? 128U : 0U);
}

// Off leaves the number's popup its entries.
TEST_P(EachType, AllowsTheSameWhenItIsChosen) {
    const Rule& rule = GetParam();
    record(rule.control).setAssignType(rule.type == 1 ? 2 : 1);
    choose(rule.control);
    journal.clear();
    pick(rule.popUp("AssignType"), rule.type);
    const bool keeps = rule.list == nullptr;
    EXPECT_EQ(journal.withoutPicture(),
              joined({rule.enabling(), keeps ? Lines{} : rule.emptying(), rule.offering(),
                      keeps ? Lines{} : rule.showingNumber()}));
    EXPECT_EQ(popUp(rule.popUp("CCOrNoteNumber")).titles.size(), 128U);
    EXPECT_EQ(popUp(rule.popUp("CCOrNoteNumber")).selected, rule.isPad() ? 36 : 60);
    EXPECT_EQ(button(rule.control).title.text, rule.title);
    EXPECT_EQ(journal.of(rule.isPad() ? "key" : "pad"), Lines{});
}

INSTANTIATE_TEST_SUITE_P(PadsAndKeys, EachType, ::testing::ValuesIn(kRules),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_F(AssignType, AnythingElseRefreshesTheSummaryAndEmptiesTheNumbersOfAPaneShownAnew) {
    choose(13);
    for (const std::int32_t type : {-1, 3, 127}) {
        popUp("padOnValue").enabled = false;
        popUp("padOffValue").enabled = true;
        journal.clear();
        pick("padAssignType", type);
        EXPECT_EQ(record(13).AssignType(), type);
        EXPECT_EQ(journal.withoutPicture(), Lines{});
        EXPECT_EQ(journal.of("button13.setTitle"), Lines{"button13.setTitle(---)"});
        view.showPadValue(13);
        EXPECT_EQ(journal.of("padOffValue.setEnabled"), Lines{});
        EXPECT_TRUE(popUp("padCCOrNoteNumber").titles.empty());
        EXPECT_FALSE(popUp("padOnValue").enabled);
        EXPECT_TRUE(popUp("padOffValue").enabled);
    }
}

// A number beyond the list becomes its last; its length itself is spared, and an absent number
// counts as beyond.
TEST_F(AssignType, NumberIsClampedToTheNotesAlone) {
    struct Case {
        std::size_t notes;
        std::int32_t number;
        std::int32_t type;
        std::int32_t kept;
        std::int32_t shown;
    };
    choose(13);
    for (const Case& each :
         {Case{128, 127, 2, 127, 127}, Case{100, 127, 2, 99, 99}, Case{100, 100, 2, 100, -1},
          Case{100, 101, 2, 99, 99}, Case{128, -1, 2, 127, 127}, Case{100, -1, 1, -1, -1}}) {
        SCOPED_TRACE(std::to_string(each.number) + " of " + std::to_string(each.notes));
        setEntries("button-note", each.notes);
        view.getItem();
        record(13).setCCOrNoteNumber(each.number);
        pick("padAssignType", each.type);
        EXPECT_EQ(record(13).CCOrNoteNumber(), each.kept);
        EXPECT_EQ(popUp("padCCOrNoteNumber").selected, each.shown);
    }
    EXPECT_EQ(button(13).title.text, "---");
}

TEST_F(AssignType, WithoutANoteListTheNumberBecomesAbsentAndThePopUpStaysEmpty) {
    setEntries("button-note", 0);
    loaded();
    choose(13);
    pick("padAssignType", 2);
    EXPECT_EQ(record(13).CCOrNoteNumber(), -1);
    EXPECT_TRUE(popUp("padCCOrNoteNumber").titles.empty());
}

TEST_F(AssignType, ColoursOfThePadAreNotTouched) {
    choose(13);
    journal.clear();
    for (const std::int32_t type : {0, 1, 2, 3}) {
        view.showPadValue(13);
        pick("padAssignType", type);
    }
    for (const char* name : {"padCR.", "padCG.", "padCB."})
        EXPECT_EQ(journal.of(std::string(name) + "setEnabled"), Lines{});
    EXPECT_EQ(record(13).CR(), 10);
}

} // namespace scenewright::testing
