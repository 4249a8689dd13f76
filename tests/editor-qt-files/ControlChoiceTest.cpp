// Controls chosen, several at once with the mouse and with the keys, and what the commands do to
// all of them.
#include "platform/Diagnostics.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QLabel>
#include <QTest>
#include <fmt/format.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace scenewright::testing {

namespace {

using Controls = std::vector<std::int32_t>;

class ControlChoiceTest : public OpenWindow {
protected:
    void click(std::int32_t control, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(&button(control), Qt::LeftButton, modifiers);
    }
    void clickRow(std::int32_t control, Qt::KeyboardModifiers modifiers = {}) {
        ControlList& list = window().list();
        list.scrollTo(list.model()->index(control, 0));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers,
                          list.visualRect(list.model()->index(control, 0)).center());
    }
    // As picture, list, pane and view show it.
    void expectChosen(const Controls& controls) {
        EXPECT_EQ(window().choice().selection().controls(), controls);
        EXPECT_EQ(window().view().selectControl(), controls.back());
        Controls rows;
        for (const QModelIndex& row : window().list().selectionModel()->selectedIndexes())
            rows.push_back(row.row());
        Controls onPicture;
        for (std::int32_t tag = 1; tag <= kControlCount; ++tag) {
            const ControlButton& button = this->button(tag);
            EXPECT_FALSE(button.isTaken() && tag == controls.back());
            if (button.isTaken() || button.image())
                onPicture.push_back(tag);
            EXPECT_EQ(button.accessibleDescription().endsWith(", chosen"),
                      button.isTaken() || button.image());
        }
        Controls sorted = controls;
        std::ranges::sort(sorted);
        std::ranges::sort(rows);
        EXPECT_EQ(rows, sorted);
        std::erase(sorted, 0); // the scene's own settings have no button
        EXPECT_EQ(onPicture, sorted);
    }
    [[nodiscard]] QString heading() {
        return window().panes().pane(ControlKind::Pad).findChild<QLabel*>()->text();
    }
    QString step() { return steps().undoText(); }
};

TEST_F(ControlChoiceTest, ClicksTakeControlsInAndOutOnThePictureAndInTheList) {
    enum class At { Picture, List };
    struct Row {
        At at;
        std::int32_t control;
        Qt::KeyboardModifiers modifiers;
        Controls chosen;
    };
    for (const Row& row : {
             Row{At::Picture, kPad, {}, {kPad}},
             Row{At::Picture, kPad + 2, Qt::ControlModifier, {kPad, kPad + 2}},
             Row{At::List, kPad + 7, Qt::ControlModifier, {kPad, kPad + 2, kPad + 7}},
             Row{At::Picture, kPad + 2, Qt::ControlModifier, {kPad, kPad + 7}},
             Row{At::List, kPad + 7, Qt::ControlModifier, {kPad}},
             Row{At::Picture, kPad + 5, Qt::ShiftModifier, {kPad + 7, kPad + 6, kPad + 5}},
             Row{At::List, kPad + 6, Qt::ShiftModifier, {kPad + 7, kPad + 6}},
             Row{At::List, kPad + 6, {}, {kPad + 6}},
             Row{At::Picture, kKnob, Qt::ControlModifier, {kPad + 6, kKnob}},
             Row{At::Picture, kKnob, {}, {kKnob}},
             Row{At::List, 0, Qt::ControlModifier, {0}},
         }) {
        if (row.at == At::Picture)
            click(row.control, row.modifiers);
        else
            clickRow(row.control, row.modifiers);
        expectChosen(row.chosen);
    }
}

TEST_F(ControlChoiceTest, KeysTakeControlsInAndOut) {
    struct Row {
        QWidget* at;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        Controls chosen;
    };
    ControlList& list = window().list();
    click(kPad);
    for (const Row& row : {
             Row{&button(kPad), Qt::Key_Right, Qt::ShiftModifier, {kPad, kPad + 1}},
             Row{&button(kPad + 1), Qt::Key_Right, Qt::ControlModifier, {kPad, kPad + 1}},
             Row{&button(kPad + 2), Qt::Key_Space, Qt::ControlModifier, {kPad, kPad + 1, kPad + 2}},
             Row{&button(kPad + 2), Qt::Key_Space, {}, {kPad + 2}},
             Row{&list, Qt::Key_Down, Qt::ShiftModifier, {kPad + 2, kPad + 3}},
             Row{&list, Qt::Key_Down, Qt::ControlModifier, {kPad + 2, kPad + 3}},
             Row{&list, Qt::Key_Down, Qt::ControlModifier, {kPad + 2, kPad + 3}},
             Row{&list, Qt::Key_Space, Qt::ControlModifier, {kPad + 2, kPad + 3, kPad + 5}},
             Row{&list, Qt::Key_Return, {}, {kPad + 5}},
         }) {
        QTest::keyClick(row.at, row.key, row.modifiers);
        expectChosen(row.chosen);
    }
}

