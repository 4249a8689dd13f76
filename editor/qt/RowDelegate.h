// Rows of a list with room around their text.
#pragma once

#include <QStyledItemDelegate>

namespace scenewright {

class RowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
};

} // namespace scenewright
