#include "editor/qt/FillDialog.h"

#include "app/WindowAction.h"
#include "model/TypedValue.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QColorDialog>
#include <QScreen>
#include <QTest>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

namespace scenewright::testing {

namespace {

class FillDialogTest : public OpenWindow {
protected:
    void chooseAll(std::int32_t control) {
        choose(control);
        entry("Select All").trigger();
    }
    void inDialog(const QString& title, const std::function<void(FillDialog&)>& act) {
        CommandsBench::inDialog<FillDialog>([&] { entry(title).trigger(); }, act);
    }
    static QStringList offered(FillDialog& dialog) {
        return field<PopUpBox>(dialog, "Fill with").titles();
    }
    static std::vector<std::int32_t> numbers() {
        std::vector<std::int32_t> all;
        for (std::int32_t pad = kPad; pad < kPad + 8; ++pad)
            all.push_back(record(pad).CCOrNoteNumber());
        return all;
    }
    QString caption(std::int32_t control) {
        return QString::fromStdString(button(control).attributedTitle().text);
    }
};

using Numbers = std::vector<std::int32_t>;

TEST_F(FillDialogTest, EachKindIsOfferedWhatItCarries) {
    const std::pair<std::int32_t, QStringList> rows[] = {
        {1, {"MIDI channel"}},
        {kKnob, {"Controllers"}},
        {kSlider, {"Controllers"}},
        {kPad, {"Notes", "Controllers", "MIDI channel", "Colours", "Their notes, moved"}},
        {kKey, {"Notes", "Controllers", "Their notes, moved"}}};
    for (const auto& [control, titles] : rows) {
        choose(control);
        inDialog("Fill...", [&wanted = titles](FillDialog& dialog) {
            EXPECT_EQ(offered(dialog), wanted);
            dialog.reject();
        });
    }
    EXPECT_FALSE(steps().canUndo());
}

TEST_F(FillDialogTest, ItStandsAtTheFootOfTheWindowAndTabGoesFromItsFieldsToItsButtons) {
    choose(kPad);
    inDialog("Fill...", [this](FillDialog& dialog) {
        const QRect room = dialog.screen()->availableGeometry();
        const QPoint foot = window().mapToGlobal(window().rect().bottomLeft());
        EXPECT_TRUE(room.contains(dialog.geometry()));
        EXPECT_EQ(dialog.x(), std::max(foot.x(), room.left()));
        EXPECT_NEAR(dialog.geometry().bottom(), std::min(foot.y(), room.bottom()), 40);
        EXPECT_EQ(tabStops(field<PopUpBox>(dialog, "Fill with")),
                  (QStringList{"Fill with", "First note", "Scale or steps", "Cancel", "Fill"}));
        dialog.reject();
    });
}

// Below the screen, above it and to its right.
TEST_F(FillDialogTest, ItStaysOnTheScreenWithItsTitleBarWhereverTheWindowIs) {
    choose(kPad);
    const QRect screen = window().screen()->availableGeometry();
    const int bar = window().style()->pixelMetric(QStyle::PM_TitleBarHeight);
    for (const QPoint& place :
         {screen.bottomLeft(), QPoint(0, -2 * window().height()), screen.topRight()}) {
        window().move(place);
        inDialog("Fill...", [&](FillDialog& dialog) {
            const QRect room = screen.adjusted(0, bar, -dialog.width(), -dialog.height() - bar);
            if (place.x() > 0)
                EXPECT_EQ(dialog.x(), room.right());
            else
                EXPECT_EQ(dialog.y(), place.y() > 0 ? room.bottom() : room.top());
            dialog.reject();
        });
    }
}

TEST_F(FillDialogTest, ThePictureShowsWhatComesOfItBeforeItIsDone) {
    chooseAll(kPad);
    const Numbers before = numbers();
    const QString shownBefore = caption(kPad + 1);
    inDialog("Fill...", [&](FillDialog& dialog) {
        field<QLineEdit>(dialog, "First note").setText("C3");
        field<QComboBox>(dialog, "Scale or steps").setCurrentText("minor-pentatonic");
        EXPECT_EQ(caption(kPad + 1), "Note\nEb3");
        EXPECT_EQ(numbers(), before);
        field<QLineEdit>(dialog, "First note").setText("H9");
        EXPECT_EQ(caption(kPad + 1), "Note\nC#2") << "as it is, where it cannot be done";
        dialog.reject();
    });
    EXPECT_EQ(caption(kPad + 1), shownBefore);
    EXPECT_EQ(numbers(), before);
    EXPECT_FALSE(steps().canUndo());
}

TEST_F(FillDialogTest, ItIsOneStepOfTheChosenControls) {
    choose(kPad);
    window().choice().selectAll();
    struct Row {
        const char* first;
        const char* steps;
        Numbers after;
    };
    for (const Row& row : {Row{"C3", "minor-pentatonic", {48, 51, 53, 55, 58, 60, 63, 65}},
                           Row{"C2", "2,1", {36, 38, 39, 41, 42, 44, 45, 47}},
                           Row{"60", "-1", {60, 59, 58, 57, 56, 55, 54, 53}}}) {
        const Numbers before = numbers();
        inDialog("Fill...", [&](FillDialog& dialog) {
            field<QLineEdit>(dialog, "First note").setText(row.first);
            field<QComboBox>(dialog, "Scale or steps").setCurrentText(row.steps);
            dialog.accept();
        });
        EXPECT_EQ(numbers(), row.after) << row.steps;
        EXPECT_EQ(steps().undoText(), "Fill 8 Pads");
        steps().undo();
        EXPECT_EQ(numbers(), before);
    }
}

TEST_F(FillDialogTest, OnlyTheChosenOnesAreFilledOrMoved) {
    const Numbers before = numbers();
    choose(kPad + 1);
    QTest::mouseClick(&button(kPad + 6), Qt::LeftButton, Qt::ControlModifier);
    inDialog("Fill...", [](FillDialog& dialog) {
        field<QLineEdit>(dialog, "First note").setText("C1");
        dialog.accept();
    });
    Numbers after = before;
    after[1] = 24;
    after[6] = 25;
    EXPECT_EQ(numbers(), after);
    inDialog("Transpose...", [](FillDialog& dialog) {
        EXPECT_EQ(offered(dialog)[field<PopUpBox>(dialog, "Fill with").selectedItem()],
                  "Their notes, moved");
        field<QSpinBox>(dialog, "Semitones").setValue(-2);
        dialog.accept();
    });
    after[1] = 22;
    after[6] = 23;
    EXPECT_EQ(numbers(), after);
    EXPECT_EQ(steps().undoText(), "Transpose 2 Pads");
}

// In the second scene, of which the last pad is looked at.
TEST_F(FillDialogTest, EachPageFillsTheShownSceneWithWhatItsFieldsSay) {
    enum Page { kControllers = 1, kChannel, kColours, kTranspose };
    struct Row {
        int page;
        std::function<void(FillDialog&)> fields;
        const char* caption;
        std::function<Numbers(const ButtonValue&)> read;
        Numbers after;
    };
    const auto number = [](const ButtonValue& pad) {
        return Numbers{pad.AssignType(), pad.CCOrNoteNumber()};
    };
    const auto channel = [](const ButtonValue& pad) { return Numbers{pad.MIDIChannel()}; };
    const auto colour = [](const ButtonValue& pad) {
        return Numbers{pad.CR(), pad.CG(), pad.CB()};
    };
    const PadColour safe = palettes()[1].colours.back();
    press(Qt::Key_2);
    chooseAll(kPad);
    window().displayModes().chooseItem(1);
    const ButtonValue& last = *WindowAction::getSceneWithIndex(1)->buttonValueArray().at(kPad + 6);
    const std::string asItIs = caption(kPad + 7).toStdString();
    for (const Row& row :
         {Row{kControllers,
              [](FillDialog& dialog) {
                  field<QLineEdit>(dialog, "First controller").setText("30");
                  field<QLineEdit>(dialog, "Steps").setText("2");
              },
              "CC#\n44",
              number,
              {kAssignController, 44}},
          Row{kChannel,
              [](FillDialog& dialog) { field<QSpinBox>(dialog, "Channel").setValue(5); },
              "5",
              channel,
              {4}},
          Row{kColours, [](FillDialog&) {}, asItIs.c_str(), colour, {127, 127, 0}},
          Row{kColours,
              [](FillDialog& dialog) { field<PopUpBox>(dialog, "Colours").chooseItem(2); },
              asItIs.c_str(),
              colour,
              {safe[0], safe[1], safe[2]}},
          Row{kTranspose,
              [](FillDialog& dialog) { field<QSpinBox>(dialog, "Semitones").setValue(-3); },
              "Note\nE2",
              number,
              {kAssignNote, 40}}}) {
        const Numbers before = row.read(last);
        inDialog("Fill...", [&](FillDialog& dialog) {
            field<PopUpBox>(dialog, "Fill with").chooseItem(row.page);
            EXPECT_EQ(dialog.findChild<QStackedWidget*>()->currentIndex(), row.page);
            row.fields(dialog);
            EXPECT_EQ(caption(kPad + 7), row.caption) << row.page;
            dialog.accept();
        });
        EXPECT_EQ(row.read(last), row.after) << row.page;
        EXPECT_NE(row.after, before) << row.page;
        steps().undo();
    }
}

TEST_F(FillDialogTest, AColourOfTheTwoIsChosenInADialogOfItsOwn) {
    chooseAll(kPad);
    inDialog("Fill...", [](FillDialog& dialog) {
        field<PopUpBox>(dialog, "Fill with").chooseItem(3);
        for (const int colours : {1, 0})
            for (const char* const name : {"From", "To"}) {
                field<PopUpBox>(dialog, "Colours").chooseItem(colours);
                EXPECT_EQ(field<QPushButton>(dialog, name).isEnabled(), colours == 0) << name;
            }
        QPushButton& from = field<QPushButton>(dialog, "From");
        EXPECT_EQ(from.text(), "#ff0000");
        for (const char* const chosen : {"#ff0000", "#0000ff"}) { // the first is refused
            QTimer::singleShot(0, &from, [&] {
                auto* const asked = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
                ASSERT_NE(asked, nullptr);
                EXPECT_EQ(asked->currentColor().name(), "#ff0000");
                asked->setCurrentColor(QColor(chosen == from.text() ? "#00ff00" : chosen));
                static_cast<QDialog*>(asked)->done(chosen == from.text() ? QDialog::Rejected
                                                                         : QDialog::Accepted);
            });
            from.click();
            EXPECT_EQ(from.text(), chosen);
        }
        ASSERT_TRUE(dialog.filled());
        const auto& pads = dialog.filled()->front()->buttonValueArray();
        EXPECT_EQ(pads.at(kPad - 1)->CB(), 127);
        dialog.reject();
    });
}

TEST_F(FillDialogTest, WhatCannotBeDoneIsSaidAndNotDone) {
    chooseAll(kPad);
    inDialog("Fill...", [&](FillDialog& dialog) {
        const auto expectTold = [&dialog](const std::string& told) {
            EXPECT_FALSE(field<QPushButton>(dialog, "Fill").isEnabled()) << told;
            ASSERT_FALSE(dialog.filled().has_value()) << told;
            EXPECT_EQ(dialog.filled().error(), told);
            field<QLabel>(dialog, told.c_str()); // a screen reader's too
        };
        EXPECT_TRUE(field<QPushButton>(dialog, "Fill").isEnabled());
        constexpr auto kHowToTypeANote =
            "The first note is typed as in C2 or Db2, or as a number from 0 to 127.";
        for (const auto& [first, steps, told] :
             {std::tuple{"H9", "1", kHowToTypeANote},
              {"", "1", kHowToTypeANote},
              {"F9", "1", "Pad 4 would be above G9, the highest there is."},
              {"C-1", "-1", "Pad 2 would be below C-1, the lowest there is."},
              {"C2", "often", "Steps are whole numbers with commas between, as in 2,2,1"}}) {
            field<QLineEdit>(dialog, "First note").setText(first);
            field<QComboBox>(dialog, "Scale or steps").setCurrentText(steps);
            expectTold(told);
        }
        field<PopUpBox>(dialog, "Fill with").selectItem(1);
        field<QLineEdit>(dialog, "First controller").setText("x");
        expectTold("The first controller is typed as a number from 0 to 127, or by its name, as in "
                   "sustain.");
        field<QLineEdit>(dialog, "First controller").setText("20");
        field<QLineEdit>(dialog, "Steps").setText("chromatic");
        expectTold("Steps are whole numbers with commas between, as in 2,2,1");
        for (std::int32_t pad = kPad; pad < kPad + 8; ++pad)
            record(pad).setAssignType(kAssignController);
        field<PopUpBox>(dialog, "Fill with").selectItem(4);
        expectTold("None of them sends a note.");
        dialog.reject();
    });
}

} // namespace

} // namespace scenewright::testing
