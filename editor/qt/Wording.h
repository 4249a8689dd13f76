// The texts of the folders that know no toolkit, in the language of the window.
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace scenewright {

// The label of a setting, from its title in editor/options/SettingOptions.h.
[[nodiscard]] QString settingLabel(std::string_view title);

// For controlName and describeControl.
[[nodiscard]] std::string controlWords(const char* text);

// For connectCause.
[[nodiscard]] std::string causeWords(const char* text);

} // namespace scenewright
