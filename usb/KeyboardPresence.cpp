#include "usb/KeyboardPresence.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>

namespace scenewright {

namespace fs = std::filesystem;

namespace {

constexpr int kDecimal = 10;
constexpr int kHexadecimal = 16;
constexpr std::string_view kProgramsDriver = "usbfs"; // holds what a program has claimed

std::optional<std::int32_t> numberIn(const fs::path& file, int base) {
    std::ifstream stream(file);
    std::string text;
    stream >> text;
    std::int32_t number = 0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number, base);
    if (text.empty() || read.ptr != end)
        return std::nullopt;
    return number;
}

bool isListed(const fs::path& device, std::span<const DeviceIds> list) {
    const auto vendor = numberIn(device / "idVendor", kHexadecimal);
    const auto product = vendor ? numberIn(device / "idProduct", kHexadecimal) : std::nullopt;
    return product && std::ranges::find(list, DeviceIds{*vendor, *product}) != list.end();
}

// An interface's folder stands in that of its device and begins with its name: "1-2/1-2:1.0".
bool isClaimed(const fs::path& device) {
    std::error_code error;
    for (fs::directory_iterator entry(device, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path name = entry->path().filename();
        if (!name.string().starts_with(device.filename().string() + ":"))
            continue;
        std::error_code unbound;
        if (fs::read_symlink(entry->path() / "driver", unbound).filename() == kProgramsDriver)
            return true;
    }
    return false;
}

KeyboardPresence presenceOf(const fs::path& device, const fs::path& nodes) {
    const auto bus = numberIn(device / "busnum", kDecimal);
    const auto address = numberIn(device / "devnum", kDecimal);
    if (!bus || !address)
        return KeyboardPresence::Unplugged;
    const fs::path node = nodes / fmt::format("{:03}", *bus) / fmt::format("{:03}", *address);
    if (access(node.c_str(), R_OK | W_OK) != 0)
        return KeyboardPresence::NoPermission;
    return isClaimed(device) ? KeyboardPresence::Claimed : KeyboardPresence::Usable;
}

} // namespace

KeyboardPresence keyboardPresence(std::span<const DeviceIds> list, const KernelFolders& folders) {
    auto best = KeyboardPresence::Unplugged;
    std::error_code error;
    for (fs::directory_iterator entry(folders.devices, error), end; !error && entry != end;
         entry.increment(error))
        if (isListed(entry->path(), list))
            best = std::max(best, presenceOf(entry->path(), folders.nodes));
    return best;
}

} // namespace scenewright
