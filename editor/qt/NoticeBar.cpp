#include "editor/qt/NoticeBar.h"

#include "editor/qt/Dialogs.h"
#include "editor/qt/QtHelpers.h"

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QStyle>
#include <QStyleOption>
#include <QStylePainter>

#include <algorithm>
#include <utility>

namespace scenewright {

namespace {

constexpr QSize kBusySize(72, 12);
constexpr int kLeastText = 120; // of a notice, in device-independent pixels

// Whether time ends it.
bool passes(const Notice& notice) {
    return notice.kind == Notice::Kind::Done && notice.actions.empty() && !notice.stays;
}

QString firstLine(const QString& text) {
    return text.section(QLatin1Char('\n'), 0, 0);
}

} // namespace

void announce(QWidget& widget, const QString& text) {
    widget.setAccessibleName(text);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(&widget, text);
#else
    QAccessibleEvent event(&widget, QAccessible::Alert);
#endif
    QAccessible::updateAccessibility(&event);
}

NoticeText::NoticeText(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

QString NoticeText::seen() const {
    return fontMetrics().elidedText(firstLine(text()), Qt::ElideRight, contentsRect().width());
}

bool NoticeText::isCut() const {
    return seen() != text();
}

QSize NoticeText::sizeHint() const {
    return {fontMetrics().horizontalAdvance(firstLine(text())) + 1, fontMetrics().height()};
}

QSize NoticeText::minimumSizeHint() const {
    return {kLeastText, fontMetrics().height()};
}

void NoticeText::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    painter.drawItemText(contentsRect(), Qt::AlignVCenter | Qt::AlignLeading, palette(),
                         isEnabled(), seen(), foregroundRole());
}

void SpokenText::say(const QString& text) {
    if (text == this->text())
        return;
    setText(text);
    setToolTip(text);
    announce(*this, text);
}

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent), row_(&makeChild<QHBoxLayout>(this)), text_(&makeChild<NoticeText>(this)),
      details_(&makeButton(tr("Details..."), this)), close_(&makeButton(tr("Dismiss"), this)),
      escape_(&makeChild<QShortcut>(QKeySequence(Qt::Key_Escape), this)),
      expiry_(&makeChild<QTimer>(this)) {
    setObjectName(QStringLiteral("notice"));
    setAccessibleName(tr("Notice"));
    setProperty("panel", true);
    setFrameShape(QFrame::StyledPanel);
    text_->setText(accessibleName());
    details_->setAccessibleName(tr("Details of the notice"));
    close_->setAccessibleName(tr("Dismiss the notice"));
    row_->setContentsMargins(14, 2, 3, 2);
    row_->setSpacing(6);
    row_->addWidget(text_, 1);
    row_->addWidget(details_);
    row_->addWidget(close_);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    expiry_->setSingleShot(true);
    connect(expiry_, &QTimer::timeout, this, &NoticeBar::expire);
    connect(details_, &QPushButton::clicked, this, &NoticeBar::showDetails);
    connect(close_, &QPushButton::clicked, this, &NoticeBar::dismiss);
    connect(escape_, &QShortcut::activated, this, &NoticeBar::dismiss);
    auto& reach = makeChild<QShortcut>(QKeySequence(Qt::Key_F6), this);
    connect(&reach, &QShortcut::activated, this, [this] {
        (buttons_.empty() ? close_ : buttons_.front())->setFocus(Qt::ShortcutFocusReason);
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now != nullptr && now->window() == window() && !hasKeyboard(*this))
            former_ = now;
    });
    hide();
}

void NoticeBar::post(Notice notice) {
    // What was done and has been seen does not come back behind what is new.
    if (!notices_.empty() && passes(notices_.front()))
        notices_.pop_front();
    std::erase_if(notices_, [&](const Notice& former) { return former.source == notice.source; });
    notices_.push_front(std::move(notice));
    showFirst();
}

void NoticeBar::postResult(Notice::Source source, const Result<void>& result, const QString& done) {
    QStringList lines{done, result ? QString() : shown(result.error())};
    lines.removeAll(QString());
    if (lines.isEmpty())
        return withdraw(source);
    post({.source = source,
          .kind = result ? Notice::Kind::Done : Notice::Kind::Error,
          .text = lines.join(QLatin1Char('\n'))});
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
    expiry_->stop();
    if (hasKeyboard(*this))
        giveKeyboardBack();
    clearActions();
    if (notices_.empty()) {
        hide();
        return;
    }
    const Notice& notice = notices_.front();
    for (const NoticeAction& action : notice.actions)
        addAction(action);
    showText(notice);
    startExpiry(notice);
}

void NoticeBar::showText(const Notice& notice) {
    text_->setText(notice.text);
    text_->setToolTip(notice.text);
    text_->setProperty("role", notice.kind == Notice::Kind::Error ? "trouble" : "notice");
    text_->style()->unpolish(text_);
    text_->style()->polish(text_);
    show();
    offerDetails();
    announce(*this, notice.text);
}

// The button takes room itself: it is seen when the text is not whole without it.
void NoticeBar::offerDetails() {
    if (notices_.empty())
        return;
    const QString& text = notices_.front().text;
    details_->setVisible(text != firstLine(text));
    row_->activate();
    if (text_->isCut())
        details_->show();
}

void NoticeBar::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    offerDetails();
}

void NoticeBar::showDetails() {
    auto& dialog = makeChild<NoticeDetails>(notices_.front().text, this);
    dialog.setAttribute(Qt::WA_DeleteOnClose);
    dialog.open();
}

void NoticeBar::startExpiry(const Notice& notice) {
    if (passes(notice) && doneLasts_ > std::chrono::milliseconds::zero())
        expiry_->start(doneLasts_);
}

void NoticeBar::expire() {
    if (underMouse() || hasKeyboard(*this) || !isActiveWindow())
        expiry_->start(doneLasts_);
    else
        dismiss();
}

void NoticeBar::giveKeyboardBack() {
    if (former_ && former_->isVisible() && former_->isEnabled())
        former_->setFocus(Qt::OtherFocusReason);
    else if (QWidget* at = window()->focusWidget())
        at->clearFocus();
}

void NoticeBar::addAction(const NoticeAction& action) {
    auto& button = makeButton(action.title, this);
    row_->insertWidget(row_->indexOf(details_), &button);
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
    // A mark may be as high as the line with its room, so that none moves the window when it comes.
    row_->setContentsMargins(14, 3, 14, 4);
    row_->setSpacing(10);
    message_->setMinimumHeight(markHeight());
    row_->addWidget(message_, 1);
    row_->addWidget(busy_);
}

int StatusLine::markHeight() const {
    constexpr int kAround = 8;
    return fontMetrics().height() + kAround;
}

void StatusLine::addMark(QWidget& mark) {
    mark.setMaximumHeight(markHeight());
    row_->addWidget(&mark);
}

void StatusLine::setBusy(bool isBusy) {
    busy_->setVisible(isBusy);
}

} // namespace scenewright
