// What is told about keyboards: the plugged-in MIDI devices in words and as JSON for programs, and
// the rules for udev that let the user at the seat use the listed ones.
#pragma once

#include "usb/AttachedDevices.h"

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace scenewright {

// What decides whether a device is accepted, and where a user would add one.
struct DeviceListPlace {
    std::vector<DeviceIds> devices;
    std::filesystem::path inUse;   // the list that counts; empty if there is none
    std::filesystem::path userOwn; // the one that a user may write; empty without a home
};

// A paragraph a device: where it is, what it is, whether it is listed and can be opened, and what
// to do if not. Ends with a line feed.
[[nodiscard]] std::string deviceTable(std::span<const AttachedDevice> devices,
                                      const DeviceListPlace& list);

// An array with an object a device: bus, address, vendorId, productId, manufacturer, name, listed,
// canOpen, cause (why it cannot be opened, or null) and linesToAdd (or null). Ends with a line
// feed.
[[nodiscard]] std::string deviceJson(std::span<const AttachedDevice> devices,
                                     const DeviceListPlace& list);

// One rule a device, repeated ones once, in the order of the list; ids that no device can have are
// left out. Comments at the top say where the rules go.
[[nodiscard]] std::string udevRules(std::span<const DeviceIds> devices);

} // namespace scenewright
