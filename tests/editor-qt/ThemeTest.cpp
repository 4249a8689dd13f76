#include "editor/qt/Theme.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <gtest/gtest.h>

#include <cmath>

namespace scenewright {
namespace {

double linear(double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

// The contrast ratio of two colours, 1 to 21; small text needs 4.5.
double contrast(const QColor& one, const QColor& other) {
    const double brighter = std::max(luminance(one), luminance(other));
    const double darker = std::min(luminance(one), luminance(other));
    return (brighter + 0.05) / (darker + 0.05);
}

class ThemeTest : public ::testing::TestWithParam<bool> {};

TEST_P(ThemeTest, TextsStandOutFromTheirGround) {
    const Theme& theme = themeOf(GetParam());
    for (const QColor& ground : {theme.window, theme.panel, theme.field}) {
        EXPECT_GE(contrast(theme.text, ground), 7);
        EXPECT_GE(contrast(theme.muted, ground), 4.5);
        EXPECT_GE(contrast(theme.trouble, ground), 4.5);
    }
    EXPECT_GE(contrast(theme.accentText, theme.accent), 4.5);
}

TEST_P(ThemeTest, ColoursWithoutAMeaningAreACoolGrey) {
    const Theme& theme = themeOf(GetParam());
    for (const QColor& colour :
         {theme.window, theme.panel, theme.field, theme.line, theme.text, theme.muted}) {
        EXPECT_LE(colour.red(), colour.green()) << colour.name().toStdString();
        EXPECT_LE(colour.green(), colour.blue()) << colour.name().toStdString();
    }
}

TEST_P(ThemeTest, PaletteIsLightOrDarkAsWanted) {
    applyTheme(GetParam());
    EXPECT_EQ(isDark(QApplication::palette()), GetParam());
}

TEST_P(ThemeTest, WindowsAndTroubleHaveTheirColours) {
    applyTheme(GetParam());
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

TEST(Captions, GreenStandsOutFromTheScreensOfThePicture) {
    EXPECT_GE(contrast(QColor(50, 180, 50), QColor(11, 14, 16)), 4.5);
}

} // namespace
} // namespace scenewright
