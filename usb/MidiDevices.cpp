#include "usb/MidiDevices.h"

#include "platform/ReadableText.h"

#include <algorithm>
#include <fstream>
#include <memory>

namespace scenewright {

namespace fs = std::filesystem;

namespace {

bool hasMidiStreaming(const LibusbDevice& device) {
    std::vector<LibusbInterfaceDescriptor> interfaces;
    if (device.interfaces(interfaces) != kResultSuccess)
        return false;
    return std::ranges::any_of(interfaces, [](const LibusbInterfaceDescriptor& interface) {
        return interface.interfaceClass == kAudioClass && interface.subClass == kMidiStreaming;
    });
}

// The first line; a device may put anything into its names, a terminal's commands included.
std::string textOf(const fs::path& file) {
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    return readableText(line);
}

// The folder of the device on this bus and address; empty if there is none.
fs::path folderOf(const LibusbDevice& device, const fs::path& folders) {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folders, error))
        if (textOf(entry.path() / "busnum") == std::to_string(device.bus()) &&
            textOf(entry.path() / "devnum") == std::to_string(device.address()))
            return entry.path();
    return {};
}

MidiDevice describe(const LibusbDevice& device, const fs::path& folders) {
    MidiDevice described{.bus = device.bus(),
                         .address = device.address(),
                         .vendor = device.vendor(),
                         .product = device.product(),
                         .maker = {},
                         .name = {}};
    if (const fs::path folder = folderOf(device, folders); !folder.empty()) {
        described.maker = textOf(folder / "manufacturer");
        described.name = textOf(folder / "product");
    }
    std::unique_ptr<LibusbHandle> handle;
    described.opening = device.open(handle);
    return described;
}

} // namespace

ResultCode listMidiDevices(LibusbApi& bus, std::vector<MidiDevice>& devices,
                           const fs::path& folders) {
    std::vector<std::shared_ptr<LibusbDevice>> attached;
    const ResultCode result = bus.devices(attached);
    for (const auto& device : attached)
        if (hasMidiStreaming(*device))
            devices.push_back(describe(*device, folders));
    return result;
}

} // namespace scenewright
