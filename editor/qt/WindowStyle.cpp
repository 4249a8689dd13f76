// How the style draws and measures the widgets.
#include "editor/qt/Theme.h"

#include <QFrame>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QStyleOption>
#include <QToolButton>

#include <algorithm>
#include <array>
#include <cstdint>

namespace scenewright {

namespace {

constexpr int kFieldHeight = 28; // of popups and lines
constexpr qreal kRadius = 7;
constexpr qreal kSegmentRadius = 6;
constexpr qreal kSegmentsRadius = 9;
constexpr qreal kPanelRadius = 10;
constexpr int kArrowRoom = 22;
constexpr int kTextMargin = 6;
constexpr int kLineMargin = 9;
constexpr QSize kAroundButton(30, 12); // around its text, both sides together
constexpr QSize kAroundSegment(28, 12);
constexpr int kLeastSegment = 84; // its text's room
constexpr int kAroundTip = 4;
constexpr int kIconSide = 12;
constexpr int kListEdge = 6;               // of a list, and what is inside it
constexpr QMargins kAroundBar(6, 2, 6, 2); // around what a menu bar names
constexpr QSize kAroundMenuName(18, 8);
constexpr qreal kMenuNameRadius = 5;
constexpr int kSlimBar = 10; // how wide it is
constexpr int kAroundHandle = 2;
constexpr int kLeastHandle = 28;
constexpr qreal kHandleRadius = 3;

// A rounded box: how it is filled and what its edge is drawn with.
struct Box {
    QBrush fill;
    QColor edge;
    qreal pen = 1;
    qreal radius = kRadius;
};

bool isOpaque(const Box& box) {
    return box.fill.style() == Qt::SolidPattern && box.fill.isOpaque() && box.edge.isValid() &&
           box.edge.alpha() == 255;
}

// A box that hides what is behind it is filled twice, which costs less than to stroke its edge.
void drawBox(QPainter& painter, const QRectF& rect, const Box& box) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal half = box.pen / 2;
    const QRectF line = rect.adjusted(half, half, -half, -half);
    if (isOpaque(box)) {
        fillRounded(painter, rect, box.radius + half, box.edge);
        fillRounded(painter, line.adjusted(half, half, -half, -half), box.radius - half, box.fill);
    } else {
        painter.setPen(box.edge.isValid() ? QPen(box.edge, box.pen) : QPen(Qt::NoPen));
        painter.setBrush(box.fill);
        painter.drawRoundedRect(line, box.radius, box.radius);
    }
    painter.restore();
}

bool has(const QWidget* widget, const char* property) {
    return widget != nullptr && widget->property(property).toBool();
}

// Null for any but a slim scroll bar.
const QStyleOptionSlider* slimBar(const QStyleOption* option, const QWidget* widget) {
    return has(widget, "slim") ? qstyleoption_cast<const QStyleOptionSlider*>(option) : nullptr;
}

// Of a line to type into; the one of a box stands within the box's.
bool hasOwnFrame(const QStyleOption& line) {
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&line);
    return frame == nullptr || frame->lineWidth > 0;
}

bool isFlatFrame(const QStyleOption& option, const QWidget* widget) {
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(&option);
    return frame != nullptr && frame->frameShape == QFrame::StyledPanel &&
           (has(widget, "panel") || has(widget, "segments") || has(widget, "list"));
}

void drawFrame(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const bool isSegments = has(widget, "segments");
    const bool isList = has(widget, "list");
    const bool isChosen = isList && option.state.testFlag(QStyle::State_HasFocus);
    const qreal pen = isChosen ? 2 : 1;
    drawBox(painter, option.rect,
            {.fill = option.palette.brush(isSegments ? QPalette::Button : QPalette::Base),
             .edge = option.palette.color(isChosen ? QPalette::Highlight : QPalette::Mid),
             .pen = pen,
             .radius = isSegments ? kSegmentsRadius : kPanelRadius - (isList ? pen / 2 : 0)});
}

