// Whether the property lists that the programs work with can serve.
//
// Programs start without them: a list that is missing or cannot be read acts as an empty one. What
// needs a list asks here first, and says what is wrong with it.
#pragma once

#include "model/SceneValue.h"
#include "platform/Result.h"

#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

inline constexpr std::string_view kBasicList = "basic";     // the titles of the options
inline constexpr std::string_view kDefaultList = "default"; // the default scene
inline constexpr std::string_view kProjectList = "project"; // the keyboards that are accepted

// As the file is now: it can be read and has as much as the keyboard needs. The error is one
// sentence that names the file.
[[nodiscard]] Result<void> checkList(std::string_view name);

// Whether each of the scenes, made from the default list, has what the list is to give: it is read
// anew for each, and may fail for one of them.
[[nodiscard]] Result<void> checkDefaultScenes(const SceneList& scenes);

// The errors of all three, and of the titles in the person's language.
[[nodiscard]] std::vector<std::string> listErrors();

} // namespace scenewright
