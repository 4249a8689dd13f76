#include "app/WindowAction.h"
#include "tests/editor/EditorBench.h"

#include <numeric>
#include <optional>
#include <vector>

namespace scenewright::testing {

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

} // namespace scenewright::testing
