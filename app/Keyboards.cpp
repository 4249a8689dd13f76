#include "app/Keyboards.h"

#include "platform/Text.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

KeyboardPresence presenceOf(AttachedDevice::Access access) {
    switch (access) {
    case AttachedDevice::Access::NoPermission:
        return KeyboardPresence::NoPermission;
    case AttachedDevice::Access::Claimed:
        return KeyboardPresence::Claimed;
    case AttachedDevice::Access::Usable:
        return KeyboardPresence::Usable;
    }
    return KeyboardPresence::Unplugged;
}

std::string descriptions(const std::vector<PluggedDevice>& devices) {
    std::vector<std::string> texts;
    texts.reserve(devices.size());
    for (const PluggedDevice& each : devices)
        texts.push_back(each.description());
    return fmt::format("{}", fmt::join(texts, ", "));
}

} // namespace

std::string PluggedDevice::name() const {
    if (!device.name.empty())
        return device.name;
    return device.maker.empty()
               ? fmt::format("{:04x}:{:04x}", device.ids.vendor, device.ids.product)
               : device.maker;
}

std::string PluggedDevice::description() const {
    if (device.serial.empty())
        return fmt::format("{} ({})", device.port, name());
    return translated(sourceText("scenewright::Keyboards", "{0} ({1}, serial number {2})"),
                      device.port, name(), device.serial);
}

std::vector<PluggedDevice> Keyboards::all() const {
    const std::vector<DeviceIds> listed = deviceList();
    std::vector<PluggedDevice> devices;
    bool isFound = false;
    for (AttachedDevice& device : look_()) {
        const bool isListed = std::ranges::find(listed, device.ids) != listed.end();
        if (!isListed && !device.hasMidiStreaming)
            continue;
        const bool isInUse = isListed && !isFound && (chosen_.empty() || device.isNamed(chosen_));
        isFound = isFound || isInUse;
        devices.push_back({.device = std::move(device), .isListed = isListed, .isInUse = isInUse});
    }
    return devices;
}

std::optional<PluggedDevice> Keyboards::inUse() const {
    std::vector<PluggedDevice> devices = all();
    const auto found = std::ranges::find(devices, true, &PluggedDevice::isInUse);
    return found == devices.end() ? std::nullopt : std::optional(std::move(*found));
}

std::string Keyboards::lastingName(const AttachedDevice& device) const {
    const auto isNamedSo = [&device](const PluggedDevice& other) {
        return other.device.isNamed(device.serial);
    };
    return std::ranges::count_if(all(), isNamedSo) == 1 ? device.serial : device.port;
}

KeyboardPresence Keyboards::presence() const {
    const auto used = inUse();
    return used ? presenceOf(used->device.access) : KeyboardPresence::Unplugged;
}

std::string Keyboards::name() const {
    const std::vector<PluggedDevice> devices = all();
    const auto used = std::ranges::find(devices, true, &PluggedDevice::isInUse);
    if (used == devices.end())
        return {};
    const bool isAlone = std::ranges::count_if(devices, [&used](const PluggedDevice& other) {
                             return other.isListed && other.name() == used->name();
                         }) == 1;
    return isAlone ? used->name() : fmt::format("{} ({})", used->name(), used->device.port);
}

std::optional<std::string> Keyboards::offeredPort() const {
    if (chosen_.empty())
        return std::nullopt;
    const auto used = inUse();
    return used ? used->device.port : chosen_;
}

std::optional<std::string> Keyboards::tacitChoice() const {
    std::vector<PluggedDevice> listed = all();
    std::erase_if(listed, [](const PluggedDevice& each) { return !each.isListed; });
    if (!chosen_.empty() || listed.size() < 2)
        return std::nullopt;
    const std::string used = listed.front().description();
    listed.erase(listed.begin());
    return fmt::format("{} keyboards are plugged in, and {} is used; --device chooses another one: "
                       "{}",
                       listed.size() + 1, used, descriptions(listed));
}

Result<void> Keyboards::checkChosen() const {
    if (chosen_.empty())
        return {};
    std::vector<PluggedDevice> listed = all();
    std::vector<PluggedDevice> named;
    std::ranges::copy_if(listed, std::back_inserter(named), [this](const PluggedDevice& each) {
        return each.device.isNamed(chosen_);
    });
    if (named.size() == 1 && named.front().isListed)
        return {};
    const std::string chosen = readableText(chosen_);
    if (named.size() == 1)
        return failure(translated(
            sourceText("scenewright::Keyboards",
                       "{0}: the device is not in the list of keyboards; 'scenewright-cli devices "
                       "--add {1}' adds it"),
            named.front().description(), named.front().device.port));
    if (!named.empty())
        return failure(translated(sourceText("scenewright::Keyboards",
                                             "There are several with the serial number {0}; name "
                                             "one by its port: {1}"),
                                  chosen, descriptions(named)));
    std::erase_if(listed, [](const PluggedDevice& each) { return !each.isListed; });
    if (listed.empty())
        return failure(
            translated(sourceText("scenewright::Keyboards",
                                  "There is no keyboard {}, and no other one of the list"),
                       chosen));
    return failure(translated(
        sourceText("scenewright::Keyboards", "There is no keyboard {0}; plugged in: {1}"), chosen,
        descriptions(listed)));
}

namespace {

constexpr const char* kHead =
    "# Lets the user who sits at the computer use the keyboards of Scenewright's device list.\n"
    "# Install as {}: the name must sort before 73, where\n"
    "# the tag \"uaccess\" is acted on. Then plug the keyboard in again.\n";

// One word of a shell's.
std::string quoted(std::string_view text) {
    constexpr std::string_view kPlain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/._-";
    if (text.find_first_not_of(kPlain) == std::string_view::npos)
        return std::string(text);
    std::string word = "'";
    for (const char letter : text)
        word += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
    return word + "'";
}

} // namespace

std::string accessCommand(std::string_view program) {
    return fmt::format("{} udev-rules | sudo tee {}", quoted(program), kAccessRulesFile);
}

std::string udevRules(std::span<const DeviceIds> devices) {
    std::string rules = fmt::format(kHead, kAccessRulesFile);
    std::vector<DeviceIds> done;
    for (const DeviceIds& device : devices) {
        if (std::ranges::find(done, device) != done.end())
            continue;
        done.push_back(device);
        rules += fmt::format("ACTION!=\"remove\", SUBSYSTEM==\"usb\", "
                             "ENV{{DEVTYPE}}==\"usb_device\", ATTR{{idVendor}}==\"{:04x}\", "
                             "ATTR{{idProduct}}==\"{:04x}\", TAG+=\"uaccess\"\n",
                             device.vendor, device.product);
    }
    return rules;
}

} // namespace scenewright
