// What the editor does when the progress record changes.
#include "app/WindowAction.h"
#include "editor/WindowControllers.h"
#include "tests/editor/EditorBench.h"

namespace scenewright::testing {

namespace {

using ProgressReport = EditorBench;

} // namespace

TEST_F(ProgressReport, MessageIsShownAsItStandsAndLoggedBesideAnAbsentOldValue) {
    loaded();
    view.messageValue()->setMessage("Read Scene Data Finish");
    EXPECT_EQ(journal.lines(), (Lines{"log: has change", "log: Read Scene Data Finish  (null)",
                                      "message.setText(Read Scene Data Finish)"}));
}

TEST_F(ProgressReport, EveryWriteOfAMessageIsShownAnEqualOneToo) {
    loaded();
    view.messageValue()->setMessage("same");
    view.messageValue()->setMessage("same");
    EXPECT_EQ(journal.of("message."), (Lines{"message.setText(same)", "message.setText(same)"}));
}

TEST_F(ProgressReport, PercentSignsInAMessageStayAsTheyAre) {
    loaded();
    view.messageValue()->setMessage("Send Scene Data Finish:100%:Success");
    EXPECT_EQ(status.text, "Send Scene Data Finish:100%:Success");
    EXPECT_EQ(journal.lines()[1], "log: Send Scene Data Finish:100%:Success  (null)");
}

TEST_F(ProgressReport, NothingIsShownAtTheRegistration) {
    WindowAction::getMessageValue()->setMessage("before");
    loaded();
    EXPECT_EQ(status.text, "");
    EXPECT_EQ(journal.of("log: has change"), Lines{});
}

TEST_F(ProgressReport, MessageThatIsTakenBackEmptiesTheStatusLine) {
    loaded();
    view.messageValue()->setMessage(std::nullopt);
    EXPECT_EQ(journal.lines(),
              (Lines{"log: has change", "log: (null)  (null)", "message.setText()"}));
}

TEST_F(ProgressReport, EndOfAReadChoosesTheCommonSettingsAndShowsTheSceneAnew) {
    loaded();
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
}

TEST_F(ProgressReport, EndOfAReadTwiceRedrawsTwice) {
    loaded();
    for (int time = 0; time < 2; ++time) {
        view.setSelectControl(13);
        view.messageValue()->setIsReadFinish("Yes");
        EXPECT_EQ(view.selectControl(), 0);
    }
    EXPECT_EQ(journal.of("displaySelect.selectItem").size(), 2U);
}

TEST_F(ProgressReport, EndOfAReadKeepsTheSceneTheUserIsAt) {
    loaded();
    scenes.selected = 3;
    view.changeSceneAction(scenes);
    view.messageValue()->setIsReadFinish("Yes");
    EXPECT_EQ(view.sceneIndex(), 3);
    EXPECT_EQ(view.sceneValue(), WindowAction::getSceneWithIndex(3));
}

TEST_F(ProgressReport, BeginningOfAReadChangesNothing) {
    loaded();
    choose(13);
    journal.clear();
    view.messageValue()->setIsReadFinish("No");
    EXPECT_EQ(journal.lines(), Lines{"log: has change"});
    EXPECT_EQ(view.selectControl(), 13);
}

TEST_F(ProgressReport, OtherTextsOfTheFlagChangeNothing) {
    loaded();
    for (const char* text : {"yes", "YES", "", "Yes "})
        view.messageValue()->setIsReadFinish(text);
    EXPECT_EQ(journal.lines(), Lines(4, "log: has change"));
}

TEST_F(ProgressReport, SendFlagIsNotObserved) {
    loaded();
    view.messageValue()->setIsSendFinish("No");
    view.messageValue()->setIsSendFinish("Yes");
    EXPECT_EQ(journal.lines(), Lines{});
}

TEST_F(ProgressReport, AnotherKeyPathIsLoggedAndIgnored) {
    loaded();
    view.observeValueForKeyPath_ofObject_change_context("isSendFinish", nullptr, {{"new", "Yes"}},
                                                        nullptr);
    EXPECT_EQ(journal.lines(), Lines{"log: has change"});
}

TEST_F(ProgressReport, OldValueIsLoggedWhereOneIsGiven) {
    loaded();
    view.observeValueForKeyPath_ofObject_change_context("Message", nullptr,
                                                        {{"new", "b"}, {"old", "a"}}, nullptr);
    EXPECT_EQ(journal.lines(), (Lines{"log: has change", "log: b  a", "message.setText(b)"}));
}

TEST_F(ProgressReport, WithoutAStatusLineAMessageIsOnlyLogged) {
    view.setMessage(nullptr);
    loaded();
    view.messageValue()->setMessage("unseen");
    EXPECT_EQ(journal.lines(), (Lines{"log: has change", "log: unseen  (null)"}));
}

TEST_F(ProgressReport, FailedReadShowsFourFreshScenesAndTheTransactionsWord) {
    loaded();
    common().setSceneName("EDITED");
    WindowAction::setScenes({});
    view.messageValue()->setMessage("Could not connect to midi device");
    view.messageValue()->setIsReadFinish("Yes");
    EXPECT_EQ(status.text, "Could not connect to midi device");
    EXPECT_EQ(sceneName.text, "SCENE1");
}

TEST_F(ProgressReport, EndedViewIsToldNothingMore) {
    loaded();
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

TEST(MessageController, ShowsTheTextAndDoesNotKeepIt) {
    Journal journal;
    TextFieldDouble field(journal, "messageField");
    MessageController controller;
    controller.setMessageField(&field);
    controller.viewDidLoad();
    EXPECT_EQ(controller.message(), std::nullopt);
    controller.setMessage("hello");
    EXPECT_EQ(journal.lines(), Lines{"messageField.setText(hello)"});
    EXPECT_EQ(controller.message(), std::nullopt);
    EXPECT_EQ(controller.messageField(), &field);
}

TEST(MessageController, WithoutAFieldTheTextGoesNowhere) {
    MessageController controller;
    controller.setMessage("hello");
    EXPECT_EQ(controller.message(), std::nullopt);
}

} // namespace scenewright::testing