TEST_F(ControlChoiceTest, AllOfTheKindAreChosenWithTheirKeys) {
    click(kPad + 3);
    press(Qt::Key_A);
    expectChosen({13, 14, 15, 17, 18, 19, 20, 16});
    EXPECT_EQ(heading(), "Pad 4 and 7 more pads");
    press(Qt::Key_2); // another scene
    expectChosen({0});
    EXPECT_FALSE(entry("Select All").isEnabled());
}

TEST_F(ControlChoiceTest, ABandTakesWhatItTouches) {
    DevicePicture& picture = window().picture();
    const QRect first = picture.button(kPad)->geometry();
    const QRect sixth = picture.button(kPad + 5)->geometry();
    const auto drag = [&](QWidget* from, const QPoint& begin, Qt::KeyboardModifiers modifiers) {
        QTest::mousePress(from, Qt::LeftButton, modifiers, from->mapFrom(&picture, begin));
        QMouseEvent move(QEvent::MouseMove, from->mapFrom(&picture, sixth.center()),
                         picture.mapToGlobal(sixth.center()), Qt::NoButton, Qt::LeftButton,
                         modifiers);
        QApplication::sendEvent(from, &move);
        QTest::mouseRelease(from, Qt::LeftButton, modifiers,
                            from->mapFrom(&picture, sixth.center()));
    };
    click(5);
    drag(&picture, first.topLeft() - QPoint(3, 3), {});
    expectChosen({kPad, kPad + 1, kPad + 4, kPad + 5});
    emit picture.banded({}, Qt::NoModifier); // over nothing
    expectChosen({kPad, kPad + 1, kPad + 4, kPad + 5});
    click(5);
    drag(picture.button(kPad), first.center(), Qt::ControlModifier); // from a control
    expectChosen({5, kPad, kPad + 1, kPad + 4, kPad + 5});
}

TEST_F(ControlChoiceTest, AChoiceGoesToAllOfTheKindInOneStep) {
    click(5);
    click(kPad, Qt::ControlModifier);
    click(kPad + 1, Qt::ControlModifier);
    const std::int32_t channel = record(kPad).MIDIChannel();
    pick("padMIDIChannel", 4);
    EXPECT_EQ(step(), "2 Pads MIDI channel");
    pick("padMIDIChannel", 5); // a later choice in the same popup is part of it
    EXPECT_EQ(record(kPad).MIDIChannel(), 5);
    EXPECT_EQ(record(kPad + 1).MIDIChannel(), 5);
    EXPECT_EQ(record(kPad + 2).MIDIChannel(), channel);
    click(kPad + 3, Qt::ControlModifier);
    pick("padMIDIChannel", 6);
    EXPECT_EQ(step(), "3 Pads MIDI channel");
    steps().undo();
    EXPECT_EQ(record(kPad).MIDIChannel(), 5);
    steps().undo();
    EXPECT_EQ(record(kPad).MIDIChannel(), channel);
    EXPECT_EQ(record(kPad + 1).MIDIChannel(), channel);
    EXPECT_FALSE(steps().canUndo());
    expectChosen({5, kPad, kPad + 1, kPad + 3});
}

TEST_F(ControlChoiceTest, WhatTheChosenOneHasAlreadyGoesToTheOthers) {
    record(kPad).setMIDIChannel(2);
    record(kPad + 1).setMIDIChannel(4);
    click(kPad);
    click(kPad + 1, Qt::ControlModifier);
    PopUpBox& box = window().panes().popUp("padMIDIChannel");
    const auto type = [&box] {
        QTest::keyClicks(&box, "5");
        QTest::keyClick(&box, Qt::Key_Return);
    };
    const int before = steps().count();
    type();
    EXPECT_EQ(record(kPad).MIDIChannel(), 4);
    EXPECT_EQ(step(), "Pad 1 MIDI channel");
    type();
    EXPECT_EQ(steps().count(), before + 1);
}

