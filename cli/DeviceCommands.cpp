// The commands about keyboards that are plugged in or listed: devices and udev-rules.
#include "app/Keyboards.h"
#include "app/OutcomeText.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Reports.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <vector>

namespace scenewright {

namespace {

bool canBeOpened(const AttachedDevice& device) {
    return device.access != AttachedDevice::Access::NoPermission;
}

std::string paragraph(const PluggedDevice& plugged) {
    const AttachedDevice& device = plugged.device;
    std::string text = fmt::format("Bus {:03} Device {:03}: {:04x}:{:04x} {} {}\n", device.bus,
                                   device.address, device.ids.vendor, device.ids.product,
                                   device.maker.empty() ? "-" : device.maker,
                                   device.name.empty() ? "-" : device.name);
    text += "  port: " + device.port +
            (device.serial.empty() ? "\n" : ", serial number: " + device.serial + "\n");
    text += plugged.isListed
                ? "  listed: yes\n"
                : fmt::format("  listed: no. 'scenewright-cli devices --add {}' adds it.\n",
                              device.port);
    if (canBeOpened(device))
        return text + "  can be opened: yes\n";
    return text + fmt::format("  can be opened: no. {}.\n", causeAndCure(kResultAccess));
}

nlohmann::ordered_json object(const PluggedDevice& plugged) {
    const AttachedDevice& device = plugged.device;
    const bool canOpen = canBeOpened(device);
    nlohmann::ordered_json object;
    object["bus"] = device.bus;
    object["address"] = device.address;
    object["port"] = device.port;
    object["serial"] = nullptr;
    if (!device.serial.empty())
        object["serial"] = device.serial;
    object["vendorId"] = device.ids.vendor;
    object["productId"] = device.ids.product;
    object["manufacturer"] = device.maker;
    object["name"] = device.name;
    object["listed"] = plugged.isListed;
    object["canOpen"] = canOpen;
    object["cause"] = nullptr;
    if (!canOpen)
        object["cause"] = causeAndCure(kResultAccess);
    object["linesToAdd"] = nullptr;
    if (!plugged.isListed)
        object["linesToAdd"] = deviceListLines(device.ids);
    return object;
}

int addDevice(const std::string& portOrSerial) {
    const Keyboards keyboards;
    std::vector<PluggedDevice> named = keyboards.all();
    std::erase_if(named, [&portOrSerial](const PluggedDevice& plugged) {
        return !plugged.device.isNamed(portOrSerial);
    });
    if (named.size() != 1)
        return reportError(
            fmt::format("there {} '{}'; 'scenewright-cli devices' lists the USB MIDI "
                        "devices with their ports",
                        named.empty() ? "is no device" : "are several devices", portOrSerial),
            kExitUsage);
    if (!named.front().isListed)
        if (const auto added = addToDeviceList(named.front().device.ids); !added)
            return reportError(added.error(), kExitUsage);
    return printAndEnd(named.front().description() + " is in the list of keyboards.\n", kExitDone);
}

int printDevices(bool asJson) {
    if (const auto listed = readDeviceList(); !listed)
        return reportError(listed.error(), kExitUsage);
    std::vector<PluggedDevice> devices = Keyboards().all();
    std::erase_if(devices,
                  [](const PluggedDevice& plugged) { return !plugged.device.hasMidiStreaming; });
    return printAndEnd((asJson ? deviceJson : deviceTable)(devices), kExitDone);
}

int printRules() {
    const auto listed = readDeviceList();
    return listed ? printAndEnd(udevRules(*listed), kExitDone)
                  : reportError(listed.error(), kExitUsage);
}

} // namespace

std::string deviceTable(std::span<const PluggedDevice> devices) {
    if (devices.empty())
        return "No USB device with a MIDI streaming interface is plugged in.\n";
    std::string text;
    for (const PluggedDevice& device : devices)
        text += paragraph(device);
    return text;
}

std::string deviceJson(std::span<const PluggedDevice> devices) {
    constexpr int kIndent = 2;
    auto array = nlohmann::ordered_json::array();
    for (const PluggedDevice& device : devices)
        array.push_back(object(device));
    using Json = nlohmann::ordered_json;
    // A device's name is whatever the device says, valid or not.
    return array.dump(kIndent, ' ', false, Json::error_handler_t::replace) + "\n";
}

CommandChoice devicesCommand(const Arguments& arguments) {
    if (arguments.has("--add"))
        return {.run = [name = arguments.text("--add")] { return addDevice(name); }};
    return {.run = [asJson = arguments.has("--json")] { return printDevices(asJson); }};
}

CommandChoice udevRulesCommand(const Arguments& /*arguments*/) {
    return {.run = &printRules};
}

} // namespace scenewright
