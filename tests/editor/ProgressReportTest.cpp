// What the editor does when the progress record changes.
#include "app/WindowAction.h"
#include "tests/editor/EditorBench.h"

#include <optional>
#include <string>

namespace scenewright::testing {

namespace {

using ProgressReport = LoadedEditor;

} // namespace

TEST_F(ProgressReport, EveryMessageIsShownAsItStandsAndLoggedBesideAnAbsentOldValue) {
    const std::string sent = "Send Scene Data Finish:100%:Success";
    for (const std::string& text : {sent, sent, std::string("same")}) {
        journal.clear();
        view.messageValue()->setMessage(text);
        EXPECT_EQ(journal.lines(), (Lines{"log: has change", "log: " + text + "  (null)",
                                          "message.setText(" + text + ")"}));
    }
    journal.clear();
    view.messageValue()->setMessage(std::nullopt);
    EXPECT_EQ(journal.lines(),
              (Lines{"log: has change", "log: (null)  (null)", "message.setText()"}));
}

TEST_F(ProgressReport, NothingIsShownAtTheRegistration) {
    WindowAction::getMessageValue()->setMessage("before");
    status.text.clear();
    loaded();
    EXPECT_EQ(status.text, "");
    EXPECT_EQ(journal.of("log: has change"), Lines{});
}

TEST_F(ProgressReport, EndOfAReadChoosesTheCommonSettingsAndShowsTheSceneAnew) {
    choose(13);
    common().setSceneName("READ");
    journal.clear();
    view.messageValue()->setIsReadFinish("Yes");
    EXPECT_EQ(view.selectControl(), 0);
    EXPECT_EQ(sceneName.text, "READ");
    EXPECT_EQ(visiblePanes(), Lines{"commonView"});
    EXPECT_EQ(journal.lines()[0], "log: has change");
    EXPECT_EQ(journal.lines()[1], "log: SceneValue READ, 45 controls");
    EXPECT_EQ(journal.lines()[2], "list.selectRow(0)");
    EXPECT_EQ(journal.of("button45.setTitle").size(), 1U);
    view.setSelectControl(13);
    view.messageValue()->setIsReadFinish("Yes"); // again
    EXPECT_EQ(view.selectControl(), 0);
    EXPECT_EQ(journal.of("displaySelect.selectItem").size(), 2U);
}

TEST_F(ProgressReport, EndOfAReadKeepsTheSceneTheUserIsAt) {
    scenes.selected = 3;
    view.changeSceneAction(scenes);
    view.messageValue()->setIsReadFinish("Yes");
    EXPECT_EQ(view.sceneIndex(), 3);
    EXPECT_EQ(view.sceneValue(), WindowAction::getSceneWithIndex(3));
}

TEST_F(ProgressReport, NoOtherTextAndNoOtherFlagChangesAnything) {
    choose(13);
    journal.clear();
    for (const char* text : {"No", "yes", "YES", "", "Yes "})
        view.messageValue()->setIsReadFinish(text);
    EXPECT_EQ(journal.lines(), Lines(5, "log: has change"));
    EXPECT_EQ(view.selectControl(), 13);
    journal.clear();
    for (const char* text : {"No", "Yes"})
        view.messageValue()->setIsSendFinish(text);
    EXPECT_EQ(journal.lines(), Lines{}) << "it is not observed";
    view.observeValueForKeyPath_ofObject_change_context("isSendFinish", nullptr, {{"new", "Yes"}},
                                                        nullptr);
    EXPECT_EQ(journal.lines(), Lines{"log: has change"});
}

TEST_F(ProgressReport, OldValueIsLoggedWhereOneIsGiven) {
    view.observeValueForKeyPath_ofObject_change_context("Message", nullptr,
                                                        {{"new", "b"}, {"old", "a"}}, nullptr);
    EXPECT_EQ(journal.lines(), (Lines{"log: has change", "log: b  a", "message.setText(b)"}));
}

TEST_F(ProgressReport, WithoutAStatusLineAMessageIsOnlyLogged) {
    view.setMessage(nullptr);
    view.messageValue()->setMessage("unseen");
    EXPECT_EQ(journal.lines(), (Lines{"log: has change", "log: unseen  (null)"}));
}

TEST_F(ProgressReport, FailedReadShowsFourFreshScenesAndTheTransactionsWord) {
    common().setSceneName("EDITED");
    WindowAction::setScenes({});
    view.messageValue()->setMessage("Could not connect to midi device");
    view.messageValue()->setIsReadFinish("Yes");
    EXPECT_EQ(status.text, "Could not connect to midi device");
    EXPECT_EQ(sceneName.text, "SCENE1");
}

TEST_F(ProgressReport, EndedViewIsToldNothingMore) {
    const auto record = view.messageValue();
    {
        ViewController second;
        connectOutlets(second);
        second.viewDidLoad();
    }
    journal.clear();
    record->setMessage("once");
    EXPECT_EQ(journal.of("message."), Lines{"message.setText(once)"});
}

} // namespace scenewright::testing
