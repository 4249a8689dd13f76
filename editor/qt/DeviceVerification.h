// What tells a person whether window and controller hold the same: comparing, sending with a look
// afterwards, and the notice after a command that did not do everything.
#pragma once

#include "app/DeviceSession.h"
#include "app/OutcomeText.h"
#include "editor/qt/EarlierCommands.h"
#include "editor/qt/MainWindow.h"
#include "editor/qt/SafeSending.h"

#include <QAction>
#include <QObject>

#include <vector>

namespace scenewright {

// The others outlive it. Main thread only.
class DeviceVerification final : public QObject {
    Q_OBJECT

public:
    DeviceVerification(MainWindow& window, EarlierCommands& earlier, SafeSending& sending);

    // Both do nothing while a send runs. Comparing blocks until it has ended.
    void compare();
    void sendAndVerify();

    // A dialog of them; the keyboard's values first.
    void showDifferences(std::vector<Difference> differences);

    [[nodiscard]] QAction& compareAction() { return *compare_; }
    [[nodiscard]] QAction& verifyAction() { return *verify_; }

private:
    // Puts the controller's values into the stored scenes.
    void take(const std::vector<Difference>& differences);
    QAction* addAction(const QString& title, const QString& keys,
                       void (DeviceVerification::*command)());
    void compareFor(DeviceOperation operation);
    void postOutcome(DeviceOperation operation, const Outcome& outcome,
                     std::vector<NoticeAction> actions);
    void afterRead(const Outcome& outcome);
    void afterSend(const Outcome& outcome);
    // A notice of equality holds while the keyboard is known to hold what is stored.
    void checkEquality();

    MainWindow& window_;
    EarlierCommands& earlier_;
    SafeSending& sending_;
    bool isVerifying_ = false;
    // Children of the Device menu.
    QAction* compare_ = nullptr;
    QAction* verify_ = nullptr;
};

} // namespace scenewright
