#include "editor/qt/StatusLine.h"

#include "editor/qt/Owned.h"

#include <QGridLayout>

namespace scenewright {

StatusLine::StatusLine(QWidget* parent)
    : QFrame(parent), message_(&owned<TextLabel>(this)), advice_(&owned<QLabel>(this)),
      busy_(&owned<BusyMark>(this)) {
    setProperty("panel", true);
    message_->setAccessibleName(tr("Status"));
    message_->QLabel::setText(tr("Ready"));
    message_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    advice_->setAccessibleName(tr("Cause and cure"));
    advice_->setTextFormat(Qt::PlainText);
    advice_->setProperty("role", "trouble");
    advice_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    advice_->setWordWrap(true);
    auto& grid = owned<QGridLayout>(this);
    grid.setContentsMargins(14, 5, 14, 6);
    grid.setHorizontalSpacing(10);
    grid.setVerticalSpacing(1);
    grid.addWidget(message_, 0, 0);
    grid.addWidget(busy_, 0, 1);
    grid.addWidget(advice_, 1, 0, 1, 3);
    grid.setColumnStretch(0, 1);
}

void StatusLine::setAdvice(const QString& advice) {
    advice_->setText(advice);
    advice_->setToolTip(advice);
}

void StatusLine::addMark(QWidget& mark) {
    static_cast<QGridLayout*>(layout())->addWidget(&mark, 0, 2);
}

void StatusLine::setBusy(bool isBusy) {
    busy_->setBusy(isBusy);
}

} // namespace scenewright
