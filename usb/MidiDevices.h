// The attached devices that have a MIDI streaming interface, for a person who looks for theirs.
#pragma once

#include "usb/LibusbApi.h"

#include <filesystem>
#include <string>
#include <vector>

namespace scenewright {

struct MidiDevice {
    std::uint8_t bus = 0;
    std::uint8_t address = 0;
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    std::string maker; // as the device says, in UTF-8 without control characters; empty if silent
    std::string name;  // the same
    ResultCode opening = kResultSuccess; // what opening it gives
};

// Where the kernel keeps what devices said of themselves; readable without a permission.
inline constexpr const char* kDeviceFolders = "/sys/bus/usb/devices";

// By bus and address. Opens each device found for a moment, which disturbs no one who uses it.
ResultCode listMidiDevices(LibusbApi& bus, std::vector<MidiDevice>& devices,
                           const std::filesystem::path& folders = kDeviceFolders);

} // namespace scenewright
