#include "editor/qt/PopUpBox.h"

#include "tests/support/Limits.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

std::vector<std::string> numbers(int count) {
    std::vector<std::string> titles;
    for (int number = 0; number < count; ++number)
        titles.push_back(std::to_string(number));
    return titles;
}

// The toolkit's keyboard input interval while it lives; else it is longer than any test.
class KeyboardPause {
public:
    explicit KeyboardPause(std::chrono::milliseconds pause) {
        QApplication::setKeyboardInputInterval(static_cast<int>(pause.count()));
    }
    KeyboardPause(const KeyboardPause&) = delete;
    KeyboardPause& operator=(const KeyboardPause&) = delete;
    KeyboardPause(KeyboardPause&&) = delete;
    KeyboardPause& operator=(KeyboardPause&&) = delete;
    ~KeyboardPause() { QApplication::setKeyboardInputInterval(former_); }

private:
    int former_ = QApplication::keyboardInputInterval();
};

using Choices = std::vector<int>;

class PopUpBoxTest : public ::testing::Test {
protected:
    PopUpBoxTest() {
        box_.addItems(numbers(128));
        box_.selectItem(5);
        QObject::connect(&box_, &QComboBox::activated, [this](int position) {
            ++choices_;
            chosen_.push_back(position);
        });
        box_.resize(120, 30);
        box_.show();
    }

    void turnWheel() {
        const QPointF middle = box_.rect().center();
        QWheelEvent event(middle, box_.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&box_, &event);
    }

    // Presses the box, then the entry of the list that opens.
    void chooseWithMouse(int position) {
        QTest::mouseClick(&box_, Qt::LeftButton);
        EXPECT_TRUE(
            QTest::qWaitForWindowExposed(box_.view()->window(), testing::kLimitMilliseconds));
        const QModelIndex entry = box_.model()->index(position, 0);
        box_.view()->scrollTo(entry);
        QTest::qWait(20);
        QTest::mouseClick(box_.view()->viewport(), Qt::LeftButton, {},
                          box_.view()->visualRect(entry).center());
    }

    int choices_ = 0;
    std::vector<int> chosen_;
    PopUpBox box_; // its end may choose
};

TEST_F(PopUpBoxTest, TakesUtf8Titles) {
    box_.removeAllItems();
    box_.addItems({"C♯", "é"});
    EXPECT_EQ(box_.titles(), (QStringList{QString::fromUtf8("C♯"), QString::fromUtf8("é")}));
}

TEST_F(PopUpBoxTest, RemovesAllItems) {
    box_.removeAllItems();
    EXPECT_EQ(box_.count(), 0);
    EXPECT_EQ(box_.selectedItem(), -1);
}

TEST_F(PopUpBoxTest, SelectsAPosition) {
    box_.selectItem(127);
    EXPECT_EQ(box_.selectedItem(), 127);
    EXPECT_EQ(box_.currentText(), "127");
}

TEST_F(PopUpBoxTest, PositionThatItDoesNotHaveLeavesNoSelection) {
    for (const int position : {128, -1, 1000, -7}) {
        box_.selectItem(3);
        box_.selectItem(position);
        EXPECT_EQ(box_.selectedItem(), -1) << position;
        EXPECT_EQ(box_.currentText(), "") << position;
    }
}

TEST_F(PopUpBoxTest, ProgramsOwnChangesCallNoActionBack) {
    box_.selectItem(9);
    box_.removeAllItems();
    box_.addItems({"a", "b"});
    box_.selectItem(1);
    box_.setEnabled(false);
    box_.setEnabled(true);
    EXPECT_EQ(choices_, 0);
}

TEST_F(PopUpBoxTest, MouseChoosesAnEntry) {
    chooseWithMouse(100);
    EXPECT_EQ(box_.selectedItem(), 100);
    EXPECT_EQ(choices_, 1);
}

TEST_F(PopUpBoxTest, ArrowKeyChoosesTheNextEntry) {
    QTest::keyClick(&box_, Qt::Key_Down);
    EXPECT_EQ(box_.selectedItem(), 6);
    EXPECT_EQ(choices_, 1);
}

TEST_F(PopUpBoxTest, TypedDigitsAreShownAtEachKeyAndChosenOnceWithReturn) {
    for (const auto& [key, shown] : {std::pair{'1', 1}, {'0', 10}, {'0', 100}}) {
        QTest::keyClick(&box_, key);
        EXPECT_EQ(box_.currentText(), QString::number(shown));
        EXPECT_EQ(chosen_, Choices{});
    }
    QTest::keyClick(&box_, Qt::Key_Return);
    EXPECT_EQ(chosen_, Choices{100});
    QTest::keyClick(&box_, Qt::Key_Return);
    EXPECT_EQ(chosen_, Choices{100});
    EXPECT_EQ(box_.selectedItem(), 100);
}

