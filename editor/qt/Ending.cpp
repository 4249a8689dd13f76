#include "editor/qt/Ending.h"

#include "protocol/SendJob.h"
#include "usb/Transport.h"

#include <QCoreApplication>

namespace scenewright {

namespace {

constexpr std::chrono::milliseconds kEndingPoll{50};

} // namespace

Ending::Ending(std::chrono::milliseconds patience, QObject* parent)
    : QObject(parent), patience_(patience) {
    poll_.setInterval(kEndingPoll);
    connect(&poll_, &QTimer::timeout, this, &Ending::checkEnd);
}

void Ending::terminate() {
    if (isWaiting())
        return;
    waited_.start();
    poll_.start();
    if (SendJob::isRunning())
        emit waiting();
    checkEnd();
}

void Ending::checkEnd() {
    if (SendJob::isRunning() && !waited_.hasExpired(patience_.count()))
        return;
    poll_.stop();
    if (SendJob::isRunning()) {
        Transport::instance().shutDown();
        SendJob::join();
    }
    emit ended();
    // Not quit(): that would ask the window to close, which is what brought us here.
    QCoreApplication::exit(0);
}

} // namespace scenewright
