#include "editor/qt/ControlButton.h"

#include "editor/qt/ControlShape.h"
#include "editor/qt/QtHelpers.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>
#include <QScopedValueRollback>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <utility>

namespace scenewright {

namespace {

// One of the two is seen on whatever ground.
constexpr QColor kFocusOuter(255, 255, 255);
constexpr QColor kFocusInner(8, 12, 18);
constexpr qreal kFocusLine = 2; // the width of each, in device-independent pixels
constexpr qreal kCaptionMargin = 1;
constexpr QColor kDot(255, 190, 60);
constexpr qreal kDotRadius = 4.5;
constexpr qreal kDotPlace = 11;         // from either edge, to its middle
constexpr qreal kWholeDrag = 160;       // device-independent pixels, for the whole travel
constexpr qreal kWholeWheel = 32 * 120; // in the wheel's eighths of a degree, 32 notches

QColor colourOf(const std::optional<Colour>& colour) {
    return colour ? QColor(colour->red, colour->green, colour->blue) : kPlainCaption;
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
    setFocusPolicy(Qt::ClickFocus); // one button of a picture is a stop of the Tab key
    setCursor(Qt::PointingHandCursor);
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (action_ && !plays_)
            action_();
    });
}

void ControlButton::setImage(const std::optional<std::string>& name) {
    if (look_.image == name)
        return;
    look_.image = name;
    describe();
    drawLater();
}

void ControlButton::setTitle(const std::string& title) {
    setAttributedTitle({title, std::nullopt});
}

void ControlButton::setAttributedTitle(const AttributedTitle& title) {
    look_.title = title;
    drawLater();
}

void ControlButton::setNeedsDisplay() {
    drawLater();
}

void ControlButton::drawLater() {
    if (std::exchange(willDraw_, true))
        return;
    QMetaObject::invokeMethod(this, &ControlButton::drawIfChanged, Qt::QueuedConnection);
}

void ControlButton::drawIfChanged() {
    willDraw_ = false;
    if (look_ == drawn_)
        return;
    drawn_ = look_;
    update();
}

void ControlButton::setAction(std::function<void()> action) {
    action_ = std::move(action);
}

void ControlButton::clickWith(Qt::KeyboardModifiers modifiers) {
    const QScopedValueRollback guard(modifiers_, modifiers);
    click();
}

bool ControlButton::isBlackKey() const {
    return shapeOf(kind_, tag_) == ControlShape::BlackKey;
}

void ControlButton::setLight(const Colour& colour) {
    look_.light = colour;
    drawLater();
}

void ControlButton::setPlayed(bool isPlayed) {
    look_.isPlayed = isPlayed;
    drawLater();
}

void ControlButton::setTravel(qreal travel) {
    look_.travel = travel;
    drawLater();
}

void ControlButton::setTaken(bool isTaken) {
    if (look_.isTaken == isTaken)
        return;
    look_.isTaken = isTaken;
    describe();
    drawLater();
}

void ControlButton::setMarked(bool isMarked) {
    if (look_.isMarked == isMarked)
        return;
    look_.isMarked = isMarked;
    describe();
    drawLater();
}

void ControlButton::setLargestCaption(int pixels) {
    look_.largestCaption = pixels;
    drawLater();
}

void ControlButton::setSummary(const QString& summary) {
    if (summary_ == summary)
        return;
    summary_ = summary;
    describe();
}

