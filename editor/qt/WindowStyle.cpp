#include "editor/qt/WindowStyle.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>
#include <array>

namespace scenewright {

namespace {

constexpr int kPopUpHeight = 28;
constexpr qreal kRadius = 7;
constexpr int kArrowRoom = 22;
constexpr int kTextMargin = 6;

void drawArrow(QPainter& painter, const QRectF& room, const QColor& colour) {
    const QPointF middle = room.center();
    painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const std::array points{middle + QPointF(-4, -2), middle + QPointF(0, 2.5),
                            middle + QPointF(4, -2)};
    painter.drawPolyline(points.data(), static_cast<int>(points.size()));
}

void drawPopUp(const QStyleOptionComboBox& option, QPainter& painter) {
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const bool hasFocus = option.state.testFlag(QStyle::State_HasFocus);
    const bool isHovered = isEnabled && option.state.testFlag(QStyle::State_MouseOver);
    const QPalette& palette = option.palette;
    const qreal pen = hasFocus ? 2 : 1;
    const QRectF room = QRectF(option.rect).adjusted(pen / 2, pen / 2, -pen / 2, -pen / 2);
    QColor edge = palette.color(QPalette::Mid);
    if (hasFocus)
        edge = palette.color(QPalette::Highlight);
    else if (isHovered)
        edge = palette.color(QPalette::PlaceholderText);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(edge, pen));
    painter.setBrush(isEnabled ? palette.brush(QPalette::Button) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(room, kRadius, kRadius);
    drawArrow(painter,
              QRectF(option.rect.right() - kArrowRoom, option.rect.top(), kArrowRoom - 4,
                     option.rect.height()),
              palette.color(isEnabled ? QPalette::Active : QPalette::Disabled, QPalette::Text));
    painter.restore();
}

} // namespace

WindowStyle::WindowStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void WindowStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     QPainter* painter, const QWidget* widget) const {
    const auto* popUp = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control == CC_ComboBox && popUp != nullptr)
        drawPopUp(*popUp, *painter);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

int WindowStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* data) const {
    // As a list, not as a menu: only a list keeps to its number of visible entries.
    if (hint == SH_ComboBox_Popup)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QRect WindowStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                  SubControl part, const QWidget* widget) const {
    if (control == CC_ComboBox && part == SC_ComboBoxEditField)
        return option->rect.adjusted(kTextMargin, 0, -kArrowRoom, 0);
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize WindowStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                    const QSize& contents, const QWidget* widget) const {
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    if (type == CT_ComboBox)
        size.setHeight(std::max(size.height(), kPopUpHeight));
    return size;
}

} // namespace scenewright
