#include "editor/qt/PadColours.h"

#include "editor/ControlDescription.h"
#include "editor/qt/QtHelpers.h"

#include <QColorDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QToolButton>
#include <QWidgetAction>

#include <algorithm>
#include <iterator>

namespace scenewright {

namespace {

constexpr std::size_t kARow = 8;
constexpr int kSize = 26; // of a colour, in device-independent pixels

// With an edge that shows a white one on white.
QPixmap lightOf(const QColor& colour, qreal ratio) {
    QPixmap light(QSizeF(kSize * ratio, kSize * ratio).toSize());
    light.fill(Qt::gray);
    QPainter(&light).fillRect(light.rect().adjusted(1, 1, -1, -1), colour);
    return light;
}

} // namespace

PadColours::PadColours(MainWindow& window, History& history)
    : window_(window), history_(history), menu_(&makeChild<QMenu>(&window)) {
    menu_->setAccessibleName(tr("Colours"));
    QPushButton& swatch = window.panes().swatch();
    connect(&swatch, &QPushButton::clicked, this, [this, &swatch] {
        fill();
        popUp(swatch);
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
    buttons_.clear();
    for (const NamedPalette& palette : palettes()) {
        for (std::size_t from = 0; from < palette.colours.size(); from += kARow)
            addRow(palette.colours.subspan(from, std::min(kARow, palette.colours.size() - from)));
        menu_->addSeparator();
    }
    if (!used_.empty()) {
        addRow(used_);
        menu_->addSeparator();
    }
    other_ = menu_->addAction(tr("&Other Colour..."));
    connect(other_, &QAction::triggered, this, &PadColours::chooseOther);
}

// Below the mixed colour or above it, so that it is seen what is replaced. The keyboard is on the
// pad's own colour where the palettes have it.
void PadColours::popUp(const QWidget& swatch) {
    const QPoint below = swatch.mapToGlobal(swatch.rect().bottomLeft());
    const QPoint above = swatch.mapToGlobal(QPoint(0, 0)) - QPoint(0, menu_->sizeHint().height());
    const bool fits =
        below.y() + menu_->sizeHint().height() <= swatch.screen()->availableGeometry().bottom();
    menu_->popup(fits ? below : above);
    const ButtonValue* const record = pad();
    const QString own = record == nullptr
                            ? QString()
                            : shown(colourText({record->CR(), record->CG(), record->CB()}));
    const auto at = std::ranges::find(buttons_, own, &QToolButton::accessibleName);
    goTo(at == buttons_.end() ? 0 : at - buttons_.begin());
}

void PadColours::goTo(std::ptrdiff_t place) {
    if (place >= std::ssize(buttons_)) {
        menu_->setFocus();
        menu_->setActiveAction(other_);
    } else if (place >= 0) {
        menu_->setActiveAction(nullptr);
        buttons_[static_cast<std::size_t>(place)]->setFocus(Qt::TabFocusReason);
    }
}

bool PadColours::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return false;
    const std::ptrdiff_t place = std::ranges::find(buttons_, watched) - buttons_.begin();
    switch (static_cast<const QKeyEvent*>(event)->key()) {
    case Qt::Key_Left:
        goTo(place - 1);
        return true;
    case Qt::Key_Right:
        goTo(place + 1);
        return true;
    case Qt::Key_Up:
        goTo(place - std::ptrdiff_t{kARow});
        return true;
    case Qt::Key_Down:
        goTo(place + std::ptrdiff_t{kARow});
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        static_cast<QToolButton*>(watched)->click();
        return true;
    default:
        return false;
    }
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
        button.installEventFilter(this);
        buttons_.push_back(&button);
        connect(&button, &QToolButton::clicked, this, [this, colour] {
            menu_->close();
            choose(colour);
        });
    }
    layout.addStretch();
    row.setFocusPolicy(Qt::StrongFocus); // the menu's own keys come to it, too
    row.setFocusProxy(layout.itemAt(0)->widget());
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
