// The colours of the window in light and in dark, everything that follows from them, the choice
// between the two, and the round corners that they fill.
#pragma once

#include <QApplication>
#include <QColor>
#include <QPalette>
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
