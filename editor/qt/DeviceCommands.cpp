#include "editor/qt/DeviceCommands.h"

#include "app/WindowAction.h"
#include "editor/qt/Text.h"
#include "editor/qt/TransferAdvice.h"
#include "editor/qt/WaitCursor.h"
#include "protocol/SendJob.h"
#include "usb/ConnectCause.h"
#include "usb/Transport.h"

#include <string_view>

namespace scenewright {

namespace {

constexpr std::string_view kNotConnected = "Could not connect to midi device";
constexpr std::chrono::milliseconds kTransferPoll{50};

} // namespace

DeviceCommands::DeviceCommands(QObject* parent) : QObject(parent) {
    poll_.setInterval(kTransferPoll);
    connect(&poll_, &QTimer::timeout, this, &DeviceCommands::checkEnd);
}

bool DeviceCommands::wasConnected() {
    return WindowAction::getMessageValue()->Message() != kNotConnected;
}

QString DeviceCommands::adviceNow(TallyAdvice ofTally) const {
    if (!wasConnected())
        return shown(connectCause());
    return ofTally(Transport::instance().tally());
}

void DeviceCommands::read() {
    if (SendJob::isRunning())
        return;
    emit advised({});
    emit aboutToRead();
    {
        const WaitCursor cursor;
        delegate_.readSceneDataAction();
    }
    emit advised(adviceNow(&readAdvice));
    emit readEnded();
}

void DeviceCommands::send() {
    if (SendJob::isRunning())
        return;
    emit advised({});
    {
        const WaitCursor cursor;
        delegate_.sendSceneDataAction();
    }
    // Told as busy even if the job should have ended by now, so that every send ends in one way.
    poll_.start();
    emit busyChanged(true);
    checkEnd();
}

void DeviceCommands::checkEnd() {
    if (SendJob::isRunning())
        return;
    poll_.stop();
    emit busyChanged(false);
    emit advised(adviceNow(&sendAdvice));
    emit sendEnded();
}

} // namespace scenewright
