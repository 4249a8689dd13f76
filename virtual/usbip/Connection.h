// A session on its socket: moves bytes between the two without ever blocking.
#pragma once

#include "virtual/usbip/FileDescriptor.h"
#include "virtual/usbip/Session.h"

#include <string>

namespace scenewright::usbip {

class Connection {
public:
    Connection(FileDescriptor socket, Exported& exported, Session::Start start)
        : socket_(std::move(socket)), session_(exported, start) {}

    [[nodiscard]] int descriptor() const noexcept { return socket_.get(); }
    // The poll() events to wait for.
    [[nodiscard]] short events();
    // Does what the events allow. False when the connection has ended.
    [[nodiscard]] bool serve(short events);

    [[nodiscard]] const Session& session() const noexcept { return session_; }

private:
    bool readSome();  // false when the other side has gone
    bool writeSome(); // the same

    FileDescriptor socket_;
    Session session_;
};

} // namespace scenewright::usbip
