// An option of a setting by what a person types for it, where the setting's place decides what the
// words mean: the number of a pad is a note if the pad sends notes. Places here are options, not
// names.
#pragma once

#include "bank/Path.h"
#include "bank/SettingText.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/Result.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace scenewright {

// Before a number that is stored whether a list has it or not, or the path of such a thing.
inline constexpr std::string_view kRawMark = "raw:";

// The list whose titles name the place's values, as the scene stands; null for a name, and when the
// resource lacks the list.
[[nodiscard]] Titles titlesAt(const PopUpValue& lists, const SettingPlace& place,
                              const SceneValue& scene);
// What the place's control sends, kAssignOff for one that carries no `AssignType`.
[[nodiscard]] std::int32_t assignTypeAt(const SettingPlace& place, const SceneValue& scene);
// Whether the list there has the index. The error is one phrase that names the path.
[[nodiscard]] Result<void> checkIndex(const PopUpValue& lists, const SettingPlace& place,
                                      const SceneValue& scene, std::int32_t index);
// The index that `typed` stands for there:
//
//   digits             the index itself, if the list has it
//   "raw:" and digits  the index whether the list has it or not
//   "ch:" and digits   for a channel: that of 1 to 16, as players count
//   "title:" and text  the title, letter for letter
//   anything else      what typedPosition() takes: a title, a note, a controller's name
//
// The error is one phrase that names the path.
[[nodiscard]] Result<std::int32_t> indexTyped(const PopUpValue& lists, const SettingPlace& place,
                                              const SceneValue& scene, std::string_view typed);

// "scene1.pad3.CR=127": the assignment that stores what stands at the place now.
[[nodiscard]] std::string assignmentOf(const SettingPlace& place, const SettingText& text);

} // namespace scenewright
