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
    static std::shared_ptr<ButtonValue> initButton(std::shared_ptr<ButtonValue> button);

    // One handshake; see Connection.h.
    [[nodiscard]] static bool HandshakeOperation();

    // Both as Transactions.h has them, with the process's progress record.
    [[nodiscard]] static SceneList GetSceneFromDevice();
    static void SendSceneToDevice(const SceneList& scenes);
};

} // namespace scenewright
