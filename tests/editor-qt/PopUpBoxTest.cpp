#include "editor/qt/PopUpBox.h"

#include "tests/support/Limits.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

using std::chrono::milliseconds;

const QStringList kNumbers{"0", "1", "2", "10", "12", "100", "120", "127"};
const QStringList kNotes{"C-1", "C#-1", "D-1", "C0", "C4", "C#4", "Bb4"};

TEST(FindTyped, FindsTheEntryItselfOrTheOneThatBeginsWithTheTextOrHasItsWord) {
    static constexpr std::array<std::string_view, 2> kNames{"Off", "On"};
    const QStringList words{"Lower Value", "Upper Value", "Upper Limit"};
    struct Row {
        QStringList entries;
        const char* typed;
        int found;
        EntryNames names = {};
    };
    const Row rows[] = {{kNumbers, "1", 1},
                        {kNumbers, "12", 4},
                        {kNumbers, "9", -1},
                        {{}, "9", -1},
                        {kNotes, "D", 2},
                        {kNotes, "C#", -1},
                        {kNotes, "bb4", 6},
                        {kNotes, "c#4", 5},
                        {words, "limit", 2},
                        {words, "value", -1},
                        {{"Aus", "Ein"}, "on", 1, kNames},
                        {{"Aus", "Ein"}, "ein", 1, kNames}};
    for (const Row& row : rows)
        EXPECT_EQ(findTyped(row.entries, row.typed, row.names), row.found) << row.typed;
}

TEST(TypedSearch, KeystrokesWithoutAPauseMakeOneText) {
    EXPECT_EQ(TypedSearch::pause(), milliseconds(QApplication::keyboardInputInterval()));
    const milliseconds longer = TypedSearch::pause() + milliseconds(1);
    struct Row {
        milliseconds pause; // before the key
        const QStringList& entries;
        const char* key;
        int found;
    };
    const Row rows[] = {{longer, kNumbers, "1", 1},
                        {TypedSearch::pause(), kNumbers, "2", 4},
                        {TypedSearch::pause(), kNumbers, "7", 7},
                        {longer, kNumbers, "2", 2},
                        {longer, kNotes, "D", 2},
                        {milliseconds(1), kNotes, "b", -1}, // leads nowhere yet
                        {milliseconds(1), kNotes, "4", 5},
                        {milliseconds(1), kNotes, "0", -1}};
    TypedSearch search;
    TypedSearch::Clock::time_point now{std::chrono::hours(1)};
    for (const Row& row : rows)
        EXPECT_EQ(search.type(row.key, row.entries, {}, now += row.pause), row.found) << row.key;
    search.clear();
    EXPECT_EQ(search.type("2", kNumbers, {}, now), 2);
}

using Choices = std::vector<int>;

class PopUpBoxTest : public ::testing::Test {
protected:
    PopUpBoxTest() {
        std::vector<std::string> titles;
        for (int number = 0; number < 128; ++number)
            titles.push_back(std::to_string(number));
        box_.addItems(titles);
        box_.selectItem(5);
        QObject::connect(&box_, &QComboBox::activated,
                         [this](int position) { chosen_.push_back(position); });
        box_.resize(120, 30);
        box_.show();
    }

    void focus() {
        box_.activateWindow();
        box_.setFocus();
        ASSERT_TRUE(
            QTest::qWaitFor([this] { return box_.hasFocus(); }, testing::kLimitMilliseconds));
    }
    bool waitForAChoice() {
        return QTest::qWaitFor([this] { return !chosen_.empty(); }, testing::kLimitMilliseconds);
    }
    void turnWheel() {
        const QPointF middle = box_.rect().center();
        QWheelEvent event(middle, box_.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&box_, &event);
    }
    // Of the open list.
    [[nodiscard]] int row() const { return box_.view()->currentIndex().row(); }

    Choices chosen_;
    PopUpBox box_; // its end may choose
};

TEST_F(PopUpBoxTest, BeforeItIsShownItKeepsWhatItIsGiven) {
    PopUpBox box;
    EXPECT_EQ(box.selectedItem(), -1);
    box.addItems({"z"});
    box.removeAllItems();
    EXPECT_EQ(box.selectedItem(), -1);
    box.addItems({"a", "b", "c"});
    EXPECT_EQ(box.selectedItem(), 0);
    box.selectItem(3);
    EXPECT_EQ(box.selectedItem(), -1);
    box.addItems({"d"});
    box.selectItem(3);
    EXPECT_EQ(box.selectedItem(), 3);
    EXPECT_EQ(box.titles(), QStringList({"a", "b", "c", "d"}));
    EXPECT_EQ(box.count(), 0);
    QSignalSpy changes(&box, &QComboBox::currentIndexChanged);
    box.show();
    EXPECT_EQ(box.count(), 4);
    EXPECT_EQ(box.currentText(), "d");
    EXPECT_EQ(box.selectedItem(), 3);
    EXPECT_TRUE(changes.empty());
    box.hide();
    box.selectItem(1);
    EXPECT_EQ(box.currentText(), "b");
    box.removeAllItems();
    EXPECT_EQ(box.count(), 0);
    EXPECT_TRUE(box.titles().empty());
}

