#include "editor/qt/Theme.h"

#include "editor/qt/ProgramSettings.h"
#include "editor/qt/WindowStyle.h"

#include <QApplication>

#include <array>
#include <memory>

namespace scenewright {

namespace {

const Theme kLight{.window = QColor(237, 239, 243),
                   .panel = QColor(255, 255, 255),
                   .field = QColor(246, 247, 249),
                   .line = QColor(208, 213, 221),
                   .text = QColor(24, 28, 34),
                   .muted = QColor(88, 97, 110),
                   .accent = QColor(22, 122, 58),
                   .accentText = QColor(255, 255, 255),
                   .trouble = QColor(163, 62, 8)};

const Theme kDark{.window = QColor(19, 21, 25),
                  .panel = QColor(29, 32, 38),
                  .field = QColor(40, 44, 52),
                  .line = QColor(60, 66, 77),
                  .text = QColor(231, 234, 239),
                  .muted = QColor(157, 166, 179),
                  .accent = QColor(63, 185, 92),
                  .accentText = QColor(8, 20, 12),
                  .trouble = QColor(255, 178, 89)};

// Named colours stand in the sheet as @name.
constexpr auto kSheet = R"(
QMainWindow, QDialog, QWidget#root { background: @window; }
QFrame[panel="true"] { background: @panel; border: 1px solid @line; border-radius: 10px; }
QFrame[segments="true"] { background: @field; border: 1px solid @line; border-radius: 9px; }
QLabel { background: transparent; }
QLabel[role="heading"] { font-weight: 600; color: @text; }
QLabel[role="field"] { color: @muted; }
QLabel[role="hint"] { color: @muted; }
QLabel[role="trouble"] { color: @trouble; }
QPushButton { background: @field; color: @text; border: 1px solid @line; border-radius: 7px;
    padding: 5px 14px; }
QPushButton:hover { border-color: @muted; }
QPushButton:pressed { background: @line; }
QPushButton:focus { border: 2px solid @accent; padding: 4px 13px; }
QPushButton:disabled { color: @faded; }
QPushButton[segment="true"] { background: transparent; border: 2px solid transparent;
    border-radius: 6px; padding: 4px 12px; min-width: 84px; }
QPushButton[segment="true"]:hover { background: @line; }
QPushButton[segment="true"]:checked { background: @accent; color: @accentText; font-weight: 600; }
QPushButton[segment="true"]:focus { border-color: @text; }
QPushButton[main="true"] { background: @accent; color: @accentText; border-color: @accent;
    font-weight: 600; }
QPushButton[main="true"]:focus { border-color: @text; }
QPushButton[main="true"]:disabled { background: @field; color: @faded; border-color: @line; }
QLineEdit { background: @panel; color: @text; border: 1px solid @line; border-radius: 7px;
    padding: 3px 8px; min-height: 20px; selection-background-color: @accent; }
QLineEdit:read-only { background: @field; border-color: @field; }
QLineEdit:focus { border: 2px solid @accent; padding: 2px 7px; }
QListView#controls { background: @panel; border: 1px solid @line; border-radius: 10px;
    padding: 5px; outline: 0; }
QListView#controls:focus { border: 2px solid @accent; padding: 4px; }
QListView#controls::item { padding-left: 8px; border-radius: 6px; color: @text; }
QListView#controls::item:hover { background: @field; }
QListView#controls::item:selected { background: @accent; color: @accentText; }
QComboBox QAbstractItemView { background: @panel; color: @text; border: 1px solid @line;
    padding: 3px; outline: 0; }
QComboBox QAbstractItemView::item { padding-left: 6px; border-radius: 5px; }
QComboBox QAbstractItemView::item:hover { background: @field; }
QComboBox QAbstractItemView::item:selected { background: @accent; color: @accentText; }
QMenuBar { background: @window; color: @text; padding: 2px 6px; }
QMenuBar::item { padding: 4px 9px; border-radius: 5px; background: transparent; }
QMenuBar::item:selected { background: @line; }
QMenu { background: @panel; color: @text; border: 1px solid @line; padding: 5px; }
QMenu::item { padding: 5px 26px 5px 22px; border-radius: 5px; }
QMenu::item:selected { background: @accent; color: @accentText; }
QMenu::item:disabled { color: @faded; background: transparent; }
QMenu::separator { height: 1px; background: @line; margin: 5px 8px; }
QToolTip { background: @panel; color: @text; border: 1px solid @line; padding: 4px; }
QScrollBar:vertical { background: transparent; width: 10px; margin: 2px; }
QScrollBar::handle:vertical { background: @line; border-radius: 3px; min-height: 28px; }
QScrollBar::handle:vertical:hover { background: @muted; }
QScrollBar::add-line, QScrollBar::sub-line { height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QSlider::groove:vertical { background: @line; width: 4px; border-radius: 2px; }
QSlider::add-page:vertical { background: @accent; border-radius: 2px; }
QSlider::handle:vertical { background: @text; height: 14px; margin: 0 -9px; border-radius: 4px; }
QSlider:focus { background: @field; border-radius: 6px; }
)";

QColor between(const QColor& one, const QColor& other) {
    return QColor((one.red() + other.red()) / 2, (one.green() + other.green()) / 2,
                  (one.blue() + other.blue()) / 2);
}

QString styleSheetOf(const Theme& theme) {
    QString sheet = QString::fromLatin1(kSheet);
    const std::array<std::pair<const char*, QColor>, 10> names{{
        // Longer names first, where one begins another.
        {"@accentText", theme.accentText},
        {"@accent", theme.accent},
        {"@faded", between(theme.muted, theme.panel)},
        {"@field", theme.field},
        {"@line", theme.line},
        {"@muted", theme.muted},
        {"@panel", theme.panel},
        {"@text", theme.text},
        {"@trouble", theme.trouble},
        {"@window", theme.window},
    }};
    for (const auto& [name, colour] : names)
        sheet.replace(QLatin1String(name), colour.name());
    return sheet;
}

QPalette paletteOf(const Theme& theme) {
    QPalette palette(theme.text, theme.field, theme.field.lighter(115), theme.line.darker(130),
                     theme.line, theme.text, theme.panel);
    palette.setColor(QPalette::Window, theme.window);
    palette.setColor(QPalette::Base, theme.panel);
    palette.setColor(QPalette::AlternateBase, theme.field);
    palette.setColor(QPalette::PlaceholderText, theme.muted);
    palette.setColor(QPalette::Highlight, theme.accent);
    palette.setColor(QPalette::HighlightedText, theme.accentText);
    palette.setColor(QPalette::ToolTipBase, theme.panel);
    palette.setColor(QPalette::ToolTipText, theme.text);
    palette.setColor(QPalette::Link, theme.accent);
    const QColor faded = between(theme.muted, theme.panel);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faded);
    return palette;
}

const QString kAppearanceKey = QStringLiteral("appearance");

} // namespace

const Theme& themeOf(bool isDark) {
    return isDark ? kDark : kLight;
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

void applyTheme(QApplication& application, bool isDark) {
    const Theme& theme = themeOf(isDark);
    application.setStyleSheet({});
    QApplication::setStyle(std::make_unique<WindowStyle>().release()); // the application owns it
    QApplication::setPalette(paletteOf(theme));
    application.setStyleSheet(styleSheetOf(theme));
}

Appearance::Appearance(QApplication& application)
    : application_(application), isSystemDark_(isDark(QApplication::palette())) {
    const int kept = programSettings().value(kAppearanceKey, 0).toInt();
    choice_ = kept == 1 || kept == 2 ? static_cast<Choice>(kept) : Choice::System;
    apply();
}

void Appearance::choose(Choice choice) {
    choice_ = choice;
    programSettings().setValue(kAppearanceKey, static_cast<int>(choice));
    apply();
}

void Appearance::apply() {
    const bool wantsDark = choice_ == Choice::Dark || (choice_ == Choice::System && isSystemDark_);
    applyTheme(application_, wantsDark);
}

} // namespace scenewright
