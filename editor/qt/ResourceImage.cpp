#include "editor/qt/ResourceImage.h"

#include "platform/Resources.h"

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <array>
#include <cmath>
#include <map>
#include <memory>

namespace scenewright {

namespace {

// Null for an image that is missing or cannot be read.
QSvgRenderer* imageNamed(const std::string& name) {
    static std::map<std::string, std::unique_ptr<QSvgRenderer>> images;
    const auto [entry, isNew] = images.try_emplace(name);
    if (!isNew)
        return entry->second.get();
    const auto path = Resources::find(name, "svg");
    auto image = std::make_unique<QSvgRenderer>();
    if (path && image->load(QString::fromStdString(path->string())))
        entry->second = std::move(image);
    return entry->second.get();
}

QImage rasterised(QSvgRenderer& image, qreal ratio) {
    const QSizeF size = image.viewBoxF().size() * ratio;
    QImage raster(size.toSize(), QImage::Format_ARGB32_Premultiplied);
    raster.fill(Qt::transparent);
    QPainter painter(&raster);
    painter.setRenderHint(QPainter::Antialiasing);
    image.render(&painter);
    return raster;
}

} // namespace

void drawResourceImage(QPainter& painter, const QRectF& target, const std::string& name) {
    QSvgRenderer* image = imageNamed(name);
    if (image == nullptr)
        return;
    const qreal ratio = painter.device()->devicePixelRatio();
    const QImage raster = rasterised(*image, ratio);
    const qreal corner = std::floor(image->viewBoxF().width() / 3);
    const qreal far = raster.width() / ratio - corner;
    const std::array<qreal, 4> from{0, corner * ratio, far * ratio, raster.width() * 1.0};
    const std::array<qreal, 4> across{target.left(), target.left() + corner,
                                      target.right() - corner, target.right()};
    const std::array<qreal, 4> down{target.top(), target.top() + corner, target.bottom() - corner,
                                    target.bottom()};
    const auto cell = [](const auto& x, const auto& y, std::size_t column, std::size_t row) {
        return QRectF(QPointF(x[column], y[row]), QPointF(x[column + 1], y[row + 1]));
    };
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            painter.drawImage(cell(across, down, column, row), raster,
                              cell(from, from, column, row));
}

} // namespace scenewright
