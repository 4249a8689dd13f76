#include "usb/DeviceList.h"

#include "platform/Resources.h"

#include <optional>

namespace scenewright {

namespace {

// An identifier of 16 bits; nothing for an entry without one.
std::optional<std::int32_t> identifier(const PropertyValue& value) {
    const std::optional<std::int32_t> number = value.number();
    return number && *number >= 0 && *number <= 0xFFFF ? number : std::nullopt;
}

} // namespace

std::vector<DeviceIds> deviceList() {
    return readDeviceList().value_or(std::vector<DeviceIds>{});
}

Result<std::vector<DeviceIds>> readDeviceList() {
    std::vector<DeviceIds> list;
    const auto entries = Resources::read("project");
    if (!entries)
        return failure(entries.error());
    for (const PropertyValue& entry : entries->elements()) {
        const auto vendor = identifier(entry["VID"]);
        const auto product = identifier(entry["PID"]);
        if (vendor && product)
            list.push_back({.vendor = *vendor, .product = *product});
    }
    return list;
}

} // namespace scenewright
