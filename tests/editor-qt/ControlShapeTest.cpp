#include "editor/qt/ControlShape.h"

#include "tests/editor-qt/DrawnParts.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

using testing::Along;
using testing::partsOf;

TEST(ControlShape, EveryKindHasItsShapeAndKeysRunFromCToC) {
    std::string shapes;
    for (std::int32_t tag = 21; tag <= 45; ++tag)
        shapes += shapeOf(ControlKind::Key, tag) == ControlShape::BlackKey ? '#' : '.';
    EXPECT_EQ(shapes, ".#.#..#.#.#..#.#..#.#.#..");
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

TEST(ControlShape, CaptionAndImageStandWhereTheShapeHasRoomForThem) {
    const QRectF room(0, 0, 100, 200);
    struct Row {
        ControlShape shape;
        QRectF caption;
        QRectF image;
    };
    for (const Row& row : {Row{ControlShape::Group, {5, 5, 90, 190}, room},
                           Row{ControlShape::Knob, {5, 111, 90, 84}, room},
                           Row{ControlShape::Slider, {5, 143, 90, 52}, room},
                           Row{ControlShape::Pad, {7.7, 103.06, 84.6, 89.24}, room},
                           Row{ControlShape::WhiteKey, {3.2, 132, 93.6, 58.8}, {0, 126, 100, 74}},
                           Row{ControlShape::BlackKey, {3, 20, 94, 173}, room}}) {
        EXPECT_EQ(captionRect(row.shape, room), row.caption) << static_cast<int>(row.shape);
        EXPECT_EQ(imageRoom(row.shape, room), row.image) << static_cast<int>(row.shape);
    }
    EXPECT_EQ(captionRect(ControlShape::Group, {0, 0, 40, 40}), QRectF(3, 3, 34, 34));
}

TEST(Caption, IsSetAsLargeAsItMayBeThenSmallerThenTurned) {
    const QFont font = QApplication::font();
    const QSizeF small(captionSize("Momentary", font).width() * 0.75, 30);
    struct Row {
        const char* text;
        QSizeF room;
        int largest;
        bool fits;
        bool isTurned;
        int least;
        int most;
        std::optional<int> stretch = std::nullopt; // any
    };
    QFont larger = font;
    larger.setPixelSize(14);
    const auto sizeAt = [&larger](int stretch) {
        larger.setStretch(stretch);
        return captionSize("CC#\n74", larger);
    };
    const QSizeF twoLines = sizeAt(QFont::AnyStretch);
    for (const Row& row :
         {Row{"CC#\n74", {200, 100}, 14, true, false, 14, 14, QFont::AnyStretch},
          Row{"CC#\n74", {200, twoLines.height()}, 14, true, false, 14, 14, QFont::AnyStretch},
          Row{"CC#\n74", {200, twoLines.height() - 1}, 14, true, false, 13, 13, QFont::AnyStretch},
          Row{"CC#\n74", {sizeAt(87).width(), 100}, 14, true, false, 14, 14, 87},
          Row{"CC#\n74", {sizeAt(75).width(), 100}, 14, true, false, 14, 14, 75},
          Row{"Momentary", small, 16, true, false, kSmallestCaption, 15},
          Row{"Momëntary", small, 16, true, false, kSmallestCaption, 15},
          Row{"Momentary", {24, 110}, 12, true, true, kSmallestCaption, 12},
          Row{"Momentary", {10, 10}, 12, false, false, kSmallestCaption, kSmallestCaption}}) {
        const auto setting = setCaption(row.text, row.room, font, row.largest);
        EXPECT_EQ(setting.fits, row.fits) << row.text;
        if (row.fits) {
            const QSizeF size = captionSize(row.text, setting.font);
            EXPECT_LE((row.isTurned ? size.transposed() : size).width(), row.room.width());
            EXPECT_EQ(setting.isTurned, row.isTurned) << row.text;
        }
        EXPECT_GE(setting.font.pixelSize(), row.least);
        EXPECT_LE(setting.font.pixelSize(), row.most);
        EXPECT_EQ(setting.font.stretch(), row.stretch.value_or(setting.font.stretch())) << row.text;
    }
}

TEST(Caption, SizeIsThatOfTheWidestLineAndOfAllLines) {
    const QFont font = QApplication::font();
    EXPECT_EQ(captionSize("CC#\n127", font).height(), 2 * captionSize("CC#", font).height());
    EXPECT_EQ(captionSize("Note\nC", font).width(), captionSize("Note", font).width());
}

// Where the ink of a caption is, drawn into a room of this size.
QRect inkOf(const QString& text, const QSize& room) {
    QImage image(room, QImage::Format_RGB32);
    image.fill(Qt::white);
    const auto setting = setCaption(text, room, QApplication::font(), 12);
    QPainter painter(&image);
    drawCaption(painter, image.rect(), text, setting, Qt::black);
    painter.end();
    QRect ink;
    for (int y = 0; y < room.height(); ++y)
        for (int x = 0; x < room.width(); ++x)
            if (qGray(image.pixel(x, y)) < 128)
                ink |= QRect(x, y, 1, 1);
    return ink;
}

TEST(Caption, TurnedTextIsDrawnUprightInTheMiddle) {
    const QRect lying = inkOf("Momentary", {110, 24});
    const QRect turned = inkOf("Momentary", {24, 110});
    EXPECT_GT(lying.width(), 3 * lying.height());
    EXPECT_GT(turned.height(), 3 * turned.width());
    EXPECT_NEAR(turned.center().y(), 55, 4);
    EXPECT_NEAR(turned.center().x(), 12, 4);
    EXPECT_NEAR(lying.center().x(), 55, 4);
    EXPECT_NEAR(lying.center().y(), 12, 4);
}

QImage drawnOf(const QSize& size, const std::function<void(QPainter&, const QRectF&)>& draw) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    draw(painter, QRectF(QPointF(), size));
    return image;
}

