#include "usb/DeviceList.h"

#include "platform/Files.h"
#include "platform/Resources.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <system_error>

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

} // namespace scenewright
