#include "app/WindowAction.h"
#include "editor/ControlDescription.h"
#include "editor/ControlSelection.h"
#include "model/Setting.h"
#include "tests/editor/EditorBench.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace scenewright::testing {

namespace {

using EditorSetUp = EditorBench;

// The titles of the default scene in the mode in which the editor opens.
std::map<std::int32_t, std::string> numberTitles() {
    std::map<std::int32_t, std::string> titles;
    for (std::int32_t tag = 1; tag <= 45; ++tag)
        titles[tag] = tag < 5    ? "button-MIDICh:2"
                      : tag < 9  ? "CC#\nselect127:20"
                      : tag < 13 ? "CC#\nselect127:30"
                      : tag < 21 ? "Note\nbutton-note:36"
                                 : "Note\nbutton-note:60";
    return titles;
}

Lines titlesSet() {
    Lines lines;
    for (const auto& [tag, title] : numberTitles())
        lines.push_back("button" + std::to_string(tag) + ".setTitle(" + title + ")");
    return lines;
}

Lines commonPaneShown() {
    return joined({hiddenPanes(),
                   {
                       "commonView.setHidden(no)",
                       "commonSceneName.setText(SCENE1)",
                       "commonGlobalMIDICh.selectItem(3)",
                       "commonPianoKeyCh.selectItem(4)",
                       "commonPitchBendSpeed.selectItem(50)",
                       "commonKeyTranspose.selectItem(6)",
                       "commonKeyVelocityCurve.selectItem(3)",
                       "commonKeyConstVelocity.selectItem(70)",
                       "commonPadVelocityCurve.selectItem(1)",
                       "commonPadConstVelocity.selectItem(80)",
                       "commonKeyConstVelocity.setEnabled(yes)",
                       "commonPadConstVelocity.setEnabled(no)",
                   }});
}

Lines everyPopUpEmptied() {
    Lines lines{"displaySelect.removeAllItems()"};
    for (const PopUpRow& row : kPopUpRows)
        lines.push_back(std::string(row.name) + ".removeAllItems()");
    return lines;
}

Lines everyPopUpFilled() {
    Lines lines;
    for (const PopUpRow& row : kPopUpRows)
        lines.push_back(std::string(row.name) + ".addItems(" + row.key + ":0 x" +
                        std::to_string(row.entries) + ")");
    return lines;
}

Lines itemsGot() {
    return joined({everyPopUpEmptied(),
                   {"displaySelect.addItems(displaySelect:0 x8)", "list.reload()"},
                   everyPopUpFilled()});
}

} // namespace

TEST_F(EditorSetUp, ViewDidLoadMakesItsCallsInThisOrder) {
    load();
    EXPECT_EQ(
        journal.lines(),
        joined({{"list.setDelegate()", "list.setDataSource()", "commonSceneName.setEditable(no)"},
                itemsGot(),
                {"log: SceneValue SCENE1, 45 controls", "list.selectRow(0)", "log: 表格选中:0"},
                commonPaneShown(),
                highlighted(0),
                {"displaySelect.selectItem(2)"},
                titlesSet(),
                greenTitles(numberTitles()),
                highlighted(0),
                commonPaneShown()}));
}

TEST_F(EditorSetUp, StateAfterLoadIsSceneZeroTheCommonSettingsAndModeTwo) {
    loaded();
    EXPECT_EQ((std::array{view.common_start(), view.group_start(), view.knob_start(),
                          view.slider_start(), view.pad_start(), view.key_start(), view.all()}),
              (std::array{0, 1, 5, 9, 13, 21, 46}));
    EXPECT_EQ(view.sceneIndex(), 0);
    EXPECT_EQ(view.selectControl(), 0);
    EXPECT_EQ(view.dispaly_index(), 2);
    EXPECT_EQ(view.sceneValue(), WindowAction::getSceneWithIndex(0));
    EXPECT_EQ(view.messageValue(), WindowAction::getMessageValue());
    EXPECT_EQ(view.controlArray(), view.pu()->control_Array());
    EXPECT_EQ(view.buttonValue(), nullptr);
    view.viewDidAppear();
    EXPECT_EQ(journal.lines(), Lines{});
}

TEST_F(EditorSetUp, LoadReplacesTheStoredScenesByFourDefaults) {
    WindowAction::getSceneValue();
    WindowAction::getSceneWithIndex(2)->commonValue()->setSceneName("EDITED");
    load();
    EXPECT_EQ(WindowAction::scenes().size(), 4U);
    EXPECT_EQ(WindowAction::getSceneWithIndex(2)->commonValue()->SceneName(), "SCENE3");
}

