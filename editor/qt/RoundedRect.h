// Rectangles with round corners.
#pragma once

#include <QRectF>

class QBrush;
class QPainter;

namespace scenewright {

// As QPainter::drawRoundedRect() without a pen, antialiased.
void fillRounded(QPainter& painter, const QRectF& rect, qreal radius, const QBrush& brush);

} // namespace scenewright
