// The display summary on the picture's buttons, and what a value outside its list does there.
#include "app/WindowAction.h"
#include "protocol/SceneImage.h"
#include "tests/editor/EditorBench.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

namespace scenewright::testing {

namespace {

using Picture = LoadedEditor;

} // namespace

TEST_F(Picture, SummarySetsEachTitleThenColoursThemAll) {
    view.showDisplayValueWithIndex(1);
    Lines titles;
    std::map<std::int32_t, std::string> byTag;
    for (std::int32_t tag = 1; tag <= 45; ++tag) {
        byTag[tag] = tag < 5 ? "button-MIDICh:2" : tag < 13 ? "button-enable:1" : "Note";
        titles.push_back("button" + std::to_string(tag) + ".setTitle(" + byTag[tag] + ")");
    }
    EXPECT_EQ(journal.lines(), joined({titles, greenTitles(byTag)}));
}

TEST_F(Picture, DisplayChoiceSetsTheModeAndRewritesTheTitles) {
    displaySelect.selected = 5;
    record(30).setAssignType(0);
    view.changeDispalyAction(displaySelect);
    EXPECT_EQ(view.dispaly_index(), 5);
    EXPECT_EQ(button(30).title.text, "---");
    EXPECT_EQ(button(31).title.text, "button-behavior:4");
    EXPECT_EQ(button(13).title.text, "button-behavior:3");
    EXPECT_EQ(journal.withoutPicture(), Lines{});
}

TEST_F(Picture, MoreOrFewerControlsThanButtonsAreNotShown) {
    auto records = view.sceneValue()->buttonValueArray();
    records.resize(60, records.back());
    view.sceneValue()->setButtonValueArray(records);
    view.showDisplayValueWithIndex(0);
    EXPECT_EQ(journal.of("button").size(), 45U + 90U);
    removeDefaultScene();
    loaded();
    view.showDisplayValueWithIndex(2);
    EXPECT_EQ(journal.of("button").size(), 90U); // the colours
}

TEST_F(Picture, ValueOutsideItsListShowsDashesAndLogsNothing) {
    for (const std::int32_t value : {17, 100, 127, -1, -2, INT32_MAX, INT32_MIN}) {
        record(15).setMIDIChannel(9);
        view.showDisplayValueWithIndex(0);
        ASSERT_EQ(button(15).title.text, "button-MIDICh:9");
        record(15).setMIDIChannel(value);
        journal.clear();
        view.showDisplayValueWithIndex(0);
        EXPECT_EQ(button(15).title.text, "---") << value;
        EXPECT_EQ(journal.of("log: "), Lines{}) << value;
    }
}

TEST_F(Picture, PopUpOfAValueOutsideItsListShowsNoSelectionAndTheValueStays) {
    record(15).setMIDIChannel(100);
    choose(14);
    ASSERT_EQ(popUp("padMIDIChannel").selected, 9);
    journal.clear();
    choose(15);
    EXPECT_EQ(popUp("padMIDIChannel").selected, -1);
    EXPECT_EQ(journal.of("log: "),
              (Lines{"log: 点击了按钮：15", "log: 表格选中:15", "log: CR---------->10"}));
    EXPECT_EQ(record(15).MIDIChannel(), 100);
    ASSERT_EQ(popUp("commonPianoKeyCh").selected, 4);
    common().setPianoKeyCh(100);
    journal.clear();
    view.showCommonValue();
    EXPECT_EQ(popUp("commonPianoKeyCh").selected, -1);
    EXPECT_EQ(journal.of("log: "), Lines{});
}

TEST_F(Picture, ControllerFullOf127ShowsWhatItsListsHaveAndIsSentBackUnchanged) {
    BankImage bank;
    bank.fill(0x7F);
    WindowAction::setScenes(parseScenes(bank));
    view.showSceneValue();
    EXPECT_EQ(button(1).title.text, "---");                // channel 127 of 17
    EXPECT_EQ(button(5).title.text, "CC#\nselect127:127"); // any Enable but 0 is on
    EXPECT_EQ(button(13).title.text, "---");               // assign type 127
    view.showDisplayValueWithIndex(1);
    EXPECT_EQ(button(5).title.text, "---"); // Enable 127 of 2
    for (std::int32_t mode = -1; mode < 9; ++mode)
        view.showDisplayValueWithIndex(mode);
    for (std::int32_t index = 0; index <= 46; ++index) {
        list.selected = -1;
        list.click(index);
    }
    for (std::int32_t scene = 0; scene < 4; ++scene) {
        const SceneImage image = encodeScene(*WindowAction::getSceneWithIndex(scene));
        EXPECT_TRUE(std::ranges::equal(image, std::span(bank).first(kSceneImageSize)));
    }
}

// What the editor does when the progress record changes.
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
        second.setSelectControl(7);
        second.viewDidLoad();
        EXPECT_EQ(second.selectControl(), 0);
    }
    journal.clear();
    record->setMessage("once");
    EXPECT_EQ(journal.of("message."), Lines{"message.setText(once)"});
}

