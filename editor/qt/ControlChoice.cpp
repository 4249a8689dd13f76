#include "editor/qt/ControlChoice.h"

#include "editor/qt/PopUpBox.h"
#include "editor/qt/QtHelpers.h"
#include "editor/qt/Theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyle>
#include <QStyledItemDelegate>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

namespace scenewright {

namespace {

constexpr Qt::KeyboardModifiers kForSeveral = Qt::ControlModifier | Qt::ShiftModifier;

// In device-independent pixels.
constexpr int kTitlePlace = 11; // from the row's left edge
constexpr int kBehindTitle = 3;
constexpr qreal kRowRadius = 6;

// A row is its title, on a ground of its own where it is selected or the pointer is on it.
class ControlRowDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override {
        const QString title = index.data().toString();
        return {kTitlePlace + option.fontMetrics.horizontalAdvance(title) + kBehindTitle,
                option.fontMetrics.height() + kAroundRow};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const QPalette& palette = option.palette;
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (isSelected)
            fillRounded(*painter, option.rect, kRowRadius, palette.brush(QPalette::Highlight));
        else if (option.state.testFlag(QStyle::State_MouseOver))
            fillRounded(*painter, option.rect, kRowRadius, palette.brush(QPalette::Button));
        painter->setFont(option.font);
        painter->setPen(palette.color(QPalette::Active,
                                      isSelected ? QPalette::HighlightedText : QPalette::Text));
        const QFontMetrics& metrics = option.fontMetrics;
        const QPoint place(option.rect.left() + kTitlePlace,
                           option.rect.top() + (option.rect.height() - metrics.height()) / 2 +
                               metrics.ascent());
        painter->drawText(place, index.data().toString());
        painter->restore();
    }
};

} // namespace

void ControlRows::setSource(ListDataSource* source) {
    beginResetModel();
    source_ = source;
    endResetModel();
}

void ControlRows::reload() {
    beginResetModel();
    endResetModel();
}

int ControlRows::rowCount(const QModelIndex& parent) const {
    return source_ == nullptr || parent.isValid() ? 0 : source_->rowCount();
}

QVariant ControlRows::data(const QModelIndex& index, int role) const {
    if (source_ == nullptr || !index.isValid())
        return {};
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole)
        return shown(source_->rowTitle(index.row()));
    return {};
}

Qt::ItemFlags ControlRows::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    flags.setFlag(Qt::ItemIsEditable,
                  source_ != nullptr && index.isValid() && source_->mayEdit(index.row()));
    return flags;
}

ControlList::ControlList(QWidget* parent) : QListView(parent) {
    setModel(&rows_);
    setItemDelegate(&makeChild<ControlRowDelegate>(this));
    setProperty("list", true);
    verticalScrollBar()->setProperty("slim", true);
    viewport()->setAttribute(Qt::WA_Hover);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true); // or each title is measured at each layout
}

void ControlList::setDataSource(ListDataSource* source) {
    rows_.setSource(source);
}

void ControlList::setDelegate(ListDelegate* delegate) {
    delegate_ = delegate;
}

void ControlList::reload() {
    const QScopedValueRollback guard(isApplying_, true);
    row_ = -1;
    rows_.reload();
}

void ControlList::fitTitles() {
    // In device-independent pixels.
    constexpr int kNarrowest = 132;
    constexpr int kAround = 14; // its edge and what is inside that, on both sides
    ensurePolished();
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    setFixedWidth(std::max(kNarrowest, sizeHintForColumn(0) + bar + kAround));
}

void ControlList::selectRow(std::int32_t row) {
    apply(row, true);
}

void ControlList::selectBeside(const std::vector<std::int32_t>& rows) {
    const QScopedValueRollback guard(isApplying_, true);
    QItemSelection selection;
    for (const std::int32_t row : rows)
        selection.select(rows_.index(row), rows_.index(row));
    const QModelIndex own = rows_.index(row_);
    selection.merge(QItemSelection(own, own), QItemSelectionModel::Select);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

QItemSelectionModel::SelectionFlags ControlList::selectionCommand(const QModelIndex& /*index*/,
                                                                  const QEvent* /*event*/) const {
    return QItemSelectionModel::NoUpdate;
}

void ControlList::mousePressEvent(QMouseEvent* event) {
    QListView::mousePressEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index.isValid())
        click(index.row(), event->modifiers());
}

void ControlList::click(std::int32_t row, Qt::KeyboardModifiers modifiers) {
    if ((modifiers & kForSeveral) == 0)
        chooseByUser(row, true);
    emit rowChosen(row, modifiers);
}

void ControlList::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
}

void ControlList::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
}

void ControlList::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isForSeveral = (event->modifiers() & kForSeveral) != 0;
    if ((isEnter || (event->key() == Qt::Key_Space && isForSeveral)) && currentIndex().isValid())
        return click(currentIndex().row(), isEnter ? Qt::NoModifier : event->modifiers());
    const int before = currentIndex().row();
    QListView::keyPressEvent(event);
    if (currentIndex().row() == before)
        return;
    if (!isForSeveral || !event->text().isEmpty()) // a capital letter is a letter typed
        chooseByUser(currentIndex().row(), false);
    else if ((event->modifiers() & Qt::ShiftModifier) != 0)
        emit rowChosen(currentIndex().row(), event->modifiers());
}