TEST_F(EditorSetUp, GetItemTakesANewHolderEachTime) {
    load();
    const auto first = view.pu();
    journal.clear();
    view.getItem();
    EXPECT_EQ(journal.lines(), itemsGot());
    EXPECT_NE(view.pu(), first);
    EXPECT_EQ(popUp("padCR").titles.size(), 128U);
}

TEST_F(EditorSetUp, MissingKeyLeavesItsPopUpsOrTheListEmptyAndFillsTheOthers) {
    setEntries("select127", 0);
    setEntries("control", 0);
    load();
    EXPECT_TRUE(popUp("padCR").titles.empty());
    EXPECT_EQ(journal.of("padCR.addItems"), Lines{});
    EXPECT_EQ(popUp("padMIDIChannel").titles.size(), 17U);
    EXPECT_EQ(view.numberOfRowsInTableView(&list), 0);
    EXPECT_EQ(view.tableView_objectValueForTableColumn_row(&list, 0, 0), "");
}

TEST_F(EditorSetUp, WithoutADefaultSceneTheEditorOpensOnEmptyScenes) {
    removeDefaultScene();
    load();
    EXPECT_EQ(visiblePanes(), Lines{"commonView"});
    EXPECT_EQ(journal.of("button1.setTitle"), Lines{});
    EXPECT_EQ(journal.of("button1.setAttributedTitle"),
              Lines{"button1.setAttributedTitle(, 50 180 50)"});
}

TEST_F(EditorSetUp, EachOutletKeepsWhatItIsGiven) {
    EXPECT_EQ(view.windowView(), &picture);
    EXPECT_EQ(view.sceneSegmented(), &scenes);
    EXPECT_EQ(view.controllerTableView(), &list);
    EXPECT_EQ(view.displaySelect(), &displaySelect);
    EXPECT_EQ(view.message(), &status);
    EXPECT_EQ(view.commonSceneName(), &sceneName);
    EXPECT_EQ(view.keyView(), &pane("keyView"));
    for (const PopUpRow& row : kPopUpRows)
        EXPECT_EQ((view.*row.outlet)(), &popUp(row.name)) << row.name;
}

namespace {

using Selection = LoadedEditor;

Lines groupPaneShown() {
    return joined({hiddenPanes(), {"groupMIDIChannel.selectItem(2)", "groupView.setHidden(no)"}});
}

} // namespace

TEST_F(Selection, ListHasOneRowAControlTitleThatNobodyEdits) {
    EXPECT_EQ(view.numberOfRowsInTableView(&list), 46);
    EXPECT_EQ(list.source->rowCount(), 46);
    EXPECT_EQ(view.tableView_objectValueForTableColumn_row(&list, 0, 0), "control:0");
    EXPECT_EQ(view.tableView_objectValueForTableColumn_row(&list, 7, 45), "control:45");
    EXPECT_EQ(list.source->rowTitle(13), "control:13");
    EXPECT_EQ(list.source->rowTitle(-1), "");
    EXPECT_EQ(list.source->rowTitle(46), "");
    for (std::int32_t row = 0; row < 46; ++row)
        EXPECT_FALSE(list.source->mayEdit(row));
    EXPECT_FALSE(view.tableView_shouldEditTableColumn_row(&list, 0, 3));
}

TEST_F(Selection, ClickOnARowStoresItThenShowsItsPaneAndItsButton) {
    list.click(1);
    EXPECT_EQ(view.selectControl(), 1);
    EXPECT_EQ(journal.lines(), joined({{"log: 表格选中:1"}, groupPaneShown(), highlighted(1)}));
}

TEST_F(Selection, ProposedSelectionIsReturnedUnchangedAndTheClickedRowStored) {
    list.clicked = 17;
    EXPECT_EQ(view.tableView_selectionIndexesForProposedSelection(&list, {4, 5}),
              (std::vector<std::int32_t>{4, 5}));
    EXPECT_EQ(view.selectControl(), 17);
    EXPECT_EQ(journal.lines(), Lines{});
}

TEST_F(Selection, RowChosenWithTheKeysStoresMinusOneAndShowsNoPane) {
    list.chooseByKeys(13);
    EXPECT_EQ(view.selectControl(), -1);
    EXPECT_EQ(list.selected, 13);
    EXPECT_EQ(journal.lines(), joined({{"log: 表格选中:-1"}, highlighted(-1)}));
}

