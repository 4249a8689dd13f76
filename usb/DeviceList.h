// The keyboards that are accepted, as project.plist lists them.
#pragma once

#include "platform/Result.h"

#include <cstdint>
#include <vector>

namespace scenewright {

struct DeviceIds {
    std::int32_t vendor = 0;
    std::int32_t product = 0;
    friend bool operator==(const DeviceIds&, const DeviceIds&) = default;
};

// In the order of the list, as its file is now; empty when it is missing or cannot be read. An
// entry without two identifiers of 16 bits is none.
[[nodiscard]] std::vector<DeviceIds> deviceList();
// The same, or one sentence that names the file.
[[nodiscard]] Result<std::vector<DeviceIds>> readDeviceList();

} // namespace scenewright
