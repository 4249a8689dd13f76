// The commands about keyboards that are plugged in or listed: devices and udev-rules.
#include "app/Keyboards.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Reports.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace scenewright {

namespace {

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

CommandChoice devicesCommand(const Arguments& arguments) {
    if (arguments.has("--add"))
        return {.run = [name = arguments.text("--add")] { return addDevice(name); }};
    return {.run = [asJson = arguments.has("--json")] { return printDevices(asJson); }};
}

CommandChoice udevRulesCommand(const Arguments& /*arguments*/) {
    return {.run = &printRules};
}

} // namespace scenewright
