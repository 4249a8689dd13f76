#include "editor/qt/QuitController.h"

#include "platform/MainQueue.h"
#include "protocol/Transactions.h"
#include "usb/Transport.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QPointer>

#include <utility>

namespace scenewright {

MainLoop::MainLoop() {
    MainQueue::adopt([this](MainQueue::Task task) {
        QMetaObject::invokeMethod(this, std::move(task), Qt::QueuedConnection);
    });
}

MainLoop::~MainLoop() {
    MainQueue::adopt({});
}

QuitController::QuitController(std::chrono::milliseconds limit, QObject* parent) : QObject(parent) {
    limit_.setSingleShot(true);
    limit_.setInterval(limit);
    connect(&limit_, &QTimer::timeout, this, &QuitController::cancelSend);
}

void QuitController::terminate() {
    if (isWaiting())
        return;
    limit_.start();
    if (SendJob::isRunning())
        emit waiting();
    SendJob::whenIdle([self = QPointer(this)] {
        if (self && self->isWaiting())
            self->end();
    });
}

void QuitController::cancelSend() {
    Transport::instance().shutDown();
    SendJob::join();
    end();
}

void QuitController::end() {
    limit_.stop();
    emit ended();
    // Not quit(): that would ask the window to close, which is what brought us here.
    QCoreApplication::exit(0);
}

} // namespace scenewright