TEST_F(Selection, ClickOnAButtonSelectsItsRowAndTheRestFollows) {
    view.chooseButtonAction(button(1));
    EXPECT_EQ(view.selectControl(), 1);
    EXPECT_EQ(list.selected, 1);
    EXPECT_EQ(journal.lines(),
              joined({{"log: 点击了按钮：1", "list.selectRow(1)", "log: 表格选中:1"},
                      groupPaneShown(),
                      highlighted(1)}));
    journal.clear();
    view.chooseButtonAction(button(1)); // it is chosen already
    EXPECT_EQ(journal.lines(), (Lines{"log: 点击了按钮：1", "list.selectRow(1)"}));
    list.click(0);
    EXPECT_EQ(visiblePanes(), Lines{"commonView"});
    EXPECT_EQ(journal.of("button1.setImage"), Lines{"button1.setImage(none)"});
}

TEST_F(Selection, EveryIndexShowsThePaneOfItsKindAndItsOwnRecord) {
    for (std::int32_t index = 1; index <= 45; ++index) {
        choose(index);
        const std::string pane = index < 5    ? "groupView"
                                 : index < 9  ? "knobView"
                                 : index < 13 ? "sliderView"
                                 : index < 21 ? "padView"
                                              : "keyView";
        EXPECT_EQ(visiblePanes(), Lines{pane}) << index;
        const auto place = static_cast<std::size_t>(index) - 1;
        EXPECT_EQ(view.buttonValue(), view.sceneValue()->buttonValueArray()[place]) << index;
        EXPECT_EQ(button(index).image, "selected") << index;
    }
    view.setKnob_start(3); // the ranges are those of the fields
    choose(3);
    EXPECT_EQ(visiblePanes(), Lines{"knobView"});
}

TEST_F(Selection, IndexBelowOrBeyondTheControlsShowsNoPane) {
    for (const std::int32_t index : {-1, 46, 1000, INT32_MIN, INT32_MAX}) {
        journal.clear();
        view.setSelectControl(index);
        view.tableViewSelectionDidChange(&list);
        EXPECT_EQ(journal.lines(),
                  joined({{"log: 表格选中:" + std::to_string(index)}, highlighted(index)}));
    }
}

TEST_F(Selection, HighlightingAndColouringAskForTheTagsOneToFortySix) {
    std::vector<std::int32_t> tags(46);
    std::iota(tags.begin(), tags.end(), 1);
    picture.asked.clear();
    view.showChooseButtonWithIndex(46);
    EXPECT_EQ(picture.asked, tags);
    EXPECT_EQ(journal.lines(), highlighted(46));
    picture.asked.clear();
    view.changeButtonColor();
    EXPECT_EQ(picture.asked, tags);
}

TEST_F(Selection, TagWithoutAButtonIsSkipped) {
    picture.buttons.erase(7);
    view.showChooseButtonWithIndex(7);
    view.changeButtonColor();
    view.showDisplayValueWithIndex(2);
    EXPECT_EQ(journal.of("button7."), Lines{});
    EXPECT_EQ(journal.of("button8.setTitle"), Lines{"button8.setTitle(CC#\nselect127:20)"});
}

TEST_F(Selection, TextColourKeepsTheTitleAndAsksForARedraw) {
    view.setTextColor_color(button(3), Colour{1, 2, 3});
    EXPECT_EQ(journal.lines(), (Lines{"button3.setAttributedTitle(button-MIDICh:2, 1 2 3)",
                                      "button3.setNeedsDisplay()"}));
}

TEST_F(Selection, SceneChangeShowsTheSegmentsSceneFromItsCommonSettings) {
    choose(13);
    scenes.selected = 2;
    view.changeSceneAction(scenes);
    EXPECT_EQ(view.sceneIndex(), 2);
    EXPECT_EQ(view.selectControl(), 0);
    EXPECT_EQ(view.sceneValue(), WindowAction::getSceneWithIndex(2));
    EXPECT_EQ(sceneName.text, "SCENE3");
    EXPECT_EQ(visiblePanes(), Lines{"commonView"});
    EXPECT_EQ(button(13).image, std::nullopt);
    EXPECT_EQ(list.selected, 0);
}

TEST_F(Selection, SceneShownWithAnotherControlChosenStillEndsOnTheCommonPane) {
    choose(13);
    view.showSceneValue();
    EXPECT_EQ(view.selectControl(), 13);
    EXPECT_EQ(list.selected, 13);
    EXPECT_EQ(visiblePanes(), Lines{"commonView"});
    EXPECT_EQ(button(13).image, std::nullopt);
}

