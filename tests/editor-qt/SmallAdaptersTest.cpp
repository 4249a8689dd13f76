// The adapters of few lines: text fields, panes, segments and sliders.
#include "editor/qt/Adapters.h"

#include <QAbstractButton>
#include <QTest>
#include <gtest/gtest.h>

#include <string>

namespace scenewright {
namespace {

TEST(TextLabel, ShowsATextAsItIs) {
    TextLabel label;
    TextField& field = label;
    field.setText("<b>64/127</b> ü");
    EXPECT_EQ(label.text(), QString::fromUtf8("<b>64/127</b> ü"));
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
}

TEST(TextLabel, NeverTakesKeys) {
    TextLabel label;
    const auto before = label.textInteractionFlags();
    label.setEditable(true);
    EXPECT_EQ(label.textInteractionFlags(), before);
    EXPECT_FALSE(before.testFlag(Qt::TextEditable));
}

TEST(TextLine, LockedLineTakesNoKeys) {
    TextLine line;
    TextField& field = line;
    field.setText("SCENE1");
    field.setEditable(false);
    QTest::keyClicks(&line, "x");
    EXPECT_EQ(line.text(), "SCENE1");
    field.setEditable(true);
    QTest::keyClicks(&line, "x");
    EXPECT_EQ(line.text(), "SCENE1x");
}

TEST(TextLine, ShowsANameOfTheControllerReadably) {
    TextLine line;
    static_cast<TextField&>(line).setText(std::string("LEAD\0\0\0\0\0\0\0\0", 12));
    EXPECT_EQ(line.text(), "LEAD");
    static_cast<TextField&>(line).setText("A\xFF");
    EXPECT_EQ(line.text(), QString::fromUtf8("A\xEF\xBF\xBD"));
}

TEST(TextLine, ShowsTheBeginningOfALockedNameAndIsNoStopOfTheTabKey) {
    TextLine line;
    line.resize(60, line.sizeHint().height());
    static_cast<TextField&>(line).setEditable(false);
    static_cast<TextField&>(line).setText("WWWWWWWWWWWW");
    EXPECT_EQ(line.cursorPosition(), 0);
    EXPECT_FALSE(line.focusPolicy() & Qt::TabFocus);
    static_cast<TextField&>(line).setEditable(true);
    EXPECT_TRUE(line.focusPolicy() & Qt::TabFocus);
}

TEST(PaneFrame, HidesAndShowsItself) {
    PaneFrame pane;
    Pane& face = pane;
    face.setHidden(true);
    EXPECT_TRUE(pane.isHidden());
    face.setHidden(false);
    EXPECT_FALSE(pane.isHidden());
}

class SegmentBarTest : public ::testing::Test {
protected:
    SegmentBarTest() {
        QObject::connect(&bar_, &SegmentBar::chosen, [this] { ++choices_; });
        bar_.show();
    }

    SegmentBar bar_{{"Scene 1", "Scene 2", "Scene 3", "Scene 4"}};
    int choices_ = 0;
};

TEST_F(SegmentBarTest, FirstSegmentIsDownAtFirst) {
    EXPECT_EQ(bar_.selectedSegment(), 0);
    EXPECT_TRUE(bar_.segment(0).isChecked());
}

TEST_F(SegmentBarTest, TheSegmentThatIsDownAloneIsOfTheAccentsColour) {
    bar_.segment(2).click();
    for (int place = 0; place < 4; ++place) {
        const QImage drawn = bar_.segment(place).grab().toImage();
        EXPECT_EQ(drawn.pixelColor(5, drawn.height() / 2) ==
                      bar_.palette().color(QPalette::Highlight),
                  place == 2)
            << place;
    }
}

TEST_F(SegmentBarTest, ClickPutsOneSegmentDownAndTells) {
    QTest::mouseClick(&bar_.segment(2), Qt::LeftButton);
    EXPECT_EQ(bar_.selectedSegment(), 2);
    EXPECT_FALSE(bar_.segment(0).isChecked());
    EXPECT_EQ(choices_, 1);
}

TEST_F(SegmentBarTest, SpaceKeyPutsASegmentDown) {
    QTest::keyClick(&bar_.segment(3), Qt::Key_Space);
    EXPECT_EQ(bar_.selectedSegment(), 3);
    EXPECT_EQ(choices_, 1);
}

TEST_F(SegmentBarTest, TitleChangesTellNothing) {
    bar_.setTitle(1, "2  LEAD");
    EXPECT_EQ(bar_.segment(1).text(), "2  LEAD");
    EXPECT_EQ(choices_, 0);
}

class SliderBarTest : public ::testing::Test {
protected:
    SliderBarTest() {
        QObject::connect(&bar_, &SliderBar::moved, [this] { ++moves_; });
        bar_.resize(20, 180);
        bar_.show();
    }

    SliderBar bar_{3};
    int moves_ = 0;
};

TEST_F(SliderBarTest, CarriesItsTagAndZeroTo127) {
    const Slider& face = bar_;
    EXPECT_EQ(face.tag(), 3);
    EXPECT_EQ(bar_.minimum(), 0);
    EXPECT_EQ(bar_.maximum(), 127);
}

TEST_F(SliderBarTest, ProgramsOwnValueTellsNothing) {
    static_cast<Slider&>(bar_).setValue(64);
    EXPECT_EQ(static_cast<Slider&>(bar_).value(), 64);
    EXPECT_EQ(moves_, 0);
}

TEST_F(SliderBarTest, KeysMoveIt) {
    static_cast<Slider&>(bar_).setValue(64);
    QTest::keyClick(&bar_, Qt::Key_Up);
    EXPECT_EQ(static_cast<Slider&>(bar_).value(), 65);
    EXPECT_EQ(moves_, 1);
}

TEST_F(SliderBarTest, MouseMovesIt) {
    static_cast<Slider&>(bar_).setValue(0);
    QTest::mouseClick(&bar_, Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_GT(static_cast<Slider&>(bar_).value(), 0);
    EXPECT_EQ(moves_, 1);
}

} // namespace
} // namespace scenewright
