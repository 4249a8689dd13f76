#include "editor/qt/ConnectionKeeper.h"

#include "app/DeviceSession.h"

#include <utility>

namespace scenewright {

ConnectionKeeper::ConnectionKeeper(MainWindow& window, KeyboardConnections connections)
    : window_(window), connections_(std::move(connections)) {
    DeviceSession::setAround([this] { beforeTransaction(); },
                             [this] { connections_.afterTransaction(); });
    if (connections_.descriptor() < 0)
        return;
    notifier_ = std::make_unique<QSocketNotifier>(connections_.descriptor(), QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, [this] { connections_.process(); });
}

ConnectionKeeper::~ConnectionKeeper() {
    DeviceSession::setAround({}, {});
    connections_.restore(KeyboardConnections::kLimit);
}

void ConnectionKeeper::beforeTransaction() {
    connections_.beforeTransaction();
    if (connections_.count() == 0 || std::exchange(isTold_, true))
        return;
    window_.notices().post(
        {.source = Notice::Source::Midi,
         .kind = Notice::Kind::Done,
         .text = tr("Programs that are connected to the keyboard's MIDI port hear "
                    "nothing for a second; then they are connected again.")});
    window_.repaint(); // a read blocks the window from here on
}

} // namespace scenewright
