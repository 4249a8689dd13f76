// A scene's stored name in the two ways that files and commands write it: as text where a person
// can read all of it, else as the twelve bytes in hexadecimal.
#pragma once

#include "protocol/SceneImage.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace scenewright {

using NameBytes = std::array<std::uint8_t, kNameSize>;

// The first twelve bytes of a record's name, filled up with zeros: what the image holds.
[[nodiscard]] NameBytes nameBytes(std::string_view sceneName);
// The same as the text that a record holds after a read: all twelve bytes.
[[nodiscard]] std::string storedName(std::string_view sceneName);

// The name without its fill, when nothing of it would be lost or hidden in a text: valid UTF-8
// without control characters. Otherwise nothing, and the name is to be given in hexadecimal.
[[nodiscard]] std::optional<std::string> nameAsText(std::string_view sceneName);
// 24 hexadecimal digits, lower case.
[[nodiscard]] std::string nameAsHex(std::string_view sceneName);

// The stored name that `text` stands for; nothing when it is longer than twelve bytes or is no
// text of nameAsText().
[[nodiscard]] std::optional<std::string> nameOfText(std::string_view text);
// The stored name of 24 hexadecimal digits, either case; nothing for anything else.
[[nodiscard]] std::optional<std::string> nameOfHex(std::string_view digits);

} // namespace scenewright
