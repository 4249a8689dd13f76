// The two commands on the controller, as the window runs them, what is asked and told around a
// send, and the end of the program, which waits for one. Main thread only.
#pragma once

#include "app/DeviceSession.h"
#include "app/SafeSend.h"
#include "editor/Widgets.h"
#include "editor/qt/Notice.h"

#include <QGuiApplication>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class QAction;

namespace scenewright {

class EarlierCommands;
class MainWindow;

// The commands, one at a time, and what becomes of the user's input meanwhile.
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
// after.
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

// The window's side of a safe send: what is asked before it, what is told after it and at a start
// after a send that did not end, and whether the keyboard is read first. Window and earlier scenes
// outlive it.
class SafeSending final : public QObject {
    Q_OBJECT

public:
    SafeSending(MainWindow& window, EarlierCommands& earlier, SendJournal journal);

    // A notice of the newest send that did not end, as long as there is one.
    void tellUnfinished();
    // What helps after a send whose transfers failed, beside sending again; none if it is not known
    // what the keyboard held.
    [[nodiscard]] std::vector<NoticeAction> wayBack();

    [[nodiscard]] QAction& readFirstAction() { return *readFirst_; }

private:
    void addPreference();
    void send(const DeviceCommands::SendEnded& ended);
    void ask(const SafeSend::Asked& asked, const SafeSend::Answered& answered);
    void afterSend(const SafeSend::Ended& ended);
    // That the keyboard held other scenes than the window knew.
    void tellOthers(const BankImage& others);
    // Makes the image the stored scenes, and sends them.
    void sendImage(const BankImage& image);
    [[nodiscard]] bool isUntouched() const;

    MainWindow& window_;
    EarlierCommands& earlier_;
    SendJournal journal_;
    KnownKeyboard::Subscription known_;
    bool isChosen_ = false;        // the scenes shown were opened or brought back
    QAction* readFirst_ = nullptr; // child of the Device menu
};

// While it lives, the tasks of the main queue run in the event loop of the thread that made it.
class MainLoop final : public QObject {
    Q_OBJECT

public:
    MainLoop();
    ~MainLoop() override;
    Q_DISABLE_COPY_MOVE(MainLoop)
};

// Ends the event loop. While a send runs it waits for its end, at most `limit`; then it cancels the
// transfers, gives the controller up, and ends.
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
