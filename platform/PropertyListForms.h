// The two forms of a property list, each read into a value.
//
// What is nested too deep or holds too much is refused, so that no list exhausts stack or memory.
// An error says in a few words what the bytes are ("it is not a property list"). Any thread.
#pragma once

#include "platform/PropertyList.h"
#include "platform/Result.h"

#include <cstddef>
#include <string_view>

namespace scenewright {

inline constexpr std::size_t kPropertyListBytes = std::size_t{16} * 1024 * 1024;
inline constexpr std::size_t kPropertyListLevels = 64;
// Values that a list may unfold to; a binary list can name one object many times over.
inline constexpr std::size_t kPropertyListNodes = 1'000'000;

inline constexpr const char* kNoPropertyList = "it is not a property list";
inline constexpr const char* kTooDeepList = "it is nested deeper than 64 levels";
inline constexpr const char* kTooManyValues = "it holds more than a million values";

// In UTF-8, or in another encoding that the document declares and expat knows.
[[nodiscard]] Result<PropertyValue> parseXmlPropertyList(std::string_view bytes);

// Version 00 of the binary form.
[[nodiscard]] Result<PropertyValue> parseBinaryPropertyList(std::string_view bytes);

} // namespace scenewright
