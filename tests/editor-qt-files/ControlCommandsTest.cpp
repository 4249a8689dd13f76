#include "tests/editor-qt-files/CommandsBench.h"

#include <cstdint>

namespace scenewright::testing {

namespace {

class ControlCommandsTest : public CommandsBench {
protected:
    ControlCommandsTest() { open(); }
};

TEST_F(ControlCommandsTest, KeysCopyAndPasteBetweenPads) {
    record(kPad).setCR(90);
    choose(kPad);
    press(Qt::Key_C);
    choose(kPad + 1);
    press(Qt::Key_V);
    EXPECT_EQ(record(kPad + 1).CR(), 90);
    // Pane and picture follow.
    EXPECT_EQ(window().panes().popUp("padCR").selectedItem(), 90);
    EXPECT_EQ(window().picture().button(kPad + 1)->light().red,
              window().picture().button(kPad)->light().red);
    EXPECT_EQ(window().view().selectControl(), kPad + 1);
}

TEST_F(ControlCommandsTest, PasteIsGreyedWhereTheKindDiffers) {
    EXPECT_FALSE(commands().controls().pasteAction().isEnabled());
    choose(kPad);
    press(Qt::Key_C);
    EXPECT_TRUE(commands().controls().pasteAction().isEnabled());
    choose(5); // a knob
    EXPECT_FALSE(commands().controls().pasteAction().isEnabled());
    choose(kPad + 3);
    EXPECT_TRUE(commands().controls().pasteAction().isEnabled());
    press(Qt::Key_2);
    EXPECT_FALSE(commands().controls().pasteAction().isEnabled());
}

TEST_F(ControlCommandsTest, ResetPutsTheDefaultBack) {
    const std::int32_t number = record(kPad).CCOrNoteNumber();
    record(kPad).setCCOrNoteNumber(number + 1);
    choose(kPad);
    press(Qt::Key_Backspace);
    EXPECT_EQ(record(kPad).CCOrNoteNumber(), number);
    EXPECT_EQ(window().panes().popUp("padCCOrNoteNumber").selectedItem(), number);
}

TEST_F(ControlCommandsTest, WithoutAChosenControlThereIsNothingToCopyOrReset) {
    window().view().setSelectControl(-1);
    window().refresh();
    EXPECT_FALSE(commands().controls().copyAction().isEnabled());
    EXPECT_FALSE(commands().controls().resetAction().isEnabled());
}

} // namespace

} // namespace scenewright::testing
