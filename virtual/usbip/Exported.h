// The one device that a server gives away, and what all its connections share. One thread.
#pragma once

#include "virtual/BankKeeper.h"
#include "virtual/VirtualHost.h"
#include "virtual/usbip/Operations.h"

#include <cstdint>
#include <functional>
#include <string_view>

namespace scenewright::usbip {

// Receives one line, without a line feed.
using LineSink = std::function<void(std::string_view)>;

// How the kernel numbers the speeds of USB.
inline constexpr std::uint32_t kFullSpeed = 2;

struct Exported {
    VirtualController& controller;
    BankKeeper& keeper;
    VirtualIdentity identity;
    LineSink trace;       // one line a transfer that ended; may be empty
    bool isTaken = false; // by a connection, which gives it back at its end
};

// Device 2 on bus 1 under the bus id "1-1", for want of a bus.
[[nodiscard]] DeviceRecord recordOf(const VirtualIdentity& identity);
// The device as a transfer names it.
[[nodiscard]] std::uint32_t deviceNumberOf(const DeviceRecord& record);

} // namespace scenewright::usbip
