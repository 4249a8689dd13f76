#include "editor/qt/PopUpBox.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace scenewright {
namespace {

std::vector<std::string> numbers(int count) {
    std::vector<std::string> titles;
    for (int number = 0; number < count; ++number)
        titles.push_back(std::to_string(number));
    return titles;
}

class PopUpBoxTest : public ::testing::Test {
protected:
    PopUpBoxTest() {
        box_.addItems(numbers(128));
        box_.selectItem(5);
        QObject::connect(&box_, &QComboBox::activated, [this] { ++choices_; });
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
        EXPECT_TRUE(QTest::qWaitForWindowExposed(box_.view()->window()));
        const QModelIndex entry = box_.model()->index(position, 0);
        box_.view()->scrollTo(entry);
        QTest::qWait(20);
        QTest::mouseClick(box_.view()->viewport(), Qt::LeftButton, {},
                          box_.view()->visualRect(entry).center());
    }

    PopUpBox box_;
    int choices_ = 0;
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

TEST_F(PopUpBoxTest, TypedDigitsChooseThatNumber) {
    QTest::keyClicks(&box_, "100");
    EXPECT_EQ(box_.selectedItem(), 100);
}

TEST_F(PopUpBoxTest, TypedNoteNameChoosesThatNote) {
    box_.removeAllItems();
    box_.addItems({"C-1", "C#-1", "C4", "C#4"});
    QTest::keyClicks(&box_, "c#4");
    EXPECT_EQ(box_.selectedItem(), 3);
}

TEST_F(PopUpBoxTest, TypingThatFindsNothingChangesNothing) {
    QTest::keyClicks(&box_, "x");
    EXPECT_EQ(box_.selectedItem(), 5);
    EXPECT_EQ(choices_, 0);
}

TEST_F(PopUpBoxTest, TypedDigitsFindTheEntryInTheOpenList) {
    QTest::mouseClick(&box_, Qt::LeftButton);
    QTest::keyClicks(box_.view(), "64");
    EXPECT_EQ(box_.view()->currentIndex().row(), 64);
    QTest::keyClick(box_.view(), Qt::Key_Return);
    EXPECT_EQ(box_.selectedItem(), 64);
    EXPECT_EQ(choices_, 1);
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

TEST_F(PopUpBoxTest, WheelTurnsABoxThatHasTheKeyboard) {
    box_.activateWindow();
    box_.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return box_.hasFocus(); }, 2000));
    turnWheel();
    EXPECT_EQ(box_.selectedItem(), 6);
}

TEST_F(PopUpBoxTest, DisabledBoxTakesNoClick) {
    static_cast<PopUp&>(box_).setEnabled(false);
    QTest::mouseClick(&box_, Qt::LeftButton);
    QTest::keyClicks(&box_, "100");
    EXPECT_EQ(box_.selectedItem(), 5);
}

} // namespace
} // namespace scenewright
