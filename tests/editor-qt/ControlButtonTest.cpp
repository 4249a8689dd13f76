#include "editor/qt/ControlButton.h"

#include "editor/qt/ControlShape.h"
#include "tests/editor-qt/DrawnParts.h"
#include "tests/support/Limits.h"

#include <QApplication>
#include <QEnterEvent>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
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

    [[nodiscard]] QImage seen() { return pad_.grab().toImage(); }

    ControlButton pad_{13, ControlKind::Pad};
    int clicks_ = 0;
};

TEST_F(ControlButtonTest, ClickAndKeysCallItsLastActionAndArrowsAreTold) {
    int former = 0;
    pad_.setAction([&former] { ++former; });
    pad_.setAction([this] { ++clicks_; });
    std::vector<std::pair<int, int>> ways;
    QObject::connect(&pad_, &ControlButton::arrowPressed,
                     [&ways](int right, int down) { ways.emplace_back(right, down); });
    QTest::mouseClick(&pad_, Qt::LeftButton);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Left,
                              Qt::Key_Right, Qt::Key_Up, Qt::Key_Down})
        QTest::keyClick(&pad_, key);
    EXPECT_EQ(clicks_, 4);
    EXPECT_EQ(former, 0);
    EXPECT_EQ(ways, (std::vector<std::pair<int, int>>{{-1, 0}, {1, 0}, {0, -1}, {0, 1}}));
}

TEST_F(ControlButtonTest, TheWheelIsForWhatItStandsInUnlessItIsTurned) {
    for (const auto& [kind, plays] : {std::pair{ControlKind::Pad, true},
                                      {ControlKind::Knob, false},
                                      {ControlKind::Knob, true}}) {
        ControlButton button(1, kind);
        button.setPlays(plays);
        double turned = 0;
        QObject::connect(&button, &ControlButton::turned, [&](double by) { turned += by; });
        QWheelEvent wheel({4, 4}, {4, 4}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&button, &wheel);
        EXPECT_EQ(wheel.isAccepted(), plays && kind == ControlKind::Knob);
        EXPECT_EQ(turned > 0, wheel.isAccepted());
    }
}

TEST_F(ControlButtonTest, PointerOverItIsPlainToSee) {
    EXPECT_EQ(pad_.cursor().shape(), Qt::PointingHandCursor);
    const auto seenWith = [this](bool isUnder) {
        pad_.setAttribute(Qt::WA_UnderMouse, isUnder);
        return seen();
    };
    const QImage alone = seenWith(false);
    EXPECT_NE(seenWith(true), alone);
    EXPECT_EQ(seenWith(false), alone);
    pad_.setEnabled(false);
    EXPECT_EQ(seenWith(true), seenWith(false));
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

TEST_F(ControlButtonTest, IsPaintedWhenWhatIsSeenOfItChangesAndElseNot) {
    const AttributedTitle green{"64", Colour{50, 180, 50}};
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&pad_, testing::kLimitMilliseconds));
    pad_.setImage("selected");
    pad_.setAttributedTitle(green);
    Paints paints(pad_);
    while (paints.take() > 0) // the window may be exposed once more
        continue;
    struct Row {
        const char* name;
        std::function<void()> act;
        int paints;
    };
    QEnterEvent entering(QPointF(4, 4), QPointF(4, 4), QPointF(4, 4));
    QEvent leaving(QEvent::Leave);
    const Row rows[] = {
        {"the pointer comes", [&] { QApplication::sendEvent(&pad_, &entering); }, 1},
        {"the pointer goes", [&] { QApplication::sendEvent(&pad_, &leaving); }, 1},
        {"the image it has", [&] { pad_.setImage("selected"); }, 0},
        {"the title it has", [&] { pad_.setAttributedTitle(green); }, 0},
        {"the text it has",
         [&] {
             pad_.setTitle("64");
             pad_.setAttributedTitle(green);
             pad_.setNeedsDisplay();
         },
         0},
        {"without its colour", [&] { pad_.setTitle("64"); }, 1},
        {"that again", [&] { pad_.setTitle("64"); }, 0},
        {"another title", [&] { pad_.setTitle("65"); }, 1},
        {"no image", [&] { pad_.setImage(std::nullopt); }, 1},
        {"chosen beside another", [&] { pad_.setTaken(true); }, 1},
        {"not sent", [&] { pad_.setMarked(true); }, 1},
        {"lit",
         [&] {
             pad_.setLight({200, 100, 0});
         },
         1},
        {"touched", [&] { pad_.setPlayed(true); }, 1},
        {"turned", [&] { pad_.setTravel(0.5); }, 1},
        {"a larger title", [&] { pad_.setLargestCaption(20); }, 1},
    };
    for (const Row& row : rows) {
        row.act();
        EXPECT_EQ(paints.take(), row.paints) << row.name;
    }
    EXPECT_EQ(pad_.attributedTitle(), (AttributedTitle{"65", std::nullopt}));
    EXPECT_EQ(clicks_, 0);
}

