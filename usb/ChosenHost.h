// A bus on which one device alone is to be found, whatever else is plugged in.
#pragma once

#include "usb/UsbHost.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace scenewright {

// The port of the one, asked for at each listing; nothing to offer every device.
using OfferedPort = std::function<std::optional<std::string>()>;

// All but the listing is the bus's own.
[[nodiscard]] std::shared_ptr<UsbHost> offerChosen(std::shared_ptr<UsbHost> bus, OfferedPort port);

} // namespace scenewright
