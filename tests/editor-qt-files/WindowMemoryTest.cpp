#include "tests/editor-qt-files/CommandsBench.h"

namespace scenewright::testing {

namespace {

class WindowMemoryTest : public CommandsBench {};

TEST_F(WindowMemoryTest, SizeAndDisplayModeComeBack) {
    open();
    EXPECT_EQ(window().displayModes().selectedItem(), 2);
    const QSize size = window().size() + QSize(20, 10);
    window().resize(size);
    emit window().menu().modeChosen(4);
    close();
    open();
    EXPECT_EQ(window().displayModes().selectedItem(), 4);
    EXPECT_EQ(window().view().dispaly_index(), 4);
    EXPECT_EQ(window().size(), size);
}

} // namespace

} // namespace scenewright::testing
