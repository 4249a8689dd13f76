#include "app/AccessRules.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace scenewright {

namespace {

constexpr const char* kHead =
    "# Lets the user who sits at the computer use the keyboards of Scenewright's device list.\n"
    "# Install as {}: the name must sort before 73, where\n"
    "# the tag \"uaccess\" is acted on. Then plug the keyboard in again.\n";

bool canExist(const DeviceIds& device) {
    constexpr std::int32_t kHighest = 0xFFFF;
    return device.vendor >= 0 && device.vendor <= kHighest && device.product >= 0 &&
           device.product <= kHighest;
}

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

} // namespace scenewright
