// What a person types for a setting, turned into a position of its option list. Popups and the
// command line share it, so that the same words choose the same option in both. At the end, a pad's
// colour as people write it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

// The note that a name stands for, in semitones above C-1: "C4" is 60. A letter in either case, an
// accidental or none (# and b, or the characters U+266F and U+266D), and an octave of one digit
// with or without a sign; so C#2, db2 and Db+2 are one note, and Cb2 is B1. Nothing for anything
// else. The result may lie outside 0..127.
[[nodiscard]] std::optional<std::int32_t> noteNumber(std::string_view name);

// The position in `titles` that `typed` stands for, blanks around it aside; nothing when it stands
// for none, or for several. The first of these that finds one counts:
//
//   a title: letter for letter, then in any case
//   a title that is the same note in another spelling
//   a title of the same whole number (1 finds +1); among note names, the note of that number
//   a name: `names` holds what else a position is called, empty where it has no name
//   the beginning of one title alone
//   from three letters on: a word's beginning in one title alone, outside parentheses or anywhere;
//   the beginning of one name alone, or a word's beginning in the same way
//
// Case is told apart only in letters outside ASCII.
[[nodiscard]] std::optional<std::int32_t>
typedPosition(std::string_view typed, std::span<const std::string> titles,
              std::span<const std::string_view> names = {});

// A pad's colour as the controller stores it: red, green and blue, each from 0 to 127.
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
