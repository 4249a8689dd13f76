// The colours of the window in light and in dark, and everything that follows from them.
#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

class QApplication;

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
void applyTheme(QApplication& application, bool isDark);

} // namespace scenewright