// An upper corner of the frame of a control of that size.
QImage corner(ControlShape shape, const QSize& size, bool isRight) {
    const QImage drawn = drawnOf(size, [shape](QPainter& painter, const QRectF& room) {
        drawSelected(painter, shape, room);
    });
    return drawn.copy(isRight ? size.width() - 25 : 0, 0, 25, 25);
}

TEST(SelectedFrame, KeepsItsCornersInALargerPlace) {
    for (const bool isRight : {false, true})
        EXPECT_EQ(corner(ControlShape::Pad, {60, 60}, isRight),
                  corner(ControlShape::Pad, {240, 130}, isRight));
}

TEST(SelectedFrame, HasABadgeButOnAWhiteKey) {
    const QImage marked = drawnOf({60, 160}, [](QPainter& painter, const QRectF& room) {
        drawSelected(painter, ControlShape::WhiteKey, room);
    });
    EXPECT_EQ(marked.pixelColor(30, 90).alpha(), 0) << "above its part of the key";
    EXPECT_GT(marked.pixelColor(30, 103).alpha(), 0);
    EXPECT_EQ(marked.pixelColor(48, 113).alpha(), 0) << "where a badge would be";
    const QImage badged = corner(ControlShape::BlackKey, {60, 160}, true);
    struct Row {
        QPoint at;
        QColor colour;
    };
    const QColor blue(31, 123, 255);
    for (const Row& row : {Row{{15, 4}, blue}, Row{{15, 15}, blue}, Row{{15, 8}, blue},
                           Row{{13, 11}, Qt::white}, Row{{18, 7}, Qt::white}})
        EXPECT_EQ(badged.pixelColor(row.at), row.colour) << row.at.x() << ' ' << row.at.y();
}

TEST(SelectedFrame, IsLightOutsideAndDarkInside) {
    const QImage left = corner(ControlShape::Pad, {80, 80}, false);
    EXPECT_EQ(left.pixelColor(2, 24), QColor(31, 123, 255));
    EXPECT_EQ(left.pixelColor(0, 24), QColor(Qt::white));
    EXPECT_EQ(left.pixelColor(5, 24), QColor(5, 8, 13));
    EXPECT_EQ(left.pixelColor(7, 24).alpha(), 0);
}

constexpr QRect kWhole(0, 0, 100, 200);

