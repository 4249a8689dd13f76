// Taking connections over TCP.
#pragma once

#include "virtual/usbip/FileDescriptor.h"

#include <optional>
#include <string>
#include <string_view>

namespace scenewright::usbip {

class Listener {
public:
    // Whether listen() understands it: "ADDRESS:PORT", the address in numbers, one of IPv6 in
    // brackets; port 0 chooses a free one.
    [[nodiscard]] static bool isAddress(std::string_view address);
    // Nothing, or one sentence.
    [[nodiscard]] std::optional<std::string> listen(std::string_view address);

    // -1 while it does not listen.
    [[nodiscard]] int descriptor() const noexcept { return socket_.get(); }
    // The address that it listens at, in the form that listen() takes.
    [[nodiscard]] std::string address() const;

    // A waiting connection, not blocking; not open when there is none (any more).
    [[nodiscard]] FileDescriptor accept() const;

private:
    FileDescriptor socket_;
};

} // namespace scenewright::usbip
