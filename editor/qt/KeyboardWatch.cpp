#include "editor/qt/KeyboardWatch.h"

#include "app/OutcomeText.h"
#include "editor/qt/QtHelpers.h"
#include "protocol/Transactions.h"

#include <QSocketNotifier>

#include <utility>

namespace scenewright {

namespace {

QString textOf(KeyboardPresence presence, bool isChosen) {
    switch (presence) {
    case KeyboardPresence::Unplugged:
        if (isChosen)
            return KeyboardWatch::tr("The chosen keyboard is not plugged in");
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

KeyboardWatch::KeyboardWatch(std::shared_ptr<const Keyboards> keyboards, QWidget* parent)
    : QLabel(parent), keyboards_(std::move(keyboards)) {
    setAccessibleDescription(tr("Keyboard")); // its name is its text
    setProperty("role", "field");
    setTextFormat(Qt::PlainText);
    if (!keyboards_)
        setText(tr("Virtual controller"));
    this->look();
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
    if (!keyboards_ || SendJob::isRunning())
        return;
    const KeyboardPresence presence = keyboards_->presence();
    setText(textOf(presence, !keyboards_->chosen().empty()));
    setToolTip(cureOf(presence));
    emit looked();
}

} // namespace scenewright
