#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/DeviceTable.h"
#include "platform/Resources.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>

namespace scenewright {

namespace {

constexpr const char* kListFile = "project.plist";

int printDevices(bool asJson) {
    std::vector<AttachedDevice> devices = attachedDevices();
    std::erase_if(devices, [](const AttachedDevice& device) { return !device.hasMidiStreaming; });
    const auto listed = readDeviceList();
    if (!listed)
        return reportError(listed.error(), kExitUsage);
    const auto own = Resources::userFolder();
    const DeviceListPlace list{.devices = *listed,
                               .inUse = Resources::find("project", "plist").value_or(""),
                               .userOwn = own ? *own / kListFile : std::filesystem::path()};
    return printAndEnd((asJson ? deviceJson : deviceTable)(devices, list), kExitDone);
}

} // namespace

void addDevicesCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command =
        app.add_subcommand("devices", "List the USB MIDI devices, and how to add one of them");
    auto asJson = std::make_shared<bool>(false);
    command->add_flag("--json", *asJson, "Print JSON, for programs");
    command->callback([&choice, asJson] {
        choice = {[asJson] { return printDevices(*asJson); }, false};
    });
}

} // namespace scenewright
