// What is told about keyboards: the plugged-in MIDI devices in words and as JSON for programs.
#pragma once

#include "app/Keyboards.h"

#include <span>
#include <string>

namespace scenewright {

// A paragraph a device: where it is, what it is, whether it is listed and can be opened, and what
// to do if not. Ends with a line feed.
[[nodiscard]] std::string deviceTable(std::span<const PluggedDevice> devices);

// An array with an object a device: bus, address, port, serial (or null), vendorId, productId,
// manufacturer, name, listed, canOpen, cause (why it cannot be opened, or null) and linesToAdd (or
// null). Ends with a line feed.
[[nodiscard]] std::string deviceJson(std::span<const PluggedDevice> devices);

} // namespace scenewright
