// Whether a listed keyboard is plugged in and could be used, told by what the kernel shows of its
// devices: nothing is opened, so that it may be asked again and again.
#pragma once

#include "usb/DeviceList.h"

#include <cstdint>
#include <filesystem>
#include <span>

namespace scenewright {

enum class KeyboardPresence : std::uint8_t {
    Unplugged,
    NoPermission, // the user may not open it
    Claimed,      // a program, this one perhaps, has one of its interfaces
    Usable,
};

struct KernelFolders {
    std::filesystem::path devices = "/sys/bus/usb/devices"; // a folder each device and interface
    std::filesystem::path nodes = "/dev/bus/usb";           // BUS/ADDRESS, three digits each
};

// Of several listed keyboards, the state of the one that is most usable. Any thread.
[[nodiscard]] KeyboardPresence keyboardPresence(std::span<const DeviceIds> list,
                                                const KernelFolders& folders = {});

} // namespace scenewright
