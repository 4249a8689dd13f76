#include "editor/qt/DeviceVerification.h"

#include "app/DeviceSession.h"
#include "editor/qt/DeviceCommands.h"
#include "editor/qt/DifferenceDialog.h"
#include "editor/qt/QtHelpers.h"

#include <utility>
#include <vector>

namespace scenewright {

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
    connect(&window, &MainWindow::refreshed, this, &DeviceVerification::checkEquality);
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

void DeviceVerification::checkEquality() {
    if (KnownKeyboard::image() != storedImage())
        window_.notices().withdraw(Notice::Source::Comparison);
}

} // namespace scenewright
