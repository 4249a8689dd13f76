#include "editor/qt/StatusLine.h"

#include "editor/qt/Owned.h"

#include <QHBoxLayout>

namespace scenewright {

StatusLine::StatusLine(QWidget* parent)
    : QFrame(parent), message_(&makeChild<TextLabel>(this)), busy_(&makeChild<BusyMark>(this)),
      row_(&makeChild<QHBoxLayout>(this)) {
    setProperty("panel", true);
    message_->setAccessibleDescription(tr("Status")); // its name is its text
    message_->QLabel::setText(tr("Ready"));
    message_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    row_->setContentsMargins(14, 5, 14, 6);
    row_->setSpacing(10);
    row_->addWidget(message_, 1);
    row_->addWidget(busy_);
}

void StatusLine::addMark(QWidget& mark) {
    row_->addWidget(&mark);
}

void StatusLine::setBusy(bool isBusy) {
    busy_->setBusy(isBusy);
}

} // namespace scenewright
