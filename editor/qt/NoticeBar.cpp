#include "editor/qt/NoticeBar.h"

#include "editor/qt/Owned.h"

#include <QHBoxLayout>
#include <QStyle>

namespace scenewright {

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent), row_(&owned<QHBoxLayout>(this)), text_(&owned<QLabel>(this)),
      close_(&owned<QPushButton>(tr("Dismiss"), this)) {
    setObjectName(QStringLiteral("notice"));
    setAccessibleName(tr("Notice"));
    setProperty("panel", true);
    text_->setAccessibleName(tr("Notice"));
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

void NoticeBar::tell(Kind kind, const QString& text, std::vector<Offer> offers) {
    dismiss();
    text_->setText(text);
    text_->setProperty("role", kind == Kind::Trouble ? "trouble" : "notice");
    text_->style()->unpolish(text_);
    text_->style()->polish(text_);
    for (Offer& offer : offers)
        addOffer(std::move(offer));
    show();
}

void NoticeBar::dismiss() {
    hide();
    // Later, as this may be the work of one of them.
    for (QPushButton* button : offers_) {
        row_->removeWidget(button);
        button->hide();
        button->deleteLater();
    }
    offers_.clear();
}

QPushButton* NoticeBar::offer(std::size_t place) const {
    return place < offers_.size() ? offers_[place] : nullptr;
}

void NoticeBar::addOffer(Offer offer) {
    auto& button = owned<QPushButton>(offer.title, this);
    button.setAccessibleName(offer.title);
    button.setAutoDefault(false);
    row_->insertWidget(row_->indexOf(close_), &button);
    offers_.push_back(&button);
    connect(&button, &QPushButton::clicked, this, [this, action = std::move(offer.action)] {
        const auto kept = action; // the button goes with the notice
        dismiss();
        kept();
    });
}

} // namespace scenewright