TEST_F(PopUpBoxTest, ShowsWhatTheProgramSelectsAndTellsNothingOfIt) {
    for (const int position : {128, -1, 1000, -7}) {
        box_.selectItem(127);
        EXPECT_EQ(box_.currentText(), "127");
        box_.selectItem(position);
        EXPECT_EQ(box_.selectedItem(), -1) << position;
        EXPECT_EQ(box_.currentText(), "") << position;
    }
    box_.removeAllItems();
    EXPECT_EQ(box_.count(), 0);
    box_.addItems({"C♯", "é"});
    EXPECT_EQ(box_.titles(), (QStringList{QString::fromUtf8("C♯"), QString::fromUtf8("é")}));
    box_.selectItem(1);
    EXPECT_EQ(box_.selectedItem(), 1);
    EXPECT_EQ(chosen_, Choices{});
}

TEST_F(PopUpBoxTest, MouseChoosesAnEntryOfTheListWithTwentyInSight) {
    QTest::mouseClick(&box_, Qt::LeftButton);
    QAbstractItemView& list = *box_.view();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(list.window(), testing::kLimitMilliseconds));
    const QModelIndex entry = box_.model()->index(100, 0);
    const int visible = list.viewport()->height() / std::max(1, list.visualRect(entry).height());
    EXPECT_NEAR(visible, 20, 1);
    EXPECT_EQ(list.visualRect(entry).height(), list.fontMetrics().height() + 9);
    EXPECT_EQ(box_.sizeHint().width(), 72);
    EXPECT_EQ(box_.minimumSizeHint(), box_.sizeHint());
    EXPECT_EQ(box_.sizeHint().height(), std::max(box_.fontMetrics().height(), 28));
    list.scrollTo(entry);
    QTest::qWait(20);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(entry).center());
    EXPECT_EQ(chosen_, Choices{100});
    EXPECT_EQ(box_.selectedItem(), 100);
}

TEST_F(PopUpBoxTest, WhatIsTypedIsShownAtOnceAndChosenByTheKeyThatEndsIt) {
    struct Row {
        const char* typed;
        int shown;
        Qt::Key end;
        int after;
        Choices chosen;
    };
    const Row rows[] = {{"1", 1, Qt::Key_Return, 1, {1}},
                        {"10", 10, Qt::Key_Enter, 10, {10}},
                        {"100", 100, Qt::Key_Return, 100, {100}},
                        {"5", 5, Qt::Key_Return, 5, {5}}, // what is chosen already
                        {"100", 100, Qt::Key_Down, 101, {100, 101}},
                        {"x", 5, Qt::Key_Return, 5, {}},
                        {"1x", 5, Qt::Key_Return, 5, {}},
                        {"12x", 5, Qt::Key_Return, 5, {}},
                        {"100", 100, Qt::Key_Escape, 5, {}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.typed);
        box_.selectItem(5);
        chosen_.clear();
        QTest::keyClicks(&box_, row.typed);
        EXPECT_EQ(box_.currentText(), QString::number(row.shown));
        EXPECT_EQ(chosen_, Choices{});
        QTest::keyClick(&box_, row.end);
        EXPECT_EQ(box_.selectedItem(), row.after);
        QTest::keyClick(&box_, Qt::Key_Return);
        EXPECT_EQ(chosen_, row.chosen);
    }
    QTest::keyClicks(&box_, "7"); // Escape was the end of the former
    EXPECT_EQ(box_.selectedItem(), 7);
}

TEST_F(PopUpBoxTest, PauseInTheTypingChooses) {
    const int former = QApplication::keyboardInputInterval();
    QTest::keyClicks(&box_, "10");
    QApplication::processEvents();
    EXPECT_EQ(chosen_, Choices{});
    QApplication::setKeyboardInputInterval(0);
    QTest::keyClick(&box_, '0');
    EXPECT_TRUE(waitForAChoice());
    QApplication::setKeyboardInputInterval(former);
    EXPECT_EQ(chosen_.size(), 1U);
}

