// The commands about keyboards that are plugged in or listed: devices and udev-rules.
#include "app/OutcomeText.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/DeviceReport.h"
#include "platform/Resources.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace scenewright {

namespace {

bool isListed(const AttachedDevice& device, const DeviceListPlace& list) {
    return std::ranges::find(list.devices, device.ids) != list.devices.end();
}

bool canBeOpened(const AttachedDevice& device) {
    return device.access != AttachedDevice::Access::NoPermission;
}

std::string linesToAdd(const AttachedDevice& device) {
    return fmt::format("    <dict>\n"
                       "        <key>VID</key> <integer>{}</integer>\n"
                       "        <key>PID</key> <integer>{}</integer>\n"
                       "    </dict>\n",
                       device.ids.vendor, device.ids.product);
}

// How a device that is not listed gets into the user's own list.
std::string addingHelp(const AttachedDevice& device, const DeviceListPlace& list) {
    std::string help = "  listed: no\n";
    if (list.userOwn.empty())
        help += fmt::format("  To add it, copy {} to a folder that you name with --resources and\n",
                            list.inUse.string());
    else if (list.inUse != list.userOwn && !list.inUse.empty())
        help += fmt::format("  To add it, first copy {}\n  to {}, then\n", list.inUse.string(),
                            list.userOwn.string());
    else
        help += fmt::format("  To add it, open {} and\n", list.userOwn.string());
    return help + "  put these lines before the line </array>:\n\n" + linesToAdd(device) + "\n";
}

std::string paragraph(const AttachedDevice& device, const DeviceListPlace& list) {
    std::string text = fmt::format("Bus {:03} Device {:03}: {:04x}:{:04x} {} {}\n", device.bus,
                                   device.address, device.ids.vendor, device.ids.product,
                                   device.maker.empty() ? "-" : device.maker,
                                   device.name.empty() ? "-" : device.name);
    text += isListed(device, list) ? "  listed: yes\n" : addingHelp(device, list);
    if (canBeOpened(device))
        return text + "  can be opened: yes\n";
    return text + fmt::format("  can be opened: no. {}.\n", causeAndCure(kResultAccess));
}

nlohmann::ordered_json object(const AttachedDevice& device, const DeviceListPlace& list) {
    const bool listed = isListed(device, list);
    const bool canOpen = canBeOpened(device);
    nlohmann::ordered_json object;
    object["bus"] = device.bus;
    object["address"] = device.address;
    object["vendorId"] = device.ids.vendor;
    object["productId"] = device.ids.product;
    object["manufacturer"] = device.maker;
    object["name"] = device.name;
    object["listed"] = listed;
    object["canOpen"] = canOpen;
    object["cause"] = nullptr;
    if (!canOpen)
        object["cause"] = causeAndCure(kResultAccess);
    object["linesToAdd"] = nullptr;
    if (!listed)
        object["linesToAdd"] = linesToAdd(device);
    return object;
}

constexpr const char* kRulesHead =
    "# Lets the user who sits at the computer use the keyboards of Scenewright's device list.\n"
    "# Install as /etc/udev/rules.d/70-scenewright.rules: the name must sort before 73, where\n"
    "# the tag \"uaccess\" is acted on. Then plug the keyboard in again.\n";

bool canExist(const DeviceIds& device) {
    constexpr std::int32_t kHighest = 0xFFFF;
    return device.vendor >= 0 && device.vendor <= kHighest && device.product >= 0 &&
           device.product <= kHighest;
}

int printDevices(bool asJson) {
    std::vector<AttachedDevice> devices = attachedDevices();
    std::erase_if(devices, [](const AttachedDevice& device) { return !device.hasMidiStreaming; });
    const auto listed = readDeviceList();
    if (!listed)
        return reportError(listed.error(), kExitUsage);
    const auto own = Resources::userFolder();
    const DeviceListPlace list{.devices = *listed,
                               .inUse = Resources::find("project", "plist").value_or(""),
                               .userOwn = own ? *own / "project.plist" : std::filesystem::path()};
    return printAndEnd((asJson ? deviceJson : deviceTable)(devices, list), kExitDone);
}

int printRules() {
    const auto listed = readDeviceList();
    return listed ? printAndEnd(udevRules(*listed), kExitDone)
                  : reportError(listed.error(), kExitUsage);
}

} // namespace

std::string deviceTable(std::span<const AttachedDevice> devices, const DeviceListPlace& list) {
    if (devices.empty())
        return "No USB device with a MIDI streaming interface is plugged in.\n";
    std::string text;
    for (const AttachedDevice& device : devices)
        text += paragraph(device, list);
    return text;
}

std::string deviceJson(std::span<const AttachedDevice> devices, const DeviceListPlace& list) {
    constexpr int kIndent = 2;
    auto array = nlohmann::ordered_json::array();
    for (const AttachedDevice& device : devices)
        array.push_back(object(device, list));
    using Json = nlohmann::ordered_json;
    // A device's name is whatever the device says, valid or not.
    return array.dump(kIndent, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string udevRules(std::span<const DeviceIds> devices) {
    std::string rules = kRulesHead;
    std::vector<DeviceIds> done;
    for (const DeviceIds& device : devices) {
        if (!canExist(device) || std::ranges::find(done, device) != done.end())
            continue;
        done.push_back(device);
        rules += fmt::format("ACTION!=\"remove\", SUBSYSTEM==\"usb\", "
                             "ENV{{DEVTYPE}}==\"usb_device\", ATTR{{idVendor}}==\"{:04x}\", "
                             "ATTR{{idProduct}}==\"{:04x}\", TAG+=\"uaccess\"\n",
                             device.vendor, device.product);
    }
    return rules;
}

CommandChoice devicesCommand(const Arguments& arguments) {
    return {.run = [asJson = arguments.has("--json")] { return printDevices(asJson); }};
}

CommandChoice udevRulesCommand(const Arguments& /*arguments*/) {
    return {.run = &printRules};
}

} // namespace scenewright
