#include "editor/qt/ControlChoice.h"

#include <QApplication>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTest>
#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace scenewright {
namespace {

// Answers for ten rows and keeps what it was told, in order.
class Owner : public ListDataSource, public ListDelegate {
public:
    explicit Owner(const ControlList& list) : list_(list) {}

    std::int32_t rowCount() override { return rows; }
    std::string rowTitle(std::int32_t row) override { return "Row " + std::to_string(row); }
    bool mayEdit(std::int32_t /*row*/) override { return isEditable; }

    std::vector<std::int32_t> proposeSelection(const std::vector<std::int32_t>& proposed) override {
        calls.push_back("propose " + std::to_string(proposed.at(0)) + " clicked " +
                        std::to_string(list_.clickedRow()) + " selected " +
                        std::to_string(list_.selectedRow()));
        return answer.value_or(proposed);
    }
    void selectionDidChange() override {
        calls.push_back("changed " + std::to_string(list_.selectedRow()));
    }

    std::int32_t rows = 10;
    bool isEditable = false;
    std::optional<std::vector<std::int32_t>> answer;
    std::vector<std::string> calls;

private:
    const ControlList& list_;
};

using Calls = std::vector<std::string>;

class ControlListTest : public ::testing::Test {
protected:
    ControlListTest() {
        list_.setDataSource(&owner_);
        list_.setDelegate(&owner_);
        list_.resize(160, 320);
        list_.show();
    }

    void click(int row) {
        const QRect place = list_.visualRect(list_.model()->index(row, 0));
        QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, place.center());
    }

    ControlList list_;
    Owner owner_{list_};
};

TEST_F(ControlListTest, SecondClickOfADoubleClickChoosesNothingMore) {
    click(3);
    owner_.calls.clear();
    const QRect place = list_.visualRect(list_.model()->index(5, 0));
    QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(place.center()),
                       list_.viewport()->mapToGlobal(QPointF(place.center())), Qt::LeftButton,
                       Qt::LeftButton, {});
    QApplication::sendEvent(list_.viewport(), &second);
    EXPECT_EQ(owner_.calls, Calls{});
    EXPECT_EQ(list_.selectedRow(), 3);
}

TEST_F(ControlListTest, WithoutASourceItIsEmpty) {
    const ControlList empty;
    EXPECT_EQ(empty.model()->rowCount(), 0);
    EXPECT_EQ(list_.model()->data({}), QVariant());
}

TEST_F(ControlListTest, ShowsTheRowsOfItsSource) {
    EXPECT_EQ(list_.model()->rowCount(), 10);
    EXPECT_EQ(list_.model()->index(3, 0).data().toString(), "Row 3");
}

TEST_F(ControlListTest, ReloadAsksAnew) {
    owner_.rows = 46;
    list_.reload();
    EXPECT_EQ(list_.model()->rowCount(), 46);
    EXPECT_EQ(owner_.calls, Calls{});
}

TEST_F(ControlListTest, RowIsEditedOnlyWhereItsSourceAllowsIt) {
    for (const bool isEditable : {false, true}) {
        owner_.isEditable = isEditable;
        list_.selectRow(3);
        QTest::keyClick(&list_, Qt::Key_F2);
        EXPECT_EQ(list_.findChild<QLineEdit*>() != nullptr, isEditable);
    }
}

TEST_F(ControlListTest, ClickIsProposedWithItsRowBeforeItTakesEffect) {
    list_.selectRow(0);
    owner_.calls.clear();
    click(4);
    EXPECT_EQ(owner_.calls, (Calls{"propose 4 clicked 4 selected 0", "changed 4"}));
    EXPECT_EQ(list_.clickedRow(), 4);
}

TEST_F(ControlListTest, DelegatesAnswerIsWhatIsSelected) {
    owner_.answer = {7};
    click(4);
    EXPECT_EQ(list_.selectedRow(), 7);
}

TEST_F(ControlListTest, KeyIsProposedWithoutAClickedRow) {
    click(4);
    ASSERT_EQ(list_.clickedRow(), 4);
    owner_.calls.clear();
    QTest::keyClick(&list_, Qt::Key_Down);
    EXPECT_EQ(owner_.calls, (Calls{"propose 5 clicked -1 selected 4", "changed 5"}));
    EXPECT_EQ(list_.clickedRow(), -1);
}

