#include "editor/qt/DeviceCommands.h"

#include "editor/qt/BlockedInput.h"
#include "editor/qt/QtHelpers.h"

#include <QPointer>

namespace scenewright {

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

} // namespace scenewright
