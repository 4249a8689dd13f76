#include "platform/Diagnostics.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QTest>
#include <fmt/format.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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

TEST_F(ControlCommandsTest, PasteAndResetShowTheControlAndLogNoSelection) {
    choose(kPad);
    record(kPad).setCR(90);
    press(Qt::Key_C);
    record(kPad).setCR(7);
    std::vector<std::string> log;
    Diagnostics::setLog([&log](std::string_view line) { log.emplace_back(line); });
    press(Qt::Key_V);
    EXPECT_EQ(window().panes().popUp("padCR").selectedItem(), 90);
    press(Qt::Key_Backspace);
    Diagnostics::setLog({});
    EXPECT_EQ(log, (std::vector<std::string>{"CR---------->90",
                                             fmt::format("CR---------->{}", record(kPad).CR())}));
}

TEST_F(ControlCommandsTest, WithoutAChosenControlThereIsNothingToCopyOrReset) {
    choose(kPad);
    ASSERT_TRUE(commands().controls().copyAction().isEnabled());
    QTest::keyClick(&window().list(), Qt::Key_Down); // passes over a row
    ASSERT_EQ(window().view().selectControl(), -1);
    EXPECT_FALSE(commands().controls().copyAction().isEnabled());
    EXPECT_FALSE(commands().controls().resetAction().isEnabled());
}

} // namespace

} // namespace scenewright::testing
