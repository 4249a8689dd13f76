// The drawing of the keyboard: what its places must be, read from the file itself.
#include "editor/qt/DevicePicture.h"

#include "editor/qt/ControlShape.h"
#include "platform/Resources.h"
#include "tests/support/TempFolder.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace scenewright {
namespace {

QString drawingText() {
    QFile file(QStringLiteral(SCENEWRIGHT_SOURCE_DIR "/resources/keyboard.svg"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList idsOf(const QString& svg) {
    QStringList ids;
    auto found = QRegularExpression(R"(\sid="([^"]*)\")").globalMatch(svg);
    while (found.hasNext())
        ids.append(found.next().captured(1));
    return ids;
}

bool isBlack(std::int32_t tag) {
    return tag >= 21 && shapeOf(ControlKind::Key, tag) == ControlShape::BlackKey;
}

// A black key lies on the white keys beside it, and on nothing else.
bool mayOverlap(std::int32_t one, std::int32_t other) {
    const std::int32_t black = isBlack(one) ? one : other;
    const std::int32_t white = isBlack(one) ? other : one;
    return isBlack(black) && !isBlack(white) && std::abs(black - white) == 1;
}

TEST(KeyboardDrawing, HasABodyAndTheFortyFivePlacesInItOnce) {
    const QStringList ids = idsOf(drawingText());
    EXPECT_EQ(QSet<QString>(ids.begin(), ids.end()).size(), ids.size());
    EXPECT_EQ(ids.filter(QRegularExpression("^control-")).size(), 45);
    QSvgRenderer renderer(drawingText().toUtf8());
    const QRectF body = renderer.boundsOnElement("body");
    const DeviceDrawing drawing;
    EXPECT_EQ(drawing.trouble(), std::nullopt);
    EXPECT_GT(drawing.size().width(), 0);
    for (std::int32_t tag = 1; tag <= 45; ++tag) {
        EXPECT_TRUE(ids.contains(QString("control-%1").arg(tag))) << tag;
        EXPECT_TRUE(body.contains(drawing.place(tag))) << tag;
        if (tag > 21) { // keys stand in the order of their notes
            EXPECT_GT(drawing.place(tag).center().x(), drawing.place(tag - 1).center().x()) << tag;
        }
    }
    EXPECT_TRUE(drawing.place(0).isEmpty());
    EXPECT_TRUE(drawing.place(46).isEmpty());
}

TEST(KeyboardDrawing, PlacesOverlapOnlyWhereABlackKeyLiesOnItsWhiteNeighbours) {
    const DeviceDrawing drawing;
    for (std::int32_t one = 1; one <= 45; ++one)
        for (std::int32_t other = one + 1; other <= 45; ++other)
            EXPECT_EQ(drawing.place(one).intersects(drawing.place(other)), mayOverlap(one, other))
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
        const QSizeF whole = picture.drawing().size();
        const qreal scale = std::min(size.width() / whole.width(), size.height() / whole.height());
        const qreal left = (size.width() - whole.width() * scale) / 2; // it stands in the middle
        const qreal top = (size.height() - whole.height() * scale) / 2;
        for (std::int32_t tag = 1; tag <= 45; ++tag) {
            const QRectF place = picture.drawing().place(tag);
            EXPECT_NEAR(picture.button(tag)->width(), place.width() * scale, 1) << tag;
            EXPECT_NEAR(picture.button(tag)->height(), place.height() * scale, 1) << tag;
            EXPECT_NEAR(picture.button(tag)->x(), left + place.x() * scale, 1) << tag;
            EXPECT_NEAR(picture.button(tag)->y(), top + place.y() * scale, 1) << tag;
        }
    }
}

// A drawing of this text, which stands in that folder from then on.
DeviceDrawing drawingOf(const QString& svg, const testing::TempFolder& folder) {
    struct Elsewhere {
        explicit Elsewhere(const std::filesystem::path& path) { Resources::setFolder(path); }
        ~Elsewhere() { Resources::setFolder({}); }
    };
    std::ofstream(folder.path() / "keyboard.svg") << svg.toStdString();
    const Elsewhere elsewhere(folder.path());
    return {};
}

// The part of a white image that a drawing's body was drawn to.
QRect inkOfBody(DeviceDrawing& drawing, const QRect& target) {
    QImage image(240, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    drawing.drawBody(painter, target);
    painter.end();
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                ink |= QRect(x, y, 1, 1);
    return ink;
}

// What is wrong with a drawing of this text.
std::string troubleOf(const QString& svg) {
    const testing::TempFolder folder;
    DeviceDrawing drawing = drawingOf(svg, folder);
    EXPECT_EQ(inkOfBody(drawing, {0, 0, 240, 100}), QRect()) << "drew of a drawing with a fault";
    const std::string trouble = drawing.trouble().value_or("");
    const std::string place = folder.path().string() + "/keyboard.svg: ";
    return trouble.starts_with(place) ? trouble.substr(place.size()) : trouble;
}

TEST(KeyboardDrawing, BodyStandsWhereTheDrawingHasIt) {
    QString svg = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 100 40">
        <rect id="body" x="20" y="10" width="40" height="20"/>)";
    for (int tag = 1; tag <= kControlCount; ++tag)
        svg += QString(R"(<rect id="control-%1" x="%1" y="0" width="1" height="1"/>)").arg(tag);
    const testing::TempFolder folder;
    DeviceDrawing drawing = drawingOf(svg + "</svg>", folder);
    ASSERT_EQ(drawing.trouble(), std::nullopt);
    EXPECT_EQ(inkOfBody(drawing, {10, 6, 200, 80}), QRect(50, 26, 80, 40));
}

TEST(KeyboardDrawing, WhatIsWrongWithOneIsTold) {
    EXPECT_EQ(troubleOf("nonsense"), "not a drawing that can be read");
    EXPECT_EQ(troubleOf(drawingText().replace("\"control-17\"", "\"other\"")),
              "no place for control 17");
    EXPECT_EQ(troubleOf(drawingText().replace("\"body\"", "\"other\"")), "no body");
}

std::int32_t next(std::int32_t tag, int right, int down) {
    static const DeviceDrawing drawing;
    return neighbourOf(tag, right, down, [](std::int32_t other) { return drawing.place(other); });
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
        EXPECT_EQ(next(row.from, row.right, row.down), row.to) << row.from;
    EXPECT_GE(next(17, 0, 1), 21) << "from the pads down to the keys";
    EXPECT_LT(next(45, 0, -1), 21) << "and back";
}

// Groups, knobs and sliders, and the pads below one another: 1 to 20.
TEST(ArrowTarget, IsWhatAnEyeWouldGoToNext) {
    const auto targets = [](int right, int down) {
        std::string text;
        for (std::int32_t tag = 1; tag <= 20; ++tag)
            text += std::to_string(next(tag, right, down)) + (tag == 20 ? "" : " ");
        return text;
    };
    EXPECT_EQ(targets(-1, 0), "1 2 3 4 1 5 3 7 6 9 10 11 12 13 14 15 12 17 18 19");
    EXPECT_EQ(targets(1, 0), "5 5 7 7 6 9 8 9 10 11 12 13 14 15 16 16 18 19 20 20");
    EXPECT_EQ(targets(0, -1), "1 1 2 3 5 6 5 6 9 10 11 12 13 14 15 16 13 14 15 16");
    EXPECT_EQ(targets(0, 1), "2 3 4 21 7 8 24 26 29 31 32 34 17 18 19 20 37 39 43 45");
    std::string up;
    for (std::int32_t key = 21; key <= 45; ++key)
        up += std::to_string(next(key, 0, -1)) + (key == 45 ? "" : " ");
    EXPECT_EQ(up, "4 4 4 7 7 8 8 9 9 10 10 11 11 12 12 17 17 18 18 18 19 19 19 19 20");
}

TEST(ArrowTarget, EveryControlCanBeReachedWithArrowsAlone) {
    std::vector<std::int32_t> open{1};
    QSet<std::int32_t> reached{1};
    while (!open.empty()) {
        const std::int32_t tag = open.back();
        open.pop_back();
        for (const auto& [right, down] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
            const std::int32_t to = next(tag, right, down);
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
