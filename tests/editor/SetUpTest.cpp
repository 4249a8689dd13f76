#include "app/WindowAction.h"
#include "tests/editor/EditorBench.h"

#include <array>

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

} // namespace scenewright::testing
