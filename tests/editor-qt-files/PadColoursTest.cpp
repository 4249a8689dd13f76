#include "editor/qt/QtHelpers.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QColorDialog>
#include <QScreen>
#include <QTest>
#include <QToolButton>

#include <cstdint>
#include <functional>
#include <utility>

namespace scenewright::testing {

namespace {

class PadColoursTest : public OpenWindow {
protected:
    static PadColour levels(std::int32_t control) {
        const ButtonValue& pad = record(control);
        return {pad.CR(), pad.CG(), pad.CB()};
    }
    // The buttons of the opened menu, by their texts.
    QToolButton* colour(const QString& text) {
        for (auto* button : commands().colours().menu().findChildren<QToolButton*>())
            if (button->accessibleName() == text)
                return button;
        return nullptr;
    }
};

TEST_F(PadColoursTest, AColourOfThePaletteIsOneStepOfTheChosenPad) {
    choose(kPad + 2);
    const PadColour before = levels(kPad + 2);
    window().panes().swatch().click();
    ASSERT_NE(colour("#ff8000"), nullptr);
    colour("#ff8000")->click();
    EXPECT_EQ(levels(kPad + 2), (PadColour{127, 64, 0}));
    EXPECT_EQ(window().panes().popUp("padCG").selectedItem(), 64);
    EXPECT_EQ(steps().undoText(), "Pad 3 Colour");
    steps().undo();
    EXPECT_EQ(levels(kPad + 2), before);
    EXPECT_FALSE(steps().canUndo());
}

TEST_F(PadColoursTest, KeysGoThroughTheRows) {
    choose(kPad);
    commands().colours().choose({127, 64, 0}); // the third of the first row
    window().panes().swatch().click();
    QMenu& menu = commands().colours().menu();
    const auto at = [&menu] {
        const QWidget* const focus = menu.focusWidget();
        return focus == nullptr ? QString() : focus->accessibleName();
    };
    EXPECT_EQ(at(), "#ff8000");
    menu.setActiveAction(menu.actions().back()); // the pointer rests on it
    for (const auto& [key, colour] : {std::pair{Qt::Key_Up, "#ff8000"},
                                      {Qt::Key_Left, "#ff4000"},
                                      {Qt::Key_Down, "#0080ff"},
                                      {Qt::Key_Down, "#ffff00"},
                                      {Qt::Key_Up, "#0080ff"},
                                      {Qt::Key_Right, "#0000ff"}}) {
        QTest::keyClick(menu.focusWidget(), key);
        EXPECT_EQ(at(), colour);
    }
    EXPECT_EQ(menu.activeAction(), nullptr) << "one place has the keyboard";
    for (int row = 0; row < 2; ++row) // the second palette's, and the entry below all
        QTest::keyClick(menu.focusWidget(), Qt::Key_Down);
    ASSERT_NE(menu.activeAction(), nullptr);
    EXPECT_EQ(menu.activeAction()->text(), "&Other Colour...");
    QTest::keyClick(&menu, Qt::Key_Up);
    EXPECT_EQ(at(), "#ff8000") << "the colour used last";
    QTest::keyClick(menu.focusWidget(), Qt::Key_Up);
    QTest::keyClick(menu.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_EQ(levels(kPad), (PadColour{0, 0, 127})) << "the first of the second palette";
    QPushButton& swatch = window().panes().swatch();
    swatch.setFocus();
    QTest::keyClick(&swatch, Qt::Key_Space);
    QTest::keyClick(menu.focusWidget(), Qt::Key_Left);
    const QString left = at();
    QTest::keyClick(menu.focusWidget(), Qt::Key_Enter);
    EXPECT_EQ(shown(colourText(levels(kPad))), left);
    EXPECT_TRUE(swatch.hasFocus()) << "the keyboard is where the palette was opened";
    QTest::keyClick(&swatch, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_TRUE(swatch.hasFocus()) << "at the next pad";
    window().panes().swatch().click();
    QTest::keyClick(menu.focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(menu.isVisible()) << "every other key is the menu's";
}

// Both palettes and, from the first choice on, what was used last.
TEST_F(PadColoursTest, TheLastColoursAreOfferedAgain) {
    choose(kPad);
    window().panes().swatch().click();
    const auto offered = [&] {
        return commands().colours().menu().findChildren<QToolButton*>().size();
    };
    EXPECT_EQ(offered(), 16 + 8);
    commands().colours().choose({1, 2, 3});
    commands().colours().choose({4, 5, 6});
    commands().colours().choose({1, 2, 3});
    window().panes().swatch().click();
    EXPECT_EQ(offered(), 16 + 8 + 2);
    EXPECT_EQ(commands().colours().menu().findChildren<QToolButton*>().at(16 + 8)->accessibleName(),
              shown(colourText({1, 2, 3})));
    for (std::int32_t level = 10; level < 19; ++level)
        commands().colours().choose({level, level, level});
    window().panes().swatch().click();
    EXPECT_EQ(offered(), 16 + 8 + 8) << "one row of them";
}

TEST_F(PadColoursTest, ColoursStandInRowsOfEightOnAnEdgeThatShowsThem) {
    choose(kPad);
    window().panes().swatch().click();
    const auto colours = commands().colours().menu().findChildren<QToolButton*>();
    ASSERT_GE(colours.size(), 16);
    for (int place = 0; place < 16; ++place) {
        const QToolButton& colour = *colours[place];
        EXPECT_EQ(colour.iconSize(), QSize(26, 26));
        EXPECT_TRUE(colour.autoRaise());
        EXPECT_EQ(colour.toolTip(), colour.accessibleName());
        EXPECT_EQ(colour.x(), place % 8 == 0 ? 8 : colours[place - 1]->geometry().right() + 1 + 3);
        EXPECT_EQ(colour.parentWidget() == colours.front()->parentWidget(), place < 8);
        const QImage light = colour.icon().pixmap(26).toImage();
        ASSERT_EQ(light.size(), QSize(26, 26));
        for (const QPoint& edge : {QPoint(0, 0), QPoint(25, 25), QPoint(13, 0), QPoint(0, 13),
                                   QPoint(25, 13), QPoint(13, 25)})
            EXPECT_EQ(light.pixelColor(edge), QColor(Qt::gray)) << place;
        for (const QPoint& inner : {QPoint(1, 1), QPoint(24, 24), QPoint(1, 24)})
            EXPECT_EQ(light.pixelColor(inner).name(), colour.accessibleName()) << place;
    }
    EXPECT_LT(colours[7]->geometry().right(), colours[7]->parentWidget()->width());
    commands().colours().menu().close();
}

TEST_F(PadColoursTest, TheMenuDoesNotLieOnTheSwatch) {
    choose(kPad);
    QPushButton& swatch = window().panes().swatch();
    const int highest = swatch.mapTo(&window(), QPoint(0, 0)).y();
    const QRect room = window().screen()->availableGeometry();
    for (const bool isAtTheFoot : {false, true}) {
        window().move(0, (isAtTheFoot ? room.bottom() - 2 * swatch.height() : 0) - highest);
        swatch.click();
        const QRect place(swatch.mapToGlobal(QPoint(0, 0)), swatch.size());
        QMenu& menu = commands().colours().menu();
        EXPECT_FALSE(menu.geometry().intersects(place.adjusted(0, 0, 0, -1))) << isAtTheFoot;
        EXPECT_TRUE(room.contains(menu.geometry())) << isAtTheFoot;
        menu.close();
    }
}

TEST_F(PadColoursTest, AnyOtherColourIsChosenInADialogThatBeginsWithThePads) {
    choose(kPad);
    commands().colours().choose({127, 64, 0});
    window().panes().swatch().click();
    const auto choose = [this](const std::function<void(QColorDialog&)>& act) {
        inDialog<QColorDialog>([this] { commands().colours().menu().actions().back()->trigger(); },
                               act);
    };
    const int before = steps().count();
    choose([](QColorDialog& dialog) {
        EXPECT_EQ(dialog.currentColor().name(), "#ff8000");
        dialog.reject();
    });
    EXPECT_EQ(steps().count(), before);
    choose([](QColorDialog& dialog) {
        dialog.setCurrentColor(QColor("#00ff00"));
        dialog.accept();
    });
    EXPECT_EQ(levels(kPad), (PadColour{0, 127, 0}));
}

TEST_F(PadColoursTest, NothingIsWrittenIntoAnotherKindOfControl) {
    for (const std::int32_t control : {kKnob, kKey}) {
        choose(control);
        commands().colours().choose({1, 2, 3});
    }
    EXPECT_FALSE(steps().canUndo());
    window().panes().swatch().click();
    EXPECT_EQ(colour(shown(colourText({1, 2, 3}))), nullptr) << "it was not used";
}

} // namespace

} // namespace scenewright::testing
