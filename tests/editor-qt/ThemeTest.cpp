// The colours of both themes, and that one sees where the keyboard is, measured in what is drawn:
// on an area as large as a line two pixels wide around half the widget, colours with and without
// the keyboard differ by 3 to 1.
#include "editor/qt/Theme.h"

#include "editor/qt/QtHelpers.h"
#include "tests/editor-qt/WindowBench.h"

#include <QDialog>
#include <QLabel>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>
#include <vector>

namespace scenewright::testing {
namespace {

double linear(double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

// The contrast ratio of two colours, 1 to 21; small text needs 4.5.
double contrast(const QColor& one, const QColor& other) {
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

// How many pixels differ by 3 to 1.
int changed(const QImage& before, const QImage& after) {
    int count = 0;
    for (int y = 0; y < before.height(); ++y)
        for (int x = 0; x < before.width(); ++x)
            count += contrast(before.pixelColor(x, y), after.pixelColor(x, y)) >= 3 ? 1 : 0;
    return count;
}

// The widget as it stands in its window, whatever lies on it included.
QImage seen(const QWidget& widget) {
    const QRect place(widget.mapTo(widget.window(), QPoint()), widget.size());
    return widget.window()->grab(place).toImage();
}

class ThemeTest : public ::testing::TestWithParam<bool> {};

TEST_P(ThemeTest, EachRoleAndSheetHasItsColours) {
    struct Row {
        QPalette::ColorRole role;
        const char* light;
        const char* dark;
    };
    const bool isDark = GetParam();
    const auto colour = [isDark](const Row& row) { return isDark ? row.dark : row.light; };
    applyTheme(isDark);
    const QPalette palette = QApplication::palette();
    using P = QPalette;
    for (const Row& row : {
             Row{P::Window, "#edeff3", "#131519"},
             Row{P::Base, "#ffffff", "#1d2026"},
             Row{P::ToolTipBase, "#ffffff", "#1d2026"},
             Row{P::AlternateBase, "#f6f7f9", "#282c34"},
             Row{P::Button, "#f6f7f9", "#282c34"},
             Row{P::Mid, "#d0d5dd", "#3c424d"},
             Row{P::WindowText, "#181c22", "#e7eaef"},
             Row{P::Text, "#181c22", "#e7eaef"},
             Row{P::ButtonText, "#181c22", "#e7eaef"},
             Row{P::ToolTipText, "#181c22", "#e7eaef"},
             Row{P::PlaceholderText, "#58616e", "#9da6b3"},
             Row{P::Highlight, "#167a3a", "#3fb95c"},
             Row{P::Link, "#167a3a", "#3fb95c"},
             Row{P::HighlightedText, "#ffffff", "#08140c"},
             Row{P::BrightText, "#a33e08", "#ffb259"},
         })
        EXPECT_EQ(palette.color(QPalette::Active, row.role).name(), colour(row)) << row.role;
    const Row faded{P::Text, "#abb0b6", "#5d636c"}; // between what is muted and the panel
    for (const auto role : {P::Text, P::WindowText, P::ButtonText})
        EXPECT_EQ(palette.color(QPalette::Disabled, role).name(), colour(faded)) << role;

    const auto sheetOf = [](Sheet sheet) {
        QWidget widget;
        giveSheet(widget, sheet);
        return widget.styleSheet().toStdString();
    };
    const std::string menus = sheetOf(Sheet::Menus);
    const std::string entries = sheetOf(Sheet::Entries);
    const std::string sliders = sheetOf(Sheet::Sliders);
    for (const auto& [sheet, part, row] :
         {std::tuple{menus, "QMenu { background: ",
                     Row{P::Base, "#ffffff; color: #181c22", "#1d2026; color: #e7eaef"}},
          {menus, "border: 1px solid ", Row{P::Mid, "#d0d5dd", "#3c424d"}},
          {menus, "::item:selected { background: ",
           Row{P::Highlight, "#167a3a; color: #ffffff", "#3fb95c; color: #08140c"}},
          {menus, "::item:disabled { color: ", faded},
          {entries, "::item:hover { background: ", Row{P::Button, "#f6f7f9", "#282c34"}},
          {entries,
           "::handle:vertical:hover { background: ", Row{P::PlaceholderText, "#58616e", "#9da6b3"}},
          {sliders, "::handle:vertical { background: ", Row{P::Text, "#181c22", "#e7eaef"}}})
        EXPECT_NE(sheet.find(part + std::string(colour(row))), std::string::npos) << part << sheet;
    for (const std::string& sheet : {menus, entries, sliders})
        EXPECT_EQ(sheet.find('@'), std::string::npos) << sheet;
    applyTheme(false);
}

TEST_P(ThemeTest, TextsStandOutFromTheirGround) {
    const Theme& theme = themeOf(GetParam());
    for (const QColor& ground : {theme.window, theme.panel, theme.field}) {
        EXPECT_GE(contrast(theme.text, ground), 7);
        EXPECT_GE(contrast(theme.muted, ground), 4.5);
        EXPECT_GE(contrast(theme.trouble, ground), 4.5);
        EXPECT_GE(contrast(theme.accent, ground), 4.5); // headings
    }
    EXPECT_GE(contrast(theme.accentText, theme.accent), 4.5);
    EXPECT_GE(contrast({50, 180, 50}, {11, 14, 16}), 4.5); // captions on the picture's screens
}

TEST_P(ThemeTest, ColoursWithoutAMeaningAreACoolGrey) {
    const Theme& theme = themeOf(GetParam());
    for (const QColor& colour :
         {theme.window, theme.panel, theme.field, theme.line, theme.text, theme.muted}) {
        EXPECT_LE(colour.red(), colour.green()) << colour.name().toStdString();
        EXPECT_LE(colour.green(), colour.blue()) << colour.name().toStdString();
    }
}

TEST_P(ThemeTest, PaletteWindowsAndTroubleHaveTheirColours) {
    applyTheme(GetParam());
    EXPECT_EQ(isDark(QApplication::palette()), GetParam());
    QDialog dialog;
    dialog.resize(40, 40);
    QLabel label(&dialog);
    label.setProperty("role", "trouble");
    label.ensurePolished();
    EXPECT_EQ(label.palette().color(label.foregroundRole()), themeOf(GetParam()).trouble);
    EXPECT_EQ(dialog.grab().toImage().pixelColor(30, 35), themeOf(GetParam()).window);
    applyTheme(false);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, ThemeTest, ::testing::Bool());

class FocusContrast : public WindowBench, public ::testing::WithParamInterface<bool> {
protected:
    void expectSeen(QWidget& widget, QWidget& other) {
        other.setFocus();
        const QImage before = seen(widget);
        widget.setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(widget.hasFocus()) << widget.accessibleName().toStdString();
        EXPECT_GE(changed(before, seen(widget)), widget.width() + widget.height())
            << widget.accessibleName().toStdString();
    }
};

TEST_P(FocusContrast, IsThreeToOneOnEachKindOfWidget) {
    open();
    applyTheme(GetParam());
    auto& flat = makeChild<QToolButton>(&window()); // as the palette of pads has them
    flat.setFocusPolicy(Qt::StrongFocus);
    flat.setAutoRaise(true);
    flat.setGeometry(600, 80, 34, 34);
    flat.show();
    window().displayModes().setFocus();
    std::vector<QWidget*> widgets{&window().scenes().segment(0), &window().scenes().segment(1),
                                  &window().readButton(), &window().sendButton(), &flat};
    for (const char* outlet : {"commonGlobalMIDICh", "commonPianoKeyCh"})
        widgets.push_back(&window().panes().popUp(outlet));
    const Colour lights[] = {{0, 0, 0},   {255, 255, 255}, {255, 0, 0},   {0, 255, 0},
                             {0, 0, 255}, {128, 128, 128}, {255, 255, 0}, {90, 130, 160}};
    for (std::int32_t pad = 13; pad <= 20; ++pad)
        window().picture().button(pad)->setLight(lights[pad - 13]);
    for (std::int32_t tag = 1; tag <= kControlCount; ++tag)
        widgets.push_back(window().picture().button(tag));
    QApplication::processEvents();
    for (QWidget* widget : widgets)
        expectSeen(*widget, window().displayModes());
    expectSeen(window().displayModes(), window().list());
    expectSeen(window().list(), window().displayModes());
}

TEST_P(FocusContrast, IsThreeToOneInTheGainPanel) {
    open();
    applyTheme(GetParam());
    GainWindow& panel = window().subWindow<GainWindow>();
    panel.show();
    panel.activateWindow();
    ASSERT_TRUE(waitUntil([&panel] { return panel.isActiveWindow(); }));
    const auto sliders = panel.findChildren<SliderBar*>();
    const auto buttons = panel.findChildren<QPushButton*>();
    for (SliderBar* slider : sliders)
        expectSeen(*slider, *buttons.front());
    for (QPushButton* button : buttons)
        expectSeen(*button, *sliders.front());
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, FocusContrast, ::testing::Bool());

// In the least size of the picture too, a chosen key shows its caption beside the mark, and the
// ring of the keyboard crosses none.
class MarkedKeys : public WindowBench {};

TEST_F(MarkedKeys, ShowTheirCaptionsWholeInsideTheRingAndTheMark) {
    open();
    read();
    window().resize(889, 600);
    for (std::int32_t tag = 1; tag <= kControlCount; ++tag) {
        window().showControl(0, tag);
        ControlButton& button = *window().picture().button(tag);
        const QRect caption = button.captionBox();
        window().displayModes().setFocus();
        const QImage before = seen(button).copy(caption);
        button.setFocus(Qt::TabFocusReason);
        EXPECT_EQ(changed(before, seen(button).copy(caption)), 0) << tag;
        if (tag < 21 || button.isBlackKey())
            continue;
        const CaptionSetting setting = button.captionSetting();
        const QSizeF lying =
            captionSize(QString::fromStdString(button.attributedTitle().text), setting.font);
        const QSizeF text = setting.isTurned ? lying.transposed() : lying;
        const QRectF inside = imageRoom(ControlShape::WhiteKey, button.rect())
                                  .adjusted(kMarkFrame, kMarkFrame, -kMarkFrame, -kMarkFrame);
        EXPECT_TRUE(setting.fits) << tag;
        EXPECT_LE(text.width(), inside.width()) << tag;
        EXPECT_LE(text.height(), inside.height()) << tag;
    }
}

} // namespace
} // namespace scenewright::testing
