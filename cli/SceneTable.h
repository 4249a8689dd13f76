// A scene's settings as text that fits a terminal of 80 columns.
#pragma once

#include "model/PopUpValue.h"
#include "model/SceneValue.h"

#include <string>

namespace scenewright {

// The scene's name and scene-wide settings, then one table for each kind of control, every value
// under its option's title. `number` counts from 1. Ends with a blank line. With names, which take
// more columns than 80, what each control sends stands behind its values.
[[nodiscard]] std::string sceneTable(const PopUpValue& lists, const SceneValue& scene, int number,
                                     bool hasNames = false);

} // namespace scenewright
