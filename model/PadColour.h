// A pad's colour as people write it, #rrggbb, and as the controller stores it: three levels of
// seven bits.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace scenewright {

// Red, green and blue, each from 0 to 127.
using PadColour = std::array<std::int32_t, 3>;

// A pad's fields that hold them, in the same order.
inline constexpr std::array<std::string_view, 3> kColourFields{"CR", "CG", "CB"};

// # and six hexadecimal digits, either case; nothing for anything else. Of the 256 levels that two
// digits can tell, the nearest stored one.
[[nodiscard]] std::optional<PadColour> colourOf(std::string_view text);
// "#ff8000", scaled as the picture shows it; colourOf() gives the same levels again.
[[nodiscard]] std::string colourText(const PadColour& colour);

// Colours to choose from, in an order in which neighbours are told apart.
using Palette = std::span<const PadColour>;
struct NamedPalette {
    std::string_view name;
    Palette colours;
};
// "bright", sixteen that differ on lit pads, and "safe", eight that people who see red and green
// alike tell apart.
[[nodiscard]] std::span<const NamedPalette> palettes();
// Null when none has the name.
[[nodiscard]] const Palette* findPalette(std::string_view name);
// "bright, safe".
[[nodiscard]] std::string paletteNames();

} // namespace scenewright
