#include "editor/qt/DevicePicture.h"

#include "editor/qt/ControlShape.h"
#include "tests/editor-qt/DrawnParts.h"

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QRubberBand>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

namespace scenewright {
namespace {

bool isBlack(std::int32_t tag) {
    return tag >= 21 && shapeOf(ControlKind::Key, tag) == ControlShape::BlackKey;
}

// A black key lies on the white keys beside it, and on nothing else.
bool mayOverlap(std::int32_t one, std::int32_t other) {
    const std::int32_t black = isBlack(one) ? one : other;
    const std::int32_t white = isBlack(one) ? other : one;
    return isBlack(black) && !isBlack(white) && std::abs(black - white) == 1;
}

// The part of a white image that the body was drawn to.
QRect inkOfBody(const QRectF& target) {
    QImage image(240, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    drawBody(painter, target);
    painter.end();
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                ink |= QRect(x, y, 1, 1);
    return ink;
}

// The body's colours; "." is any other.
char nameOfBody(QRgb colour) {
    switch (colour & 0xFFFFFF) {
    case 0xFFFFFF:
        return '_';
    case 0x0A0B0D:
        return 'o'; // outline
    case 0x59626F:
        return 'g'; // glint
    case 0x08090B:
        return 'k'; // the keys' bed
    case 0x7A1F1F:
        return 'f'; // felt
    default:
        break;
    }
    const int red = qRed(colour); // the shell and the wells go from one colour to another
    return red >= 27 && red <= 52 ? 's' : red >= 15 && red <= 25 ? 'w' : '.';
}

TEST(KeyboardDrawing, BodyHasItsWellsAndTheBedOfItsKeys) {
    QImage image(980, 400, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    drawBody(painter, image.rect());
    painter.end();
    using testing::Along;
    struct Line {
        Along which;
        int at;
        const char* parts;
    };
    for (const Line& line :
         {Line{Along::Column, 60, "_2 o2 g1 .1 s9 w198 s7 f3 k166 s7 o2 _2"},
          Line{Along::Row, 2, "_16 .4 s1 w1 o936 w1 s1 .4 _16"},
          Line{Along::Row, 4, "_11 .2 w1 o2 .1 w1 s4 g936 s4 w1 .1 o2 w1 .2 _11"},
          Line{Along::Row, 15,
               "_3 s1 o1 s16 .1 w82 .1 s22 .1 w153 .1 s22 .1 w242 .1 s22 .1 w387 .1 s16 o1 .1 _3"},
          Line{Along::Row, 100, "_2 o2 s9 w100 s6 w171 s6 w260 s6 w405 s9 o2 _2"},
          Line{Along::Row, 221, "_2 o2 s15 .1 f940 .1 s15 o2 _2"},
          Line{Along::Row, 300, "_2 o2 s15 k942 s15 o2 _2"},
          Line{Along::Row, 388, "_4 .1 s1 o1 w1 s15 w2 .2 k926 .2 w2 s15 w1 o1 s1 .1 _4"}})
        EXPECT_EQ(testing::partsOf(image, line.which, line.at, nameOfBody), line.parts) << line.at;
}

TEST(KeyboardDrawing, BodyFillsItsTarget) {
    EXPECT_EQ(inkOfBody({0, 0, 196, 80}), QRect(0, 0, 196, 80));
    EXPECT_EQ(inkOfBody({10, 6, 98, 40}), QRect(10, 6, 98, 40));
}

TEST(KeyboardDrawing, HasThePlacesOfTheFortyFiveControls) {
    struct Row {
        std::int32_t tag;
        QRectF place;
    };
    for (const Row& row :
         {Row{1, {20, 22, 86, 40}}, Row{4, {20, 166, 86, 40}}, Row{5, {126, 22, 75, 88}},
          Row{6, {208, 22, 75, 88}}, Row{7, {126, 118, 75, 88}}, Row{9, {303, 22, 57, 184}},
          Row{12, {492, 22, 57, 184}}, Row{13, {569, 22, 91, 88}}, Row{16, {869, 22, 91, 88}},
          Row{17, {569, 118, 91, 88}}, Row{20, {869, 118, 91, 88}}, Row{21, {25, 224, 60, 160}},
          Row{22, {62, 224, 40, 98}}, Row{32, {397, 224, 60, 160}}, Row{33, {459, 224, 60, 160}},
          Row{43, {815, 224, 40, 98}}, Row{45, {893, 224, 60, 160}}, Row{0, {}}, Row{46, {}}})
        EXPECT_EQ(controlPlace(row.tag), row.place) << row.tag;
    const QRectF body(2, 2, 976, 396);
    for (std::int32_t tag = 1; tag <= 45; ++tag) {
        EXPECT_TRUE(body.contains(controlPlace(tag))) << tag;
        if (tag > 21) { // keys stand in the order of their notes
            EXPECT_GT(controlPlace(tag).center().x(), controlPlace(tag - 1).center().x()) << tag;
        }
    }
}

TEST(KeyboardDrawing, PlacesOverlapOnlyWhereABlackKeyLiesOnItsWhiteNeighbours) {
    for (std::int32_t one = 1; one <= 45; ++one)
        for (std::int32_t other = one + 1; other <= 45; ++other)
            EXPECT_EQ(controlPlace(one).intersects(controlPlace(other)), mayOverlap(one, other))
                << one << " and " << other;
}

TEST(DevicePicture, HasTheProportionsOfTheDrawingWhereItHasAChoice) {
    const DevicePicture picture;
    EXPECT_EQ(picture.sizeHint(), QSize(940, 384));
    EXPECT_EQ(picture.minimumSizeHint(), QSize(504, 206));
    EXPECT_EQ(picture.sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding));
    for (const QSize& size : {picture.sizeHint(), picture.minimumSizeHint()})
        EXPECT_NEAR(size.height(), size.width() * 400.0 / 980, 0.5);
}

TEST(DevicePicture, EachControlFillsItsPlaceHoweverLargeThePictureIs) {
    DevicePicture picture;
    picture.show();
    for (const QSize& size : {QSize(504, 504), QSize(940, 940), QSize(1880, 1000), {1500, 400}}) {
        picture.resize(size);
        QApplication::processEvents();
        const QSizeF whole = kDrawingSize;
        const qreal scale = std::min(size.width() / whole.width(), size.height() / whole.height());
        const qreal left = (size.width() - whole.width() * scale) / 2; // it stands in the middle
        const qreal top = (size.height() - whole.height() * scale) / 2;
        for (std::int32_t tag = 1; tag <= 45; ++tag) {
            const QRectF place = controlPlace(tag);
            EXPECT_NEAR(picture.button(tag)->width(), place.width() * scale, 1) << tag;
            EXPECT_NEAR(picture.button(tag)->height(), place.height() * scale, 1) << tag;
            EXPECT_NEAR(picture.button(tag)->x(), left + place.x() * scale, 1) << tag;
            EXPECT_NEAR(picture.button(tag)->y(), top + place.y() * scale, 1) << tag;
        }
    }
}

TEST(DevicePicture, ABandIsNotDrawnBeforeThePointerIsFarFromWhereItWasPressed) {
    DevicePicture picture;
    picture.resize(940, 384);
    picture.show();
    QTest::mousePress(&picture, Qt::LeftButton, {}, {1, 1});
    QTest::mouseMove(&picture, {QApplication::startDragDistance(), 1});
    EXPECT_EQ(picture.findChild<QRubberBand*>(), nullptr);
    QTest::mouseMove(&picture, {1 + QApplication::startDragDistance(), 1});
    EXPECT_NE(picture.findChild<QRubberBand*>(), nullptr);
}

TEST(DevicePicture, ABandIsOfTheLeftButtonAndLetsGoOfTheControlThatItBeganOn) {
    DevicePicture picture;
    picture.resize(940, 384);
    picture.show();
    QMouseEvent other(QEvent::MouseMove, {300, 200}, {300, 200}, Qt::NoButton, Qt::RightButton, {});
    QApplication::sendEvent(&picture, &other);
    EXPECT_EQ(picture.findChild<QRubberBand*>(), nullptr);
    ControlButton& pad = *picture.button(13);
    QTest::mousePress(&pad, Qt::LeftButton);
    EXPECT_TRUE(pad.isDown());
    QTest::mouseMove(&pad, pad.rect().center() + QPoint(0, QApplication::startDragDistance()));
    EXPECT_NE(picture.findChild<QRubberBand*>(), nullptr);
    EXPECT_FALSE(pad.isDown());
}

TEST(ArrowTarget, KeysGoFromOneSemitoneToTheNextAndPadsAlongTheirRows) {
    struct Row {
        std::int32_t from;
        int right;
        int down;
        std::int32_t to;
    };
    for (const Row& row : {Row{21, 1, 0, 22}, Row{22, 1, 0, 23}, Row{23, -1, 0, 22},
                           Row{21, -1, 0, 21}, Row{45, 1, 0, 45}, Row{21, 0, 1, 21},
                           Row{13, 1, 0, 14}, Row{13, 0, 1, 17}, Row{17, 0, -1, 13}})
        EXPECT_EQ(neighbourOf(row.from, row.right, row.down), row.to) << row.from;
    EXPECT_GE(neighbourOf(17, 0, 1), 21) << "from the pads down to the keys";
    EXPECT_LT(neighbourOf(45, 0, -1), 21) << "and back";
}

// Groups, knobs and sliders, and the pads below one another: 1 to 20.
TEST(ArrowTarget, IsWhatAnEyeWouldGoToNext) {
    const auto targets = [](int right, int down) {
        std::string text;
        for (std::int32_t tag = 1; tag <= 20; ++tag)
            text += std::to_string(neighbourOf(tag, right, down)) + (tag == 20 ? "" : " ");
        return text;
    };
    EXPECT_EQ(targets(-1, 0), "1 2 3 4 1 5 3 7 6 9 10 11 12 13 14 15 12 17 18 19");
    EXPECT_EQ(targets(1, 0), "5 5 7 7 6 9 8 9 10 11 12 13 14 15 16 16 18 19 20 20");
    EXPECT_EQ(targets(0, -1), "1 1 2 3 5 6 5 6 9 10 11 12 13 14 15 16 13 14 15 16");
    EXPECT_EQ(targets(0, 1), "2 3 4 21 7 8 24 26 29 31 32 34 17 18 19 20 37 39 43 45");
    std::string up;
    for (std::int32_t key = 21; key <= 45; ++key)
        up += std::to_string(neighbourOf(key, 0, -1)) + (key == 45 ? "" : " ");
    EXPECT_EQ(up, "4 4 4 7 7 8 8 9 9 10 10 11 11 12 12 17 17 18 18 18 19 19 19 19 20");
}

TEST(ArrowTarget, EveryControlCanBeReachedWithArrowsAlone) {
    std::vector<std::int32_t> open{1};
    QSet<std::int32_t> reached{1};
    while (!open.empty()) {
        const std::int32_t tag = open.back();
        open.pop_back();
        for (const auto& [right, down] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
            const std::int32_t to = neighbourOf(tag, right, down);
            if (!reached.contains(to)) {
                reached.insert(to);
                open.push_back(to);
            }
        }
    }
    EXPECT_EQ(reached.size(), 45);
}

} // namespace
} // namespace scenewright