TEST_F(ControlChoiceTest, WhatAChoiceBringsWithItGoesToAll) {
    record(kPad + 1).setAssignType(kAssignController);
    record(kPad + 1).setCCOrNoteNumber(kFieldAbsent);
    click(kPad + 1);
    click(kPad, Qt::ControlModifier);
    for (const auto& [popUp, option, number] :
         {std::tuple{"padMIDIChannel", kAssignNote, kFieldAbsent},
          {"padAssignType", kAssignController, kFieldAbsent},
          {"padAssignType", kAssignNote, 127}}) {
        pick(popUp, option);
        EXPECT_EQ(record(kPad + 1).CCOrNoteNumber(), number) << popUp << " " << option;
    }
}

TEST_F(ControlChoiceTest, PasteResetAndColourGoToAll) {
    const std::int32_t red = record(kPad).CR();
    record(kPad).setCR(9);
    click(kPad);
    press(Qt::Key_C);
    click(kPad + 2, Qt::ShiftModifier);
    press(Qt::Key_V);
    EXPECT_EQ(record(kPad + 1).CR(), 9);
    EXPECT_EQ(record(kPad + 2).CR(), 9);
    EXPECT_EQ(step(), "Paste Into 3 Pads");
    commands().colours().choose({1, 2, 3});
    EXPECT_EQ(record(kPad).CB(), 3);
    EXPECT_EQ(record(kPad + 2).CB(), 3);
    EXPECT_EQ(step(), "3 Pads Colour");
    press(Qt::Key_Backspace);
    EXPECT_EQ(record(kPad).CR(), red);
    EXPECT_EQ(record(kPad + 2).CR(), red);
    EXPECT_EQ(step(), "Reset 3 Pads");
    EXPECT_EQ(notice(), "3 Pads have their default settings");
}

TEST_F(ControlChoiceTest, KeysCopyAndPasteBetweenPads) {
    record(kPad).setCR(90);
    choose(kPad);
    press(Qt::Key_C);
    choose(kPad + 1);
    press(Qt::Key_V);
    EXPECT_EQ(record(kPad + 1).CR(), 90);
    // Pane and picture follow.
    EXPECT_EQ(window().panes().popUp("padCR").selectedItem(), 90);
    EXPECT_EQ(button(kPad + 1).light().red, button(kPad).light().red);
    EXPECT_EQ(window().view().selectControl(), kPad + 1);
}

TEST_F(ControlChoiceTest, PasteIsGreyedWhereTheKindDiffers) {
    EXPECT_FALSE(entry("Paste").isEnabled());
    choose(kPad);
    press(Qt::Key_C);
    EXPECT_TRUE(entry("Paste").isEnabled());
    choose(kKnob);
    EXPECT_FALSE(entry("Paste").isEnabled());
    choose(kPad + 3);
    EXPECT_TRUE(entry("Paste").isEnabled());
    press(Qt::Key_2);
    EXPECT_FALSE(entry("Paste").isEnabled());
}

TEST_F(ControlChoiceTest, PasteAndResetShowTheControlAndLogNoSelection) {
    choose(kPad);
    record(kPad).setCR(90);
    press(Qt::Key_C);
    record(kPad).setCR(7);
    std::vector<std::string> log;
    Diagnostics::setLog([&log](std::string_view line) { log.emplace_back(line); });
    press(Qt::Key_V);
    EXPECT_EQ(window().panes().popUp("padCR").selectedItem(), 90);
    press(Qt::Key_Backspace);
    Diagnostics::setLog({});
    EXPECT_EQ(log, (std::vector<std::string>{"CR---------->90",
                                             fmt::format("CR---------->{}", record(kPad).CR())}));
}

TEST_F(ControlChoiceTest, WithoutAChosenControlThereIsNothingToCopyOrReset) {
    choose(kPad);
    ASSERT_TRUE(entry("Copy").isEnabled());
    QTest::keyClick(&window().list(), Qt::Key_Down); // passes over a row
    ASSERT_EQ(window().view().selectControl(), -1);
    EXPECT_FALSE(entry("Copy").isEnabled());
    EXPECT_FALSE(entry("Reset").isEnabled());
}

} // namespace

} // namespace scenewright::testing
