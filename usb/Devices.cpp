#include "usb/Devices.h"

#include "platform/Files.h"
#include "platform/Resources.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
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

constexpr std::string_view kName = "project";
constexpr std::string_view kType = "plist";
constexpr std::string_view kEnd = "</array>";
constexpr std::string_view kEmptyList = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                        "<plist version=\"1.0\">\n"
                                        "<array>\n"
                                        "</array>\n"
                                        "</plist>\n";

// An identifier of 16 bits; nothing for an entry without one.
std::optional<std::int32_t> identifier(const PropertyValue& value) {
    const std::optional<std::int32_t> number = value.number();
    return number && *number >= 0 && *number <= 0xFFFF ? number : std::nullopt;
}

std::vector<DeviceIds> idsIn(std::span<const PropertyValue> entries) {
    std::vector<DeviceIds> list;
    for (const PropertyValue& entry : entries) {
        const auto vendor = identifier(entry["VID"]);
        const auto product = identifier(entry["PID"]);
        if (vendor && product)
            list.push_back({.vendor = *vendor, .product = *product});
    }
    return list;
}

bool holds(const std::vector<DeviceIds>& list, const DeviceIds& ids) {
    return std::ranges::find(list, ids) != list.end();
}

// A list in another form, or with its end in a comment, is left as it is.
Result<FileContent> withElement(std::string text, const DeviceIds& ids, const std::string& file) {
    const std::size_t end = text.rfind(kEnd);
    if (end != std::string::npos)
        text.insert(end, deviceListLines(ids));
    const auto changed = parsePropertyList(text, file);
    if (!changed || !holds(idsIn(changed->elements()), ids))
        return failure(translated(
            sourceText("scenewright::File", "{}: it is not a list that a program can add to"),
            readableText(file)));
    return FileContent(text.begin(), text.end());
}

Result<void> addToOwn(const fs::path& file, const DeviceIds& ids) {
    const auto add = [&](const FileContent& former) {
        return withElement(std::string(former.begin(), former.end()), ids, file.string());
    };
    const auto done = [](const Replaced&) {};
    std::error_code error;
    if (fs::exists(fs::symlink_status(file, error)))
        return changeFile(file, kPropertyListBytes, add).map(done);
    fs::create_directories(file.parent_path(), error); // the writing tells why it cannot be
    return withElement(std::string(kEmptyList), ids, file.string())
        .and_then([&file](const FileContent& content) { return replaceFile(file, content); })
        .map(done);
}

} // namespace

Result<std::vector<PropertyValue>> readDeviceEntries() {
    const std::vector<fs::path> files = Resources::findAll(kName, kType);
    std::vector<PropertyValue> entries;
    if (files.empty()) // which says so, unless there is one by now
        return Resources::read(kName).map([](const PropertyValue& list) {
            return std::vector(list.elements().begin(), list.elements().end());
        });
    for (const fs::path& file : files) {
        const auto list = readPropertyList(file);
        if (!list)
            return failure(list.error());
        entries.insert(entries.end(), list->elements().begin(), list->elements().end());
    }
    return entries;
}

Result<std::vector<DeviceIds>> readDeviceList() {
    return readDeviceEntries().map(
        [](const std::vector<PropertyValue>& entries) { return idsIn(entries); });
}

std::vector<DeviceIds> deviceList() {
    return readDeviceList().value_or(std::vector<DeviceIds>{});
}

std::string deviceListLines(const DeviceIds& ids) {
    return fmt::format("    <dict>\n"
                       "        <key>VID</key> <integer>{}</integer>\n"
                       "        <key>PID</key> <integer>{}</integer>\n"
                       "    </dict>\n",
                       ids.vendor, ids.product);
}

Result<void> addToDeviceList(const DeviceIds& ids) {
    const auto folder = Resources::userFolder();
    if (!folder)
        return failure(translated(sourceText(
            "scenewright::File", "There is no home folder for a list of keyboards of your own")));
    const auto file = *folder / fmt::format("{}.{}", kName, kType);
    if (auto added = addToOwn(file, ids); !added)
        return added;
    if (!holds(deviceList(), ids)) // that of --resources counts
        return failure(
            translated(sourceText("scenewright::File",
                                  "{}: the keyboard stands there now, but another list is used"),
                       readableText(file.string())));
    return {};
}

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
    return numberFrom<std::int32_t>(textIn(file), base);
}

// An interface's folder stands in that of its device and begins with its name: "1-2/1-2:1.0".
std::vector<fs::path> interfacesOf(const fs::path& device) {
    std::vector<fs::path> interfaces;
    const std::string prefix = device.filename().string() + ":";
    for (const fs::path& entry : filesIn(device))
        if (entry.filename().string().starts_with(prefix))
            interfaces.push_back(entry);
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
                          .port = folder.filename().native(),
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
    return name.starts_with(kPrefix) ? numberFrom<int>(name.substr(kPrefix.size())) : std::nullopt;
}

} // namespace

std::vector<AttachedDevice> attachedDevices(const KernelFolders& folders) {
    std::vector<AttachedDevice> devices;
    for (const fs::path& entry : filesIn(folders.devices))
        if (auto device = deviceIn(entry, folders.nodes))
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
    using Device = std::unique_ptr<udev_device, decltype(&udev_device_unref)>;
    while (Device(udev_monitor_receive_device(monitor_.get()), &udev_device_unref)) {
    }
}

std::optional<int> soundCardOf(std::int32_t bus, std::int32_t address, const fs::path& folder) {
    for (const fs::path& entry : filesIn(folder)) {
        const auto card = cardNumber(entry.filename().string());
        if (!card)
            continue;
        // The card belongs to an interface, the interface to the device.
        std::error_code missing;
        const fs::path device = fs::canonical(entry / "device", missing).parent_path();
        if (!missing && numberIn(device / "busnum", kDecimal) == bus &&
            numberIn(device / "devnum", kDecimal) == address)
            return card;
    }
    return std::nullopt;
}

} // namespace scenewright
