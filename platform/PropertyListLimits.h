// The check that a property list passes before it is parsed.
//
// The parser follows nesting and shared objects without a limit of its own: a hostile file of a few
// hundred bytes could exhaust stack or memory. This check reads the bytes without building
// anything.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace scenewright {

inline constexpr std::size_t kPropertyListBytes = std::size_t{16} * 1024 * 1024;
inline constexpr std::size_t kPropertyListLevels = 64;
// Nodes that a list may unfold to; a binary list can name one object many times over.
inline constexpr std::size_t kPropertyListNodes = 1'000'000;

// Empty when the bytes may be parsed, else what is wrong ("it is nested deeper than 64 levels").
[[nodiscard]] std::string_view propertyListFault(std::string_view bytes);

} // namespace scenewright