TEST_F(PopUpBoxTest, TypedNoteNameChoosesThatNoteOnce) {
    box_.removeAllItems();
    box_.addItems({"C-1", "C#-1", "C4", "C#4"});
    QTest::keyClick(&box_, 'c');
    QTest::keyPress(&box_, Qt::Key_Shift);
    QTest::keyClick(&box_, '#', Qt::ShiftModifier);
    QTest::keyRelease(&box_, Qt::Key_Shift);
    QTest::keyClick(&box_, '4');
    EXPECT_EQ(chosen_, Choices{});
    QTest::keyClick(&box_, Qt::Key_Enter);
    EXPECT_EQ(chosen_, Choices{3});
}

TEST_F(PopUpBoxTest, PauseInTheTypingChooses) {
    QTest::keyClicks(&box_, "10");
    QApplication::processEvents();
    EXPECT_EQ(chosen_, Choices{});
    const KeyboardPause none(std::chrono::milliseconds(0));
    QTest::keyClick(&box_, '0');
    EXPECT_TRUE(QTest::qWaitFor([this] { return !chosen_.empty(); }, testing::kLimitMilliseconds));
    EXPECT_EQ(chosen_.size(), 1U);
}

TEST_F(PopUpBoxTest, KeyboardThatLeavesTheBoxChooses) {
    box_.activateWindow();
    box_.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return box_.hasFocus(); }, testing::kLimitMilliseconds));
    QTest::keyClicks(&box_, "100");
    box_.clearFocus();
    EXPECT_EQ(chosen_, Choices{100});
}

TEST_F(PopUpBoxTest, EscapeShowsAgainWhatWasChosen) {
    QTest::keyClicks(&box_, "100");
    QTest::keyClick(&box_, Qt::Key_Escape);
    EXPECT_EQ(box_.selectedItem(), 5);
    QTest::keyClick(&box_, Qt::Key_Return);
    EXPECT_EQ(chosen_, Choices{});
    QTest::keyClicks(&box_, "7"); // begins anew
    EXPECT_EQ(box_.selectedItem(), 7);
}

TEST_F(PopUpBoxTest, TypingThatFindsNothingChangesNothing) {
    for (const char* text : {"x", "1x", "12x"}) {
        QTest::keyClicks(&box_, text);
        EXPECT_EQ(box_.selectedItem(), 5) << text;
        QTest::keyClick(&box_, Qt::Key_Return);
        EXPECT_EQ(chosen_, Choices{}) << text;
    }
}

TEST_F(PopUpBoxTest, ANoteIsTypedInEitherAccidentalInAnyCaseOrByItsNumber) {
    std::vector<std::string> notes;
    for (int note = 0; note < 128; ++note) {
        constexpr std::array kNames{"C",  "C#", "D",  "Eb", "E",  "F",
                                    "F#", "G",  "Ab", "A",  "Bb", "B"};
        notes.push_back(kNames.at(static_cast<std::size_t>(note % 12)) +
                        std::to_string(note / 12 - 1));
    }
    struct Row {
        const char* typed;
        std::optional<int> note;
    };
    const Row rows[] = {{"Db2", 37}, {"Gb2", 42}, {"A#2", 46},   {"D#2", 39},
                        {"eb2", 39}, {"36", 36},  {"Cb+2", 35},  {"g9", 127},
                        {"db-1", 1}, {"Db", {}},  {"C", {}},     {"c#", {}},
                        {"H2", {}},  {"200", {}}, {"Db2x2", {}}, {"C12", {}}};
    for (const Row& row : rows) {
        box_.removeAllItems();
        box_.addItems(notes);
        box_.selectItem(5);
        chosen_.clear();
        QTest::keyClicks(&box_, row.typed);
        EXPECT_EQ(chosen_, Choices{}) << row.typed;
        QTest::keyClick(&box_, Qt::Key_Return);
        EXPECT_EQ(chosen_, row.note ? Choices{*row.note} : Choices{}) << row.typed;
        EXPECT_EQ(box_.selectedItem(), row.note.value_or(5)) << row.typed;
    }
}

TEST_F(PopUpBoxTest, WhatIsChosenAlreadyIsChosenAgainByTypingIt) {
    QTest::keyClicks(&box_, "5");
    QTest::keyClick(&box_, Qt::Key_Return);
    EXPECT_EQ(chosen_, Choices{5});
}

