#include "editor/qt/Caption.h"

#include <QApplication>
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
