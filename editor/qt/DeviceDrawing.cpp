#include "editor/qt/DeviceDrawing.h"

#include "model/Control.h"
#include "platform/Resources.h"

#include <QPainter>
#include <fmt/format.h>

namespace scenewright {

namespace {

const QString kBody = QStringLiteral("body");

QString placeName(std::int32_t tag) {
    return QStringLiteral("control-%1").arg(tag);
}

} // namespace

DeviceDrawing::DeviceDrawing() {
    const auto path = Resources::find("keyboard", "svg");
    if (!path) {
        trouble_ = "keyboard.svg: not found among the program's resources";
        return;
    }
    if (!renderer_.load(QString::fromStdString(path->string())))
        trouble_ = fmt::format("{}: not a drawing that can be read", path->string());
    for (std::int32_t tag = 1; tag < kControlIndexEnd && !trouble_; ++tag) {
        // Of an element that is not there, the renderer tells the bounds of the whole drawing.
        if (renderer_.elementExists(placeName(tag)))
            places_[tag] = renderer_.boundsOnElement(placeName(tag));
        if (places_[tag].isEmpty())
            trouble_ = fmt::format("{}: no place for control {}", path->string(), tag);
    }
    if (!trouble_ && !renderer_.elementExists(kBody))
        trouble_ = fmt::format("{}: no body", path->string());
}

QSizeF DeviceDrawing::size() const {
    return renderer_.viewBoxF().size();
}

QRectF DeviceDrawing::place(std::int32_t tag) const {
    const auto found = places_.find(tag);
    return found == places_.end() ? QRectF() : found->second;
}

void DeviceDrawing::drawBody(QPainter& painter, const QRectF& target) {
    if (trouble_ || size().isEmpty())
        return;
    const QRectF bounds = renderer_.boundsOnElement(kBody);
    const qreal scale = target.width() / size().width();
    const QRectF place(target.topLeft() + bounds.topLeft() * scale, bounds.size() * scale);
    renderer_.render(&painter, kBody, place);
}

} // namespace scenewright
