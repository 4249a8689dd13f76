#include "editor/qt/DeviceCommands.h"

#include "editor/qt/QtHelpers.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMetaObject>
#include <QPointer>

namespace scenewright {

namespace {

bool isInput(QEvent::Type type) {
    switch (static_cast<int>(type)) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::ContextMenu:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
        return true;
    default:
        return false;
    }
}

} // namespace

void DeviceCommands::read() {
    if (isBusy())
        return;
    emit started();
    const auto notKept = keepScenes_ ? keepScenes_() : std::nullopt;
    Outcome outcome;
    {
        const BlockedInput blocked;
        DeviceSession::read([&outcome](const Outcome& ended) { outcome = ended; });
    }
    if (notKept)
        outcome.notKept.push_back(*notKept);
    emit readEnded(outcome);
}

void DeviceCommands::send() {
    if (isBusy())
        return;
    emit started();
    isSending_ = true;
    emit busyChanged(true);
    const SendEnded ended = [self = QPointer(this)](const std::optional<Outcome>& outcome) {
        if (!self) // the window has gone meanwhile
            return;
        self->isSending_ = false;
        emit self->busyChanged(false);
        if (outcome)
            emit self->sendEnded(*outcome);
        else
            emit self->sendCancelled();
    };
    if (sending_)
        return sending_(ended);
    const WaitCursor cursor;
    DeviceSession::send(ended);
}

// Sockets wait: what a screen reader asks for through one is an event of its own time.
BlockedInput::~BlockedInput() {
    QCoreApplication::instance()->installEventFilter(this);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    QCoreApplication::instance()->removeEventFilter(this);
    // Closed once what blocked it has gone on to its end, such as a send after its reading.
    if (closed_)
        QMetaObject::invokeMethod(closed_, &QWidget::close, Qt::QueuedConnection);
}

bool BlockedInput::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close && qobject_cast<QWidget*>(watched) != nullptr) {
        closed_ = qobject_cast<QWidget*>(watched);
        event->ignore();
        return true;
    }
    return isInput(event->type()) || QObject::eventFilter(watched, event);
}

} // namespace scenewright
