// Which option list names the values of a setting, and how a person calls the setting.
//
// Pure look-ups in one table; they keep nothing. References returned are valid as long as the
// holder of the lists.
#pragma once

#include "editor/options/PopUpValue.h"
#include "model/Control.h"
#include "model/Setting.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace scenewright {

// Values of `AssignType`: what a pad or a key sends.
inline constexpr std::int32_t kAssignOff = 0;
inline constexpr std::int32_t kAssignController = 1;
inline constexpr std::int32_t kAssignNote = 2;

// Stands where there is no title: a value outside its list, or a field that does not apply.
inline constexpr std::string_view kNoTitle = "---";

// The list whose entry at the stored index is the value's title. For the number of a pad or key
// this is the note list when the control's `AssignType` is 2 (note), else the controller list;
// for every other setting `assignType` is not looked at. Null when the resource lacks the list.
[[nodiscard]] Titles optionList(const PopUpValue& lists, const Setting& setting,
                                std::int32_t assignType);

// The title of the index stored in member `member` (from 0) of the setting's kind; "---" for a
// value outside its list, a field that does not apply and a record that the scene does not hold.
[[nodiscard]] std::string optionTitle(const PopUpValue& lists, const Setting& setting,
                                      const SceneValue& scene, std::int32_t member);

// How a person calls the setting, in their language: "MIDI channel" for MIDIChannel.
[[nodiscard]] std::string settingTitle(const Setting& setting);
// The same for a kind of control: "Pad".
[[nodiscard]] std::string kindTitle(ControlKind kind);

} // namespace scenewright
