#include "editor/qt/StripPlace.h"

#include "editor/qt/Adapters.h"
#include "editor/qt/QtHelpers.h"

#include <algorithm>
#include <utility>

namespace scenewright {

namespace {

constexpr int kGap = 10;
constexpr int kAroundNames = 3;
constexpr int kNameGap = 2;
constexpr int kPictureBeside = 240; // the least height of the picture that strips leave it

} // namespace

StripPlace::StripPlace(QWidget& settings, QWidget* parent)
    : QWidget(parent), seen_(&settings), grid_(&makeChild<QGridLayout>(this)),
      names_(&makeChild<QFrame>(this)), column_(&makeChild<QVBoxLayout>(names_)),
      group_(&makeChild<QButtonGroup>(names_)), stack_(&makeChild<QStackedWidget>(this)),
      settings_(&settings) {
    setAccessibleName(tr("Below the picture"));
    names_->setAccessibleName(accessibleName());
    stack_->setAccessibleName(accessibleName());
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setSpacing(kGap);
    names_->setProperty("segments", true);
    names_->setFrameShape(QFrame::StyledPanel);
    column_->setContentsMargins(kAroundNames, kAroundNames, kAroundNames, kAroundNames);
    column_->setSpacing(kNameGap);
    grid_->addWidget(names_, 0, 0, Qt::AlignTop);
    grid_->addWidget(stack_, 0, 1);
    addPage(settings);
    arrange();
}

StripPlace::~StripPlace() {
    for (const Page& each : pages_) // which end with it
        disconnect(each.page, &QObject::destroyed, this, nullptr);
}

void StripPlace::addPage(QWidget& page) {
    auto& name = makeChild<SegmentButton>(page.accessibleName(), names_);
    name.setProperty("segment", true);
    name.setAccessibleName(page.accessibleName());
    name.setCheckable(true);
    group_->addButton(&name);
    connect(&name, &QPushButton::clicked, this, [this, &page] { bringUp(page); });
    column_->insertWidget(static_cast<int>(pages_.size()), &name);
    pages_.push_back({&page, &name});
}

void StripPlace::open(QWidget& strip) {
    if (std::ranges::find(pages_, &strip, &Page::page) == pages_.end()) {
        addPage(strip);
        stack_->addWidget(&strip);
        connect(&strip, &QObject::destroyed, this, [this, &strip] { forget(&strip); });
    }
    bringUp(strip);
    emit changed();
}

void StripPlace::close(QWidget& strip) {
    if (std::ranges::find(pages_, &strip, &Page::page) == pages_.end())
        return;
    disconnect(&strip, &QObject::destroyed, this, nullptr);
    stack_->removeWidget(&strip);
    forget(&strip);
    emit changed();
}

void StripPlace::forget(const QWidget* page) {
    const auto found = std::ranges::find(pages_, page, &Page::page);
    group_->removeButton(found->name);
    found->name->hide();
    found->name->deleteLater();
    pages_.erase(found);
    if (seen_ == page)
        seen_ = hasStrips() ? stack_->currentWidget() : settings_;
    arrange();
}

void StripPlace::showSettings() {
    if (isLow_)
        bringUp(*settings_);
}

void StripPlace::bringUp(QWidget& page) {
    seen_ = &page;
    if (&page != settings_)
        stack_->setCurrentWidget(&page);
    arrange();
}

int StripPlace::stripHeight() const {
    int height = 0;
    for (const Page& each : pages_)
        if (each.page != settings_)
            height = std::max(height, each.page->sizeHint().height());
    return std::min(height, settings_->sizeHint().height());
}

int StripPlace::heightApart() const {
    const int strips = hasStrips() ? stripHeight() + kGap : 0;
    return kPictureBeside + strips + settings_->sizeHint().height();
}

void StripPlace::setLow(bool isLow) {
    if (std::exchange(isLow_, isLow) != isLow)
        arrange();
}

void StripPlace::arrange() {
    const bool isShared = isLow_ && hasStrips();
    if (!isLow_ && hasStrips() && seen_ == settings_)
        seen_ = stack_->currentWidget();
    stack_->setFixedHeight(isShared ? settings_->sizeHint().height() : stripHeight());
    grid_->removeWidget(settings_);
    if (isShared)
        grid_->addWidget(settings_, 0, 1);
    else
        grid_->addWidget(settings_, 1, 0, 1, 2);
    for (const Page& each : pages_) {
        each.name->setChecked(each.page == seen_);
        each.name->setVisible(isShared || each.page != settings_);
    }
    names_->setVisible(isShared || pages_.size() > 2);
    stack_->setVisible(hasStrips() && seen_ != settings_);
    settings_->setVisible(!isShared || seen_ == settings_);
}

} // namespace scenewright