namespace {

using Panes = LoadedEditor;

Lines shown(const Lines& calls, const std::string& pane) {
    return joined({hiddenPanes(), calls, {pane + ".setHidden(no)"}});
}

} // namespace

TEST_F(Panes, CommonPaneIsShownFirstThenFilled) {
    common().setKeyVelocityCurve(2);
    common().setPadVelocityCurve(3);
    view.showCommonValue();
    EXPECT_EQ(
        journal.lines(),
        joined(
            {hiddenPanes(),
             {"commonView.setHidden(no)", "commonSceneName.setText(SCENE1)",
              "commonGlobalMIDICh.selectItem(3)", "commonPianoKeyCh.selectItem(4)",
              "commonPitchBendSpeed.selectItem(50)", "commonKeyTranspose.selectItem(6)",
              "commonKeyVelocityCurve.selectItem(2)", "commonKeyConstVelocity.selectItem(70)",
              "commonPadVelocityCurve.selectItem(3)", "commonPadConstVelocity.selectItem(80)",
              "commonKeyConstVelocity.setEnabled(no)", "commonPadConstVelocity.setEnabled(yes)"}}));
}

TEST_F(Panes, OnlyCurveThreeEnablesItsConstantVelocity) {
    for (const std::int32_t curve : {-1, 0, 1, 2, 3, 4, 127}) {
        common().setKeyVelocityCurve(curve);
        common().setPadVelocityCurve(3 - curve);
        view.showCommonValue();
        EXPECT_EQ(popUp("commonKeyConstVelocity").enabled, curve == 3) << curve;
        EXPECT_EQ(popUp("commonPadConstVelocity").enabled, curve == 0) << curve;
    }
}

TEST_F(Panes, SceneNameIsHandedOverAsItIsStored) {
    for (const std::string& name :
         {std::string("LIVE\0\0\0\0\0\0\0\0", 12), std::string("\xFF\x07")}) {
        common().setSceneName(name);
        view.showCommonValue();
        EXPECT_EQ(sceneName.text, name);
    }
}

TEST_F(Panes, GroupPaneShowsTheChannelAnewEachTime) {
    for (const std::int32_t channel : {11, 16}) {
        record(4).setMIDIChannel(channel);
        journal.clear();
        view.showGroupValue(4);
        EXPECT_EQ(
            journal.lines(),
            shown({"groupMIDIChannel.selectItem(" + std::to_string(channel) + ")"}, "groupView"));
        EXPECT_EQ(view.buttonValue().get(), &record(4));
    }
}

// Any enable but 0 is on; what is off is shown all the same.
TEST_F(Panes, KnobsAndSlidersShowTheirValuesThenWhatCanBeUsed) {
    for (const std::int32_t enable : {-1, 0, 1, 2, 127}) {
        const std::string value = std::to_string(enable);
        const std::string usable = enable != 0 ? ".setEnabled(yes)" : ".setEnabled(no)";
        for (const std::int32_t index : {6, 12}) {
            const bool isKnob = index == 6;
            const std::string kind = isKnob ? "knob" : "slider";
            record(index).setEnable(enable);
            journal.clear();
            if (isKnob)
                view.showKnobValue(index);
            else
                view.showSliderValue(index);
            EXPECT_EQ(journal.lines(),
                      shown({kind + "Enable.selectItem(" + value + ")",
                             kind + "CCNumber.selectItem(" + (isKnob ? "20)" : "30)"),
                             kind + "LowerOrLeftValue.selectItem(" + (isKnob ? "10)" : "11)"),
                             kind + "UpperOrRightValue.selectItem(" + (isKnob ? "100)" : "101)"),
                             kind + "CCNumber" + usable, kind + "UpperOrRightValue" + usable,
                             kind + "LowerOrLeftValue" + usable},
                            kind + "View"))
                << kind << " " << enable;
        }
    }
}

TEST_F(Panes, ControlWithoutARecordShowsNoPane) {
    removeDefaultScene();
    loaded();
    view.showPadValue(13);
    EXPECT_EQ(journal.lines(), hiddenPanes());
}

// Scenes that hold fewer than 45 controls, as a default scene's file that is missing or cut short
// leaves them, and option lists that are not there.
namespace {

class FewControls : public LoadedEditor, public ::testing::WithParamInterface<std::size_t> {
protected:
    FewControls() {
        for (const auto& scene : WindowAction::scenes()) {
            auto records = scene->buttonValueArray();
            records.resize(GetParam());
            scene->setButtonValueArray(records);
        }
        view.showSceneValue();
    }
    [[nodiscard]] static bool isThere(std::int32_t index) {
        return index >= 1 && std::cmp_less_equal(index, GetParam());
    }
};

} // namespace

