#include "editor/qt/SegmentBar.h"

#include "editor/qt/Owned.h"

#include <QHBoxLayout>
#include <QPushButton>

#include <cstdint>

namespace scenewright {

SegmentBar::SegmentBar(const QStringList& names, QWidget* parent) : QFrame(parent) {
    setProperty("segments", true);
    auto& row = makeChild<QHBoxLayout>(this);
    row.setContentsMargins(3, 3, 3, 3);
    row.setSpacing(2);
    for (int position = 0; position < names.size(); ++position) {
        auto& button = makeChild<QPushButton>(names[position], this);
        button.setCheckable(true);
        button.setAutoDefault(false);
        button.setProperty("segment", true);
        button.setAccessibleName(names[position]);
        group_.addButton(&button, position);
        row.addWidget(&button);
    }
    group_.setExclusive(true);
    segment(0).setChecked(true);
    connect(&group_, &QButtonGroup::idClicked, this, &SegmentBar::chosen);
}

std::int32_t SegmentBar::selectedSegment() const {
    return group_.checkedId();
}

void SegmentBar::setTitle(int position, const QString& title) {
    segment(position).setText(title);
}

QAbstractButton& SegmentBar::segment(int position) const {
    return *group_.button(position);
}

} // namespace scenewright