TEST_F(PopUpBoxTest, WhateverElseTheUserDoesThenChoosesWhatWasTyped) {
    QAction command;
    command.setShortcut(QKeySequence("Ctrl+Return"));
    box_.addAction(&command);
    Choices before;
    QObject::connect(&command, &QAction::triggered, [&] { before = chosen_; });
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"another field", [this] { box_.clearFocus(); }},
        {"the list", [this] { QTest::mouseClick(&box_, Qt::LeftButton); }},
        {"a command", [this] { QTest::keyClick(&box_, Qt::Key_Return, Qt::ControlModifier); }},
    };
    for (const auto& [name, act] : rows) {
        box_.hidePopup();
        focus();
        chosen_.clear();
        QTest::keyClicks(&box_, "100");
        act();
        EXPECT_EQ(chosen_, Choices{100}) << name;
    }
    EXPECT_EQ(before, Choices{100}) << "before it is carried out";
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
    box_.removeAllItems();
    box_.addItems(notes);
    for (const Row& row : rows) {
        box_.selectItem(5);
        chosen_.clear();
        QTest::keyClicks(&box_, row.typed);
        EXPECT_EQ(chosen_, Choices{}) << row.typed;
        QTest::keyClick(&box_, Qt::Key_Return);
        EXPECT_EQ(chosen_, row.note ? Choices{*row.note} : Choices{}) << row.typed;
        EXPECT_EQ(box_.selectedItem(), row.note.value_or(5)) << row.typed;
    }
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
    EXPECT_EQ(row(), 1);
    QTest::keyClick(box_.view(), Qt::Key_Return);
    EXPECT_EQ(chosen_, (Choices{2, 1}));

    QTest::keyClick(&box_, Qt::Key_Space);
    QTest::keyClick(box_.view(), Qt::Key_Down);
    QTest::keyClick(box_.view(), Qt::Key_Space);
    EXPECT_FALSE(box_.view()->isVisible());
    EXPECT_EQ(chosen_, (Choices{2, 1, 2}));
}

TEST_F(PopUpBoxTest, LetterOfACommandIsNotTyped) {
    QTest::keyClick(&box_, '1', Qt::AltModifier);
    QTest::keyClick(&box_, '1', Qt::ControlModifier);
    QTest::keyClick(&box_, Qt::Key_Return);
    EXPECT_EQ(box_.selectedItem(), 5);
    EXPECT_EQ(chosen_, Choices{});
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
    box_.show();
    focus();
    QTest::keyClicks(&box_, "100");
    pane.hide();
    EXPECT_FALSE(box_.hasFocus());
    EXPECT_EQ(box_.selectedItem(), 5);
    EXPECT_EQ(chosen_, Choices{});
    box_.setParent(nullptr);
}

TEST_F(PopUpBoxTest, TheOpenListGoesToTheFirstOfSeveralAndChoosesNothing) {
    box_.removeAllItems();
    box_.addItems({"A4", "C4", "C5"});
    box_.selectItem(0);
    QTest::mouseClick(&box_, Qt::LeftButton);
    QTest::keyClicks(box_.view(), "c");
    EXPECT_EQ(row(), 1);
    QTest::keyClick(box_.view(), Qt::Key_Escape);
    EXPECT_EQ(chosen_, Choices{});
}

TEST_F(PopUpBoxTest, AnAssistiveTechnologyChoosesAnEntryOfTheOpenList) {
    QTest::mouseClick(&box_, Qt::LeftButton);
    QAccessibleInterface* const entry =
        QAccessible::queryAccessibleInterface(box_.view())->child(64);
    ASSERT_NE(entry, nullptr);
    entry->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(waitForAChoice());
    EXPECT_EQ(chosen_, Choices{64});
    EXPECT_EQ(box_.selectedItem(), 64);
    EXPECT_FALSE(box_.view()->isVisible());
}

TEST_F(PopUpBoxTest, InTheOpenListOnlyLettersThatFollowOneAnotherMakeOneText) {
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
    QTest::keyClick(box_.view(), Qt::Key_Return);
    EXPECT_EQ(std::exchange(chosen_, {}), Choices{2});
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
    focus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box_, testing::kLimitMilliseconds));
    QTest::keyClicks(&box_, "10");
    QTest::keyClick(&box_, Qt::Key_Shift, Qt::ShiftModifier);
    QTest::keyClick(&box_, Qt::Key_Control, Qt::ControlModifier);
    EXPECT_EQ(chosen_, Choices{});
    QTest::keyClick(&box_, Qt::Key_Escape);
    EXPECT_EQ(box_.selectedItem(), 5);
    EXPECT_EQ(count, 0);
    QTest::keyClick(&box_, Qt::Key_Escape);
    EXPECT_EQ(count, 1) << "nothing is typed";
}

TEST_F(PopUpBoxTest, WheelTurnsABoxThatHasTheKeyboardAndNoOther) {
    box_.clearFocus();
    turnWheel();
    EXPECT_EQ(box_.selectedItem(), 5);
    focus();
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
