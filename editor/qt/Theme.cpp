#include "editor/qt/Theme.h"

#include "editor/qt/QtHelpers.h"

#include <QApplication>
#include <QBrush>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>
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

// Named colours stand in the sheets as @name.
constexpr auto kMenuSheet = R"(
QMenu { background: @panel; color: @text; border: 1px solid @line; padding: 5px; }
QMenu::item { padding: 5px 26px 5px 22px; border-radius: 5px; }
QMenu::item:selected { background: @accent; color: @accentText; }
QMenu::item:disabled { color: @faded; background: transparent; }
QMenu::separator { height: 1px; background: @line; margin: 5px 8px; }
)";

constexpr auto kEntriesSheet = R"(
QListView { background: @panel; color: @text; border: 1px solid @line; padding: 3px; outline: 0; }
QListView::item { padding-left: 6px; border-radius: 5px; }
QListView::item:hover { background: @field; }
QListView::item:selected { background: @accent; color: @accentText; }
QScrollBar:vertical { background: transparent; width: 10px; margin: 2px; }
QScrollBar::handle:vertical { background: @line; border-radius: 3px; min-height: 28px; }
QScrollBar::handle:vertical:hover { background: @muted; }
QScrollBar::add-line, QScrollBar::sub-line { height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
)";

constexpr auto kSliderSheet = R"(
QSlider::groove:vertical { background: @line; width: 4px; border-radius: 2px; }
QSlider::add-page:vertical { background: @accent; border-radius: 2px; }
QSlider::handle:vertical { background: @text; height: 14px; margin: 0 -9px; border-radius: 4px; }
QSlider { border: 2px solid transparent; border-radius: 6px; }
QSlider:focus { background: @field; border-color: @accent; }
)";

constexpr const char* kSheetProperty = "sheet";

QString textOf(Sheet sheet) {
    switch (sheet) {
    case Sheet::Menus:
        return QString::fromLatin1(kMenuSheet);
    case Sheet::Entries:
        return QString::fromLatin1(kEntriesSheet);
    case Sheet::Sliders:
        return QString::fromLatin1(kSliderSheet);
    }
    return {};
}

QColor between(const QColor& one, const QColor& other) {
    return QColor((one.red() + other.red()) / 2, (one.green() + other.green()) / 2,
                  (one.blue() + other.blue()) / 2);
}

QString coloured(QString sheet, const Theme& theme) {
    const std::array<std::pair<const char*, QColor>, 9> names{{
        // Longer names first, where one begins another.
        {"@accentText", theme.accentText},
        {"@accent", theme.accent},
        {"@faded", between(theme.muted, theme.panel)},
        {"@field", theme.field},
        {"@line", theme.line},
        {"@muted", theme.muted},
        {"@panel", theme.panel},
        {"@text", theme.text},
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
    palette.setColor(QPalette::BrightText, theme.trouble);
    const QColor faded = between(theme.muted, theme.panel);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faded);
    return palette;
}

const QString kAppearanceKey = QStringLiteral("appearance");

constexpr qreal kLeastMiddle = 8; // rows that are worth a call of their own
// How far a curve's inner point lies from its end for a quarter of a circle of radius 1.
constexpr qreal kArc = 0.5522847498;

// The rows between `rect`'s two ends whose edges are straight, whole pixels only; empty where they
// are few, or not the painter's own pixels.
QRectF straightPart(const QPainter& painter, const QRectF& rect, qreal radius) {
    const QTransform& toDevice = painter.deviceTransform();
    const bool isOnPixels = painter.paintEngine()->type() == QPaintEngine::Raster &&
                            toDevice.type() <= QTransform::TxTranslate &&
                            toDevice.dy() == std::floor(toDevice.dy());
    const qreal top = std::ceil(rect.top() + radius);
    const qreal bottom = std::floor(rect.bottom() - radius);
    if (!isOnPixels || bottom - top < kLeastMiddle)
        return {};
    return {rect.left(), top, rect.width(), bottom - top};
}

// From the edge `y` outwards to `far`, which is above or below it and has round corners.
void addEnd(QPainterPath& path, const QRectF& rect, const QSizeF& round, qreal y, qreal far) {
    const qreal down = far < y ? round.height() : -round.height();
    const qreal pull = (1 - kArc) * round.width();
    const qreal pullDown = (1 - kArc) * down;
    path.moveTo(rect.left(), y);
    path.lineTo(rect.left(), far + down);
    path.cubicTo(rect.left(), far + pullDown, rect.left() + pull, far, rect.left() + round.width(),
                 far);
    path.lineTo(rect.right() - round.width(), far);
    path.cubicTo(rect.right() - pull, far, rect.right(), far + pullDown, rect.right(), far + down);
    path.lineTo(rect.right(), y);
}

} // namespace

const Theme& themeOf(bool isDark) {
    return isDark ? kDark : kLight;
}

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

void applyTheme(bool isDark) {
    QApplication::setStyle(std::make_unique<WindowStyle>().release()); // the application owns it
    QApplication::setPalette(paletteOf(themeOf(isDark)));
    for (QWidget* widget : QApplication::allWidgets())
        if (const QVariant sheet = widget->property(kSheetProperty); sheet.isValid())
            giveSheet(*widget, static_cast<Sheet>(sheet.toInt()));
}

void giveSheet(QWidget& widget, Sheet sheet) {
    widget.setProperty(kSheetProperty, static_cast<int>(sheet));
    widget.setStyleSheet(coloured(textOf(sheet), themeOf(isDark(QApplication::palette()))));
}

Appearance::Appearance() : isSystemDark_(isDark(QApplication::palette())) {
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
    applyTheme(wantsDark);
}

// Antialiasing costs by the row. Where both edges are straight there is nothing to smooth, and most
// rows of most boxes are such: they are one plain rectangle.
void fillRounded(QPainter& painter, const QRectF& rect, qreal radius, const QBrush& brush) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    const QRectF straight = straightPart(painter, rect, radius);
    if (straight.isEmpty()) {
        painter.drawRoundedRect(rect, radius, radius);
        return;
    }
    const QSizeF round(std::min(radius, rect.width() / 2), radius);
    QPainterPath ends;
    addEnd(ends, rect, round, straight.top(), rect.top());
    addEnd(ends, rect, round, straight.bottom(), rect.bottom());
    painter.drawPath(ends);
    painter.fillRect(straight, brush);
}

} // namespace scenewright
