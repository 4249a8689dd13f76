// A setting's value as commands and lists of differences write it.
#pragma once

#include "bank/Path.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace scenewright {

// Before the hexadecimal digits of a name that no text can give.
inline constexpr std::string_view kBytesMark = "bytes:";

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

} // namespace scenewright
