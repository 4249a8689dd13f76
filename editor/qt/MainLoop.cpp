#include "editor/qt/MainLoop.h"

#include "platform/MainQueue.h"

#include <QMetaObject>

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

} // namespace scenewright
