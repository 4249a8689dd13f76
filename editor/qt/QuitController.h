// The program's main queue on the toolkit's event loop, and the end of that loop: it waits a while
// for a send that runs.
#pragma once

#include "editor/Widgets.h"

#include <QObject>
#include <QTimer>

#include <chrono>

namespace scenewright {

// While it lives, the tasks of the main queue run in the event loop of the thread that made it.
class MainLoop final : public QObject {
    Q_OBJECT

public:
    MainLoop();
    ~MainLoop() override;
    Q_DISABLE_COPY_MOVE(MainLoop)
};

// Ends the event loop. While a send runs it waits for its end, at most `limit`; then it cancels the
// transfers, gives the controller up, and ends. Main thread.
class QuitController final : public QObject, public Application {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds kLimit{5000};

    explicit QuitController(std::chrono::milliseconds limit = kLimit, QObject* parent = nullptr);

    void terminate() override;
    [[nodiscard]] bool isWaiting() const { return limit_.isActive(); }

signals:
    // A send runs, and the program will end after it.
    void waiting();
    // Nothing runs any more.
    void ended();

private:
    void cancelSend();
    void end();

    QTimer limit_; // active from terminate() to the end
};

} // namespace scenewright
