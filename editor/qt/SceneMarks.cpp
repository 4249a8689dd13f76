#include "editor/qt/SceneMarks.h"

#include "app/SceneChanges.h"
#include "editor/ControlDescription.h"
#include "editor/qt/QtHelpers.h"

#include <QStyle>
#include <QStyleOptionButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <cstdint>

namespace scenewright {

namespace {

constexpr std::size_t kUsualCount = 88; // that there is room for

constexpr QSize kListSize(560, 320);

} // namespace

UnsentButton::UnsentButton(QWidget* parent) : QPushButton(parent) {
    setFlat(true);
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

SceneChecks::SceneChecks(MainWindow& window, History& history)
    : window_(window), badge_(&makeChild<QPushButton>(&window.status())) {
    badge_->setFlat(true);
    badge_->setToolTip(tr("What may not be meant in these scenes"));
    badge_->setAccessibleName(badge_->toolTip());
    badge_->hide();
    window.status().addMark(*badge_);
    connect(badge_, &QPushButton::clicked, this, &SceneChecks::showList);
    pause_.setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, &SceneChecks::look);
    connect(&history, &History::changed, this, [this] { pause_.start(); });
    pause_.start();
}

void SceneChecks::look() {
    const auto lists = window_.view().pu();
    findings_ = lists ? StoredScenes::findings(*lists) : std::vector<Finding>();
    badge_->setVisible(!findings_.empty());
    badge_->setText(tr("%1 to check").arg(findings_.size()));
    badge_->setAccessibleName(badge_->text());
    if (list_ != nullptr)
        fill();
}

QString SceneChecks::textOf(const Finding& finding) {
    QStringList controls;
    for (const std::int32_t control : finding.controls)
        if (control > 0)
            controls.append(shown(controlName(control)));
    const QString scene = tr("Scene %1").arg(finding.scene + 1);
    const QString place = controls.isEmpty()
                              ? scene
                              : scene + QLatin1String(", ") + controls.join(QLatin1String(", "));
    return tr("%1: %2").arg(place, shown(finding.text));
}

void SceneChecks::fill() {
    const QSignalBlocker quiet(list_); // the rows change, and the user chose nothing
    const int row = list_->currentRow();
    list_->clear();
    for (const Finding& finding : findings_)
        list_->addItem(textOf(finding));
    list_->setCurrentRow(std::min(row, list_->count() - 1));
}

void SceneChecks::choose(int row) {
    const Finding finding = findings_.at(static_cast<std::size_t>(row));
    window_.showControl(finding.scene, finding.controls.empty() ? 0 : finding.controls.front());
}

void SceneChecks::showList() {
    if (dialog_ == nullptr) {
        dialog_ = &makeChild<QDialog>(&window_);
        dialog_->setWindowTitle(tr("To Check"));
        dialog_->setAccessibleName(dialog_->windowTitle());
        auto& column = makeChild<QVBoxLayout>(dialog_);
        column.setContentsMargins(12, 12, 12, 12);
        list_ = &makeChild<QListWidget>(dialog_);
        list_->setAccessibleName(dialog_->windowTitle());
        list_->setWordWrap(true);
        column.addWidget(list_);
        dialog_->resize(kListSize);
        connect(list_, &QListWidget::currentRowChanged, this, &SceneChecks::choose);
        connect(list_, &QListWidget::itemClicked, this, [this] { choose(list_->currentRow()); });
        fill();
    }
    bringUp(*dialog_);
}

} // namespace scenewright
