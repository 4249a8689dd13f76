#include "editor/qt/ControlList.h"

#include "editor/qt/PopUpBox.h"
#include "editor/qt/QtHelpers.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyle>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace scenewright {

namespace {

constexpr Qt::KeyboardModifiers kForSeveral = Qt::ControlModifier | Qt::ShiftModifier;

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
    setItemDelegate(&makeChild<RowDelegate>(this));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setTabKeyNavigation(false);
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
    constexpr int kAround = 14; // frame and padding of the sheet, on both sides
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

} // namespace scenewright
