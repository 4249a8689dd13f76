// The two commands on the controller, one at a time, as the window runs them, and what becomes of
// the user's input meanwhile.
#pragma once

#include "app/DeviceSession.h"

#include <QGuiApplication>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace scenewright {

// Main thread only.
class DeviceCommands final : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    // Keeps the scenes that a read is about to replace; gives one sentence when it could not.
    using KeepScenes = std::function<std::optional<std::string>()>;
    void setKeepScenes(KeepScenes keep) { keepScenes_ = std::move(keep); }

    // Sends the stored scenes, and tells how that ended, or nothing when they were not sent.
    using SendEnded = std::function<void(const std::optional<Outcome>&)>;
    using Sending = std::function<void(const SendEnded&)>;
    // In place of the plain send.
    void setSending(Sending sending) { sending_ = std::move(sending); }

    // Both do nothing while a send runs. A read blocks, under the wait cursor, until it has ended.
    void read();
    void send();

    [[nodiscard]] bool isBusy() const { return isSending_; }

signals:
    // A send has begun, or has ended.
    void busyChanged(bool isBusy);
    // A read or a send begins.
    void started();
    // What the command did, once it has ended and the keyboard was given back.
    void readEnded(const scenewright::Outcome& outcome);
    void sendEnded(const scenewright::Outcome& outcome);
    // The user was asked, and did not want it.
    void sendCancelled();

private:
    KeepScenes keepScenes_;
    Sending sending_;
    bool isSending_ = false;
};

// The wait cursor over the program's windows, as long as the object lives.
class WaitCursor {
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(WaitCursor)
};

// The main thread's busy time, as the user meets it: the wait cursor, and no key or click that is
// carried out afterwards, on another window than the one it was meant for. Over the program's
// windows, as long as the object lives. Its end takes what the window system has told meanwhile,
// and drops keys, clicks, the wheel and touches; a window that was to be closed is closed soon
// after. Main thread only.
class BlockedInput final : public QObject {
    Q_OBJECT

public:
    BlockedInput() = default;
    ~BlockedInput() override;
    Q_DISABLE_COPY_MOVE(BlockedInput)

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const WaitCursor cursor_;
    QPointer<QWidget> closed_;
};

} // namespace scenewright
