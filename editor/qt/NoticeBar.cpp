#include "editor/qt/NoticeBar.h"

#include "editor/qt/QtHelpers.h"

#include <QHBoxLayout>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace scenewright {

namespace {

constexpr QSize kBusySize(72, 12);

} // namespace

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent), row_(&makeChild<QHBoxLayout>(this)), text_(&makeChild<QLabel>(this)),
      close_(&makeChild<QPushButton>(tr("Dismiss"), this)) {
    setObjectName(QStringLiteral("notice"));
    setAccessibleName(tr("Notice"));
    setProperty("panel", true);
    setFrameShape(QFrame::StyledPanel);
    text_->setAccessibleName(accessibleName());
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    close_->setAccessibleName(tr("Dismiss the notice"));
    close_->setAutoDefault(false);
    row_->setContentsMargins(14, 6, 8, 6);
    row_->addWidget(text_, 1);
    row_->addWidget(close_);
    connect(close_, &QPushButton::clicked, this, &NoticeBar::dismiss);
    hide();
}

void NoticeBar::post(Notice notice) {
    // What was done and has been seen does not keep what is new waiting.
    if (!notices_.empty() && notices_.front().kind == Notice::Kind::Done &&
        notices_.front().source != notice.source)
        notices_.pop_front();
    const auto former = std::ranges::find(notices_, notice.source, &Notice::source);
    const bool isShown = former == notices_.begin(); // or there are none
    if (former != notices_.end())
        *former = std::move(notice);
    else
        notices_.push_back(std::move(notice));
    if (isShown)
        showFirst();
}

void NoticeBar::withdraw(Notice::Source source) {
    const auto found = std::ranges::find(notices_, source, &Notice::source);
    if (found == notices_.end())
        return;
    const bool isShown = found == notices_.begin();
    notices_.erase(found);
    if (isShown)
        showFirst();
}

void NoticeBar::dismiss() {
    if (!notices_.empty())
        notices_.pop_front();
    showFirst();
}

QPushButton* NoticeBar::action(std::size_t place) const {
    return place < buttons_.size() ? buttons_[place] : nullptr;
}

void NoticeBar::showFirst() {
    clearActions();
    setVisible(!notices_.empty());
    if (notices_.empty())
        return;
    const Notice& notice = notices_.front();
    text_->setText(notice.text);
    text_->setAccessibleName(notice.text);
    text_->setProperty("role", notice.kind == Notice::Kind::Error ? "trouble" : "notice");
    text_->style()->unpolish(text_);
    text_->style()->polish(text_);
    for (const NoticeAction& action : notice.actions)
        addAction(action);
}

void NoticeBar::addAction(const NoticeAction& action) {
    auto& button = makeChild<QPushButton>(action.title, this);
    button.setAccessibleName(action.title);
    button.setAutoDefault(false);
    row_->insertWidget(row_->indexOf(close_), &button);
    buttons_.push_back(&button);
    connect(&button, &QPushButton::clicked, this, [this, chosen = action.action] {
        const auto kept = chosen; // the button goes with the notice
        dismiss();
        kept();
    });
}

void NoticeBar::clearActions() {
    // Later, as this may be the work of one of them.
    for (QPushButton* button : buttons_) {
        row_->removeWidget(button);
        button->hide();
        button->deleteLater();
    }
    buttons_.clear();
}

StatusLine::StatusLine(QWidget* parent)
    : QFrame(parent), message_(&makeChild<TextLabel>(this)), busy_(&makeChild<QProgressBar>(this)),
      row_(&makeChild<QHBoxLayout>(this)) {
    setProperty("panel", true);
    setFrameShape(QFrame::StyledPanel);
    message_->setAccessibleDescription(tr("Status")); // its name is its text
    message_->QLabel::setText(tr("Ready"));
    message_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    busy_->setRange(0, 0); // it tells that a transfer runs, not how far it is
    busy_->setTextVisible(false);
    busy_->setFixedSize(kBusySize);
    QSizePolicy policy = busy_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    busy_->setSizePolicy(policy);
    busy_->setAccessibleName(tr("Transfer in progress"));
    busy_->setToolTip(busy_->accessibleName());
    busy_->hide();
    row_->setContentsMargins(14, 7, 14, 8);
    row_->setSpacing(10);
    row_->addWidget(message_, 1);
    row_->addWidget(busy_);
}

void StatusLine::addMark(QWidget& mark) {
    row_->addWidget(&mark);
}

void StatusLine::setBusy(bool isBusy) {
    busy_->setVisible(isBusy);
}

} // namespace scenewright
