// Scenes in which every popup of the window can be used.
#pragma once

#include "model/SceneValue.h"

namespace scenewright::testing {

// Four default scenes with constant velocity curves, everything enabled, and pads and keys sending
// controllers. The process's own scenes become default scenes on the way.
[[nodiscard]] SceneList usableScenes();

} // namespace scenewright::testing
