// A JSON text as a tree of plain values, read with limits: what a hostile file can cost is bounded,
// and a key that stands twice in an object is found. Time and memory grow with the text's length.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

// A thousand scenes with their titles take less than a quarter of it.
inline constexpr std::size_t kJsonBytes = std::size_t{64} * 1024 * 1024;
inline constexpr std::size_t kJsonLevels = 16;
inline constexpr std::size_t kJsonValues = 1'000'000;

struct JsonNode {
    enum class Kind : std::uint8_t { Null, Boolean, Integer, Number, Text, Array, Object };

    Kind kind = Kind::Null;
    std::int64_t integer = 0; // of an Integer
    std::string text;         // of a Text; of a Number, as the text writes it
    std::vector<JsonNode> values;
    std::vector<std::string> keys; // of an Object: the key of each value

    // An object's value; null when there is none of that key.
    [[nodiscard]] const JsonNode* find(std::string_view key) const;
};

// What reading gave: `root` counts only when there is no `trouble`, which says in one phrase what
// is wrong and where.
struct JsonTree {
    JsonNode root;
    std::optional<std::string> trouble;
};

[[nodiscard]] JsonTree parseJson(std::string_view text);

// Where a value stands: "scenes[1].pads[3]" and "CR" make "scenes[1].pads[3].CR".
[[nodiscard]] std::string memberPlace(std::string_view place, std::string_view key);
[[nodiscard]] std::string elementPlace(std::string_view place, std::size_t index);

// `text` in quotation marks, as a JSON text writes it. Bytes that are no UTF-8 become U+FFFD.
[[nodiscard]] std::string jsonQuoted(std::string_view text);

} // namespace scenewright