TEST_F(ControlButtonTest, TitleIsSetAsLargeAsItMayBeWhereTheScreenHasTheRoom) {
    pad_.setLargestCaption(12);
    pad_.setTitle("Note\nC2");
    EXPECT_TRUE(pad_.captionSetting().fits);
    EXPECT_EQ(pad_.captionSetting().font.pixelSize(), 12);
}

TEST_F(ControlButtonTest, CaptionIsInItsColourOrInTheUsualOne) {
    // The strongest red and the strongest green, which thin strokes do not reach to the full.
    const auto strongest = [this] {
        const QImage image = seen().copy(
            captionRect(shapeOf(ControlKind::Pad, pad_.tag()), pad_.rect()).toAlignedRect());
        std::pair<int, int> levels;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                levels = {std::max(levels.first, pixel.red()),
                          std::max(levels.second, pixel.green())};
            }
        return levels;
    };
    pad_.setTitle("64");
    EXPECT_GT(strongest().first, 100);
    EXPECT_GT(strongest().second, 100);
    pad_.setAttributedTitle({"64", Colour{50, 180, 50}});
    EXPECT_LT(strongest().first, 100);
    EXPECT_GT(strongest().second, 100);
}

TEST_F(ControlButtonTest, PadShinesInItsColourAndIsUnlitRubberWithoutOne) {
    EXPECT_NE(QColor(seen().pixel(45, 15)), QColor(Qt::black));
    pad_.setLight({200, 100, 0});
    EXPECT_EQ(QColor(seen().pixel(45, 15)), QColor(200, 100, 0));
}

TEST_F(ControlButtonTest, ThatItIsChosenIsPlainToSeeAndSaid) {
    pad_.setLight({255, 255, 255});
    pad_.setSummary("Pad 1: Note C4");
    EXPECT_EQ(pad_.accessibleDescription(), "Pad 1: Note C4");
    const QImage before = seen();
    pad_.setImage("selected");
    EXPECT_EQ(pad_.accessibleDescription(), "Pad 1: Note C4, chosen");
    const QImage after = seen();
    int changed = 0;
    for (int y = 0; y < after.height(); ++y)
        for (int x = 0; x < after.width(); ++x)
            changed += before.pixel(x, y) == after.pixel(x, y) ? 0 : 1;
    EXPECT_GT(changed, after.width() * after.height() / 10);
    pad_.setImage(std::nullopt);
    EXPECT_EQ(seen(), before);
}

// How far from a side of the pad, along the middle of its face, its pixels are others.
int depthOfChange(const QImage& before, const QImage& after, bool fromLeft) {
    const int y = 20;
    int depth = 0;
    for (int step = 0; step < after.width() / 2; ++step) {
        const int x = fromLeft ? step : after.width() - 1 - step;
        if (before.pixel(x, y) != after.pixel(x, y))
            depth = step + 1;
    }
    return depth;
}

