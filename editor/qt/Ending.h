// The end of the program: it waits a while for a send that runs.
#pragma once

#include "editor/widgets/Widgets.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>

namespace scenewright {

// Ends the event loop. While a send runs it waits for it, at most `patience`; then it cancels the
// transfers, gives the controller up, and ends. Main thread.
class Ending final : public QObject, public Application {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds kPatience{5000};

    explicit Ending(std::chrono::milliseconds patience = kPatience, QObject* parent = nullptr);

    void terminate() override;
    [[nodiscard]] bool isWaiting() const { return poll_.isActive(); }

signals:
    // A send runs, and the program will end after it.
    void waiting();
    // Nothing runs any more.
    void ended();

private:
    void checkEnd();

    std::chrono::milliseconds patience_;
    QElapsedTimer waited_;
    QTimer poll_;
};

} // namespace scenewright
