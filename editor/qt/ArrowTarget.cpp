#include "editor/qt/ArrowTarget.h"

#include "model/Control.h"

#include <cmath>
#include <limits>

namespace scenewright {

namespace {

constexpr qreal kAside = 3; // how much farther a control seems that lies to the side

bool isKey(std::int32_t tag) {
    return tag >= controlRange(ControlKind::Key).start && tag < kControlIndexEnd;
}

// How far `to` is from `from` in the direction; infinite when it does not lie there.
qreal distance(const QRectF& from, const QRectF& to, int right, int down) {
    const QPointF way = to.center() - from.center();
    const qreal along = right != 0 ? way.x() * right : way.y() * down;
    const qreal half = (right != 0 ? from.width() : from.height()) / 2;
    if (along < half)
        return std::numeric_limits<qreal>::infinity();
    return along + kAside * std::abs(right != 0 ? way.y() : way.x());
}

} // namespace

std::int32_t neighbourOf(std::int32_t tag, int right, int down,
                         const std::function<QRectF(std::int32_t)>& place) {
    if (isKey(tag) && right != 0)
        return isKey(tag + right) ? tag + right : tag;
    std::int32_t nearest = tag;
    qreal best = std::numeric_limits<qreal>::infinity();
    for (std::int32_t other = 1; other < kControlIndexEnd; ++other) {
        if (other == tag || (isKey(tag) && isKey(other)))
            continue;
        const qreal far = distance(place(tag), place(other), right, down);
        if (far < best) {
            best = far;
            nearest = other;
        }
    }
    return nearest;
}

} // namespace scenewright
