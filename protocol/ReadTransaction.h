// The transaction that reads all scenes from the controller.
#pragma once

#include "model/SceneValue.h"

namespace scenewright {

// Connects, then asks for the 1012 bytes of the four scenes one at a time; blocks until the device
// has answered each. The progress record's message tells where it is. Four scenes; none when the
// device could not be reached. What single transfers gave is not looked at: the transport's tally
// tells. The interface stays open. Main thread; no send job may run, as the transport is the job's.
[[nodiscard]] SceneList readScenes();

} // namespace scenewright
