// Rules for udev that let the user at the seat use the listed keyboards.
#pragma once

#include "usb/DeviceList.h"

#include <span>
#include <string>

namespace scenewright {

// One rule a device, repeated ones once, in the order of the list; ids that no device can have are
// left out. Comments at the top say where the rules go.
[[nodiscard]] std::string udevRules(std::span<const DeviceIds> devices);

} // namespace scenewright
