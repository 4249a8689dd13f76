// Keeps the edited scenes on the disk while they are neither sent nor saved, and offers those that
// an ended program has left.
#pragma once

#include "app/KnownKeyboard.h"
#include "app/Recovery.h"
#include "editor/qt/Document.h"
#include "editor/qt/EarlierCommands.h"
#include "editor/qt/MainWindow.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>

namespace scenewright {

// All that it is given outlives it; its end puts the last edit on the disk. Main thread only.
class ScenesKeeper final : public QObject {
    Q_OBJECT

public:
    // From an edit to the disk, while the event loop runs.
    static constexpr std::chrono::milliseconds kDelay{1000};

    ScenesKeeper(MainWindow& window, History& history, EarlierCommands& earlier,
                 std::shared_ptr<Recovery> recovery);
    ~ScenesKeeper() override;
    Q_DISABLE_COPY_MOVE(ScenesKeeper)

private:
    void follow();
    void flush();
    // A notice for the newest that was left; none when there is nothing.
    void offer();
    void bringBack(const Recovery::Left& left);

    MainWindow& window_;
    EarlierCommands& earlier_;
    std::shared_ptr<Recovery> recovery_;
    QTimer delay_;
    bool isTroubleTold_ = false;
    KnownKeyboard::Subscription keyboard_;
};

} // namespace scenewright