TEST_P(FewControls, PaneIsShownForTheControlsThatAreThere) {
    const std::pair<std::int32_t, const char*> kLasts[] = {
        {4, "groupView"}, {8, "knobView"}, {12, "sliderView"}, {20, "padView"}, {45, "keyView"}};
    for (const auto& [index, pane] : kLasts) {
        choose(index);
        EXPECT_EQ(visiblePanes(), isThere(index) ? Lines{pane} : Lines{}) << index;
        view.showChosenControl();
        EXPECT_EQ(visiblePanes(), isThere(index) ? Lines{pane} : Lines{}) << index;
    }
    list.click(0);
    EXPECT_EQ(visiblePanes(), Lines{"commonView"});
}

TEST_P(FewControls, ChoiceForAControlThatIsMissingChangesNothing) {
    for (const PopUpRow& row : kPopUpRows) {
        const std::int32_t last = controlRangeOf(row.control)->end() - 1;
        if (last == 0)
            continue; // the common settings are always there
        choose(last);
        pick(row.name, 1);
        if (isThere(last)) {
            EXPECT_EQ((record(last).*row.field.readButton)(), 1) << row.name;
        }
    }
    EXPECT_EQ(view.sceneValue()->buttonValueArray().size(), GetParam());
}

TEST_P(FewControls, SummarySetsTheTitlesOfThoseThatAreThere) {
    journal.clear();
    view.showDisplayValueWithIndex(2);
    for (std::int32_t tag = 1; tag <= 45; ++tag)
        EXPECT_EQ(journal.of("button" + std::to_string(tag) + ".setTitle").size(), isThere(tag))
            << tag;
}

TEST_P(FewControls, DescriptionsAndTitlesDoWithout) {
    for (std::int32_t index = 0; index <= 46; ++index) {
        const std::string text = describeControl(*view.pu(), *view.sceneValue(), index);
        EXPECT_EQ(text != controlName(index), index == 0 || isThere(index)) << text;
    }
    for (const Setting& setting : settings()) {
        const ControlRange& range = controlRange(setting.kind());
        const bool isNone = range.kind != ControlKind::Common && !isThere(range.end() - 1);
        if (isNone) {
            EXPECT_EQ(optionTitle(*view.pu(), setting, *view.sceneValue(), range.count - 1), "---")
                << setting.name();
        }
    }
}

TEST_P(FewControls, ClipboardTakesAndGivesWhatIsThere) {
    for (std::int32_t index = 0; index <= 46; ++index) {
        ControlClipboard clipboard;
        const bool isHeld = index == 0 || isThere(index);
        EXPECT_EQ(clipboard.copy(*view.sceneValue(), index), isHeld) << index;
        EXPECT_EQ(clipboard.paste(*view.sceneValue(), index), isHeld) << index;
        EXPECT_EQ(resetControl(*view.sceneValue(), index), isHeld) << index;
    }
}

INSTANTIATE_TEST_SUITE_P(Counts, FewControls, ::testing::Values(0U, 44U));

using NoLists = EditorBench;

TEST_F(NoLists, WindowLogicWorksWithoutAnyTitle) {
    for (const char* key : {"displaySelect", "control", "button-MIDICh", "button-assginType",
                            "select127", "button-note", "button-behavior", "button-enable",
                            "common-sceneName", "common-globalMIDICh", "common-pianoKeyCh",
                            "common-PitchBendSpeed", "common-keyTranspose", "common-velocityCurve"})
        setEntries(key, 0);
    load();
    EXPECT_EQ(list.source->rowCount(), 0);
    for (std::int32_t index = 0; index <= 46; ++index)
        list.click(index);
    for (std::int32_t mode = -1; mode < 9; ++mode)
        view.showDisplayValueWithIndex(mode);
    view.showSceneValue();
    for (const PopUpRow& row : kPopUpRows) {
        choose(std::max(1, row.control));
        pick(row.name, -1);
        EXPECT_TRUE(popUp(row.name).titles.empty()) << row.name;
    }
    EXPECT_EQ(button(1).title.text, "---");
    EXPECT_EQ(describeControl(*view.pu(), *view.sceneValue(), 1), "Group 1: channel unknown");
}

} // namespace scenewright::testing
