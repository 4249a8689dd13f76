#include "editor/qt/DeviceVerification.h"

#include "app/DeviceSession.h"
#include "app/SceneChanges.h"
#include "editor/ControlDescription.h"
#include "editor/qt/DeviceCommands.h"
#include "editor/qt/Dialogs.h"
#include "editor/qt/QtHelpers.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

constexpr QSize kDialogSize(680, 440);

QString controlWords(const SettingPlace& place) {
    if (place.kind == ControlKind::Common)
        return DifferenceDialog::tr("Scene %1").arg(place.scene + 1);
    return DifferenceDialog::tr("Scene %1, %2")
        .arg(place.scene + 1)
        .arg(shown(controlName(controlIndexOf(place))));
}

QString settingWords(const SettingPlace& place) {
    return place.isName() ? DifferenceDialog::tr("Scene name")
                          : shown(settingTitle(*place.setting));
}

} // namespace

DifferenceDialog::DifferenceDialog(std::vector<Difference> differences, QWidget* parent)
    : QDialog(parent), differences_(std::move(differences)), count_(&makeChild<QLabel>(this)),
      table_(&makeChild<QTreeWidget>(this)) {
    auto& column = layOutDialog(*this, tr("Differences"));
    column.setSpacing(8);
    count_->setProperty("role", "notice");
    column.addWidget(count_);
    layOutTable(*table_, windowTitle(),
                {tr("Control"), tr("Setting"), tr("Keyboard"), tr("Window")});
    table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    column.addWidget(table_, 1);
    auto& hint = makeChild<QLabel>(
        tr("Taking changes the window alone. A send transmits the four scenes whole."), this);
    hint.setProperty("role", "hint");
    column.addWidget(&hint);
    addButtons(addRow(*this, column, tr("Actions")));
    fill();
    connect(table_, &QTreeWidget::currentItemChanged, this, &DifferenceDialog::tellChosen);
    connect(table_, &QTreeWidget::itemActivated, this, [this] {
        tellChosen();
        accept();
    });
    resize(kDialogSize);
}

void DifferenceDialog::addButtons(QHBoxLayout& row) {
    const auto add = [&row](const QString& title, const QString& help) -> QPushButton& {
        return addRowButton(row, title, help);
    };
    auto& take = add(tr("&Take the Keyboard's"),
                     tr("Puts what the keyboard holds into the window: of the selected rows, or of "
                        "all when none is selected"));
    auto& send = add(tr("&Send These"), tr("Sends the four scenes of the window, whole"));
    auto& copy = add(tr("Cop&y as Text"), tr("Copies the selected rows, or all"));
    row.addStretch();
    auto& close = add(tr("&Close"), {});
    close.setDefault(true);
    take_ = &take;
    connect(&take, &QPushButton::clicked, this, &DifferenceDialog::take);
    connect(&send, &QPushButton::clicked, this, [this] {
        accept();
        emit sendWanted();
    });
    connect(&copy, &QPushButton::clicked, this, &DifferenceDialog::copy);
    connect(&close, &QPushButton::clicked, this, &QDialog::accept);
}

void DifferenceDialog::fill() {
    const QSignalBlocker blocker(table_);
    table_->clear();
    QList<QTreeWidgetItem*> rows;
    for (const Difference& difference : differences_) {
        const DifferenceTexts values = valuesInWords(difference);
        const QStringList texts{controlWords(difference.place), settingWords(difference.place),
                                shown(values.first), shown(values.second)};
        rows.append(std::make_unique<QTreeWidgetItem>(texts).release());
    }
    table_->addTopLevelItems(rows); // which owns them from here
    fitColumns(*table_);
    take_->setEnabled(!differences_.empty());
    showCount();
}

void DifferenceDialog::showCount() {
    const std::size_t count = differences_.size();
    count_->setText(count == 1
                        ? tr("One setting of the controller is not what you see.")
                        : tr("%1 settings of the controller are not what you see.").arg(count));
}

std::vector<std::size_t> DifferenceDialog::wanted() const {
    const bool isAny = !table_->selectedItems().isEmpty();
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < differences_.size(); ++place)
        if (!isAny || table_->topLevelItem(static_cast<int>(place))->isSelected())
            places.push_back(place);
    return places;
}

void DifferenceDialog::take() {
    std::vector<Difference> taken;
    for (const std::size_t place : wanted())
        taken.push_back(differences_[place]);
    std::erase_if(differences_, [&taken](const Difference& difference) {
        return std::ranges::find(taken, difference.place, &Difference::place) != taken.end();
    });
    fill();
    emit takeWanted(taken);
    if (differences_.empty())
        accept();
}

void DifferenceDialog::copy() const {
    QStringList words;
    for (const std::size_t place : wanted())
        words.append(shown(differenceWords(differences_[place])));
    QGuiApplication::clipboard()->setText(words.join(QLatin1Char('\n')));
}

void DifferenceDialog::tellChosen() {
    const int row = table_->indexOfTopLevelItem(table_->currentItem());
    const SettingPlace& place = differences_.at(static_cast<std::size_t>(row)).place;
    emit chosen(place.scene, controlIndexOf(place));
}

void DifferenceDialog::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        copy();
    else
        QDialog::keyPressEvent(event);
}

QStringList DifferenceDialog::lines() const {
    QStringList words;
    for (const Difference& difference : differences_)
        words.append(shown(differenceWords(difference)));
    return words;
}

