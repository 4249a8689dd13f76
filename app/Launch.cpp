#include "app/Launch.h"

#include "app/KnownKeyboard.h"
#include "app/ListCheck.h"
#include "app/VirtualBank.h"
#include "platform/Diagnostics.h"
#include "platform/Resources.h"
#include "usb/DeviceList.h"
#include "usb/LibusbHost.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <fmt/format.h>

#include <filesystem>
#include <string_view>
#include <system_error>

namespace scenewright {

namespace {

// Only keyboards of the device list are found, and a list of the user's own need not have the ids
// that the controller has by default.
VirtualIdentity listedIdentity() {
    const std::vector<DeviceIds> listed = deviceList();
    if (listed.empty())
        return {};
    return {.vendor = static_cast<std::uint16_t>(listed.front().vendor),
            .product = static_cast<std::uint16_t>(listed.front().product)};
}

Result<void> connectVirtualHost(const LaunchOptions& options) {
    auto memory = openVirtualBank(options.virtualBank, options.needsLists);
    if (!memory)
        return failure(memory.error());
    auto device = std::make_shared<VirtualController>(memory->image);
    Transport::instance().use(
        makeVirtualHost(std::move(device), std::move(memory->keeper), listedIdentity()));
    return {};
}

// As Resources finds them once the folder is given to it.
std::vector<std::filesystem::path> listsIn(const std::string& folder, std::string_view name) {
    const auto given = std::filesystem::path(folder) / (std::string(name) + ".plist");
    std::error_code error;
    const auto status = std::filesystem::symlink_status(given, error);
    if (!folder.empty() && std::filesystem::exists(status))
        return {given};
    return Resources::findAll(name, "plist");
}

} // namespace

LaunchOptions launchOptions(const Arguments& arguments) {
    return {.isVirtual = arguments.has("--virtual"),
            .virtualBank = arguments.text("--virtual"),
            .device = arguments.text("--device"),
            .console = arguments.text("--console"),
            .log = arguments.text("--log"),
            .resources = arguments.text("--resources")};
}

std::vector<NamedFile> launchFiles(const LaunchOptions& options) {
    std::vector<NamedFile> files{
        {options.console, FileUse::Appended, "--console " + options.console + ": it",
         "the console"},
        {options.log, FileUse::Appended, "--log " + options.log + ": it", "the system log"},
        {options.virtualBank, FileUse::Replaced, options.virtualBank + ": a send to it",
         "the virtual controller's memory"}};
    std::erase_if(files, [](const NamedFile& file) { return file.name.empty(); });
    for (const std::string_view name : {kBasicList, kDefaultList, kProjectList})
        for (const auto& list : listsIn(options.resources, name))
            files.push_back({list.string(), FileUse::Read, {}, "a property list that is in use"});
    return files;
}

Result<void> launch(const LaunchOptions& options) {
    if (!options.resources.empty()) {
        if (!std::filesystem::is_directory(options.resources))
            return failure(fmt::format("{}: no such folder of resources", options.resources));
        Resources::setFolder(options.resources);
    }
    auto console = options.console.empty() ? Result<void>{} : sendConsoleTo(options.console);
    if (!console || options.log.empty())
        return console;
    return sendLogTo(options.log);
}

Result<std::shared_ptr<Keyboards>> connectHost(const LaunchOptions& options) {
    if (options.isVirtual) {
        KnownKeyboard::setNaming([] { return std::string("Virtual controller"); });
        return connectVirtualHost(options).map([] { return std::shared_ptr<Keyboards>(); });
    }
    auto keyboards = std::make_shared<Keyboards>(options.device);
    KnownKeyboard::setNaming([keyboards] { return keyboards->name(); });
    Transport::instance().use(
        offerChosen(makeLibusbHost(), [keyboards] { return keyboards->offeredPort(); }));
    return keyboards;
}

} // namespace scenewright
