// That one sees where the keyboard is, measured in what is drawn: on an area as large as a line two
// pixels wide around half the widget, colours with and without the keyboard differ by 3 to 1.
#include "editor/qt/QtHelpers.h"
#include "editor/qt/Theme.h"
#include "tests/editor-qt/WindowBench.h"

#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace scenewright::testing {
namespace {

double linear(int part) {
    const double value = part / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(QRgb colour) {
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
           0.0722 * linear(qBlue(colour));
}

double contrast(QRgb one, QRgb other) {
    const auto [low, high] = std::minmax({luminance(one), luminance(other)});
    return (high + 0.05) / (low + 0.05);
}

// How many pixels differ by 3 to 1.
int changed(const QImage& before, const QImage& after) {
    int count = 0;
    for (int y = 0; y < before.height(); ++y)
        for (int x = 0; x < before.width(); ++x)
            count += contrast(before.pixel(x, y), after.pixel(x, y)) >= 3 ? 1 : 0;
    return count;
}

// The widget as it stands in its window, whatever lies on it included.
QImage seen(const QWidget& widget) {
    const QRect place(widget.mapTo(widget.window(), QPoint()), widget.size());
    return widget.window()->grab(place).toImage();
}

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
    window().displayModes().setFocus();
    std::vector<QWidget*> widgets{&window().scenes().segment(0), &window().scenes().segment(1),
                                  &window().readButton(), &window().sendButton()};
    for (const char* outlet : {"commonGlobalMIDICh", "commonPianoKeyCh"})
        widgets.push_back(&window().panes().popUp(outlet));
    for (QWidget* widget : widgets)
        expectSeen(*widget, window().displayModes());
    expectSeen(window().displayModes(), window().list());
    expectSeen(window().list(), window().displayModes());
}

TEST_P(FocusContrast, IsThreeToOneOnEveryControlOfThePicture) {
    open();
    applyTheme(GetParam());
    const Colour lights[] = {{0, 0, 0},   {255, 255, 255}, {255, 0, 0},   {0, 255, 0},
                             {0, 0, 255}, {128, 128, 128}, {255, 255, 0}, {90, 130, 160}};
    for (std::int32_t pad = 13; pad <= 20; ++pad)
        window().picture().button(pad)->setLight(lights[pad - 13]);
    QApplication::processEvents();
    for (std::int32_t tag = 1; tag <= kControlCount; ++tag)
        expectSeen(*window().picture().button(tag), window().displayModes());
}

TEST_P(FocusContrast, IsThreeToOneInTheGainPanel) {
    open();
    applyTheme(GetParam());
    GainWindow& panel = window().gainPanel();
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

// As the palette of pads has them.
TEST_P(FocusContrast, IsThreeToOneOnAFlatToolButton) {
    open();
    applyTheme(GetParam());
    auto& button = makeChild<QToolButton>(&window());
    button.setFocusPolicy(Qt::StrongFocus);
    button.setAutoRaise(true);
    button.setGeometry(600, 80, 34, 34);
    button.show();
    expectSeen(button, window().displayModes());
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, FocusContrast, ::testing::Bool());

// In the least size of the picture too, a chosen key shows its caption beside the mark, and the
// ring of the keyboard crosses none.
class MarkedKeys : public WindowBench {};

TEST_F(MarkedKeys, ShowTheirCaptionsWholeInsideTheRing) {
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
    }
}

TEST_F(MarkedKeys, ShowTheirCaptionsWholeInsideTheMark) {
    open();
    read();
    window().resize(889, 600);
    QApplication::processEvents();
    for (std::int32_t tag = 21; tag <= kControlCount; ++tag) {
        window().showControl(0, tag);
        const ControlButton& key = *window().picture().button(tag);
        if (key.isBlackKey())
            continue;
        const CaptionSetting setting = key.captionSetting();
        const QSizeF text =
            captionSize(QString::fromStdString(key.attributedTitle().text), setting.font);
        const QRectF inside = imageRoom(ControlShape::WhiteKey, key.rect())
                                  .adjusted(kMarkFrame, kMarkFrame, -kMarkFrame, -kMarkFrame);
        EXPECT_TRUE(setting.fits) << tag;
        EXPECT_LE((setting.isTurned ? text.transposed() : text).width(), inside.width()) << tag;
        EXPECT_LE((setting.isTurned ? text.transposed() : text).height(), inside.height()) << tag;
    }
}

} // namespace
} // namespace scenewright::testing
