#include "editor/qt/ControlButton.h"

#include "editor/qt/ControlShape.h"
#include "tests/support/Limits.h"

#include <QApplication>
#include <QEnterEvent>
#include <QPainter>
#include <QTest>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace scenewright {
namespace {

class ControlButtonTest : public ::testing::Test {
protected:
    ControlButtonTest() {
        pad_.resize(91, 88);
        pad_.setAction([this] { ++clicks_; });
        pad_.show();
    }

    ControlButton pad_{13, ControlKind::Pad};
    int clicks_ = 0;
};

TEST_F(ControlButtonTest, ClickCallsItsAction) {
    QTest::mouseClick(&pad_, Qt::LeftButton);
    EXPECT_EQ(clicks_, 1);
}

TEST_F(ControlButtonTest, NewActionReplacesTheFormer) {
    int others = 0;
    pad_.setAction([&others] { ++others; });
    QTest::mouseClick(&pad_, Qt::LeftButton);
    EXPECT_EQ(clicks_, 0);
    EXPECT_EQ(others, 1);
}

TEST_F(ControlButtonTest, SpaceReturnAndEnterChoose) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(&pad_, key);
    EXPECT_EQ(clicks_, 3);
}

TEST_F(ControlButtonTest, PointerOverItIsPlainToSee) {
    const auto seen = [this](bool isUnder) {
        pad_.setAttribute(Qt::WA_UnderMouse, isUnder);
        return pad_.grab().toImage();
    };
    const QImage alone = seen(false);
    EXPECT_NE(seen(true), alone);
    EXPECT_EQ(seen(false), alone);
    pad_.setEnabled(false);
    EXPECT_EQ(seen(true), seen(false));
}

// Counts how often a widget is painted.
class Paints : public QObject {
public:
    explicit Paints(QWidget& window) : window_(window) { window.installEventFilter(this); }
    // Since the last call, all that is due included: what the toolkit would paint some milliseconds
    // later is painted now.
    int take() {
        QApplication::processEvents();
        QEvent update(QEvent::UpdateRequest);
        QApplication::sendEvent(&window_, &update);
        return std::exchange(count_, 0);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        count_ += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget& window_;
    int count_ = 0;
};

TEST_F(ControlButtonTest, IsPaintedWhenThePointerComesAndGoes) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&pad_, testing::kLimitMilliseconds));
    Paints paints(pad_);
    paints.take();
    QEnterEvent entering(QPointF(4, 4), QPointF(4, 4), QPointF(4, 4));
    QApplication::sendEvent(&pad_, &entering);
    EXPECT_EQ(paints.take(), 1);
    QEvent leaving(QEvent::Leave);
    QApplication::sendEvent(&pad_, &leaving);
    EXPECT_EQ(paints.take(), 1);
}

TEST_F(ControlButtonTest, WhatDoesNotChangeIsNotPaintedAgain) {
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&pad_, testing::kLimitMilliseconds));
    pad_.setImage("selected");
    pad_.setTitle("64");
    Paints paints(pad_);
    while (paints.take() > 0) // the window may be exposed once more
        continue;
    pad_.setImage("selected");
    pad_.setTitle("64");
    EXPECT_EQ(paints.take(), 0);
    pad_.setTitle("65");
    EXPECT_EQ(paints.take(), 1);
    pad_.setImage(std::nullopt);
    EXPECT_EQ(paints.take(), 1);
}

TEST_F(ControlButtonTest, ArrowsAreTold) {
    std::vector<std::pair<int, int>> ways;
    QObject::connect(&pad_, &ControlButton::arrowPressed,
                     [&ways](int right, int down) { ways.emplace_back(right, down); });
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down})
        QTest::keyClick(&pad_, key);
    EXPECT_EQ(ways, (std::vector<std::pair<int, int>>{{-1, 0}, {1, 0}, {0, -1}, {0, 1}}));
    EXPECT_EQ(clicks_, 0);
}

