#include "editor/qt/GainWindow.h"

#include "editor/qt/QtHelpers.h"
#include "editor/qt/Theme.h"

#include <QGridLayout>
#include <QPushButton>

#include <cstdint>

namespace scenewright {

namespace {

constexpr int kSliderHeight = 170;

using G = GainController;
using WriteSlider = void (G::*)(Slider*);
using WriteLabel = void (G::*)(TextField*);
constexpr std::array<WriteSlider, GainWindow::kGains> kSliders{
    &G::setSlider1, &G::setSlider2, &G::setSlider3, &G::setSlider4,
    &G::setSlider5, &G::setSlider6, &G::setSlider7, &G::setSlider8};
constexpr std::array<WriteLabel, GainWindow::kGains> kLabels{
    &G::setLabel1, &G::setLabel2, &G::setLabel3, &G::setLabel4,
    &G::setLabel5, &G::setLabel6, &G::setLabel7, &G::setLabel8};

} // namespace

GainWindow::GainWindow(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Gain Panel"));
    setAccessibleName(windowTitle());
    auto& grid = makeChild<QGridLayout>(this);
    grid.setContentsMargins(18, 16, 18, 16);
    grid.setHorizontalSpacing(8);
    grid.setVerticalSpacing(8);
    for (std::int32_t tag = 1; tag <= kGains; ++tag)
        makeGain(grid, tag);
    makeButtons(grid);
    controller_.viewDidLoad();
}

void GainWindow::makeGain(QGridLayout& grid, std::int32_t tag) {
    auto& heading = makeChild<QLabel>(QString::number(tag), this);
    heading.setProperty("role", "heading");
    auto& slider = makeChild<SliderBar>(tag, this);
    giveSheet(slider, Sheet::Sliders);
    slider.setMinimumHeight(kSliderHeight);
    slider.setAccessibleName(tr("Gain %1").arg(tag));
    auto& label = makeChild<TextLabel>(this);
    label.setAccessibleDescription(tr("Value of gain %1").arg(tag)); // its name is its text
    label.setAlignment(Qt::AlignCenter);
    // As wide as its longest text, so that the panel does not move under the hand.
    label.setMinimumWidth(label.fontMetrics().horizontalAdvance(QStringLiteral("127/127")) + 6);
    grid.addWidget(&heading, 0, tag - 1, Qt::AlignHCenter);
    grid.addWidget(&slider, 1, tag - 1, Qt::AlignHCenter);
    grid.addWidget(&label, 2, tag - 1);
    const auto place = static_cast<std::size_t>(tag - 1);
    (controller_.*kSliders.at(place))(&slider);
    (controller_.*kLabels.at(place))(&label);
    connect(&slider, &SliderBar::moved, this,
            [this, &slider] { controller_.changeAction(slider); });
}

void GainWindow::makeButtons(QGridLayout& grid) {
    auto& standard = makeChild<QPushButton>(tr("De&fault"), this);
    auto& apply = makeChild<QPushButton>(tr("&Apply"), this);
    auto& ok = makeChild<QPushButton>(tr("&OK"), this);
    auto& hint = makeChild<QLabel>(tr("Kept while the window is open; not sent"), this);
    hint.setProperty("role", "hint");
    for (QPushButton* button : {&standard, &apply, &ok})
        button->setAccessibleName(button->text().remove(QLatin1Char('&')));
    ok.setDefault(true);
    ok.setProperty("main", true);
    grid.addWidget(&hint, 3, 0, 1, kGains);
    grid.addWidget(&standard, 4, 0, 1, 2);
    grid.addWidget(&apply, 4, 4, 1, 2);
    grid.addWidget(&ok, 4, 6, 1, 2);
    connect(&standard, &QPushButton::clicked, this, [this] { controller_.doDefaultAction(); });
    connect(&apply, &QPushButton::clicked, this, [this] { controller_.doApplyAction(); });
    connect(&ok, &QPushButton::clicked, this, [this] { controller_.doOKAction(); });
}

} // namespace scenewright
