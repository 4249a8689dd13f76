// The two commands on the controller, one at a time, as the window runs them.
#pragma once

#include "app/DeviceSession.h"

#include <QObject>

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

} // namespace scenewright
