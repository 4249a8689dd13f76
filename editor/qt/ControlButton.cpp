#include "editor/qt/ControlButton.h"

#include "editor/qt/ControlShape.h"
#include "editor/qt/ResourceImage.h"
#include "editor/qt/Text.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <array>

namespace scenewright {

namespace {

constexpr QColor kPlainTitle(214, 219, 226);
constexpr QColor kFocus(255, 255, 255);
constexpr qreal kCaptionMargin = 1;

QColor colourOf(const std::optional<Colour>& colour) {
    return colour ? QColor(colour->red, colour->green, colour->blue) : kPlainTitle;
}

struct Arrow {
    int key;
    int right;
    int down;
};
constexpr std::array<Arrow, 4> kArrows{
    {{Qt::Key_Left, -1, 0}, {Qt::Key_Right, 1, 0}, {Qt::Key_Up, 0, -1}, {Qt::Key_Down, 0, 1}}};

} // namespace

ControlButton::ControlButton(std::int32_t tag, ControlKind kind, QWidget* parent)
    : QAbstractButton(parent), tag_(tag), kind_(kind) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (action_)
            action_();
    });
}

void ControlButton::setImage(const std::optional<std::string>& name) {
    if (image_ == name)
        return;
    image_ = name;
    describe();
    update();
}

void ControlButton::setTitle(const std::string& title) {
    setAttributedTitle({title, std::nullopt});
}

void ControlButton::setAttributedTitle(const AttributedTitle& title) {
    if (title_ == title)
        return;
    title_ = title;
    update();
}

void ControlButton::setNeedsDisplay() {
    update();
}

void ControlButton::setAction(std::function<void()> action) {
    action_ = std::move(action);
}

bool ControlButton::isBlackKey() const {
    return shapeOf(kind_, tag_) == ControlShape::BlackKey;
}

void ControlButton::setLight(const Colour& colour) {
    light_ = colour;
    update();
}

void ControlButton::setLargestCaption(int pixels) {
    largestCaption_ = pixels;
    update();
}

void ControlButton::setSummary(const QString& summary) {
    if (summary_ == summary)
        return;
    summary_ = summary;
    describe();
}

void ControlButton::describe() {
    setAccessibleDescription(image_ ? tr("%1, chosen").arg(summary_) : summary_);
    setToolTip(summary_);
}

QRectF ControlButton::captionRoom() const {
    const QRectF screen = scenewright::captionRoom(shapeOf(kind_, tag_), rect());
    return screen.adjusted(kCaptionMargin, 0, -kCaptionMargin, 0);
}

CaptionSetting ControlButton::captionSetting() const {
    return setCaption(shown(title_.text), captionRoom().size(), font(), largestCaption_);
}

void ControlButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    drawControl(painter, rect(),
                {shapeOf(kind_, tag_), QColor(light_.red, light_.green, light_.blue), isDown(),
                 underMouse() && isEnabled()});
    drawCaption(painter, captionRoom(), shown(title_.text), captionSetting(),
                colourOf(title_.colour));
    if (image_)
        drawResourceImage(painter, imageRoom(shapeOf(kind_, tag_), rect()), *image_);
    if (hasFocus()) {
        painter.setPen(QPen(kFocus, 1.5, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(4, 4, -4, -4), 5, 5);
    }
}

void ControlButton::keyPressEvent(QKeyEvent* event) {
    const auto* arrow = std::ranges::find(kArrows, event->key(), &Arrow::key);
    if (arrow != kArrows.end())
        emit arrowPressed(arrow->right, arrow->down);
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void ControlButton::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    update();
}

void ControlButton::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    update();
}

} // namespace scenewright
