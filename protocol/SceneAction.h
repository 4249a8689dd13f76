// The device protocol's operations under their own names; each is a thin face over its own unit.
#pragma once

#include "model/SceneValue.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace scenewright {

class SceneAction {
public:
    SceneAction() = delete;

    // Exactly 253 bytes; see SceneImage.h.
    [[nodiscard]] static std::vector<std::uint8_t> sceneToBytes(const SceneValue& scene);
    // Sets all fields but ButtonID to kFieldAbsent and gives the same record back.
    static const std::shared_ptr<ButtonValue>&
    initButton(const std::shared_ptr<ButtonValue>& button);

    // One handshake; see Handshake.h.
    [[nodiscard]] static bool HandshakeOperation();

    // Reads all scenes; blocks until the device has answered. Four scenes, or none when the device
    // could not be reached. Main thread.
    [[nodiscard]] static SceneList GetSceneFromDevice();

    // Connects on the calling thread, then sends on a thread of its own and returns. Refused with
    // a log line while a job runs. Main thread; SendJob tells when it has ended.
    static void SendSceneToDevice(const SceneList& scenes);
};

} // namespace scenewright
