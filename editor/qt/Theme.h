// How the window looks: its colours in light and in dark, the choice between the two, and the style
// that draws with them.
#pragma once

#include <QApplication>
#include <QColor>
#include <QPalette>
#include <QProxyStyle>
#include <QRectF>
#include <QString>

#include <cstdint>

class QBrush;
class QPainter;

namespace scenewright {

struct Theme {
    QColor window; // behind the panels
    QColor panel;
    QColor field; // popups, buttons and lines
    QColor line;
    QColor text;
    QColor muted;
    QColor accent;
    QColor accentText;
    QColor trouble;
};

[[nodiscard]] const Theme& themeOf(bool isDark);

// Whether a palette is that of a dark desktop.
[[nodiscard]] bool isDark(const QPalette& palette);

// Gives the program its style and the light or dark colours. Main thread; may be called again.
void applyTheme(bool isDark);

// The style of the program's widgets: the toolkit's plain one, with flat panels, buttons, lines and
// popups. Menus and the lists that popups open have a sheet besides.
//
// How a widget looks follows from the palette and from properties that are set before it is shown:
// "panel", "segments" or "list" of a frame; "slim" of an upright scroll bar; "main" or "segment" of
// a button; "role" of a label, one of "heading", "field", "hint", "trouble" and "notice".
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

// What the style alone cannot draw.
enum class Sheet : std::uint8_t {
    Menus,   // a menu
    Entries, // the list that a popup opens
    Sliders,
};

// Gives the widget its sheet in the theme's colours, now and whenever the theme changes.
void giveSheet(QWidget& widget, Sheet sheet);

// Light or dark, as the desktop has it or as the user wants it; the user's choice is kept in the
// program's settings. Main thread.
class Appearance {
public:
    enum class Choice : std::uint8_t { System, Light, Dark };

    // Made right after the application, whose palette is still the desktop's then.
    Appearance();

    [[nodiscard]] Choice choice() const { return choice_; }
    void choose(Choice choice);

private:
    void apply();

    bool isSystemDark_;
    Choice choice_;
};

// As QPainter::drawRoundedRect() without a pen, antialiased.
void fillRounded(QPainter& painter, const QRectF& rect, qreal radius, const QBrush& brush);

} // namespace scenewright
