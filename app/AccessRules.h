// What lets the user at the seat open keyboards: rules for udev.
#pragma once

#include "usb/DeviceList.h"

#include <span>
#include <string>
#include <string_view>

namespace scenewright {

// Where the rules go; the name must sort before 73, where the tag "uaccess" is acted on.
inline constexpr const char* kAccessRulesFile = "/etc/udev/rules.d/70-scenewright.rules";

// What a person without polkit types; `program` is the name or the path of scenewright-cli.
[[nodiscard]] std::string accessCommand(std::string_view program);

// One rule a device, repeated ones once, in the order of the list; ids that no device can have are
// left out. Comments at the top say where the rules go.
[[nodiscard]] std::string udevRules(std::span<const DeviceIds> devices);

} // namespace scenewright