// Whom the view tells of a change, and how often.
namespace {

class ChangeNotification : public LoadedEditor {
protected:
    ChangeNotification() {
        view.setOnChange([this] { ++changes; });
    }

    int changes = 0;
};

} // namespace

TEST_F(ChangeNotification, EachChoiceOfTheUserAndEachShowingAnewIsToldOnce) {
    const std::function<void()> acts[] = {
        [this] { list.click(13); },
        [this] { list.chooseByKeys(14); },
        [this] { choose(5); }, // selects its row, which shows its pane
        [this] {
            scenes.selected = 2;
            view.changeSceneAction(scenes);
        },
        [this] {
            displaySelect.selected = 6;
            view.changeDispalyAction(displaySelect);
        },
        [this] { view.showSceneValue(); },
        [this] { view.showChosenControl(); },
    };
    int expected = 0;
    for (const auto& act : acts) {
        act();
        EXPECT_EQ(changes, ++expected);
    }
}

TEST_F(ChangeNotification, EveryEditIsToldOnce) {
    int expected = 0;
    for (const PopUpRow& row : kPopUpRows) {
        view.setSelectControl(row.control);
        pick(row.name, 1);
        EXPECT_EQ(changes, ++expected) << row.name;
    }
}

TEST_F(ChangeNotification, EndOfAReadIsToldOnceAndItsMessagesAreNot) {
    view.messageValue()->setIsReadFinish("No");
    view.messageValue()->setMessage("Time:1  Data:0/253");
    EXPECT_EQ(changes, 0);
    view.messageValue()->setIsReadFinish("Yes");
    EXPECT_EQ(changes, 1);
}

TEST_F(ChangeNotification, IsToldWhenAllIsDone) {
    Lines pane;
    view.setOnChange([&] { pane = visiblePanes(); });
    view.chooseButtonAction(button(13));
    EXPECT_EQ(pane, Lines{"padView"});
    view.setOnChange([&] { EXPECT_EQ(sceneName.text, "SCENE4"); });
    scenes.selected = 3;
    view.changeSceneAction(scenes);
}

TEST_F(ChangeNotification, WhatTheSubscriberDoesToTheViewIsNotToldAgain) {
    view.setOnChange([this] {
        ++changes;
        view.showChosenControl();
        view.hideView();
    });
    view.chooseButtonAction(button(13));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(visiblePanes(), Lines{});
}

TEST_F(ChangeNotification, OperationsAfterOneThatThrowsAreToldAgain) {
    scenes.selected = 4;
    EXPECT_THROW(view.changeSceneAction(scenes), std::out_of_range);
    EXPECT_EQ(changes, 0);
    scenes.selected = 0;
    view.changeSceneAction(scenes);
    EXPECT_EQ(changes, 1);
}

TEST_F(ChangeNotification, ChosenControlIsShownAnewWithoutASelection) {
    choose(13);
    record(13).setCR(99);
    record(13).setCCOrNoteNumber(40);
    journal.clear();
    view.showChosenControl();
    EXPECT_EQ(popUp("padCR").selected, 99);
    EXPECT_EQ(button(13).title.text, "Note\nbutton-note:40");
    EXPECT_EQ(visiblePanes(), Lines{"padView"});
    EXPECT_EQ(journal.of("log: "), Lines{"log: CR---------->99"});
    EXPECT_EQ(journal.of("list."), Lines{});
    EXPECT_EQ(journal.of("button13.setImage"), Lines{});
}

} // namespace scenewright::testing
