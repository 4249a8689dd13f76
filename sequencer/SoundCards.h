// Which sound card a USB device is to the kernel.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace scenewright {

// The number of the card whose device has this bus and address; nothing while its driver is away.
// The folder has a link for each card, and shows it before the card has its first MIDI port.
[[nodiscard]] std::optional<int>
soundCardOf(std::int32_t bus, std::int32_t address,
            const std::filesystem::path& folder = "/sys/class/sound");

} // namespace scenewright
