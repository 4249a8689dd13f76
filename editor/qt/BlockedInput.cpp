#include "editor/qt/BlockedInput.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMetaObject>

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

BlockedInput::BlockedInput() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

// Sockets wait: what a screen reader asks for through one is an event of its own time.
BlockedInput::~BlockedInput() {
    QCoreApplication::instance()->installEventFilter(this);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    QCoreApplication::instance()->removeEventFilter(this);
    // Closed once what blocked it has gone on to its end, such as a send after its reading.
    if (closed_)
        QMetaObject::invokeMethod(closed_, &QWidget::close, Qt::QueuedConnection);
    QGuiApplication::restoreOverrideCursor();
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
