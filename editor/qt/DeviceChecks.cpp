#include "editor/qt/DeviceChecks.h"

#include "editor/qt/DifferenceDialog.h"
#include "editor/qt/Owned.h"
#include "editor/qt/Text.h"
#include "editor/qt/WaitCursor.h"
#include "protocol/SceneImage.h"
#include "usb/ConnectCause.h"
#include "usb/Transport.h"

#include <vector>

namespace scenewright {

DeviceChecks::DeviceChecks(MainWindow& window, BankCommands& banks, NoticeBar& notice)
    : window_(window), banks_(banks), notice_(notice) {
    window.menu().device().addSeparator();
    compare_ = addAction(tr("&Compare With Device"), tr("Ctrl+D"), &DeviceChecks::compare);
    verify_ =
        addAction(tr("Send And &Verify"), tr("Ctrl+Shift+Return"), &DeviceChecks::sendAndVerify);
    const DeviceCommands& commands = window.commands();
    connect(&commands, &DeviceCommands::busyChanged, this, [this](bool isBusy) {
        compare_->setEnabled(!isBusy);
        verify_->setEnabled(!isBusy);
        if (isBusy)
            notice_.dismiss();
    });
    connect(&commands, &DeviceCommands::aboutToRead, &notice, &NoticeBar::dismiss);
    connect(&commands, &DeviceCommands::readEnded, this, &DeviceChecks::afterRead);
    connect(&commands, &DeviceCommands::sendEnded, this, &DeviceChecks::afterSend);
    connect(&banks, &BankCommands::replaced, &notice, &NoticeBar::dismiss);
}

QAction* DeviceChecks::addAction(const QString& title, const QString& keys,
                                 void (DeviceChecks::*command)()) {
    QAction* action = window_.menu().device().addAction(title);
    action->setShortcut(QKeySequence(keys));
    connect(action, &QAction::triggered, this, command);
    return action;
}

void DeviceChecks::compare() {
    if (window_.commands().isBusy())
        return;
    notice_.dismiss();
    window_.status().setAdvice({});
    DeviceComparison comparison;
    {
        const WaitCursor cursor;
        comparison = compareWithDevice(*window_.view().pu());
    }
    showComparison(comparison);
}

void DeviceChecks::sendAndVerify() {
    if (window_.commands().isBusy())
        return;
    isVerifying_ = true;
    window_.commands().send();
}

void DeviceChecks::showComparison(const DeviceComparison& comparison) {
    if (!comparison.isConnected) {
        window_.status().setAdvice(shown(connectCause()));
        return;
    }
    if (!comparison.tally.isClean()) {
        notice_.tell(NoticeBar::Kind::Trouble,
                     tr("Not compared: %1 of the controller's %2 bytes could not be read.")
                         .arg(doubtfulBytes(comparison.tally))
                         .arg(kBankSize),
                     {{tr("Compare Again"), [this] { compare(); }}});
        return;
    }
    if (comparison.isSame()) {
        notice_.tell(NoticeBar::Kind::Done, tr("The controller holds what you see"));
        return;
    }
    QStringList lines;
    for (const std::string& line : comparison.differences)
        lines.append(shown(line));
    auto& dialog = owned<DifferenceDialog>(lines, &window_);
    dialog.setAttribute(Qt::WA_DeleteOnClose);
    dialog.open();
}

void DeviceChecks::afterRead() {
    std::vector<NoticeBar::Offer> offers;
    if (banks_.hasEarlier())
        offers.push_back({tr("Bring Back Earlier Scenes"), [this] { banks_.bringBackNewest(); }});
    if (!DeviceCommands::wasConnected()) {
        notice_.tell(NoticeBar::Kind::Trouble,
                     tr("Nothing of what is shown came from the keyboard: these are default "
                        "scenes."),
                     std::move(offers));
        return;
    }
    const TransferTally tally = Transport::instance().tally();
    if (tally.isClean())
        return;
    window_.status().setAdvice({}); // the notice says it better
    notice_.tell(NoticeBar::Kind::Trouble,
                 tr("%1 of the %2 bytes shown did not come from the keyboard.")
                     .arg(doubtfulBytes(tally))
                     .arg(kBankSize),
                 std::move(offers));
}

void DeviceChecks::afterSend() {
    const bool wasVerifying = std::exchange(isVerifying_, false);
    if (!DeviceCommands::wasConnected())
        return;
    if (!Transport::instance().tally().isClean())
        tellHalfBank(wasVerifying);
    else if (wasVerifying)
        compare();
}

void DeviceChecks::tellHalfBank(bool wasVerifying) {
    const TransferTally tally = Transport::instance().tally();
    window_.status().setAdvice({}); // the notice says it
    notice_.tell(NoticeBar::Kind::Trouble,
                 tr("%1 of %2 transfers failed: the controller may hold half a bank.")
                     .arg(tally.failedReads + tally.failedWrites)
                     .arg(tally.reads + tally.writes),
                 {{tr("Send Again"), [this, wasVerifying] {
                       if (wasVerifying)
                           sendAndVerify();
                       else
                           window_.commands().send();
                   }}});
}

} // namespace scenewright
