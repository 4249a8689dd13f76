// The style of the program's widgets: the toolkit's plain one, with flat panels, buttons, lines and
// popups. Menus and the lists that popups open have a sheet besides (Theme.h).
//
// How a widget looks follows from the palette and from properties that are set before it is shown:
// "panel", "segments" or "list" of a frame; "slim" of an upright scroll bar; "main" or "segment" of
// a button; "role" of a label, one of "heading", "field", "hint", "trouble" and "notice".
#pragma once

#include <QProxyStyle>

namespace scenewright {

class WindowStyle final : public QProxyStyle {
    Q_OBJECT

public:
    WindowStyle();

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                QStyleHintReturn* data) const override;
    [[nodiscard]] QRect subElementRect(SubElement element, const QStyleOption* option,
                                       const QWidget* widget) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                       SubControl part, const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption* option,
                                         const QSize& contents,
                                         const QWidget* widget) const override;
    [[nodiscard]] QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                                     const QWidget* widget) const override;
};

} // namespace scenewright
