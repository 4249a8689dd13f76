// Handing a device straight to this machine's kernel, by its virtual host controller (vhci_hcd).
#pragma once

#include "virtual/usbip/FileDescriptor.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace scenewright::usbip {

inline constexpr const char* kVhciFolder = "/sys/devices/platform/vhci_hcd.0";

// What attaching gave: the connection to speak USB/IP on, or one sentence.
struct VhciConnection {
    FileDescriptor socket; // not blocking
    std::string trouble;
};

// Plugs a device of this number, at full speed, into a port of the controller. Needs root.
[[nodiscard]] VhciConnection attachToKernel(std::uint32_t port, std::uint32_t device,
                                            const std::filesystem::path& folder = kVhciFolder);

} // namespace scenewright::usbip
