#include "editor/qt/KeyboardWatch.h"

#include "app/OutcomeText.h"
#include "editor/qt/QtHelpers.h"
#include "protocol/Transactions.h"

#include <QSocketNotifier>

#include <utility>

namespace scenewright {

namespace {

QString textOf(KeyboardPresence presence) {
    switch (presence) {
    case KeyboardPresence::Unplugged:
        return KeyboardWatch::tr("No keyboard plugged in");
    case KeyboardPresence::NoPermission:
        return KeyboardWatch::tr("Keyboard plugged in, but you have no permission to use it");
    case KeyboardPresence::Claimed:
        return KeyboardWatch::tr("Keyboard in use by another program");
    case KeyboardPresence::Usable:
        return KeyboardWatch::tr("Keyboard plugged in");
    }
    return {};
}

QString cureOf(KeyboardPresence presence) {
    if (presence == KeyboardPresence::NoPermission)
        return shown(causeAndCure(kResultAccess));
    if (presence == KeyboardPresence::Claimed)
        return shown(causeAndCure(kResultBusy));
    return {};
}

} // namespace

KeyboardWatch::KeyboardWatch(Look look, QWidget* parent) : QLabel(parent), look_(std::move(look)) {
    setAccessibleDescription(tr("Keyboard")); // its name is its text
    setProperty("role", "field");
    setTextFormat(Qt::PlainText);
    if (!look_)
        setText(tr("Virtual controller"));
    this->look();
}

KeyboardWatch::Look KeyboardWatch::kernelLook() {
    return [] { return keyboardPresence(deviceList(), attachedDevices()); };
}

void KeyboardWatch::follow(Result<DeviceMonitor> monitor) {
    if (!monitor)
        return;
    monitor_ = *std::move(monitor);
    auto& notifier =
        makeChild<QSocketNotifier>(monitor_->descriptor(), QSocketNotifier::Read, this);
    connect(&notifier, &QSocketNotifier::activated, this, [this] {
        monitor_->drain();
        look();
    });
}

void KeyboardWatch::look() {
    // The claim that shows during a send is our own; the end of the send looks again.
    if (!look_ || SendJob::isRunning())
        return;
    const KeyboardPresence presence = look_();
    if (std::exchange(shown_, presence) == presence)
        return;
    setText(textOf(presence));
    setToolTip(cureOf(presence));
}

} // namespace scenewright
