#include "editor/qt/KeyboardWatch.h"

#include "editor/qt/Text.h"
#include "platform/Diagnostics.h"
#include "protocol/SendJob.h"
#include "usb/ConnectCause.h"
#include "usb/Transport.h"

#include <utility>

namespace scenewright {

namespace {

// A read leaves the interface open until the next transaction.
bool hasOwnClaim() {
    const auto interface = Transport::instance().interface();
    return interface && !interface->isStale();
}

const char* nameOf(KeyboardPresence presence) {
    switch (presence) {
    case KeyboardPresence::Unplugged:
        return "not plugged in";
    case KeyboardPresence::NoPermission:
        return "plugged in, no permission";
    case KeyboardPresence::Claimed:
        return "in use by another program";
    case KeyboardPresence::Usable:
        return "plugged in";
    }
    return "";
}

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
    setAccessibleName(tr("Keyboard"));
    setProperty("role", "field");
    setTextFormat(Qt::PlainText);
    if (!look_) {
        setText(tr("Virtual controller"));
        return;
    }
    timer_.setInterval(kInterval);
    connect(&timer_, &QTimer::timeout, this, &KeyboardWatch::look);
    timer_.start();
    this->look();
}

KeyboardWatch::Look KeyboardWatch::kernelLook() {
    return [] { return keyboardPresence(deviceList()); };
}

void KeyboardWatch::look() {
    if (!SendJob::isRunning())
        show(look_());
}

void KeyboardWatch::show(KeyboardPresence presence) {
    if (presence == KeyboardPresence::Claimed && hasOwnClaim())
        presence = KeyboardPresence::Usable;
    if (std::exchange(shown_, presence) == presence)
        return;
    Diagnostics::log("Keyboard: %s", nameOf(presence));
    setText(textOf(presence));
    setToolTip(cureOf(presence));
}

} // namespace scenewright