void ControlList::selectionChanged(const QItemSelection& selected,
                                   const QItemSelection& deselected) {
    QListView::selectionChanged(selected, deselected);
    // Neither the mouse, nor the keys, nor the program: an assistive technology selected the row.
    if (isApplying_ || selected.isEmpty())
        return;
    row_ = selected.indexes().front().row();
    chooseByUser(row_, false);
}

void ControlList::chooseByUser(std::int32_t row, bool isClick) {
    clickedRow_ = isClick ? row : -1;
    const auto rows = delegate_ == nullptr ? std::vector{row} : delegate_->proposeSelection({row});
    apply(rows.empty() ? -1 : rows.front(), isClick);
}

void ControlList::apply(std::int32_t row, bool isClick) {
    const bool isChange = row != row_ || isPassedOver_ || !isClick;
    isPassedOver_ = !isClick;
    {
        const QScopedValueRollback guard(isApplying_, true);
        const QModelIndex index = rows_.index(row);
        row_ = index.isValid() ? row : -1;
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
        scrollTo(index);
    }
    if (isChange && delegate_ != nullptr)
        delegate_->selectionDidChange();
}

ControlChoice::ControlChoice(ViewController& view, DevicePicture& picture, ControlList& list,
                             ValuePanes& panes, QObject* parent)
    : QObject(parent), view_(view), picture_(picture), list_(list) {
    for (std::int32_t tag = 1; tag <= kControlCount; ++tag)
        picture.button(tag)->setAction([this, tag] { click(*picture_.button(tag)); });
    connect(&picture, &DevicePicture::extended, this,
            [this](std::int32_t tag) { choose(tag, Qt::ShiftModifier); });
    connect(&picture, &DevicePicture::banded, this, &ControlChoice::chooseAll);
    connect(&list, &ControlList::rowChosen, this, &ControlChoice::choose);
    connect(&panes, &ValuePanes::choiceComing, this, &ControlChoice::writeBeside);
}

void ControlChoice::click(const ControlButton& button) {
    if ((button.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier)) != 0)
        return choose(button.tag(), button.modifiers());
    selection_.choose(button.tag());
    view_.chooseButtonAction(button); // also when it is the one that was chosen
}

void ControlChoice::choose(std::int32_t control, Qt::KeyboardModifiers modifiers) {
    if ((modifiers & Qt::ShiftModifier) != 0)
        selection_.extendTo(control);
    else if ((modifiers & Qt::ControlModifier) != 0)
        selection_.toggle(control);
    else if (selection_.controls() == std::vector{control})
        return; // the list has told the view
    else
        selection_.choose(control);
    apply();
}

void ControlChoice::chooseAll(const std::vector<std::int32_t>& controls,
                              Qt::KeyboardModifiers modifiers) {
    if (controls.empty())
        return;
    if (modifiers == Qt::NoModifier)
        selection_.chooseAll(controls);
    else
        selection_.add(controls);
    apply();
}

void ControlChoice::selectAll() {
    const ControlRange* const range = controlRangeOf(selection_.chosen());
    if (range == nullptr)
        return;
    std::vector<std::int32_t> controls(static_cast<std::size_t>(range->count));
    std::iota(controls.begin(), controls.end(), range->start);
    selection_.chooseAll(controls);
    apply();
}

void ControlChoice::apply() {
    const std::int32_t chosen = selection_.chosen();
    if (view_.selectControl() == chosen) {
        emit changed();
    } else if (chosen > 0) {
        view_.chooseButtonAction(*picture_.button(chosen));
    } else {
        view_.setSelectControl(chosen); // the scene's own settings have no button
        list_.selectRow(chosen);
    }
}

void ControlChoice::follow() {
    if (selection_.chosen() != view_.selectControl())
        selection_.choose(view_.selectControl());
    for (std::int32_t tag = 1; tag <= kControlCount; ++tag)
        picture_.button(tag)->setTaken(selection_.has(tag) && tag != selection_.chosen());
    list_.selectBeside(selection_.controls());
}

void ControlChoice::writeBeside(const Setting& setting, std::int32_t option) {
    const SceneValue& scene = *view_.sceneValue();
    const ControlRange& range = controlRange(setting.kind());
    for (const std::int32_t control : selection_.alike()) {
        if (control == selection_.chosen())
            continue;
        setting.write(scene, control - range.start, option);
        if (setting.name() == ButtonValue::AssignTypeField.name && option == kAssignNote)
            clampNote(*scene.buttonValueArray().at(static_cast<std::size_t>(control) - 1),
                      findSetting(range.kind, ButtonValue::CCOrNoteNumberField.name)
                          ->details()
                          .noteList->of(*view_.pu()));
    }
}

} // namespace scenewright
