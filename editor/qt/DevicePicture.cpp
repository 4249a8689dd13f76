#include "editor/qt/DevicePicture.h"

#include "editor/ControlDescription.h"
#include "editor/qt/ControlShape.h"
#include "editor/qt/QtHelpers.h"
#include "model/SceneValue.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QRubberBand>

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

constexpr QSize kPictureSize(940, 384);
constexpr QSize kMinSize(504, 206);
constexpr Colour kPreviewTitle{255, 214, 0};

QRect scaled(const QRectF& place, const QRectF& area, qreal scale) {
    const QRectF there(area.topLeft() + place.topLeft() * scale, place.size() * scale);
    return there.toRect();
}

} // namespace

std::int32_t neighbourOf(std::int32_t tag, int right, int down) {
    if (isKey(tag) && right != 0)
        return isKey(tag + right) ? tag + right : tag;
    std::int32_t nearest = tag;
    qreal best = std::numeric_limits<qreal>::infinity();
    for (std::int32_t other = 1; other < kControlIndexEnd; ++other) {
        if (other == tag || (isKey(tag) && isKey(other)))
            continue;
        const qreal far = distance(controlPlace(tag), controlPlace(other), right, down);
        if (far < best) {
            best = far;
            nearest = other;
        }
    }
    return nearest;
}

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
            made.installEventFilter(this);
            connect(&made, &ControlButton::arrowPressed, this,
                    [this, tag](int right, int down, Qt::KeyboardModifiers modifiers) {
                        focusArrowTarget(tag, right, down, modifiers);
                    });
            buttons_.at(static_cast<std::size_t>(tag - 1)) = &made;
        }
    }
    for (ControlButton* made : buttons_)
        if (made->isBlackKey())
            made->raise();
    setTabStop(*buttons_.front());
}

void DevicePicture::setTabStop(ControlButton& stop) {
    if (tabStop_ == &stop)
        return;
    if (tabStop_ != nullptr)
        tabStop_->setFocusPolicy(Qt::ClickFocus);
    tabStop_ = &stop;
    stop.setFocusPolicy(Qt::StrongFocus);
}

bool DevicePicture::eventFilter(QObject* watched, QEvent* event) {
    auto& button = *qobject_cast<ControlButton*>(watched);
    if (event->type() == QEvent::FocusIn)
        setTabStop(button);
    const auto* mouse = dynamic_cast<QMouseEvent*>(event);
    if (mouse != nullptr && !button.plays() && drawBand(*mouse, button)) {
        button.setDown(false); // it was dragged from, not clicked
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void DevicePicture::mousePressEvent(QMouseEvent* event) {
    drawBand(*event, *this);
}

void DevicePicture::mouseMoveEvent(QMouseEvent* event) {
    drawBand(*event, *this);
}

void DevicePicture::mouseReleaseEvent(QMouseEvent* event) {
    drawBand(*event, *this);
}

bool DevicePicture::drawBand(const QMouseEvent& mouse, QWidget& from) {
    const QPoint at = from.mapTo(this, mouse.pos());
    const bool isDrawn = band_ != nullptr && band_->isVisible();
    if (mouse.type() == QEvent::MouseButtonPress && mouse.button() == Qt::LeftButton)
        pressed_ = at;
    if (mouse.type() == QEvent::MouseMove && (mouse.buttons() & Qt::LeftButton) != 0) {
        if (!isDrawn && (at - pressed_).manhattanLength() < QApplication::startDragDistance())
            return false;
        if (band_ == nullptr) {
            band_ = &makeChild<QRubberBand>(QRubberBand::Rectangle, this);
            band_->setAccessibleName(tr("Band around controls"));
        }
        band_->setGeometry(QRect(pressed_, at).normalized());
        band_->show();
        return true;
    }
    if (mouse.type() == QEvent::MouseButtonRelease && isDrawn) {
        band_->hide();
        emit banded(tagsIn(band_->geometry()), mouse.modifiers());
    }
    return false;
}

std::vector<std::int32_t> DevicePicture::tagsIn(const QRect& band) const {
    std::vector<std::int32_t> tags;
    for (const ControlButton* button : buttons_)
        if (button->geometry().intersects(band))
            tags.push_back(button->tag());
    return tags;
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
        const std::string sends = describeOutput(lists, scene, made->tag());
        made->setSummary(shown(describeControl(lists, scene, made->tag()) +
                               (sends.empty() ? "" : "\n" + sends)));
        if (made->image() && !hasKeyboard(*this))
            setTabStop(*made);
        const auto position = static_cast<std::size_t>(made->tag() - 1);
        if (made->kind() == ControlKind::Pad && position < scene.buttonValueArray().size())
            made->setLight(padColour(*scene.buttonValueArray()[position]));
    }
}

void DevicePicture::preview(const PopUpValue& lists, const SceneValue& scene,
                            const std::vector<std::int32_t>& controls, std::int32_t mode) {
    showScene(lists, scene);
    for (const std::int32_t tag : controls) {
        ControlButton& button = *this->button(tag);
        const ButtonValue& record = *scene.buttonValueArray().at(static_cast<std::size_t>(tag) - 1);
        button.setAttributedTitle(
            {displaySummary(lists, button.kind(), record, mode), kPreviewTitle});
    }
}

QSize DevicePicture::sizeHint() const {
    return kPictureSize;
}

QSize DevicePicture::minimumSizeHint() const {
    return kMinSize;
}

QRectF DevicePicture::drawingArea() const {
    const QSizeF size = kDrawingSize.scaled(QSizeF(width(), height()), Qt::KeepAspectRatio);
    return {QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

void DevicePicture::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const QRectF area = drawingArea();
    const qreal scale = area.width() / kDrawingSize.width();
    for (ControlButton* made : buttons_) {
        made->setGeometry(scaled(controlPlace(made->tag()), area, scale));
        made->setLargestCaption(static_cast<int>(std::lround(kLargestCaption * scale)));
    }
}

void DevicePicture::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawBody(painter, drawingArea());
}

void DevicePicture::focusArrowTarget(std::int32_t tag, int right, int down,
                                     Qt::KeyboardModifiers modifiers) {
    const std::int32_t next = neighbourOf(tag, right, down);
    button(next)->setFocus(Qt::OtherFocusReason);
    if ((modifiers & Qt::ShiftModifier) != 0)
        emit extended(next);
}

} // namespace scenewright