void drawMenuName(const QStyleOptionMenuItem& name, QPainter& painter, const QStyle& style) {
    if (name.state.testFlag(QStyle::State_Selected)) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        fillRounded(painter, name.rect, kMenuNameRadius, name.palette.brush(QPalette::Mid));
        painter.restore();
    }
    int flags = Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextDontClip | Qt::TextSingleLine;
    if (style.styleHint(QStyle::SH_UnderlineShortcut, &name) == 0)
        flags |= Qt::TextHideMnemonic;
    style.drawItemText(&painter, name.rect, flags, name.palette,
                       name.state.testFlag(QStyle::State_Enabled), name.text, QPalette::WindowText);
}

QRect grooveOf(const QStyleOption& bar) {
    return bar.rect.adjusted(kAroundHandle, kAroundHandle, -kAroundHandle, -kAroundHandle);
}

QRect handleOf(const QStyleOptionSlider& bar) {
    QRect handle = grooveOf(bar);
    const int whole = handle.height();
    const std::int64_t range = std::int64_t{bar.maximum} - bar.minimum;
    if (range <= 0)
        return handle;
    const auto share =
        static_cast<int>(std::int64_t{whole} * bar.pageStep / (range + bar.pageStep));
    handle.setHeight(std::min(std::max(share, kLeastHandle), whole));
    handle.translate(0,
                     QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                     whole - handle.height(), bar.upsideDown));
    return handle;
}

// Without buttons at its ends.
QRect slimPart(const QStyleOptionSlider& bar, QStyle::SubControl part) {
    const QRect handle = handleOf(bar);
    if (part == QStyle::SC_ScrollBarGroove)
        return grooveOf(bar);
    if (part == QStyle::SC_ScrollBarSlider)
        return handle;
    if (part == QStyle::SC_ScrollBarSubPage)
        return {bar.rect.topLeft(), QPoint(bar.rect.right(), handle.top() - 1)};
    if (part == QStyle::SC_ScrollBarAddPage)
        return {QPoint(bar.rect.left(), handle.bottom() + 1), bar.rect.bottomRight()};
    return {};
}

void drawSlimBar(const QStyleOptionSlider& bar, QPainter& painter) {
    const bool isHovered = bar.state.testFlag(QStyle::State_MouseOver) &&
                           bar.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
    painter.save();
    painter.fillRect(bar.rect, bar.palette.brush(QPalette::Base));
    painter.setRenderHint(QPainter::Antialiasing);
    fillRounded(painter, handleOf(bar), kHandleRadius,
                bar.palette.brush(isHovered ? QPalette::PlaceholderText : QPalette::Mid));
    painter.restore();
}

// The edge of a field, by whether the keyboard or the pointer is on it.
Box fieldBox(const QStyleOption& option, const QBrush& fill) {
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    if (option.state.testFlag(QStyle::State_HasFocus))
        return {fill, option.palette.color(QPalette::Highlight), 2};
    const bool isHovered = isEnabled && option.state.testFlag(QStyle::State_MouseOver);
    return {fill, option.palette.color(isHovered ? QPalette::PlaceholderText : QPalette::Mid)};
}

Box segmentBox(const QStyleOption& option) {
    Box box{.fill = Qt::NoBrush, .edge = {}, .pen = 2, .radius = kSegmentRadius};
    if (option.state.testFlag(QStyle::State_On))
        box.fill = option.palette.brush(QPalette::Highlight);
    else if (option.state.testFlag(QStyle::State_MouseOver))
        box.fill = option.palette.brush(QPalette::Mid);
    return box;
}

Box buttonBox(const QStyleOption& option, const QWidget* widget) {
    if (has(widget, "segment"))
        return segmentBox(option);
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    if (has(widget, "main") && isEnabled)
        return {option.palette.brush(QPalette::Highlight),
                option.palette.color(QPalette::Highlight)};
    const bool isDown = option.state.testFlag(QStyle::State_Sunken);
    return fieldBox(option, option.palette.brush(isDown ? QPalette::Mid : QPalette::Button));
}