TEST_F(ControlListTest, TypedLetterIsProposedWithoutAClickedRow) {
    click(4);
    owner_.calls.clear();
    QTest::keyClicks(&list_, "row 8");
    EXPECT_EQ(owner_.calls, (Calls{"propose 5 clicked -1 selected 4", "changed 5",
                                   "propose 8 clicked -1 selected 5", "changed 8"}));
    EXPECT_EQ(list_.clickedRow(), -1);
}

TEST_F(ControlListTest, ReturnOnARowIsAClickOnIt) {
    list_.selectRow(4);
    QTest::keyClick(&list_, Qt::Key_Down);
    owner_.calls.clear();
    QTest::keyClick(&list_, Qt::Key_Return);
    EXPECT_EQ(owner_.calls, (Calls{"propose 5 clicked 5 selected 5", "changed 5"}));
}

TEST_F(ControlListTest, ClickOnARowThatTheKeysPassedOverIsAChange) {
    list_.selectRow(4);
    QTest::keyClick(&list_, Qt::Key_Down);
    owner_.calls.clear();
    click(5);
    EXPECT_EQ(owner_.calls, (Calls{"propose 5 clicked 5 selected 5", "changed 5"}));
}

TEST_F(ControlListTest, ClickOnTheSelectedRowIsNoChange) {
    click(4);
    owner_.calls.clear();
    click(4);
    EXPECT_EQ(owner_.calls, (Calls{"propose 4 clicked 4 selected 4"}));
}

TEST_F(ControlListTest, ProgramsSelectionIsToldAndNotProposed) {
    list_.selectRow(6);
    EXPECT_EQ(owner_.calls, (Calls{"changed 6"}));
    list_.selectRow(6);
    EXPECT_EQ(owner_.calls, (Calls{"changed 6"}));
}

TEST_F(ControlListTest, ProgramsSelectionOfARowThatTheKeysPassedOverIsAChange) {
    list_.selectRow(4);
    QTest::keyClick(&list_, Qt::Key_Down);
    owner_.calls.clear();
    list_.selectRow(5);
    EXPECT_EQ(owner_.calls, (Calls{"changed 5"}));
}

TEST_F(ControlListTest, SelectingReplacesTheSelection) {
    list_.selectRow(1);
    list_.selectRow(2);
    EXPECT_EQ(list_.selectionModel()->selectedIndexes().size(), 1);
    EXPECT_EQ(list_.selectedRow(), 2);
}

TEST_F(ControlListTest, RowThatTheListDoesNotHaveLeavesNoSelection) {
    list_.selectRow(1);
    ASSERT_EQ(list_.selectedRow(), 1);
    list_.selectRow(99);
    EXPECT_EQ(list_.selectedRow(), -1);
}

TEST_F(ControlListTest, ClickBesideTheRowsChangesNothing) {
    owner_.rows = 2;
    list_.reload();
    list_.selectRow(1);
    owner_.calls.clear();
    QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, QPoint(20, 300));
    EXPECT_EQ(owner_.calls, Calls{});
    EXPECT_EQ(list_.selectedRow(), 1);
}

TEST_F(ControlListTest, DraggingOverRowsSelectsOnlyThePressedOne) {
    const QRect from = list_.visualRect(list_.model()->index(2, 0));
    const QRect to = list_.visualRect(list_.model()->index(6, 0));
    QTest::mousePress(list_.viewport(), Qt::LeftButton, {}, from.center());
    QTest::mouseMove(list_.viewport(), to.center());
    QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, to.center());
    EXPECT_EQ(list_.selectedRow(), 2);
}

TEST_F(ControlListTest, SelectionByAnAssistiveTechnologyCountsAsMadeWithoutAClick) {
    click(1);
    owner_.calls.clear();
    list_.selectionModel()->select(list_.model()->index(3, 0), QItemSelectionModel::ClearAndSelect);
    EXPECT_EQ(owner_.calls, (Calls{"propose 3 clicked -1 selected 3", "changed 3"}));
}

} // namespace
} // namespace scenewright
