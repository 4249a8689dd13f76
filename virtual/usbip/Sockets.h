// Where connections come from, hosts over TCP or this machine's kernel, and a session on its
// socket.
#pragma once

#include "platform/Process.h"
#include "platform/Text.h"
#include "virtual/usbip/Session.h"

#include <cstdint>
#include <filesystem>
#include <poll.h>
#include <string>
#include <string_view>
#include <utility>

namespace scenewright::usbip {

class Listener {
public:
    // Whether listen() understands it: "ADDRESS:PORT", the address in numbers, one of IPv6 in
    // brackets; port 0 chooses a free one.
    [[nodiscard]] static bool isAddress(std::string_view address);
    [[nodiscard]] Result<void> listen(std::string_view address);

    // -1 while it does not listen.
    [[nodiscard]] int descriptor() const noexcept { return socket_.get(); }
    // The address that it listens at, in the form that listen() takes.
    [[nodiscard]] std::string address() const;

    // A waiting connection, not blocking, which notices within minutes when its host is gone
    // without a word; not open when there is none (any more). The error is the system's, as when
    // this process has no descriptor left: then the connection goes on waiting.
    [[nodiscard]] Result<FileDescriptor, int> accept() const;

private:
    FileDescriptor socket_;
};

inline constexpr const char* kVhciFolder = "/sys/devices/platform/vhci_hcd.0";

// Plugs a device of this number, at full speed, into a port of this machine's virtual host
// controller (vhci_hcd). Needs root. Gives the connection to speak USB/IP on, which does not block.
[[nodiscard]] Result<FileDescriptor>
attachToKernel(std::uint32_t port, std::uint32_t device,
               const std::filesystem::path& folder = kVhciFolder);

// A session on its socket: moves bytes between the two without ever blocking.
class Connection {
public:
    Connection(FileDescriptor socket, ServerState& server, Session::Start start)
        : socket_(std::move(socket)), session_(server, start) {}

    // What to wait for; nothing while the session is held.
    [[nodiscard]] pollfd place();
    // Does what the events allow. False when the connection has ended.
    [[nodiscard]] bool serve(short events);

    [[nodiscard]] Session& session() noexcept { return session_; }
    [[nodiscard]] const Session& session() const noexcept { return session_; }

private:
    bool readSome();  // false when the other side has gone
    bool writeSome(); // the same

    FileDescriptor socket_;
    Session session_;
};

} // namespace scenewright::usbip