// On the accent's ground: a main button that can be pressed, and the segment that is down.
bool isAccented(const QStyleOption& option, const QWidget* widget) {
    return (has(widget, "main") && option.state.testFlag(QStyle::State_Enabled)) ||
           (has(widget, "segment") && option.state.testFlag(QStyle::State_On));
}

// The ring of a button without an edge of its own: inside it, in the colour of its text.
void drawRing(const QStyleOption& option, QPainter& painter, const QWidget* widget) {
    const QColor colour = option.palette.color(
        isAccented(option, widget) ? QPalette::HighlightedText : QPalette::ButtonText);
    drawBox(painter, QRectF(option.rect).adjusted(2, 2, -2, -2),
            {.fill = Qt::NoBrush, .edge = colour, .pen = 2, .radius = kSegmentRadius - 1});
}

// Filled, which costs less than a line with round ends.
void drawArrow(QPainter& painter, const QRectF& room, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    constexpr std::array kCorners{QPointF(-4.6, -1.5), QPointF(0, 3.7), QPointF(4.6, -1.5),
                                  QPointF(3.4, -2.5),  QPointF(0, 1.3), QPointF(-3.4, -2.5)};
    painter.translate(room.center());
    painter.drawPolygon(kCorners.data(), static_cast<int>(kCorners.size()));
    painter.translate(-room.center());
}

void drawPopUp(const QStyleOptionComboBox& option, QPainter& painter) {
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const QPalette& palette = option.palette;
    drawBox(painter, option.rect,
            fieldBox(option, isEnabled ? palette.brush(QPalette::Button) : QBrush(Qt::NoBrush)));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    drawArrow(painter,
              QRectF(option.rect.right() - kArrowRoom, option.rect.top(), kArrowRoom - 4,
                     option.rect.height()),
              palette.color(isEnabled ? QPalette::Active : QPalette::Disabled, QPalette::Text));
    painter.restore();
}

void drawLine(const QStyleOption& option, QPainter& painter) {
    const bool isReadOnly = option.state.testFlag(QStyle::State_ReadOnly);
    Box box{option.palette.brush(isReadOnly ? QPalette::Button : QPalette::Base),
            option.palette.color(isReadOnly ? QPalette::Button : QPalette::Mid)};
    if (option.state.testFlag(QStyle::State_HasFocus) && !isReadOnly) {
        box.edge = option.palette.color(QPalette::Highlight);
        box.pen = 2;
    }
    drawBox(painter, option.rect, box);
}

void drawTip(const QStyleOption& option, QPainter& painter) {
    painter.save();
    painter.setPen(option.palette.color(QPalette::Mid));
    painter.setBrush(option.palette.brush(QPalette::ToolTipBase));
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

void polishLabel(QLabel& label) {
    const QString role = label.property("role").toString();
    if (role == QLatin1String("heading"))
        label.setForegroundRole(QPalette::Link);
    else if (role == QLatin1String("field") || role == QLatin1String("hint"))
        label.setForegroundRole(QPalette::PlaceholderText);
    else if (!role.isEmpty())
        label.setForegroundRole(role == QLatin1String("trouble") ? QPalette::BrightText
                                                                 : QPalette::WindowText);
}

} // namespace

WindowStyle::WindowStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void WindowStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (auto* label = qobject_cast<QLabel*>(widget))
        polishLabel(*label);
}

void WindowStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const {
    if (element == PE_PanelLineEdit) {
        if (hasOwnFrame(*option))
            drawLine(*option, *painter);
    } else if (element == PE_PanelTipLabel)
        drawTip(*option, *painter);
    else if (element == PE_FrameFocusRect && qobject_cast<const QToolButton*>(widget) != nullptr)
        drawBox(*painter, widget->rect(),
                {.fill = Qt::NoBrush,
                 .edge = option->palette.color(QPalette::ButtonText),
                 .pen = 2,
                 .radius = kSegmentRadius});
    else if (element != PE_FrameFocusRect || qobject_cast<const QPushButton*>(widget) == nullptr)
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void WindowStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    if (element == CE_PushButtonBevel) {
        drawBox(*painter, option->rect, buttonBox(*option, widget));
        if (option->state.testFlag(State_HasFocus) &&
            (has(widget, "segment") || has(widget, "main")))
            drawRing(*option, *painter, widget);
        return;
    }
    if (element == CE_ShapedFrame && isFlatFrame(*option, widget))
        return drawFrame(*option, *painter, widget);
    if (element == CE_MenuBarEmptyArea)
        return;
    const auto* name = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuBarItem && name != nullptr)
        return drawMenuName(*name, *painter, *this);
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element != CE_PushButtonLabel || button == nullptr || !isAccented(*option, widget))
        return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionButton accented = *button;
    accented.palette.setColor(QPalette::ButtonText,
                              option->palette.color(QPalette::HighlightedText));
    QProxyStyle::drawControl(element, &accented, painter, widget);
}

void WindowStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     QPainter* painter, const QWidget* widget) const {
    const auto* popUp = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control == CC_ComboBox && popUp != nullptr)
        drawPopUp(*popUp, *painter);
    else if (const auto* bar = slimBar(option, widget))
        drawSlimBar(*bar, *painter);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

int WindowStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                             const QWidget* widget) const {
    if (metric == PM_ToolTipLabelFrameWidth)
        return kAroundTip;
    if (metric == PM_MenuBarHMargin)
        return kAroundBar.left();
    if (metric == PM_MenuBarVMargin)
        return kAroundBar.top();
    if (metric == PM_MenuBarPanelWidth)
        return 0;
    if (metric == PM_ScrollBarExtent && has(widget, "slim"))
        return kSlimBar;
    if (metric == PM_ButtonShiftHorizontal || metric == PM_ButtonShiftVertical)
        return 0;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int WindowStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* data) const {
    // As a list, not as a menu: only a list keeps to its number of visible entries.
    if (hint == SH_ComboBox_Popup)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QRect WindowStyle::subElementRect(SubElement element, const QStyleOption* option,
                                  const QWidget* widget) const {
    if (element == SE_LineEditContents && hasOwnFrame(*option))
        return option->rect.adjusted(kLineMargin, 0, -kLineMargin, 0);
    if (element == SE_ShapedFrameContents && isFlatFrame(*option, widget))
        return option->rect.marginsRemoved(
            has(widget, "list") ? QMargins(kListEdge, kListEdge, kListEdge, kListEdge)
                                : QMargins(1, 1, 1, 1));
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect WindowStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                  SubControl part, const QWidget* widget) const {
    if (control == CC_ComboBox && part == SC_ComboBoxEditField)
        return option->rect.adjusted(kTextMargin, 0, -kArrowRoom, 0);
    if (const auto* bar = slimBar(option, widget))
        return slimPart(*bar, part);
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize WindowStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                    const QSize& contents, const QWidget* widget) const {
    if (type == CT_PushButton && has(widget, "segment"))
        return contents.expandedTo({kLeastSegment, 0}) + kAroundSegment;
    if (type == CT_PushButton)
        return contents + kAroundButton;
    if (type == CT_MenuBarItem)
        return contents + kAroundMenuName;
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type == CT_ComboBox || type == CT_LineEdit)
        size.setHeight(std::max(size.height(), kFieldHeight));
    return size;
}

// The menu bar asks for its button's icon though it seldom shows it; the toolkit's own one would
// load every image plug-in.
QIcon WindowStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                const QWidget* widget) const {
    if (icon != SP_ToolBarHorizontalExtensionButton)
        return QProxyStyle::standardIcon(icon, option, widget);
    QPixmap drawn(kIconSide, kIconSide);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette palette = widget != nullptr ? widget->palette() : standardPalette();
    drawArrow(painter, drawn.rect(), palette.color(QPalette::WindowText));
    painter.end();
    return QIcon(drawn);
}

} // namespace scenewright
