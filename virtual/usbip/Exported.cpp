#include "virtual/usbip/Exported.h"

#include "virtual/usbip/Descriptors.h"

#include <array>
#include <cstdint>

namespace scenewright::usbip {

namespace {
constexpr std::array<std::uint8_t, 3> kAudioControlClass{1, 1, 0};
constexpr std::array<std::uint8_t, 3> kMidiStreamingClass{1, 3, 0};
} // namespace

DeviceRecord recordOf(const VirtualIdentity& identity) {
    DeviceRecord record;
    record.path = "/scenewright/virtual/1-1";
    record.busId = "1-1";
    record.busNumber = 1;
    record.deviceNumber = 2;
    record.speed = kFullSpeed;
    record.vendor = identity.vendor;
    record.product = identity.product;
    record.release = kDeviceRelease;
    record.configurationValue = kConfigurationValue;
    record.configurations = 1;
    record.interfaces = {kAudioControlClass};
    if (identity.interfaces > kMidiInterface)
        record.interfaces.push_back(kMidiStreamingClass);
    return record;
}

std::uint32_t deviceNumberOf(const DeviceRecord& record) {
    return record.busNumber << 16U | record.deviceNumber;
}

} // namespace scenewright::usbip
