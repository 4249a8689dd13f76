#include "app/Launch.h"

#include "app/DeviceSession.h"
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/Diagnostics.h"
#include "platform/Files.h"
#include "platform/Resources.h"
#include "platform/Text.h"
#include "usb/Devices.h"
#include "usb/LibusbHost.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

namespace scenewright {

namespace {

std::string fileOf(std::string_view name) {
    const auto file = Resources::find(name, "plist");
    return file ? file->string() : std::string(name) + ".plist";
}

Result<void> checkControls(const PropertyValue& list) {
    const std::size_t controls = list["ButtonArray"].elements().size();
    if (controls == kControlCount)
        return {};
    return failure(
        translated(sourceText("scenewright::File",
                              "{0}: the default scene holds {1} controls, and the keyboard has "
                              "{2}"),
                   fileOf(kDefaultList), controls, kControlCount));
}

} // namespace

Result<void> checkList(std::string_view name) {
    if (name == kBasicList)
        return readPopUpValue().map([](const auto&) {});
    if (name == kDefaultList) {
        const auto list = Resources::read(name);
        return list ? checkControls(*list) : Result<void>(failure(list.error()));
    }
    const auto listed = readDeviceList();
    if (!listed)
        return failure(listed.error());
    if (listed->empty())
        return failure(translated(sourceText("scenewright::File", "{}: it lists no keyboard"),
                                  fileOf(kProjectList)));
    return {};
}

Result<void> checkDefaultScenes(const SceneList& scenes) {
    const auto isWhole = [](const auto& scene) {
        return scene->buttonValueArray().size() == kControlCount;
    };
    if (std::ranges::all_of(scenes, isWhole))
        return {};
    auto checked = checkList(kDefaultList);
    return checked ? failure("default.plist: it changed meanwhile") : checked;
}

std::vector<std::string> listErrors() {
    std::vector<std::string> errors;
    for (const std::string_view name : {kBasicList, kDefaultList, kProjectList})
        if (auto checked = checkList(name); !checked)
            errors.push_back(std::move(checked.error()));
    if (auto checked = checkShownTitles(); !checked)
        errors.push_back(std::move(checked.error()));
    return errors;
}

namespace {

namespace fs = std::filesystem;

// The lists are taken along, as sends end on a thread of their own.
BankFileStore::Store jsonStore(std::shared_ptr<PopUpValue> lists) {
    return [lists = std::move(lists)](const fs::path& file, const BankImage& image) {
        return readBankImage(image)
            .map_error([&file](const std::string& why) {
                return fmt::format("{}: {}", file.string(), why);
            })
            .and_then([&](const SceneList& scenes) {
                return writeBank(file, scenes, BankFormat::Json, *lists);
            });
    };
}

Result<BankFileStore> keeperFor(const fs::path& file, BankFormat form, bool needsLists) {
    if (form != BankFormat::Json)
        return BankFileStore(file);
    if (!needsLists)
        return BankFileStore(file, jsonStore(loadPopUpValue()));
    return readPopUpValue().map([&file](std::shared_ptr<PopUpValue> lists) {
        return BankFileStore(file, jsonStore(std::move(lists)));
    });
}

// What a controller's memory can be filled with, and the form that it is kept in.
struct Memory {
    BankImage image{};
    BankFormat form = BankFormat::Image;
};

Result<Memory> readMemory(const std::string& path) {
    const auto bytes = readFile(path, kJsonBytes);
    if (!bytes)
        return failure(bytes.error());
    Memory memory{.form = formOf(*bytes)};
    if (memory.form == BankFormat::Json)
        return parseBank(*bytes, path).map([&memory](const BankFile& bank) {
            memory.image = encodeBank(bank.scenes);
            return memory;
        });
    if (bytes->size() != kBankSize)
        return failure(fmt::format("{}: not a bank for the virtual controller: it holds {} bytes, "
                                   "and a bank holds {} or is JSON",
                                   path, bytes->size(), kBankSize));
    std::ranges::copy(*bytes, memory.image.begin());
    return memory;
}

} // namespace

Result<VirtualBank> openVirtualBank(const std::string& path, bool needsLists) {
    WindowAction::getSceneValue();
    Result<Memory> memory = Memory{encodeBank(WindowAction::scenes()), formatForName(path)};
    if (!path.empty())
        if (const auto checked = checkReplaceable(path); !checked)
            return failure(checked.error());
    const bool isThere = !path.empty() && fs::exists(path);
    if (isThere)
        memory = readMemory(path);
    if (!memory)
        return failure(memory.error());
    if (!isThere && needsLists)
        if (auto checked = checkDefaultScenes(WindowAction::scenes()); !checked)
            return failure(std::move(checked.error()));
    return keeperFor(path, memory->form, needsLists).map([&memory](BankFileStore keeper) {
        return VirtualBank{memory->image, std::move(keeper)};
    });
}

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
