#include "editor/qt/ControlShape.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace scenewright {
namespace {

TEST(Caption, TextThatHasTheRoomIsSetAtTheLargestSize) {
    const auto setting = setCaption("CC#\n74", {200, 100}, QApplication::font(), 14);
    EXPECT_TRUE(setting.fits);
    EXPECT_FALSE(setting.isTurned);
    EXPECT_EQ(setting.font.pixelSize(), 14);
}

TEST(Caption, TextIsSetSmallerUntilItFits) {
    const QSizeF room(captionSize("Momentary", QApplication::font()).width() * 0.75, 30);
    const auto setting = setCaption("Momentary", room, QApplication::font(), 16);
    EXPECT_TRUE(setting.fits);
    EXPECT_FALSE(setting.isTurned);
    EXPECT_LE(captionSize("Momentary", setting.font).width(), room.width());
    EXPECT_GE(setting.font.pixelSize(), kSmallestCaption);
}

TEST(Caption, TextIsTurnedWhereOnlyTheHeightHasRoom) {
    const auto setting = setCaption("Momentary", {24, 110}, QApplication::font(), 12);
    EXPECT_TRUE(setting.fits);
    EXPECT_TRUE(setting.isTurned);
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
}

TEST(Caption, TextWithoutRoomIsSetInTheSmallestLegibleSize) {
    const auto setting = setCaption("Momentary", {10, 10}, QApplication::font(), 12);
    EXPECT_FALSE(setting.fits);
    EXPECT_EQ(setting.font.pixelSize(), kSmallestCaption);
}

TEST(Caption, SizeIsThatOfTheWidestLineAndOfAllLines) {
    const QFont font = QApplication::font();
    EXPECT_EQ(captionSize("CC#\n127", font).height(), 2 * captionSize("CC#", font).height());
    EXPECT_EQ(captionSize("Note\nC", font).width(), captionSize("Note", font).width());
}

} // namespace
} // namespace scenewright
