#include "usb/AttachedDevices.h"

#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <libudev.h>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace scenewright {

namespace fs = std::filesystem;

namespace {

constexpr int kDecimal = 10;
constexpr int kHexadecimal = 16;
constexpr std::string_view kProgramsDriver = "usbfs"; // holds what a program has claimed
// Class codes of an interface, as USB gives them out.
constexpr std::int32_t kAudioClass = 1;
constexpr std::int32_t kMidiStreaming = 3;

// The first line; a device may put anything into its names, a terminal's commands included.
std::string textIn(const fs::path& file) {
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    return readableText(line);
}

std::optional<std::int32_t> numberIn(const fs::path& file, int base) {
    const std::string text = textIn(file);
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    if (error != std::errc{} || stop != end)
        return std::nullopt;
    return number;
}

// An interface's folder stands in that of its device and begins with its name: "1-2/1-2:1.0".
std::vector<fs::path> interfacesOf(const fs::path& device) {
    std::vector<fs::path> interfaces;
    const std::string prefix = device.filename().string() + ":";
    std::error_code error;
    for (fs::directory_iterator entry(device, error), end; !error && entry != end;
         entry.increment(error))
        if (entry->path().filename().string().starts_with(prefix))
            interfaces.push_back(entry->path());
    return interfaces;
}

bool isMidiStreaming(const fs::path& interface) {
    return numberIn(interface / "bInterfaceClass", kHexadecimal) == kAudioClass &&
           numberIn(interface / "bInterfaceSubClass", kHexadecimal) == kMidiStreaming;
}

bool isClaimed(const fs::path& interface) {
    std::error_code unbound;
    return fs::read_symlink(interface / "driver", unbound).filename() == kProgramsDriver;
}

AttachedDevice::Access accessTo(const AttachedDevice& device, std::span<const fs::path> interfaces,
                                const fs::path& nodes) {
    using enum AttachedDevice::Access;
    const fs::path node =
        nodes / fmt::format("{:03}", device.bus) / fmt::format("{:03}", device.address);
    if (::access(node.c_str(), R_OK | W_OK) != 0)
        return NoPermission;
    return std::ranges::any_of(interfaces, isClaimed) ? Claimed : Usable;
}

// Nothing for the folder of an interface, or of a device that has just gone.
std::optional<AttachedDevice> deviceIn(const fs::path& folder, const fs::path& nodes) {
    const auto bus = numberIn(folder / "busnum", kDecimal);
    const auto address = numberIn(folder / "devnum", kDecimal);
    const auto vendor = numberIn(folder / "idVendor", kHexadecimal);
    const auto product = numberIn(folder / "idProduct", kHexadecimal);
    if (!bus || !address || !vendor || !product)
        return std::nullopt;
    const auto interfaces = interfacesOf(folder);
    AttachedDevice device{.bus = *bus,
                          .address = *address,
                          .port = folder.filename().string(),
                          .ids = {.vendor = *vendor, .product = *product},
                          .maker = textIn(folder / "manufacturer"),
                          .name = textIn(folder / "product"),
                          .serial = textIn(folder / "serial"),
                          .hasMidiStreaming = std::ranges::any_of(interfaces, isMidiStreaming)};
    device.access = accessTo(device, interfaces, nodes);
    return device;
}

// The number in the name of a card's entry, "card0"; nothing for another entry.
std::optional<int> cardNumber(std::string_view name) {
    constexpr std::string_view kPrefix = "card";
    if (!name.starts_with(kPrefix))
        return std::nullopt;
    name.remove_prefix(kPrefix.size());
    int card = 0;
    const auto [stop, error] = std::from_chars(name.data(), name.data() + name.size(), card);
    return error == std::errc{} && stop == name.data() + name.size() ? std::optional(card)
                                                                     : std::nullopt;
}

bool holdsNumber(const fs::path& file, std::int32_t number) {
    std::int32_t held = -1;
    return (std::ifstream(file) >> held) && held == number;
}

} // namespace

std::vector<AttachedDevice> attachedDevices(const KernelFolders& folders) {
    std::vector<AttachedDevice> devices;
    std::error_code error;
    for (fs::directory_iterator entry(folders.devices, error), end; !error && entry != end;
         entry.increment(error))
        if (auto device = deviceIn(entry->path(), folders.nodes))
            devices.push_back(*std::move(device));
    std::ranges::sort(devices, {}, [](const AttachedDevice& device) {
        return std::pair(device.bus, device.address);
    });
    return devices;
}

Result<DeviceMonitor> DeviceMonitor::start() {
    // Where no udev runs nobody would send its events.
    const char* const source = ::access("/run/udev/control", F_OK) == 0 ? "udev" : "kernel";
    const std::unique_ptr<udev, decltype(&udev_unref)> context(udev_new(), &udev_unref);
    Monitor monitor(context ? udev_monitor_new_from_netlink(context.get(), source) : nullptr,
                    &udev_monitor_unref);
    if (!monitor ||
        udev_monitor_filter_add_match_subsystem_devtype(monitor.get(), "usb", nullptr) < 0 ||
        udev_monitor_enable_receiving(monitor.get()) < 0)
        return failure("the system does not tell which devices come and go");
    return DeviceMonitor(std::move(monitor));
}

int DeviceMonitor::descriptor() const {
    return udev_monitor_get_fd(monitor_.get());
}

void DeviceMonitor::drain() {
    while (udev_device* const device = udev_monitor_receive_device(monitor_.get()))
        udev_device_unref(device);
}

std::optional<int> soundCardOf(std::int32_t bus, std::int32_t address, const fs::path& folder) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        const auto card = cardNumber(entry->path().filename().string());
        if (!card)
            continue;
        // The card belongs to an interface, the interface to the device.
        std::error_code missing;
        const fs::path device = fs::canonical(entry->path() / "device", missing).parent_path();
        if (!missing && holdsNumber(device / "busnum", bus) &&
            holdsNumber(device / "devnum", address))
            return card;
    }
    return std::nullopt;
}

} // namespace scenewright