DeviceVerification::DeviceVerification(MainWindow& window, EarlierCommands& earlier,
                                       SafeSending& sending)
    : window_(window), earlier_(earlier), sending_(sending) {
    compare_ = addAction(tr("&Compare With Device"), tr("Ctrl+D"), &DeviceVerification::compare);
    verify_ = addAction(tr("Send And &Verify"), tr("Ctrl+Shift+Return"),
                        &DeviceVerification::sendAndVerify);
    window.menu().device().insertSeparator(&sending.readFirstAction());
    const DeviceCommands& commands = window.commands();
    connect(&commands, &DeviceCommands::busyChanged, this, [this](bool isBusy) {
        compare_->setEnabled(!isBusy);
        verify_->setEnabled(!isBusy);
    });
    connect(&commands, &DeviceCommands::started, this, [this] {
        window_.notices().withdraw(Notice::Source::Transfer);
        window_.notices().withdraw(Notice::Source::Comparison);
    });
    connect(&commands, &DeviceCommands::readEnded, this, &DeviceVerification::afterRead);
    connect(&commands, &DeviceCommands::sendEnded, this, &DeviceVerification::afterSend);
    connect(&commands, &DeviceCommands::sendCancelled, this, [this] { isVerifying_ = false; });
    // What is shown now came from a file, whatever a read told of the scenes before.
    connect(&earlier.document(), &Document::replaced, this,
            [this] { window_.notices().withdraw(Notice::Source::Transfer); });
    // A notice of equality holds while the keyboard is known to hold what is stored.
    connect(&window, &MainWindow::refreshed, this, [this] {
        if (KnownKeyboard::image() != storedImage())
            window_.notices().withdraw(Notice::Source::Comparison);
    });
}

QAction* DeviceVerification::addAction(const QString& title, const QString& keys,
                                       void (DeviceVerification::*command)()) {
    auto* const action = &makeChild<QAction>(title, &window_.menu().device());
    window_.menu().device().insertAction(&sending_.readFirstAction(), action);
    action->setShortcut(QKeySequence(keys));
    connect(action, &QAction::triggered, this, command);
    return action;
}

void DeviceVerification::compare() {
    if (!window_.commands().isBusy())
        compareFor(DeviceOperation::Compare);
}

void DeviceVerification::sendAndVerify() {
    if (window_.commands().isBusy())
        return;
    isVerifying_ = true;
    window_.commands().send();
}

void DeviceVerification::compareFor(DeviceOperation operation) {
    window_.notices().withdraw(Notice::Source::Comparison);
    DeviceComparison comparison;
    {
        const BlockedInput blocked;
        comparison = compareWithDevice(*window_.view().pu(), WindowAction::scenes());
    }
    postOutcome(operation, comparison.outcome,
                {{tr("Compare Again"), [this, operation] { compareFor(operation); }}});
    if (comparison.outcome.end != Outcome::End::Done)
        return;
    if (comparison.differences.empty()) {
        window_.notices().post({.source = Notice::Source::Comparison,
                                .kind = Notice::Kind::Done,
                                .text = shown(comparisonText(DeviceOperation::Compare, 0))});
        return;
    }
    showDifferences(std::move(comparison.differences));
}

void DeviceVerification::showDifferences(std::vector<Difference> differences) {
    auto& dialog = makeChild<DifferenceDialog>(std::move(differences), &window_);
    dialog.setAttribute(Qt::WA_DeleteOnClose);
    connect(&dialog, &DifferenceDialog::chosen, &window_, &MainWindow::showControl);
    connect(&dialog, &DifferenceDialog::takeWanted, this, &DeviceVerification::take);
    connect(&dialog, &DifferenceDialog::sendWanted, &window_.commands(), &DeviceCommands::send);
    dialog.open();
}

void DeviceVerification::take(const std::vector<Difference>& differences) {
    for (const Difference& difference : differences)
        writeFirst(difference, WindowAction::scenes());
    window_.view().showChosenControl();
}

void DeviceVerification::postOutcome(DeviceOperation operation, const Outcome& outcome,
                                     std::vector<NoticeAction> actions) {
    const std::string text = textOf(operation, outcome).joined("\n");
    if (!text.empty())
        window_.notices().post({.source = Notice::Source::Transfer,
                                .kind = Notice::Kind::Error,
                                .text = shown(text),
                                .actions = std::move(actions)});
}

void DeviceVerification::afterRead(const Outcome& outcome) {
    std::vector<NoticeAction> actions;
    if (outcome.end != Outcome::End::Done && earlier_.hasLatest())
        actions.push_back({tr("Bring Back Earlier Scenes"), [this] { earlier_.restoreLatest(); }});
    postOutcome(DeviceOperation::ShowScenes, outcome, std::move(actions));
}

void DeviceVerification::afterSend(const Outcome& outcome) {
    const bool wasVerifying = std::exchange(isVerifying_, false);
    std::vector<NoticeAction> actions;
    if (outcome.end != Outcome::End::Done) {
        actions = sending_.wayBack();
        actions.insert(actions.begin(), {tr("Send Again"), [this, wasVerifying] {
                                             if (wasVerifying)
                                                 sendAndVerify();
                                             else
                                                 window_.commands().send();
                                         }});
    }
    postOutcome(DeviceOperation::Send, outcome, std::move(actions));
    if (wasVerifying && outcome.end == Outcome::End::Done)
        compareFor(DeviceOperation::Verify);
}

} // namespace scenewright
