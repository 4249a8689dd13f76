// The keyboards that are accepted, by their ids, as project.plist lists them.
//
// There may be two such lists: the user's own, whose entries stand first, and the one that came
// with the program. A list in the folder that --resources names takes the place of both. Files are
// read anew at each call.
#pragma once

#include "platform/Resources.h"
#include "platform/Text.h"

#include <cstdint>
#include <string>
#include <vector>

namespace scenewright {

struct DeviceIds {
    std::int32_t vendor = 0;
    std::int32_t product = 0;
    friend bool operator==(const DeviceIds&, const DeviceIds&) = default;
};

// The elements of the lists as they stand there, whatever they are. An error when there is no list,
// or one of them cannot be read.
[[nodiscard]] Result<std::vector<PropertyValue>> readDeviceEntries();

// Those of them that have two identifiers of 16 bits.
[[nodiscard]] Result<std::vector<DeviceIds>> readDeviceList();
// The same; empty instead of an error.
[[nodiscard]] std::vector<DeviceIds> deviceList();

// An element as it is written in a list, with the line ends.
[[nodiscard]] std::string deviceListLines(const DeviceIds& ids);
// Writes an element at the end of the user's own list, which is made if there is none. What else
// stands there stays. The error is one sentence.
[[nodiscard]] Result<void> addToDeviceList(const DeviceIds& ids);

} // namespace scenewright