TEST_F(ControlButtonTest, TitleDropsTheColourOfTheFormer) {
    pad_.setAttributedTitle({"CC#\n7", Colour{50, 180, 50}});
    EXPECT_EQ(pad_.attributedTitle(), (AttributedTitle{"CC#\n7", Colour{50, 180, 50}}));
    pad_.setTitle("---");
    EXPECT_EQ(pad_.attributedTitle(), (AttributedTitle{"---", std::nullopt}));
}

TEST_F(ControlButtonTest, TitleIsSetAsLargeAsItMayBeWhereTheScreenHasTheRoom) {
    pad_.setLargestCaption(12);
    pad_.setTitle("Note\nC2");
    EXPECT_TRUE(pad_.captionSetting().fits);
    EXPECT_EQ(pad_.captionSetting().font.pixelSize(), 12);
}

TEST_F(ControlButtonTest, ProgramsOwnChangesCallNoActionBack) {
    pad_.setImage("selected");
    pad_.setTitle("x");
    pad_.setLight({1, 2, 3});
    pad_.setNeedsDisplay();
    EXPECT_EQ(clicks_, 0);
}

TEST_F(ControlButtonTest, PadShinesInItsColour) {
    pad_.setLight({200, 100, 0});
    const QImage image = pad_.grab().toImage();
    EXPECT_EQ(QColor(image.pixel(45, 15)), QColor(200, 100, 0));
}

TEST_F(ControlButtonTest, PadThatIsBlackIsUnlitRubberAndNotBlack) {
    const QImage image = pad_.grab().toImage();
    EXPECT_NE(QColor(image.pixel(45, 15)), QColor(Qt::black));
}

TEST_F(ControlButtonTest, SelectedImageIsPlainToSee) {
    pad_.setLight({255, 255, 255});
    const QImage before = pad_.grab().toImage();
    pad_.setImage("selected");
    const QImage after = pad_.grab().toImage();
    int changed = 0;
    for (int y = 0; y < after.height(); ++y)
        for (int x = 0; x < after.width(); ++x)
            changed += before.pixel(x, y) == after.pixel(x, y) ? 0 : 1;
    EXPECT_GT(changed, after.width() * after.height() / 10);
    pad_.setImage(std::nullopt);
    EXPECT_EQ(pad_.grab().toImage(), before);
}

TEST_F(ControlButtonTest, ChosenControlSaysSo) {
    pad_.setSummary("Pad 1: Note C4");
    EXPECT_EQ(pad_.accessibleDescription(), "Pad 1: Note C4");
    pad_.setImage("selected");
    EXPECT_EQ(pad_.accessibleDescription(), "Pad 1: Note C4, chosen");
}

TEST_F(ControlButtonTest, ImageThatIsMissingDrawsNothing) {
    const QImage before = pad_.grab().toImage();
    pad_.setImage("no-such-image");
    EXPECT_EQ(pad_.grab().toImage(), before);
}

TEST(ControlShape, KeysRunFromCToC) {
    std::string shapes;
    for (std::int32_t tag = 21; tag <= 45; ++tag)
        shapes += shapeOf(ControlKind::Key, tag) == ControlShape::BlackKey ? '#' : '.';
    EXPECT_EQ(shapes, ".#.#..#.#.#..#.#..#.#.#..");
}

TEST(ControlShape, EveryKindHasItsShape) {
    EXPECT_EQ(shapeOf(ControlKind::Group, 1), ControlShape::Group);
    EXPECT_EQ(shapeOf(ControlKind::Knob, 5), ControlShape::Knob);
    EXPECT_EQ(shapeOf(ControlKind::Slider, 9), ControlShape::Slider);
    EXPECT_EQ(shapeOf(ControlKind::Pad, 13), ControlShape::Pad);
}

TEST(ControlShape, CaptionStandsInsideTheControlOnADarkGround) {
    const QRectF room(0, 0, 60, 120);
    for (int shape = 0; shape < 6; ++shape) {
        QImage image(60, 120, QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        drawControl(painter, room, {static_cast<ControlShape>(shape), Qt::white});
        const QRectF caption = captionRect(static_cast<ControlShape>(shape), room);
        EXPECT_TRUE(room.contains(caption)) << shape;
        EXPECT_LT(QColor(image.pixel(caption.center().toPoint())).lightness(), 20) << shape;
    }
}

} // namespace
} // namespace scenewright