TEST_F(PopUpBoxTest, ABlankBelongsToATextAndOpensTheListElse) {
    static constexpr std::array<std::string_view, 3> kNames{"Hold", "Sustain level",
                                                            "Sustain pedal"};
    box_.setNames(kNames);
    QTest::keyClicks(&box_, "sustain pedal");
    EXPECT_EQ(box_.selectedItem(), 2);
    // Some versions of Qt make the list with the box, others when it opens.
    const auto* const list = box_.findChild<QAbstractItemView*>();
    EXPECT_FALSE(list != nullptr && list->isVisible());
    QTest::keyClick(&box_, Qt::Key_Return);
    EXPECT_EQ(chosen_, Choices{2});

    QTest::keyClick(&box_, Qt::Key_Space);
    ASSERT_TRUE(box_.view()->isVisible());
    QTest::keyClicks(box_.view(), "sustain level");
    EXPECT_TRUE(box_.view()->isVisible());
    EXPECT_EQ(box_.view()->currentIndex().row(), 1);
    QTest::keyClick(box_.view(), Qt::Key_Return);
    EXPECT_EQ(chosen_, (Choices{2, 1}));

    QTest::keyClick(&box_, Qt::Key_Space);
    QTest::keyClick(box_.view(), Qt::Key_Down);
    QTest::keyClick(box_.view(), Qt::Key_Space);
    EXPECT_FALSE(box_.view()->isVisible());
    EXPECT_EQ(chosen_, (Choices{2, 1, 2}));
}

TEST_F(PopUpBoxTest, CommandKeyChoosesWhatWasTypedBeforeItIsCarriedOut) {
    QAction command;
    command.setShortcut(QKeySequence("Ctrl+Return"));
    box_.addAction(&command);
    Choices before;
    QObject::connect(&command, &QAction::triggered, [&] { before = chosen_; });
    box_.activateWindow();
    box_.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box_, testing::kLimitMilliseconds));
    QTest::keyClicks(&box_, "100");
    QTest::keyClick(&box_, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(before, Choices{100});
}

TEST_F(PopUpBoxTest, LetterOfACommandIsNotTyped) {
    QTest::keyClick(&box_, '1', Qt::AltModifier);
    QTest::keyClick(&box_, '1', Qt::ControlModifier);
    QTest::keyClick(&box_, Qt::Key_Return);
    EXPECT_EQ(box_.selectedItem(), 5);
    EXPECT_EQ(chosen_, Choices{});
}

TEST_F(PopUpBoxTest, ArrowKeyGoesOnFromWhatWasTyped) {
    QTest::keyClicks(&box_, "100");
    QTest::keyClick(&box_, Qt::Key_Down);
    EXPECT_EQ(chosen_, (Choices{100, 101}));
}

TEST_F(PopUpBoxTest, OpeningTheListChoosesWhatWasTyped) {
    QTest::keyClicks(&box_, "100");
    QTest::mouseClick(&box_, Qt::LeftButton);
    EXPECT_EQ(chosen_, Choices{100});
    box_.hidePopup();
}

TEST_F(PopUpBoxTest, ProgramsSelectionStandsAgainstWhatWasTyped) {
    QTest::keyClicks(&box_, "100");
    box_.selectItem(9);
    QTest::keyClick(&box_, Qt::Key_Return);
    EXPECT_EQ(box_.selectedItem(), 9);
    QTest::keyClicks(&box_, "100");
    box_.removeAllItems();
    QTest::keyClick(&box_, Qt::Key_Return);
    EXPECT_EQ(chosen_, Choices{});
}

TEST_F(PopUpBoxTest, BoxOfAPaneThatIsHiddenForgetsWhatWasTyped) {
    QWidget window;
    QWidget pane(&window);
    box_.setParent(&pane);
    QLineEdit other(&window);
    window.show();
    window.activateWindow();
    box_.show();
    box_.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return box_.hasFocus(); }, testing::kLimitMilliseconds));
    QTest::keyClicks(&box_, "100");
    pane.hide();
    EXPECT_FALSE(box_.hasFocus());
    EXPECT_EQ(box_.selectedItem(), 5);
    EXPECT_EQ(chosen_, Choices{});
    box_.setParent(nullptr);
}

TEST_F(PopUpBoxTest, TypedDigitsFindTheEntryInTheOpenList) {
    QTest::mouseClick(&box_, Qt::LeftButton);
    QTest::keyClicks(box_.view(), "64");
    EXPECT_EQ(box_.view()->currentIndex().row(), 64);
    QTest::keyClick(box_.view(), Qt::Key_Return);
    EXPECT_EQ(box_.selectedItem(), 64);
    EXPECT_EQ(choices_, 1);
}

