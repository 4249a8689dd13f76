#include "editor/qt/ControlChoice.h"

#include <QApplication>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTest>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

using Calls = std::vector<std::string>;

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
    Calls calls;

private:
    const ControlList& list_;
};

class ControlListTest : public ::testing::Test {
protected:
    ControlListTest() {
        list_.setDataSource(&owner_);
        list_.setDelegate(&owner_);
        list_.resize(160, 320);
        list_.show();
    }

    [[nodiscard]] QPoint middleOf(int row) const {
        return list_.visualRect(list_.model()->index(row, 0)).center();
    }
    void click(int row) { QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, middleOf(row)); }

    ControlList list_;
    Owner owner_{list_};
};

TEST_F(ControlListTest, ShowsTheRowsOfItsSourceAndAsksAnewOnReload) {
    const ControlList empty;
    EXPECT_EQ(empty.model()->rowCount(), 0);
    EXPECT_EQ(list_.model()->data({}), QVariant());
    EXPECT_EQ(list_.model()->rowCount(), 10);
    EXPECT_EQ(list_.model()->index(3, 0).data().toString(), "Row 3");
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

TEST_F(ControlListTest, TheDelegateIsAskedAndToldOfEachChoiceInTurn) {
    const auto key = [this](Qt::Key pressed) { QTest::keyClick(&list_, pressed); };
    const auto secondClick = [this] {
        QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(middleOf(7)),
                           list_.viewport()->mapToGlobal(QPointF(middleOf(7))), Qt::LeftButton,
                           Qt::LeftButton, {});
        QApplication::sendEvent(list_.viewport(), &second);
    };
    const auto drag = [this] {
        QTest::mousePress(list_.viewport(), Qt::LeftButton, {}, middleOf(2));
        QTest::mouseMove(list_.viewport(), middleOf(6));
        QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, middleOf(6));
    };
    const auto assist = [this] { // as an assistive technology does
        list_.selectionModel()->select(list_.model()->index(3, 0),
                                       QItemSelectionModel::ClearAndSelect);
    };
    struct Row {
        const char* name;
        bool isPassedOver; // row 5, by a key, since row 4 was clicked
        std::function<void()> act;
        Calls calls;
        int clicked;
    };
    const Row rows[] = {
        {"a click", false, [&] { click(6); }, {"propose 6 clicked 6 selected 4", "changed 6"}, 6},
        {"on the same", false, [&] { click(4); }, {"propose 4 clicked 4 selected 4"}, 4},
        {"a click", true, [&] { click(5); }, {"propose 5 clicked 5 selected 5", "changed 5"}, 5},
        {"a key",
         false,
         [&] { key(Qt::Key_Down); },
         {"propose 5 clicked -1 selected 4", "changed 5"},
         -1},
        {"letters",
         false,
         [this] { QTest::keyClicks(&list_, "row 8"); },
         {"propose 5 clicked -1 selected 4", "changed 5", "propose 8 clicked -1 selected 5",
          "changed 8"},
         -1},
        {"Return",
         true,
         [&] { key(Qt::Key_Return); },
         {"propose 5 clicked 5 selected 5", "changed 5"},
         5},
        {"the program", false, [this] { list_.selectRow(6); }, {"changed 6"}, 4},
        {"the program's same", false, [this] { list_.selectRow(4); }, {}, 4},
        {"the program", true, [this] { list_.selectRow(5); }, {"changed 5"}, -1},
        {"assistance", false, assist, {"propose 3 clicked -1 selected 3", "changed 3"}, -1},
        {"a second click", false, secondClick, {}, 4},
        {"a drag", false, drag, {"propose 2 clicked 2 selected 4", "changed 2"}, 2},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        list_.selectRow(0);
        click(4);
        if (row.isPassedOver)
            key(Qt::Key_Down);
        owner_.calls.clear();
        row.act();
        EXPECT_EQ(owner_.calls, row.calls);
        EXPECT_EQ(list_.clickedRow(), row.clicked);
        EXPECT_EQ(list_.selectionModel()->selectedIndexes().size(), 1);
    }
}

TEST_F(ControlListTest, DelegatesAnswerIsWhatIsSelected) {
    owner_.answer = {7};
    click(4);
    EXPECT_EQ(list_.selectedRow(), 7);
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

} // namespace
} // namespace scenewright