QImage drawingOf(const std::function<void(QPainter&)>& draw) {
    QImage image(kWhole.size(), QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    return image;
}

QImage drawingOf(const ControlLook& look) {
    return drawingOf([&](QPainter& painter) { drawControl(painter, kWhole, look); });
}

// The plain colours of a control; what is not drawn on is "_", and every other colour ".".
char nameOf(QRgb colour) {
    switch (colour & 0xFFFFFF) {
    case 0xFF00FF:
        return '_';
    case 0x0B0E10:
        return 's'; // screen, the ground of the caption
    case 0x1D2025:
        return 't'; // tray
    case 0xE8EBF0:
        return 'm'; // mark
    case 0x23272E:
        return 'p'; // plastic in the dark
    case 0x343942:
        return 'r'; // rubber
    case 0xC4C9D0:
        return 'i'; // ivory in the dark
    case 0x0E1013:
        return 'e'; // ebony in the dark
    case 0xC86400:
        return 'l'; // the light of a pad
    case 0xFFD600:
        return 'y'; // the yellow of what is played
    case 0x1F7BFF:
        return 'c'; // the blue of what is chosen
    case 0xFFFFFF:
        return 'w';
    case 0x000000:
        return 'b';
    default:
        return '.';
    }
}

TEST(ControlDrawing, EachShapeHasItsPartsAndColours) {
    using S = ControlShape;
    struct Section {
        Along along;
        int at;
        const char* parts;
    };
    struct Row {
        const char* name;
        ControlLook look;
        std::vector<Section> sections;
    };
    const QColor light(200, 100, 0);
    for (const Row& row : {
             Row{"group",
                 {.shape = S::Group},
                 {{Along::Row, 100, ".5 s90 .5"}, {Along::Column, 1, "_2 .196 _2"}}},
             Row{"knob",
                 {.shape = S::Knob},
                 {{Along::Row, 55, "t6 .88 t6"},
                  {Along::Row, 30, "t13 .35 m4 .35 t13"},
                  {Along::Row, 150, "t5 s90 t5"},
                  {Along::Column, 1, "_2 .2 t192 .2 _2"}}},
             Row{"knob at its end",
                 {.shape = S::Knob, .travel = 1},
                 {{Along::Row, 82, "t15 .48 m5 .17 t15"}}},
             Row{"slider",
                 {.shape = S::Slider},
                 {{Along::Row, 20, "t48 b4 t48"},
                  {Along::Row, 60, "t22 .56 t22"},
                  {Along::Column, 1, "_2 .2 t192 .2 _2"},
                  {Along::Column, 24, "t13 .2 t28 .2 t14 .28 t15 .2 t28 .2 t9 s52 t5"},
                  {Along::Column, 50, "t13 .2 b44 .13 m1 .13 b46 .2 t9 s52 t5"},
                  {Along::Column, 30, "t13 .2 t28 .2 t14 .13 m1 .15 t14 .2 t28 .2 t9 s52 t5"}}},
             Row{"slider down",
                 {.shape = S::Slider, .travel = 0},
                 {{Along::Column, 50, "t13 .2 b92 .12 m2 .14 t8 s52 t5"}}},
             Row{"slider up",
                 {.shape = S::Slider, .travel = 1},
                 {{Along::Column, 50, "t13 .13 m2 .12 b92 .2 t9 s52 t5"}}},
             Row{"pad",
                 {.shape = S::Pad},
                 {{Along::Row, 50, "p3 r94 p3"},
                  {Along::Column, 50, "p3 r100 .1 s88 .1 r4 p3"},
                  {Along::Column, 1, "_3 .2 p190 .2 _3"},
                  {Along::Column, 4, ".2 p3 .2 r186 .2 p3 .1 _1"}}},
             Row{"lit pad",
                 {.shape = S::Pad, .light = light},
                 {{Along::Row, 50, ".3 l94 .3"},
                  {Along::Column, 50, ".3 l100 .1 s88 .1 l4 .3"},
                  {Along::Column, 1, "_3 .194 _3"}}},
             Row{"white key",
                 {.shape = S::WhiteKey},
                 {{Along::Row, 150, ".4 s92 .4"}, {Along::Row, 198, ".2 i96 .2"}}},
             Row{"black key",
                 {.shape = S::BlackKey},
                 {{Along::Row, 10, "e3 .94 e3"},
                  {Along::Row, 100, "e3 s94 e3"},
                  {Along::Column, 1, ".2 e196 .2"}}},
             Row{"played pad",
                 {.shape = S::Pad, .isPlayed = true},
                 {{Along::Row, 50, "b1 .1 y2 .1 b1 r88 b1 .1 y2 .1 b1"},
                  {Along::Column, 3, "_1 .2 b1 .2 y188 .2 b1 .2 _1"}}},
         })
        for (const Section& section : row.sections)
            EXPECT_EQ(partsOf(drawingOf(row.look), section.along, section.at, nameOf),
                      section.parts)
                << row.name << (section.along == Along::Row ? " row " : " column ") << section.at;
    const QImage taken = drawingOf([](QPainter& painter) { drawTaken(painter, S::Pad, kWhole); });
    EXPECT_EQ(partsOf(taken, Along::Row, 50, nameOf), ".2 c2 .2 _88 .2 c2 .2");
}

TEST(ControlDrawing, WhatThePointerAndTheKeyboardAreOnIsTheWholeOfAnyControl) {
    using S = ControlShape;
    for (const S shape : {S::Group, S::Knob, S::Slider, S::Pad, S::WhiteKey, S::BlackKey}) {
        const QImage plain = drawingOf({.shape = shape, .travel = 0.3});
        const QImage hovered = drawingOf({.shape = shape, .isHovered = true, .travel = 0.3});
        const QImage played = drawingOf({.shape = shape, .isPlayed = true, .travel = 0.3});
        for (const QPoint& place :
             {QPoint(3, 100), QPoint(96, 100), QPoint(50, 3), QPoint(50, 196)}) {
            EXPECT_NE(hovered.pixel(place), plain.pixel(place)) << static_cast<int>(shape);
            EXPECT_EQ(nameOf(played.pixel(place)), 'y') << static_cast<int>(shape);
        }
    }
}

TEST(ControlDrawing, ShadesGoFromOneColourToTheOther) {
    using S = ControlShape;
    struct Row {
        const char* name;
        ControlLook look;
        QPoint place;
        QColor colour;
    };
    const QColor light(200, 100, 0);
    for (const Row& row : {
             Row{"group", {.shape = S::Group}, {50, 1}, "#3b424d"},
             Row{"group", {.shape = S::Group}, {50, 198}, "#23272e"},
             Row{"group down", {.shape = S::Group, .isDown = true}, {50, 1}, "#23272e"},
             Row{"knob", {.shape = S::Knob}, {37, 38}, "#586373"},
             Row{"knob", {.shape = S::Knob}, {74, 80}, "#2d323b"},
             Row{"slider", {.shape = S::Slider}, {30, 60}, "#505a69"},
             Row{"slider", {.shape = S::Slider}, {30, 83}, "#262b32"},
             Row{"shadow of a slider", {.shape = S::Slider}, {30, 85}, "#111316"},
             Row{"mark beside a slider", {.shape = S::Slider}, {26, 14}, "#383a3d"},
             Row{"rim of a lit pad", {.shape = S::Pad, .light = light}, {1, 50}, "#7d3f00"},
             Row{"lit pad down",
                 {.shape = S::Pad, .light = light, .isDown = true},
                 {50, 20},
                 "#994c00"},
             Row{"white key", {.shape = S::WhiteKey}, {50, 1}, "#c4c9d0"},
             Row{"white key", {.shape = S::WhiteKey}, {1, 190}, "#e7e9ed"},
             Row{"white key", {.shape = S::WhiteKey}, {50, 195}, "#e8eaed"},
             Row{"rim of a white key", {.shape = S::WhiteKey}, {50, 196}, "#c4c9d0"},
             Row{"white key down", {.shape = S::WhiteKey, .isDown = true}, {50, 198}, "#e9ebee"},
             Row{"its rim", {.shape = S::WhiteKey, .isDown = true}, {50, 199}, "#c4c9d0"},
             Row{"black key", {.shape = S::BlackKey}, {50, 1}, "#0e1013"},
             Row{"black key", {.shape = S::BlackKey}, {50, 19}, "#111316"},
             Row{"rim of a black key", {.shape = S::BlackKey}, {50, 193}, "#0e1013"},
             Row{"black key down", {.shape = S::BlackKey, .isDown = true}, {50, 196}, "#282c33"},
             Row{"its rim", {.shape = S::BlackKey, .isDown = true}, {50, 197}, "#0e1013"},
             Row{"hovered pad", {.shape = S::Pad, .isHovered = true}, {50, 20}, "#494d55"},
         }) {
        const QColor seen = drawingOf(row.look).pixelColor(row.place);
        EXPECT_LE(std::abs(seen.red() - row.colour.red()), 1)
            << row.name << ' ' << seen.name().toStdString();
        EXPECT_LE(std::abs(seen.green() - row.colour.green()), 1) << row.name;
        EXPECT_LE(std::abs(seen.blue() - row.colour.blue()), 1) << row.name;
    }
}

// Where the light line stands on a knob or slider, seen from the middle of its place.
QPointF lineOf(ControlShape shape, qreal travel) {
    QImage image(120, 160, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    drawControl(painter, image.rect(), {.shape = shape, .travel = travel});
    QPointF sum;
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) > 200) {
                sum += QPointF(x, y);
                ++count;
            }
    EXPECT_GT(count, 0) << "no line";
    return sum / std::max(count, 1) - QPointF(60, 0);
}

TEST(ControlDrawing, KnobTurnsFromTheLowerLeftOverTheTopAndSliderGoesUp) {
    const QPointF first = lineOf(ControlShape::Knob, 0);
    const QPointF middle = lineOf(ControlShape::Knob, 0.5);
    const QPointF last = lineOf(ControlShape::Knob, 1);
    EXPECT_LT(first.x(), -5);
    EXPECT_NEAR(last.x(), -first.x(), 2);
    EXPECT_NEAR(middle.x(), 0, 1);
    EXPECT_NEAR(first.y(), last.y(), 1);
    EXPECT_LT(middle.y(), first.y() - 30);

    EXPECT_NEAR(lineOf(ControlShape::Slider, 0).x(), 0, 1);
    EXPECT_LT(lineOf(ControlShape::Slider, 1).y(), lineOf(ControlShape::Slider, 0.5).y() - 20);
    EXPECT_LT(lineOf(ControlShape::Slider, 0.5).y(), lineOf(ControlShape::Slider, 0).y() - 20);
}

} // namespace
} // namespace scenewright
