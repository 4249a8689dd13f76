#include "editor/qt/DevicePicture.h"

#include "editor/ControlDescription.h"
#include "editor/qt/ArrowTarget.h"
#include "editor/qt/Owned.h"
#include "editor/qt/Text.h"

#include <QPainter>

#include <cmath>

namespace scenewright {

namespace {

constexpr QSize kPictureSize(940, 384);
constexpr QSize kMinSize(620, 254);
constexpr qreal kCaption = 12.5; // in the drawing's units

QRect scaled(const QRectF& place, const QRectF& area, qreal scale) {
    const QRectF there(area.topLeft() + place.topLeft() * scale, place.size() * scale);
    return there.toRect();
}

} // namespace

DevicePicture::DevicePicture(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    makeButtons();
}

void DevicePicture::makeButtons() {
    for (const ControlRange& range : kControlRanges) {
        if (range.kind == ControlKind::Common)
            continue;
        for (std::int32_t tag = range.start; tag < range.end(); ++tag) {
            auto& made = makeChild<ControlButton>(tag, range.kind, this);
            made.setAccessibleName(shown(controlName(tag)));
            connect(&made, &ControlButton::arrowPressed, this,
                    [this, tag](int right, int down) { focusArrowTarget(tag, right, down); });
            buttons_.at(static_cast<std::size_t>(tag - 1)) = &made;
        }
    }
    for (ControlButton* made : buttons_)
        if (made->isBlackKey())
            made->raise();
}

Button* DevicePicture::viewWithTag(std::int32_t tag) {
    return button(tag);
}

ControlButton* DevicePicture::button(std::int32_t tag) const {
    return tag < 1 || tag > kControlCount ? nullptr
                                          : buttons_.at(static_cast<std::size_t>(tag - 1));
}

void DevicePicture::showScene(const PopUpValue& lists, const SceneValue& scene) {
    for (ControlButton* made : buttons_) {
        made->setSummary(shown(describeControl(lists, scene, made->tag())));
        const auto position = static_cast<std::size_t>(made->tag() - 1);
        if (made->kind() == ControlKind::Pad && position < scene.buttonValueArray().size())
            made->setLight(padColour(*scene.buttonValueArray()[position]));
    }
}

QSize DevicePicture::sizeHint() const {
    return kPictureSize;
}

QSize DevicePicture::minimumSizeHint() const {
    return kMinSize;
}

QRectF DevicePicture::drawingArea() const {
    const QSizeF size = drawing_.size().scaled(QSizeF(width(), height()), Qt::KeepAspectRatio);
    return {QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

void DevicePicture::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const QRectF area = drawingArea();
    const qreal scale = drawing_.size().isEmpty() ? 0 : area.width() / drawing_.size().width();
    for (ControlButton* made : buttons_) {
        made->setGeometry(scaled(drawing_.place(made->tag()), area, scale));
        made->setLargestCaption(static_cast<int>(std::lround(kCaption * scale)));
    }
}

void DevicePicture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing_.drawBody(painter, drawingArea());
}

void DevicePicture::focusArrowTarget(std::int32_t tag, int right, int down) {
    const std::int32_t next =
        neighbourOf(tag, right, down, [this](std::int32_t other) { return drawing_.place(other); });
    button(next)->setFocus(Qt::OtherFocusReason);
}

} // namespace scenewright
