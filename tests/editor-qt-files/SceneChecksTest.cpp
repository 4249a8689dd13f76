#include "tests/editor-qt-files/CommandsBench.h"

#include <QTest>

#include <cstdint>

namespace scenewright::testing {

namespace {

class SceneChecksTest : public CommandsBench {
protected:
    SceneChecksTest() {
        open();
        window().show();
        QTest::qWait(0);
    }

    [[nodiscard]] QString badge() {
        QTest::qWait(0);
        QPushButton& button = commands().checks().badge();
        return button.isHidden() ? QString() : button.text();
    }
    // The first knob sends what the first slider sends.
    void makeConflict() {
        record(kKnob).setCCOrNoteNumber(7);
        window().view().showChosenControl();
    }

    static constexpr std::int32_t kKnob = 5;
};

TEST_F(SceneChecksTest, TheBadgeFollowsTheScenesAndTheirUndo) {
    EXPECT_EQ(badge(), "");
    makeConflict();
    EXPECT_EQ(badge(), "1 to check");
    commands().history().steps().undo();
    EXPECT_EQ(badge(), "");
}

TEST_F(SceneChecksTest, NothingMovesWhenTheBadgeComes) {
    EXPECT_EQ(badge(), "");
    const QRect before = window().picture().geometry();
    makeConflict();
    EXPECT_EQ(badge(), "1 to check");
    QTest::qWait(0);
    EXPECT_EQ(window().picture().geometry(), before);
}

TEST_F(SceneChecksTest, ARowOfTheListChoosesItsControl) {
    makeConflict();
    ASSERT_EQ(badge(), "1 to check");
    press(Qt::Key_2);
    commands().checks().badge().click();
    QListWidget& list = *commands().checks().list();
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.item(0)->text(),
              "Scene 1, Knob 1, Slider 1: may all send CC 7 Channel Volume on "
              "channel 1");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(0)).center());
    EXPECT_EQ(window().view().sceneIndex(), 0);
    EXPECT_EQ(window().view().selectControl(), kKnob);
    commands().history().steps().undo();
    EXPECT_EQ(badge(), "");
    EXPECT_EQ(list.count(), 0);
}

} // namespace

} // namespace scenewright::testing
