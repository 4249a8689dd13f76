// Keeps others' connections with the keyboard's MIDI port across transactions and unplugs, while
// the window is open, and says once that they are interrupted.
#pragma once

#include "app/KeyboardPorts.h"
#include "editor/qt/MainWindow.h"

#include <QSocketNotifier>

#include <memory>

namespace scenewright {

// The window outlives it. Main thread only.
class ConnectionKeeper final : public QObject {
    Q_OBJECT

public:
    ConnectionKeeper(MainWindow& window, KeyboardConnections connections);
    // Waits a moment for what is not made again yet.
    ~ConnectionKeeper() override;
    Q_DISABLE_COPY_MOVE(ConnectionKeeper)

private:
    void beforeTransaction();

    MainWindow& window_;
    KeyboardConnections connections_;
    std::unique_ptr<QSocketNotifier> notifier_;
    bool isTold_ = false;
};

} // namespace scenewright