TEST_F(PopUpBoxTest, TheOpenListGoesToTheFirstOfSeveralAndChoosesNothing) {
    box_.removeAllItems();
    box_.addItems({"A4", "C4", "C5"});
    box_.selectItem(0);
    QTest::mouseClick(&box_, Qt::LeftButton);
    QTest::keyClicks(box_.view(), "c");
    EXPECT_EQ(box_.view()->currentIndex().row(), 1);
    QTest::keyClick(box_.view(), Qt::Key_Escape);
    EXPECT_EQ(chosen_, Choices{});
}

TEST_F(PopUpBoxTest, AnAssistiveTechnologyChoosesAnEntryOfTheOpenList) {
    QTest::mouseClick(&box_, Qt::LeftButton);
    QAccessibleInterface* const entry =
        QAccessible::queryAccessibleInterface(box_.view())->child(64);
    ASSERT_NE(entry, nullptr);
    entry->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !chosen_.empty(); }, testing::kLimitMilliseconds));
    EXPECT_EQ(chosen_, Choices{64});
    EXPECT_EQ(box_.selectedItem(), 64);
    EXPECT_FALSE(box_.view()->isVisible());
}

TEST_F(PopUpBoxTest, OpensAListOfTwentyVisibleEntries) {
    EXPECT_EQ(box_.maxVisibleItems(), 20);
    QTest::mouseClick(&box_, Qt::LeftButton);
    const int rowHeight = box_.view()->visualRect(box_.model()->index(0, 0)).height();
    const int visible = box_.view()->viewport()->height() / std::max(1, rowHeight);
    EXPECT_GE(visible, 19);
    EXPECT_LE(visible, 21);
}

TEST_F(PopUpBoxTest, WheelOverAnUnfocusedBoxChangesNothing) {
    box_.clearFocus();
    ASSERT_FALSE(box_.hasFocus());
    turnWheel();
    EXPECT_EQ(box_.selectedItem(), 5);
    EXPECT_EQ(choices_, 0);
}

TEST_F(PopUpBoxTest, InTheOpenListOnlyLettersThatFollowOneAnotherMakeOneText) {
    const auto row = [this] { return box_.view()->currentIndex().row(); };
    QTest::mouseClick(&box_, Qt::LeftButton);
    QTest::keyClicks(box_.view(), "1");
    QTest::keyPress(box_.view(), Qt::Key_Shift);
    QTest::keyClicks(box_.view(), "2");
    EXPECT_EQ(row(), 12) << "another key was only held";
    QTest::keyClick(box_.view(), Qt::Key_Down);
    QTest::keyClicks(box_.view(), "1");
    EXPECT_EQ(row(), 1) << "an arrow was in between";
    box_.hidePopup();
    box_.showPopup();
    QTest::keyClicks(box_.view(), "2");
    EXPECT_EQ(row(), 2) << "the list was closed in between";
    box_.hidePopup();
    box_.selectItem(-1);
    box_.showPopup();
    QTest::keyClick(box_.view(), Qt::Key_Space);
    EXPECT_EQ(chosen_, Choices{}) << "there is no entry to choose";
}

TEST_F(PopUpBoxTest, EscapeAndAHeldKeyAreTheTypings) {
    QAction command;
    command.setShortcut(Qt::Key_Escape);
    box_.addAction(&command);
    int count = 0;
    QObject::connect(&command, &QAction::triggered, [&count] { ++count; });
    box_.activateWindow();
    box_.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box_, testing::kLimitMilliseconds));
    QTest::keyClicks(&box_, "10");
    QTest::keyClick(&box_, Qt::Key_Control, Qt::ControlModifier);
    EXPECT_EQ(chosen_, Choices{});
    QTest::keyClick(&box_, Qt::Key_Escape);
    EXPECT_EQ(box_.selectedItem(), 5);
    EXPECT_EQ(count, 0);
    QTest::keyClick(&box_, Qt::Key_Escape);
    EXPECT_EQ(count, 1) << "nothing is typed";
}

TEST_F(PopUpBoxTest, WheelTurnsABoxThatHasTheKeyboard) {
    box_.activateWindow();
    box_.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return box_.hasFocus(); }, testing::kLimitMilliseconds));
    turnWheel();
    EXPECT_EQ(box_.selectedItem(), 6);
    QTest::keyClicks(&box_, "10");
    turnWheel();
    EXPECT_EQ(chosen_, (Choices{6, 10, 11})) << "from what was typed on";
}

TEST_F(PopUpBoxTest, DisabledBoxTakesNoClick) {
    static_cast<PopUp&>(box_).setEnabled(false);
    QTest::mouseClick(&box_, Qt::LeftButton);
    QTest::keyClicks(&box_, "100");
    EXPECT_EQ(box_.selectedItem(), 5);
}

} // namespace
} // namespace scenewright
