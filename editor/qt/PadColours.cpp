#include "editor/qt/PadColours.h"

#include "editor/ControlDescription.h"
#include "editor/qt/QtHelpers.h"

#include <QColorDialog>
#include <QHBoxLayout>
#include <QPainter>
#include <QPixmap>
#include <QToolButton>
#include <QWidgetAction>

#include <algorithm>
#include <span>

namespace scenewright {

namespace {

constexpr std::size_t kARow = 8;
constexpr int kSize = 26; // of a colour, in device-independent pixels

// With an edge that shows a white one on white.
QPixmap lightOf(const QColor& colour, qreal ratio) {
    QPixmap light(QSizeF(kSize * ratio, kSize * ratio).toSize());
    light.setDevicePixelRatio(ratio);
    light.fill(Qt::gray);
    QPainter(&light).fillRect(QRect(1, 1, kSize - 2, kSize - 2), colour);
    return light;
}

} // namespace

PadColours::PadColours(MainWindow& window, History& history)
    : window_(window), history_(history), menu_(&makeChild<QMenu>(&window)) {
    menu_->setAccessibleName(tr("Colours"));
    QPushButton& swatch = window.panes().swatch();
    connect(&swatch, &QPushButton::clicked, this, [this, &swatch] {
        fill();
        menu_->popup(swatch.mapToGlobal(swatch.rect().bottomLeft()));
    });
}

ButtonValue* PadColours::pad() const {
    const std::int32_t index = window_.view().selectControl();
    const ControlRange& pads = controlRange(ControlKind::Pad);
    const bool isPad = index >= pads.start && index < pads.end();
    return isPad ? window_.view().buttonValue().get() : nullptr;
}

void PadColours::choose(const PadColour& colour) {
    if (pad() == nullptr)
        return;
    for (const std::int32_t control : window_.choice().selection().alike())
        for (std::size_t level = 0; level < colour.size(); ++level)
            findSetting(ControlKind::Pad, kColourFields.at(level))
                ->write(*window_.view().sceneValue(),
                        control - controlRange(ControlKind::Pad).start, colour.at(level));
    std::erase(used_, colour);
    used_.insert(used_.begin(), colour);
    used_.resize(std::min(used_.size(), kARow));
    history_.name(tr("%1 Colour").arg(shown(alikeTitle(window_.choice().selection()))));
    window_.view().showChosenControl();
}

void PadColours::fill() {
    menu_->clear();
    for (const NamedPalette& palette : palettes()) {
        for (std::size_t from = 0; from < palette.colours.size(); from += kARow)
            addRow(palette.colours.subspan(from, std::min(kARow, palette.colours.size() - from)));
        menu_->addSeparator();
    }
    if (!used_.empty()) {
        addRow(used_);
        menu_->addSeparator();
    }
    connect(menu_->addAction(tr("&Other Colour...")), &QAction::triggered, this,
            &PadColours::chooseOther);
}

void PadColours::addRow(std::span<const PadColour> colours) {
    auto& row = makeChild<QWidget>(menu_);
    auto& layout = makeChild<QHBoxLayout>(&row);
    layout.setContentsMargins(8, 3, 8, 3);
    layout.setSpacing(3);
    for (const PadColour& colour : colours) {
        const QString text = shown(colourText(colour));
        auto& button = makeChild<QToolButton>(&row);
        button.setIcon(lightOf(QColor(text), window_.devicePixelRatioF()));
        button.setIconSize({kSize, kSize});
        button.setAutoRaise(true);
        button.setFocusPolicy(Qt::StrongFocus);
        button.setAccessibleName(text);
        button.setToolTip(text);
        layout.addWidget(&button);
        connect(&button, &QToolButton::clicked, this, [this, colour] {
            menu_->close();
            choose(colour);
        });
    }
    layout.addStretch(1);
    auto& action = makeChild<QWidgetAction>(menu_);
    action.setDefaultWidget(&row);
    menu_->addAction(&action);
}

void PadColours::chooseOther() {
    const ButtonValue* const record = pad();
    if (record == nullptr)
        return;
    const Colour light = padColour(*record);
    const QColor chosen = QColorDialog::getColor(QColor(light.red, light.green, light.blue),
                                                 &window_, tr("Colour of the Pad"));
    if (!chosen.isValid())
        return;
    if (const auto colour = colourOf(chosen.name().toStdString()))
        choose(*colour);
}

} // namespace scenewright
