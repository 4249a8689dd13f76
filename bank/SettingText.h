// A setting's value and a scene's name as files, commands and lists of differences write them.
#pragma once

#include "bank/Path.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/Result.h"
#include "protocol/SceneImage.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace scenewright {

// Before the hexadecimal digits of a name that no text can give.
inline constexpr std::string_view kBytesMark = "bytes:";

// A setting's value.
struct SettingText {
    // The option index; for a scene's name its text, or "bytes:" and 24 hexadecimal digits.
    std::string value;
    // The option's title; empty for a name, and for a value outside its list.
    std::string title;
    friend bool operator==(const SettingText&, const SettingText&) = default;
};

// The scene must hold the place's record.
[[nodiscard]] SettingText settingText(const PopUpValue& lists, const SceneValue& scene,
                                      const SettingPlace& place);

// The index that the controller stores for it: 0 for one outside 0..127.
[[nodiscard]] std::int32_t storedIndex(const SceneValue& scene, const Setting& setting,
                                       std::int32_t control);

// A scene's stored name in the two ways that files and commands write it: as text where a person
// can read all of it, else as the twelve bytes in hexadecimal.
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
// The same, or one sentence that says what is in the way, in the person's language.
[[nodiscard]] Result<std::string> storedNameOf(std::string_view text);
// The stored name of 24 hexadecimal digits, either case; nothing for anything else.
[[nodiscard]] std::optional<std::string> nameOfHex(std::string_view digits);

// `text` as it may stand in a message of one line: bytes that nobody can read show as U+FFFD, and
// a long text is cut short with an ellipsis.
[[nodiscard]] std::string sanitized(std::string_view text);

} // namespace scenewright