// The two lines of the ring, the light and the dark one.
char ringOf(QRgb colour) {
    if ((colour & 0xFFFFFF) == 0xFFFFFF)
        return 'w';
    return (colour & 0xFFFFFF) == 0x080C12 ? 'd' : '.';
}

TEST_F(ControlButtonTest, RingOfTheKeyboardIsAsDeepOnEachSide) {
    pad_.clearFocus();
    const QImage before = seen();
    pad_.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&pad_, testing::kLimitMilliseconds));
    pad_.setFocus(Qt::TabFocusReason);
    const QImage after = seen();
    const int left = depthOfChange(before, after, true);
    EXPECT_GT(left, 2);
    EXPECT_EQ(depthOfChange(before, after, false), left);
    pad_.setLight({200, 100, 0});
    const std::string plain = testing::partsOf(seen(), testing::Along::Row, 20, ringOf);
    EXPECT_EQ(plain, "w2 d2 .83 d2 w2");
    EXPECT_EQ(testing::partsOf(seen(), testing::Along::Column, 20, ringOf), "w2 d2 .80 d2 w2");
    pad_.setImage("selected"); // then inside its frame
    const std::string framed = testing::partsOf(seen(), testing::Along::Row, 20, ringOf);
    EXPECT_NE(framed.find(" w2 d2 ."), std::string::npos) << framed;
}

TEST_F(ControlButtonTest, DotOfWhatIsNotSentStandsInTheUpperRightCorner) {
    pad_.setLight({200, 100, 0});
    const QImage before = seen();
    pad_.setMarked(true);
    const QImage after = seen();
    QRect dot;
    for (int y = 0; y < after.height(); ++y)
        for (int x = 0; x < after.width(); ++x)
            if (before.pixel(x, y) != after.pixel(x, y))
                dot |= QRect(x, y, 1, 1);
    EXPECT_EQ(dot, QRect(pad_.width() - 17, 5, 12, 12));
    EXPECT_EQ(after.pixelColor(pad_.width() - 11, 11), QColor(255, 190, 60));
    EXPECT_LT(after.pixelColor(pad_.width() - 16, 11).lightness(), 60) << "its edge";
}

// Those that are alike share an image, which the first of them makes.
TEST(ControlAtRest, LooksAsItWouldBeDrawnOnTheSpot) {
    const auto image = [](const std::function<void(QImage&)>& draw) {
        QImage drawn(QSize(40, 90), QImage::Format_ARGB32_Premultiplied);
        drawn.fill(Qt::transparent);
        draw(drawn);
        return drawn;
    };
    for (const ControlRange& range : kControlRanges) {
        if (range.kind == ControlKind::Common)
            continue;
        const QImage direct = image([&range](QImage& drawn) {
            QPainter painter(&drawn);
            painter.setRenderHint(QPainter::Antialiasing);
            drawControl(painter, drawn.rect(), {.shape = shapeOf(range.kind, range.start)});
        });
        QPixmapCache::clear();
        for (const std::int32_t tag : {range.start, range.start + (range.count == 25 ? 12 : 1)}) {
            ControlButton button(tag, range.kind);
            button.resize(direct.size());
            const auto seen = [&button](QImage& drawn) { button.render(&drawn, {}, {}, {}); };
            EXPECT_EQ(image(seen), direct) << tag;
            button.setPlayed(true);
            EXPECT_NE(image(seen), direct) << tag;
            button.setPlayed(false);
            button.setAttribute(Qt::WA_UnderMouse);
            EXPECT_NE(image(seen), direct) << tag;
        }
    }
}

TEST_F(ControlButtonTest, CaptionKeepsFromTheEdgesOfItsScreen) {
    const QRectF screen = captionRect(ControlShape::Pad, pad_.rect());
    EXPECT_EQ(pad_.captionRect(), screen.adjusted(1, 0, -1, 0));
}

} // namespace
} // namespace scenewright
