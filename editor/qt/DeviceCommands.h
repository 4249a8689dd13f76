// The two commands on the controller, one at a time, as the window runs them.
#pragma once

#include "app/AppDelegate.h"
#include "usb/TransferTally.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace scenewright {

// Main thread only.
class DeviceCommands final : public QObject {
    Q_OBJECT

public:
    explicit DeviceCommands(QObject* parent = nullptr);

    // Both do nothing while a send runs. A read blocks, under the wait cursor, until it has ended.
    void read();
    void send();

    [[nodiscard]] bool isBusy() const { return poll_.isActive(); }
    // Whether the last command reached the controller.
    [[nodiscard]] static bool wasConnected();

signals:
    // A send has begun, or has ended.
    void busyChanged(bool isBusy);
    // What lies behind the end of the last command; empty when nothing is wrong.
    void advised(const QString& advice);
    // A read is about to replace the scenes; it has ended; a send has ended. Each end comes after
    // its advice, and the transport still holds the tally of the command.
    void aboutToRead();
    void readEnded();
    void sendEnded();

private:
    using TallyAdvice = QString (*)(const TransferTally&);
    [[nodiscard]] QString adviceNow(TallyAdvice ofTally) const;
    void checkEnd();

    AppDelegate delegate_;
    QTimer poll_; // active while a send runs
};

} // namespace scenewright
