#include "editor/qt/SceneMarks.h"

#include "app/DeviceSession.h"
#include "app/WindowAction.h"
#include "editor/qt/DeviceVerification.h"
#include "tests/editor-qt-files/CommandsBench.h"

#include <QImage>
#include <QTest>

#include <cstdint>
#include <functional>
#include <string>

namespace scenewright::testing {

namespace {

class ChangeMarksTest : public OpenWindow {
protected:
    void edit(std::int32_t scene, std::int32_t control, const char* outlet, std::int32_t value) {
        window().showControl(scene, control);
        pick(outlet, value);
    }
    // The numbers of the scenes with a dot.
    std::string dots() {
        std::string numbers;
        for (int scene = 0; scene < kSceneCount; ++scene) {
            const QAbstractButton& segment = window().scenes().segment(scene);
            const bool isMarked = segment.text().endsWith(QStringLiteral(" •"));
            EXPECT_EQ(segment.accessibleName().endsWith(", not sent"), isMarked);
            if (isMarked)
                numbers += std::to_string(scene + 1);
        }
        return numbers;
    }
    std::string count() {
        const QPushButton& button = window().unsentButton();
        return button.isVisible() ? button.accessibleName().toStdString() : "";
    }
};

TEST_F(ChangeMarksTest, ScenesAndCountFollowWhatTheKeyboardIsKnownToHold) {
    struct Row {
        const char* what;
        std::function<void()> make;
        const char* dots;
        const char* count;
    };
    const Row rows[] = {
        {"edited while nothing is known", [this] { edit(1, kPad, "padCR", 3); }, "", ""},
        {"the keyboard becomes known", [] { KnownKeyboard::set(storedImage(), ""); }, "", ""},
        {"one edit", [this] { edit(1, kPad, "padCR", 4); }, "2", "1 change not sent"},
        {"the same one", [this] { edit(1, kPad, "padCR", 5); }, "2", "1 change not sent"},
        {"in another scene", [this] { edit(3, 1, "groupMIDIChannel", 4); }, "24",
         "2 changes not sent"},
        {"undone", [this] { press(Qt::Key_Z); }, "2", "1 change not sent"},
        {"sent", [] { KnownKeyboard::set(storedImage(), ""); }, "", ""},
        {"again", [this] { edit(1, kPad, "padCR", 6); }, "2", "1 change not sent"},
        {"no longer known", [] { KnownKeyboard::forget(); }, "", ""},
    };
    for (const Row& row : rows) {
        row.make();
        EXPECT_EQ(dots(), row.dots) << row.what;
        EXPECT_EQ(count(), row.count) << row.what;
    }
}

TEST_F(ChangeMarksTest, TheCountComesWithoutMovingAnythingAndOpensTheDifferences) {
    KnownKeyboard::set(storedImage(), "");
    const QRect read = window().readButton().geometry();
    const QRect modes = window().displayModes().geometry();
    edit(0, kPad, "padCR", 3);
    EXPECT_TRUE(window().unsentButton().isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(window().readButton().geometry(), read);
    EXPECT_EQ(window().displayModes().geometry(), modes);
    const QRect count = window().unsentButton().geometry();
    EXPECT_GT(count.left(), modes.right());
    EXPECT_LT(count.right(), read.left());
    EXPECT_NEAR(count.center().y(), read.center().y(), 1);
    QTest::mouseClick(&window().unsentButton(), Qt::LeftButton);
    auto* dialog = window().findChild<DifferenceDialog*>();
    ASSERT_NE(dialog, nullptr);
    ASSERT_EQ(dialog->lines().size(), 1);
    EXPECT_TRUE(dialog->lines()[0].startsWith("Scene 1, Pad 1, Red: "));
    EXPECT_TRUE(dialog->lines()[0].endsWith(" -> 3"));
}

TEST_F(ChangeMarksTest, TheCountHasTheRoomOfManyFromTheStart) {
    UnsentButton button(nullptr);
    const int none = button.sizeHint().width();
    for (const std::size_t count : {1U, 88U}) {
        button.setCount(count);
        EXPECT_EQ(button.sizeHint().width(), none) << count;
        EXPECT_LT(button.minimumSizeHint().width(), none) << count;
    }
    button.setCount(8888);
    EXPECT_GT(button.sizeHint().width(), none);
    EXPECT_TRUE(button.isFlat() && !button.autoDefault());
    EXPECT_EQ(button.toolTip(), "Show in what the window and the keyboard differ");
    button.setCount(0);
    EXPECT_TRUE(button.isHidden());
}

TEST_F(ChangeMarksTest, ThePictureMarksTheControlsOfTheShownSceneIfWanted) {
    ControlButton& pad = button(kPad);
    const auto picture = [&pad] {
        QCoreApplication::processEvents();
        return pad.grab().toImage();
    };
    KnownKeyboard::set(storedImage(), "");
    edit(0, kPad, "padCB", 3);
    window().showControl(0, 0);
    const QImage plain = picture();
    entry("Mark What Is Not Sent").trigger();
    EXPECT_NE(picture(), plain);
    EXPECT_TRUE(pad.isMarked());
    EXPECT_TRUE(pad.accessibleDescription().endsWith(", not sent"));
    EXPECT_FALSE(button(kPad + 1).isMarked());
    press(Qt::Key_2);
    EXPECT_FALSE(pad.isMarked()); // of scene 2
    press(Qt::Key_1);
    EXPECT_TRUE(pad.isMarked());
    entry("Mark What Is Not Sent").trigger();
    EXPECT_EQ(picture(), plain);
}

class SceneChecksTest : public OpenWindow {
protected:
    [[nodiscard]] QString toCheck() {
        QTest::qWait(0);
        return badge().isHidden() ? QString() : badge().text();
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
};

TEST_F(SceneChecksTest, TheBadgeFollowsTheScenesAndTheirUndoAndMovesNothing) {
    EXPECT_EQ(toCheck(), "");
    const QRect before = window().picture().geometry();
    makeConflict();
    EXPECT_EQ(toCheck(), "1 to check");
    EXPECT_EQ(badge().accessibleName(), "1 to check");
    QTest::qWait(0);
    EXPECT_EQ(window().picture().geometry(), before);
    steps().undo();
    EXPECT_EQ(toCheck(), "");
}

TEST_F(SceneChecksTest, ARowOfTheListChoosesItsControl) {
    makeConflict();
    ASSERT_EQ(toCheck(), "1 to check");
    press(Qt::Key_2);
    badge().click();
    auto& list = field<QListWidget>(window(), "To Check");
    ASSERT_EQ(list.count(), 1);
    EXPECT_EQ(list.item(0)->text(),
              "Scene 1, Knob 1, Slider 1: may all send CC 7 Channel Volume on "
              "channel 1");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(0)).center());
    expectShown(0, kKnob);
    steps().undo();
    EXPECT_EQ(toCheck(), "");
    EXPECT_EQ(list.count(), 0);
}

TEST_F(SceneChecksTest, ALongRowIsBrokenIntoLinesRatherThanCutOff) {
    for (std::int32_t control = kKnob; control < kPad; ++control)
        record(control).setCCOrNoteNumber(7);
    window().view().showChosenControl();
    ASSERT_EQ(toCheck(), "1 to check");
    badge().click();
    auto& list = field<QListWidget>(window(), "To Check");
    EXPECT_EQ(list.window()->size(), QSize(560, 320));
    QApplication::processEvents();
    const int oneLine = list.fontMetrics().horizontalAdvance(list.item(0)->text());
    ASSERT_GT(oneLine, list.viewport()->width());
    EXPECT_LE(list.visualItemRect(list.item(0)).width(), list.viewport()->width());
    EXPECT_GE(list.visualItemRect(list.item(0)).height(), 2 * list.fontMetrics().height());
}

TEST_F(SceneChecksTest, AChangeOfTheScenesLeavesTheRowAndWhatIsShown) {
    makeConflict();
    blankNameOf(1);
    ASSERT_EQ(toCheck(), "2 to check");
    badge().click();
    auto& list = field<QListWidget>(window(), "To Check");
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.item(1)->text(), "Scene 2: nothing of the name can be seen");
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Down})
        QTest::keyClick(&list, key);
    expectShown(1, 0);
    window().showControl(2, kPad);
    blankNameOf(3);
    ASSERT_EQ(toCheck(), "3 to check");
    EXPECT_EQ(list.currentRow(), 1);
    expectShown(2, kPad);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(1)).center());
    expectShown(1, 0);
    list.setCurrentRow(2);
    expectShown(3, 0);
    steps().undo();
    ASSERT_EQ(toCheck(), "2 to check");
    EXPECT_EQ(list.currentRow(), 1) << "the last one there is";
}

} // namespace

} // namespace scenewright::testing
