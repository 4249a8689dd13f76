#include "model/PadColour.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace scenewright {

namespace {

constexpr std::size_t kDigits = 2; // of a level
constexpr int kBase = 16;
constexpr std::int32_t kFullLevel = 127;
constexpr std::int32_t kFullShown = 255;

// A pad's light shows low levels as dark and mixes of three as white, so each colour but the whites
// has one level of 0 or nearly so and one that is full.
constexpr std::array<PadColour, 16> kBright{{
    {127, 0, 0},
    {127, 32, 0},
    {127, 64, 0},
    {127, 96, 0},
    {127, 127, 0},
    {64, 127, 0},
    {0, 127, 0},
    {0, 127, 64},
    {0, 127, 127},
    {0, 64, 127},
    {0, 0, 127},
    {64, 0, 127},
    {127, 0, 127},
    {127, 0, 64},
    {127, 64, 64},
    {127, 127, 127},
}};

// Where red and green look alike there are two things to see, how yellow and how blue a light is:
// in one of them at least any two differ by a quarter of the range.
constexpr std::array<PadColour, 8> kSafe{{
    {0, 0, 127},
    {127, 127, 0},
    {127, 0, 64},
    {127, 127, 127},
    {127, 40, 0},
    {0, 90, 127},
    {90, 127, 64},
    {0, 100, 64},
}};

constexpr std::array<NamedPalette, 2> kPalettes{{{"bright", kBright}, {"safe", kSafe}}};

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

std::span<const NamedPalette> palettes() {
    return kPalettes;
}

const Palette* findPalette(std::string_view name) {
    const auto* const found = std::ranges::find(kPalettes, name, &NamedPalette::name);
    return found == kPalettes.end() ? nullptr : &found->colours;
}

std::string paletteNames() {
    std::string names;
    for (const NamedPalette& palette : kPalettes)
        names += fmt::format("{}{}", names.empty() ? "" : ", ", palette.name);
    return names;
}

} // namespace scenewright
