// The virtual controller behind the USB seam, in the same process: a bus with one device of two
// interfaces, the second of which has bulk IN first and bulk OUT second.
#pragma once

#include "usb/UsbHost.h"
#include "virtual/VirtualController.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace scenewright {

// Which device the host pretends to have on its bus.
struct VirtualIdentity {
    std::uint16_t vendor = 0x1209;
    std::uint16_t product = 0x0001;
};

// A read waits until the controller has a reply, or for ever; cancelTransfers() ends it. When
// `bankFile` is not empty, every send that has reached its end is kept there, written whole or not
// at all; a failure to write it is logged and told by bankTrouble().
[[nodiscard]] std::shared_ptr<UsbHost> makeVirtualHost(std::shared_ptr<VirtualController> device,
                                                       std::filesystem::path bankFile = {},
                                                       VirtualIdentity identity = {});

} // namespace scenewright