void ControlButton::describe() {
    const QString summary = look_.isMarked ? tr("%1, not sent").arg(summary_) : summary_;
    setAccessibleDescription(isChosen() ? tr("%1, chosen").arg(summary) : summary);
    setToolTip(summary_);
    if (std::exchange(isToldChosen_, isChosen()) == isChosen())
        return;
    QAccessibleEvent event(this,
                           isChosen() ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    QAccessible::updateAccessibility(&event);
}

QRectF ControlButton::captionRect() const {
    const QRectF screen = scenewright::captionRect(shapeOf(kind_, tag_), rect());
    return screen.adjusted(kCaptionMargin, 0, -kCaptionMargin, 0);
}

// Inside the mark of a chosen key, which has no room for both side by side; where the text is too
// long for that, it keeps its own.
QRectF ControlButton::captionRoom() const {
    const ControlShape shape = shapeOf(kind_, tag_);
    if (!look_.image || shape != ControlShape::WhiteKey)
        return captionRect();
    const QRectF inside =
        imageRoom(shape, rect()).adjusted(kMarkFrame, kMarkFrame, -kMarkFrame, -kMarkFrame);
    const QRectF room = captionRect().intersected(inside);
    const bool fits =
        setCaption(shown(look_.title.text), room.size(), font(), look_.largestCaption).fits;
    return fits ? room : captionRect();
}

CaptionSetting ControlButton::captionSetting() const {
    return setCaption(shown(look_.title.text), captionRoom().size(), font(), look_.largestCaption);
}

QRect ControlButton::captionBox() const {
    const CaptionSetting setting = captionSetting();
    const QSizeF size = captionSize(shown(look_.title.text), setting.font);
    QRectF box(QPointF(), setting.isTurned ? size.transposed() : size);
    box.moveCenter(captionRoom().center());
    return box.toAlignedRect();
}

// The ring is broken where the caption stands, which it would cross in a small picture.
void ControlButton::drawFocus(QPainter& painter) const {
    constexpr qreal kRadius = 5;
    QPainterPath around;
    around.addRect(rect());
    around.addRect(captionBox());
    painter.save();
    painter.setClipPath(around);
    QRectF ring(rect());
    if (look_.image) // inside its frame
        ring = imageRoom(shapeOf(kind_, tag_), ring)
                   .adjusted(kMarkFrame, kMarkFrame, -kMarkFrame, -kMarkFrame);
    painter.setBrush(Qt::NoBrush);
    for (const QColor& colour : {kFocusOuter, kFocusInner}) {
        ring.adjust(kFocusLine / 2, kFocusLine / 2, -kFocusLine / 2, -kFocusLine / 2);
        painter.setPen(QPen(colour, kFocusLine));
        painter.drawRoundedRect(ring, kRadius, kRadius);
        ring.adjust(kFocusLine / 2, kFocusLine / 2, -kFocusLine / 2, -kFocusLine / 2);
    }
    painter.restore();
}

// Of many controls alike, which are at rest most of the time, one image is made. Pads are of many
// colours.
void ControlButton::drawBody(QPainter& painter) const {
    const ControlLook look{shapeOf(kind_, tag_),
                           QColor(look_.light.red, look_.light.green, look_.light.blue),
                           isDown(),
                           underMouse() && isEnabled(),
                           look_.isPlayed,
                           look_.travel};
    const qreal ratio = devicePixelRatio();
    const bool isAtRest = !look.isDown && !look.isHovered && !look.isPlayed && !look.travel;
    if (!isAtRest || kind_ == ControlKind::Pad || ratio != std::floor(ratio))
        return drawControl(painter, rect(), look);
    const QString key = QStringLiteral("control %1 %2 %3 %4")
                            .arg(static_cast<int>(look.shape))
                            .arg(width())
                            .arg(height())
                            .arg(ratio);
    QPixmap image;
    if (!QPixmapCache::find(key, &image)) {
        image = QPixmap(size() * ratio);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::transparent);
        QPainter maker(&image);
        drawControl(maker, rect(), look);
        maker.end();
        QPixmapCache::insert(key, image);
    }
    painter.drawPixmap(0, 0, image);
}

void ControlButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBody(painter);
    if (look_.isTaken && !look_.image)
        drawTaken(painter, shapeOf(kind_, tag_), rect());
    if (hasFocus())
        drawFocus(painter);
    if (look_.image) // its tick lies on the ring
        drawSelected(painter, shapeOf(kind_, tag_), rect());
    // In a small picture the mark's frame reaches into it.
    drawCaption(painter, captionRoom(), shown(look_.title.text), captionSetting(),
                colourOf(look_.title.colour));
    if (look_.isMarked)
        drawDot(painter);
}

// In the upper right corner, inside the mark of a chosen control.
void ControlButton::drawDot(QPainter& painter) const {
    const QPointF centre(width() - kDotPlace, kDotPlace);
    painter.setPen(QPen(kFocusInner, kFocusLine));
    painter.setBrush(kDot);
    painter.drawEllipse(centre, kDotRadius, kDotRadius);
}

bool ControlButton::event(QEvent* event) {
    const auto* input = dynamic_cast<const QInputEvent*>(event);
    const QScopedValueRollback guard(modifiers_, input != nullptr ? input->modifiers()
                                                                  : Qt::KeyboardModifiers());
    return QAbstractButton::event(event);
}

void ControlButton::keyPressEvent(QKeyEvent* event) {
    const auto* arrow = std::ranges::find(kArrows, event->key(), &Arrow::key);
    if (arrow != kArrows.end())
        emit arrowPressed(arrow->right, arrow->down, event->modifiers());
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

bool ControlButton::isTurned() const {
    return plays_ && (kind_ == ControlKind::Knob || kind_ == ControlKind::Slider);
}

void ControlButton::mousePressEvent(QMouseEvent* event) {
    draggedTo_ = event->position().y();
    QAbstractButton::mousePressEvent(event);
}

void ControlButton::mouseMoveEvent(QMouseEvent* event) {
    if (isTurned() && event->buttons().testFlag(Qt::LeftButton))
        emit turned((std::exchange(draggedTo_, event->position().y()) - event->position().y()) /
                    kWholeDrag);
    QAbstractButton::mouseMoveEvent(event);
}

void ControlButton::wheelEvent(QWheelEvent* event) {
    if (!isTurned())
        return QAbstractButton::wheelEvent(event);
    emit turned(event->angleDelta().y() / kWholeWheel);
    event->accept();
}

void ControlButton::enterEvent(QEnterEvent* /*event*/) {
    update();
}

void ControlButton::leaveEvent(QEvent* /*event*/) {
    update();
}

} // namespace scenewright
