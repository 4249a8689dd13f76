#include "bank/Colour.h"

#include <fmt/format.h>

#include <charconv>
#include <cstddef>

namespace scenewright {

namespace {

constexpr std::size_t kDigits = 2; // of a level
constexpr int kBase = 16;
constexpr std::int32_t kFullLevel = 127;
constexpr std::int32_t kFullShown = 255;

} // namespace

std::optional<PadColour> colourOf(std::string_view text) {
    PadColour colour{};
    if (text.size() != 1 + kDigits * colour.size() || text.front() != '#')
        return std::nullopt;
    text.remove_prefix(1);
    for (std::int32_t& level : colour) {
        std::uint8_t shown = 0;
        const char* const end = text.data() + kDigits;
        const auto result = std::from_chars(text.data(), end, shown, kBase);
        if (result.ec != std::errc() || result.ptr != end)
            return std::nullopt;
        level = (shown * kFullLevel + kFullShown / 2) / kFullShown;
        text.remove_prefix(kDigits);
    }
    return colour;
}

std::string colourText(const PadColour& colour) {
    std::string text = "#";
    for (const std::int32_t level : colour)
        text += fmt::format("{:02x}", level * kFullShown / kFullLevel);
    return text;
}

} // namespace scenewright
