// Whom the view tells of a change, and how often.
#include "tests/editor/EditorBench.h"

#include <functional>
#include <stdexcept>

namespace scenewright::testing {

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
