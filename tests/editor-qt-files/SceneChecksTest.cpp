#include "app/WindowAction.h"
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

    void blankNameOf(std::int32_t scene) {
        WindowAction::getSceneWithIndex(scene)->commonValue()->setSceneName(" ");
        window().view().showChosenControl();
    }
    void expectShown(std::int32_t scene, std::int32_t control) {
        EXPECT_EQ(window().view().sceneIndex(), scene);
        EXPECT_EQ(window().view().selectControl(), control);
    }

    static constexpr std::int32_t kKnob = 5;
};

TEST_F(SceneChecksTest, TheBadgeFollowsTheScenesAndTheirUndo) {
    EXPECT_EQ(badge(), "");
    makeConflict();
    EXPECT_EQ(badge(), "1 to check");
    EXPECT_EQ(commands().checks().badge().accessibleName(), "1 to check");
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

TEST_F(SceneChecksTest, AChangeOfTheScenesLeavesTheRowAndWhatIsShown) {
    makeConflict();
    blankNameOf(1);
    ASSERT_EQ(badge(), "2 to check");
    commands().checks().badge().click();
    QListWidget& list = *commands().checks().list();
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.item(1)->text(), "Scene 2: nothing of the name can be seen");
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Down})
        QTest::keyClick(&list, key);
    expectShown(1, 0);
    window().showControl(2, kPad);
    blankNameOf(3);
    ASSERT_EQ(badge(), "3 to check");
    EXPECT_EQ(list.currentRow(), 1);
    expectShown(2, kPad);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(1)).center());
    expectShown(1, 0);
    list.setCurrentRow(2);
    expectShown(3, 0);
    commands().history().steps().undo();
    ASSERT_EQ(badge(), "2 to check");
    EXPECT_EQ(list.currentRow(), 1) << "the last one there is";
}

} // namespace

} // namespace scenewright::testing
