// The transaction that sends scenes to the controller.
#pragma once

#include "model/SceneValue.h"

namespace scenewright {

// Connects on the calling thread, then leaves the packet stream to a SendJob and returns: that job
// tells when the transfer has ended. Nothing is sent when the device could not be reached; refused
// with a log line, before anything is touched, while a job runs. The scenes are encoded before it
// returns. Main thread.
void sendScenes(const SceneList& scenes);

} // namespace scenewright
