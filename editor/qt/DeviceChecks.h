// What tells a person whether window and controller hold the same: comparing, sending with a look
// afterwards, and the notice after a transfer that did not go well.
#pragma once

#include "app/DeviceComparison.h"
#include "editor/qt/BankCommands.h"
#include "editor/qt/MainWindow.h"
#include "editor/qt/NoticeBar.h"

#include <QAction>
#include <QObject>

namespace scenewright {

// Window, banks and notice outlive it. Main thread only.
class DeviceChecks final : public QObject {
    Q_OBJECT

public:
    DeviceChecks(MainWindow& window, BankCommands& banks, NoticeBar& notice);

    // Both do nothing while a send runs. Comparing blocks until it has ended.
    void compare();
    void sendAndVerify();

    [[nodiscard]] QAction& compareAction() { return *compare_; }
    [[nodiscard]] QAction& verifyAction() { return *verify_; }

private:
    QAction* addAction(const QString& title, const QString& keys, void (DeviceChecks::*command)());
    void showComparison(const DeviceComparison& comparison);
    void afterRead();
    void afterSend();
    void tellHalfBank(bool wasVerifying);

    MainWindow& window_;
    BankCommands& banks_;
    NoticeBar& notice_;
    bool isVerifying_ = false;
    // Children of the Device menu.
    QAction* compare_ = nullptr;
    QAction* verify_ = nullptr;
};

} // namespace scenewright
