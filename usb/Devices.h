// Which keyboards are accepted, by their ids, as project.plist lists them; and the USB devices that
// are attached now, as the kernel shows them in sysfs, and when that changes.
//
// There may be two lists: the user's own, whose entries stand first, and the one that came with the
// program. A list in the folder that --resources names takes the place of both. Files are read anew
// at each call. No device is opened or disturbed. Needs no permission.
#pragma once

#include "platform/Resources.h"
#include "platform/Text.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct udev_monitor;

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

struct AttachedDevice {
    // In the order of use to a person.
    enum class Access : std::uint8_t {
        NoPermission, // the user may not open it
        Claimed,      // a program, this one perhaps, has one of its interfaces
        Usable,
    };

    std::int32_t bus = 0;
    std::int32_t address = 0;
    std::string port{}; // "1-2.3": the bus, and the ports on the way to it
    DeviceIds ids{};
    std::string maker{}; // as the device says, in UTF-8 without control characters; empty if silent
    std::string name{};  // the same
    std::string serial{};          // the same
    bool hasMidiStreaming = false; // an interface of class Audio, subclass MIDI streaming
    Access access = Access::Usable;

    // Whether `portOrSerial` is its port, or the serial number that it tells.
    [[nodiscard]] bool isNamed(std::string_view portOrSerial) const {
        return port == portOrSerial || (!serial.empty() && serial == portOrSerial);
    }
};

struct KernelFolders {
    std::filesystem::path devices = "/sys/bus/usb/devices"; // a folder each device and interface
    std::filesystem::path nodes = "/dev/bus/usb";           // BUS/ADDRESS, three digits each
};

// By bus and address; none where the folders cannot be read. Any thread.
[[nodiscard]] std::vector<AttachedDevice> attachedDevices(const KernelFolders& folders = {});

// Tells by a file descriptor that becomes readable when a USB device comes, goes, or gets or loses
// a driver: from udev, which has set the permissions by then, or from the kernel where no udev
// runs. One thread.
class DeviceMonitor {
public:
    [[nodiscard]] static Result<DeviceMonitor> start();

    // To be waited on for reading; lives as long as the object.
    [[nodiscard]] int descriptor() const;
    // Takes everything that has been told; to be called when the descriptor is readable.
    void drain();

private:
    using Monitor = std::unique_ptr<udev_monitor, udev_monitor* (*)(udev_monitor*)>;
    explicit DeviceMonitor(Monitor monitor) : monitor_(std::move(monitor)) {}

    Monitor monitor_;
};

// Which sound card a USB device is to the kernel: the number of the card whose device has this bus
// and address; nothing while its driver is away.
// The folder has a link for each card, and shows it before the card has its first MIDI port.
[[nodiscard]] std::optional<int>
soundCardOf(std::int32_t bus, std::int32_t address,
            const std::filesystem::path& folder = "/sys/class/sound");

} // namespace scenewright
