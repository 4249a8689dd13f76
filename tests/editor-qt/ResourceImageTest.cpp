#include "editor/qt/ControlShape.h"
#include "platform/Diagnostics.h"

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace scenewright {
namespace {

TEST(ResourceImage, AtItsOwnSizeIsTheDrawingItself) {
    QSvgRenderer drawing(QStringLiteral(SCENEWRIGHT_SOURCE_DIR "/resources/selected.svg"));
    const QSize size = drawing.viewBox().size();
    QImage expected(size, QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    QPainter direct(&expected);
    drawing.render(&direct, QRectF(QPointF(), size));
    direct.end();
    QImage drawn(size, QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    drawResourceImage(painter, QRectF(QPointF(), size), "selected");
    painter.end();
    EXPECT_EQ(drawn, expected);
}

TEST(ResourceImage, CornersKeepTheirSizeInALargerPlace) {
    QSvgRenderer drawing(QStringLiteral(SCENEWRIGHT_SOURCE_DIR "/resources/selected.svg"));
    const int corner = drawing.viewBox().width() / 3;
    const auto drawn = [](const QSize& size) {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        drawResourceImage(painter, QRectF(QPointF(), size), "selected");
        return image;
    };
    const QSize small = drawing.viewBox().size();
    EXPECT_EQ(drawn(small * 4).copy(0, 0, corner, corner), drawn(small).copy(0, 0, corner, corner));
}

TEST(ResourceImage, ImageThatIsMissingDrawsNothingAndLogsNothing) {
    std::vector<std::string> log;
    Diagnostics::setLog([&log](std::string_view line) { log.emplace_back(line); });
    QImage drawn(20, 20, QImage::Format_ARGB32_Premultiplied);
    drawn.fill(Qt::transparent);
    const QImage before = drawn;
    QPainter painter(&drawn);
    drawResourceImage(painter, QRectF(0, 0, 20, 20), "no-such-image");
    painter.end();
    Diagnostics::setLog({});
    EXPECT_EQ(drawn, before);
    EXPECT_EQ(log, std::vector<std::string>{});
}

} // namespace
} // namespace scenewright
