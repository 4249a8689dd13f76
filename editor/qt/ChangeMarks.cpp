#include "editor/qt/ChangeMarks.h"

#include "app/SceneChanges.h"

#include <QStyle>
#include <QStyleOptionButton>

#include <algorithm>
#include <array>
#include <cstdint>

namespace scenewright {

namespace {

constexpr std::size_t kUsualCount = 88; // that there is room for

} // namespace

UnsentButton::UnsentButton(QWidget* parent) : QPushButton(parent) {
    setFlat(true);
    setAutoDefault(false);
    QSizePolicy policy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
    setAccessibleName(sentence(0));
    hide();
}

QString UnsentButton::sentence(std::size_t count) {
    return count == 1 ? tr("1 change not sent") : tr("%1 changes not sent").arg(count);
}

void UnsentButton::setCount(std::size_t count) {
    count_ = count;
    setAccessibleName(sentence(count));
    setToolTip(tr("Show in what the window and the keyboard differ"));
    showText();
    setVisible(count > 0);
}

QSize UnsentButton::sizeOf(const QString& text) const {
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = text;
    const QSize content = fontMetrics().size(Qt::TextShowMnemonic, text);
    return style()->sizeFromContents(QStyle::CT_PushButton, &option, content, this);
}

QSize UnsentButton::sizeHint() const {
    return sizeOf(sentence(std::max(count_, kUsualCount)));
}

QSize UnsentButton::minimumSizeHint() const {
    return sizeOf(QString::number(std::max(count_, kUsualCount)));
}

void UnsentButton::resizeEvent(QResizeEvent* event) {
    QPushButton::resizeEvent(event);
    showText();
}

void UnsentButton::showText() {
    const QString whole = sentence(count_);
    setText(sizeOf(whole).width() <= width() ? whole : QString::number(count_));
}

ChangeMarks::ChangeMarks(MainWindow& window, History& history, DeviceVerification& verification)
    : window_(window) {
    QMenu& view = window.menu().view();
    picture_ = view.addAction(tr("Mark What Is Not Sent"));
    picture_->setCheckable(true);
    connect(picture_, &QAction::toggled, this, &ChangeMarks::showOnPicture);
    connect(&window.unsentButton(), &QPushButton::clicked, this,
            [this, &verification] { verification.showDifferences(unsent_); });
    connect(&history, &History::changed, this, &ChangeMarks::follow);
    // Another scene is shown; what differs is the same.
    connect(&window, &MainWindow::refreshed, this, &ChangeMarks::showOnPicture);
    keyboard_ = KnownKeyboard::addObserver([this] { follow(); });
    follow();
}

void ChangeMarks::follow() {
    unsent_ = unsentChanges(*window_.view().pu());
    window_.unsentButton().setCount(unsent_.size());
    MainWindow::SceneMarks marks{};
    for (const Difference& difference : unsent_)
        marks.at(static_cast<std::size_t>(difference.place.scene)) = true;
    window_.setSceneMarks(marks);
    showOnPicture();
}

void ChangeMarks::showOnPicture() {
    std::array<bool, kControlIndexEnd> differs{};
    if (picture_->isChecked())
        for (const Difference& difference : unsent_)
            if (difference.place.scene == window_.view().sceneIndex())
                differs.at(static_cast<std::size_t>(controlIndexOf(difference.place))) = true;
    for (std::int32_t control = 1; control <= kControlCount; ++control)
        window_.picture().button(control)->setMarked(differs.at(static_cast<std::size_t>(control)));
}

} // namespace scenewright
