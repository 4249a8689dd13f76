// Controls chosen, one or several, with mouse and keys, and what the commands do to all of them.
#include "editor/qt/ControlChoice.h"

#include "platform/Diagnostics.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QApplication>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QStyle>
#include <QTest>
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <optional>
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
    void clickRow(std::int32_t control, Qt::KeyboardModifiers modifiers = {},
                  Qt::MouseButton button = Qt::LeftButton) {
        ControlList& list = window().list();
        list.scrollTo(list.model()->index(control, 0));
        QTest::mouseClick(list.viewport(), button, modifiers,
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
    static std::vector<std::string> logOf(const std::function<void()>& act) {
        std::vector<std::string> log;
        Diagnostics::setLog([&log](std::string_view line) { log.emplace_back(line); });
        act();
        Diagnostics::setLog({});
        return log;
    }
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
    EXPECT_EQ(logOf([this] { click(1, Qt::ControlModifier); }),
              (std::vector<std::string>{"点击了按钮：1", "表格选中:1"}));
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

TEST_F(ControlChoiceTest, KeysGoOnFromTheRowOnWhichAnotherButtonWasPressed) {
    click(kPad);
    clickRow(kPad + 2, {}, Qt::RightButton);
    expectChosen({kPad});
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return})
        QTest::keyClick(&window().list(), key);
    expectChosen({kPad + 3});
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
    record(kPad).setCR(90);
    choose(kPad);
    press(Qt::Key_C);
    choose(kPad + 1);
    EXPECT_EQ(logOf([this] { press(Qt::Key_V); }), std::vector<std::string>{"CR---------->90"});
    EXPECT_EQ(record(kPad + 1).CR(), 90);
    EXPECT_EQ(window().panes().popUp("padCR").selectedItem(), 90);
    EXPECT_EQ(button(kPad + 1).light().red, button(kPad).light().red);
    EXPECT_EQ(window().view().selectControl(), kPad + 1);
    const auto ofReset = logOf([this] { press(Qt::Key_Backspace); });
    EXPECT_EQ(ofReset, std::vector{fmt::format("CR---------->{}", record(kPad + 1).CR())});
    EXPECT_EQ(notice(), "Pad 2 has its default settings");
}

TEST_F(ControlChoiceTest, WithoutAChosenControlThereIsNothingToCopyOrReset) {
    choose(kPad);
    ASSERT_TRUE(entry("Copy").isEnabled());
    QTest::keyClick(&window().list(), Qt::Key_Down); // passes over a row
    ASSERT_EQ(window().view().selectControl(), -1);
    EXPECT_FALSE(entry("Copy").isEnabled() || entry("Reset").isEnabled());
    window().choice().selectAll();
    EXPECT_EQ(window().view().selectControl(), -1);
}

using Calls = std::vector<std::string>;

// Answers for ten rows and keeps what it was told, in order.
class Owner : public ListDataSource, public ListDelegate {
public:
    explicit Owner(const ControlList& list) : list_(list) {}

    std::int32_t rowCount() override { return rows; }
    std::string rowTitle(std::int32_t row) override { return title + std::to_string(row); }
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
    std::string title = "Row ";
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

TEST_F(ControlListTest, IsAsWideAsItsTitlesAndNoNarrowerThanWithoutThem) {
    list_.fitTitles();
    EXPECT_EQ(list_.width(), 132);
    owner_.title = "A row with a title that is long ";
    list_.reload();
    list_.fitTitles();
    const int title = list_.fontMetrics().horizontalAdvance("A row with a title that is long 0");
    EXPECT_EQ(list_.sizeHintForColumn(0), 11 + title + 3);
    const int bar = list_.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &list_);
    EXPECT_EQ(list_.width(), list_.sizeHintForColumn(0) + bar + 14);
    EXPECT_EQ(list_.sizeHintForRow(0), list_.fontMetrics().height() + 9);
    EXPECT_EQ(list_.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

TEST_F(ControlListTest, ARowIsDrawnOnTheGroundOfItsState) {
    owner_.title = "WW";
    list_.reload();
    list_.selectRow(1);
    QHoverEvent hover(QEvent::HoverEnter, middleOf(2), middleOf(2), {-1, -1});
    QApplication::sendEvent(list_.viewport(), &hover);
    const QImage image = list_.viewport()->grab().toImage();
    const QPalette palette = list_.palette();
    struct Row {
        int row;
        QPalette::ColorRole ground;
        QPalette::ColorRole ink;
    };
    for (const Row& row : {Row{0, QPalette::Base, QPalette::Text},
                           Row{1, QPalette::Highlight, QPalette::HighlightedText},
                           Row{2, QPalette::Button, QPalette::Text}}) {
        const QRect place = list_.visualRect(list_.model()->index(row.row, 0));
        const QColor ground = palette.color(row.ground);
        EXPECT_EQ(image.pixelColor(place.left() + 4, place.center().y()), ground) << row.row;
        EXPECT_EQ(image.pixelColor(place.right() - 4, place.center().y()), ground) << row.row;
        EXPECT_EQ(image.pixelColor(place.left(), place.top()), palette.color(QPalette::Base))
            << row.row << " has round corners";
        QRect ink;
        for (int y = place.top(); y <= place.bottom(); ++y)
            for (int x = place.left() + 6; x <= place.right() - 6; ++x)
                if (image.pixelColor(x, y) != ground)
                    ink |= QRect(x, y, 1, 1);
        EXPECT_NEAR(ink.left(), place.left() + 11, 1) << row.row;
        EXPECT_NEAR(ink.center().y(), place.center().y(), 3) << row.row;
        EXPECT_LE(ink.bottom() - ink.top(), list_.fontMetrics().height()) << row.row;
    }
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
} // namespace scenewright::testing
