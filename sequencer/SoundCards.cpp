#include "sequencer/SoundCards.h"

#include <charconv>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

namespace scenewright {

namespace fs = std::filesystem;

namespace {

// The number in the name of a card's entry, "card0"; nothing for another entry.
std::optional<int> cardNumber(std::string_view name) {
    constexpr std::string_view kPrefix = "card";
    if (!name.starts_with(kPrefix))
        return std::nullopt;
    name.remove_prefix(kPrefix.size());
    int card = 0;
    const auto [stop, error] = std::from_chars(name.data(), name.data() + name.size(), card);
    return error == std::errc{} && stop == name.data() + name.size() ? std::optional(card)
                                                                     : std::nullopt;
}

bool holdsNumber(const fs::path& file, std::int32_t number) {
    std::int32_t held = -1;
    return (std::ifstream(file) >> held) && held == number;
}

} // namespace

std::optional<int> soundCardOf(std::int32_t bus, std::int32_t address, const fs::path& folder) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        const auto card = cardNumber(entry->path().filename().string());
        if (!card)
            continue;
        // The card belongs to an interface, the interface to the device.
        std::error_code missing;
        const fs::path device = fs::canonical(entry->path() / "device", missing).parent_path();
        if (!missing && holdsNumber(device / "busnum", bus) &&
            holdsNumber(device / "devnum", address))
            return card;
    }
    return std::nullopt;
}

} // namespace scenewright
