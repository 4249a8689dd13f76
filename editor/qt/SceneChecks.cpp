#include "editor/qt/SceneChecks.h"

#include "editor/ControlDescription.h"
#include "editor/qt/QtHelpers.h"

#include <QVBoxLayout>

#include <algorithm>

namespace scenewright {

namespace {

constexpr QSize kListSize(560, 320);

} // namespace

SceneChecks::SceneChecks(MainWindow& window, History& history)
    : window_(window), badge_(&makeChild<QPushButton>(&window.status())) {
    badge_->setFlat(true);
    badge_->setAutoDefault(false);
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
    if (row < 0)
        return;
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
