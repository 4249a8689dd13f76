// The USB devices that are attached now, as the kernel shows them in sysfs, and when that changes;
// which of them are keyboards, as project.plist lists those that are accepted.
//
// Nothing is opened and no device is disturbed. Needs no permission.
#pragma once

#include "platform/Result.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

struct udev_monitor;

namespace scenewright {

struct DeviceIds {
    std::int32_t vendor = 0;
    std::int32_t product = 0;
    friend bool operator==(const DeviceIds&, const DeviceIds&) = default;
};

// The keyboards that are accepted, in the order of the list, as its file is now; empty when it is
// missing or cannot be read. An entry without two identifiers of 16 bits is none.
[[nodiscard]] std::vector<DeviceIds> deviceList();
// The same, or why not.
[[nodiscard]] Result<std::vector<DeviceIds>> readDeviceList();

struct AttachedDevice {
    // In the order of use to a person.
    enum class Access : std::uint8_t {
        NoPermission, // the user may not open it
        Claimed,      // a program, this one perhaps, has one of its interfaces
        Usable,
    };

    std::int32_t bus = 0;
    std::int32_t address = 0;
    DeviceIds ids;
    std::string maker; // as the device says, in UTF-8 without control characters; empty if silent
    std::string name;  // the same
    bool hasMidiStreaming = false; // an interface of class Audio, subclass MIDI streaming
    Access access = Access::Usable;
};

struct KernelFolders {
    std::filesystem::path devices = "/sys/bus/usb/devices"; // a folder each device and interface
    std::filesystem::path nodes = "/dev/bus/usb";           // BUS/ADDRESS, three digits each
};

// By bus and address; none where the folders cannot be read. Any thread.
[[nodiscard]] std::vector<AttachedDevice> attachedDevices(const KernelFolders& folders = {});

// Whether a listed keyboard is plugged in and could be used.
enum class KeyboardPresence : std::uint8_t { Unplugged, NoPermission, Claimed, Usable };

// Of several listed keyboards, the state of the one that is most usable.
[[nodiscard]] KeyboardPresence keyboardPresence(std::span<const DeviceIds> list,
                                                std::span<const AttachedDevice> devices);

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

} // namespace scenewright
