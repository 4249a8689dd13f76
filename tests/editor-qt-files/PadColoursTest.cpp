#include "editor/qt/QtHelpers.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QTest>
#include <QToolButton>

#include <cstdint>

namespace scenewright::testing {

namespace {

class PadColoursTest : public CommandsBench {
protected:
    PadColoursTest() { open(); }

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
    EXPECT_EQ(commands().history().steps().undoText(), "Pad 3 Colour");
    commands().history().steps().undo();
    EXPECT_EQ(levels(kPad + 2), before);
    EXPECT_FALSE(commands().history().steps().canUndo());
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
}

TEST_F(PadColoursTest, NothingIsWrittenIntoAnotherKindOfControl) {
    choose(5);
    commands().colours().choose({1, 2, 3});
    EXPECT_FALSE(commands().history().steps().canUndo());
}

} // namespace

} // namespace scenewright::testing
