#include "usb/DeviceList.h"

#include "platform/Resources.h"

namespace scenewright {

std::vector<DeviceIds> deviceList() {
    std::vector<DeviceIds> list;
    const std::shared_ptr<const PropertyValue> entries = Resources::load("project");
    for (const PropertyValue& entry : entries->elements())
        list.push_back({.vendor = entry["VID"].integer(), .product = entry["PID"].integer()});
    return list;
}

} // namespace scenewright
