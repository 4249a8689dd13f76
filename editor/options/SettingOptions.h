// Which option list names the values of a setting.
#pragma once

#include "editor/options/PopUpValue.h"
#include "model/Setting.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

using Titles = std::shared_ptr<const std::vector<std::string>>;

// The list whose entry at the stored index is the value's title. For the number of a pad or key
// this is the note list when the control's `AssignType` is 2 (note), else the controller list.
// Null when the resource lacks the list.
[[nodiscard]] Titles optionList(const PopUpValue& lists, const Setting& setting,
                                std::int32_t assignType);

// The title of a stored index; "---" for a value outside its list or a field that does not apply.
[[nodiscard]] std::string optionTitle(const PopUpValue& lists, const Setting& setting,
                                      const SceneValue& scene, std::int32_t member);

// How a person calls the setting, in English: "MIDI channel" for MIDIChannel.
[[nodiscard]] std::string_view settingTitle(const Setting& setting);

} // namespace scenewright
