#include "editor/qt/RoundedRect.h"

#include <QBrush>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace scenewright {

namespace {

constexpr qreal kLeastMiddle = 8; // rows that are worth a call of their own
// How far a curve's inner point lies from its end for a quarter of a circle of radius 1.
constexpr qreal kArc = 0.5522847498;

// The rows between `rect`'s two ends whose edges are straight, whole pixels only; empty where they
// are few, or not the painter's own pixels.
QRectF straightPart(const QPainter& painter, const QRectF& rect, qreal radius) {
    const QTransform& toDevice = painter.deviceTransform();
    const bool isOnPixels = painter.paintEngine()->type() == QPaintEngine::Raster &&
                            toDevice.type() <= QTransform::TxTranslate &&
                            toDevice.dy() == std::floor(toDevice.dy());
    const qreal top = std::ceil(rect.top() + radius);
    const qreal bottom = std::floor(rect.bottom() - radius);
    if (!isOnPixels || bottom - top < kLeastMiddle)
        return {};
    return {rect.left(), top, rect.width(), bottom - top};
}

// From the edge `y` outwards to `far`, which is above or below it and has round corners.
void addEnd(QPainterPath& path, const QRectF& rect, const QSizeF& round, qreal y, qreal far) {
    const qreal down = far < y ? round.height() : -round.height();
    const qreal pull = (1 - kArc) * round.width();
    const qreal pullDown = (1 - kArc) * down;
    path.moveTo(rect.left(), y);
    path.lineTo(rect.left(), far + down);
    path.cubicTo(rect.left(), far + pullDown, rect.left() + pull, far, rect.left() + round.width(),
                 far);
    path.lineTo(rect.right() - round.width(), far);
    path.cubicTo(rect.right() - pull, far, rect.right(), far + pullDown, rect.right(), far + down);
    path.lineTo(rect.right(), y);
    path.closeSubpath();
}

} // namespace

// Antialiasing costs by the row. Where both edges are straight there is nothing to smooth, and most
// rows of most boxes are such: they are one plain rectangle.
void fillRounded(QPainter& painter, const QRectF& rect, qreal radius, const QBrush& brush) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    const QSizeF round(std::min(radius, rect.width() / 2), std::min(radius, rect.height() / 2));
    const QRectF straight = straightPart(painter, rect, round.height());
    if (straight.isEmpty()) {
        painter.drawRoundedRect(rect, radius, radius);
        return;
    }
    QPainterPath ends;
    addEnd(ends, rect, round, straight.top(), rect.top());
    addEnd(ends, rect, round, straight.bottom(), rect.bottom());
    painter.drawPath(ends);
    painter.fillRect(straight, brush);
}

} // namespace scenewright
