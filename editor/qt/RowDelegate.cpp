#include "editor/qt/RowDelegate.h"

namespace scenewright {

namespace {

constexpr int kAround = 9; // device-independent pixels above and below the text together

} // namespace

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width(), option.fontMetrics.height() + kAround};
}

} // namespace scenewright
