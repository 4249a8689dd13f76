// The window's side of a safe send: what is asked before it, what is told after it and at a start
// after a send that did not end, and whether the keyboard is read first.
#pragma once

#include "app/DeviceSession.h"
#include "app/SafeSend.h"
#include "editor/qt/EarlierCommands.h"
#include "editor/qt/MainWindow.h"

#include <QAction>
#include <QObject>

#include <memory>
#include <vector>

namespace scenewright {

// Window and earlier scenes outlive it. Main thread only.
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

} // namespace scenewright
