// The transaction that reads all scenes from the controller.
#pragma once

#include "model/SceneValue.h"
#include "protocol/Outcome.h"

namespace scenewright {

struct ScenesRead {
    SceneList scenes; // four; none when the device could not be reached
    Outcome outcome;
};

// Connects, then asks for the 1012 bytes of the four scenes one at a time; blocks until the device
// has answered each. The progress record's message tells where it is. The interface stays open.
// Main thread; no send job may run, as the transport is the job's.
[[nodiscard]] ScenesRead readScenes();

} // namespace scenewright
