#include "cli/DeviceTable.h"

#include "app/OutcomeText.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>

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

} // namespace scenewright
