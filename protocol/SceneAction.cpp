#include "protocol/SceneAction.h"

#include "protocol/Connection.h"
#include "protocol/SceneImage.h"
#include "protocol/Transactions.h"

namespace scenewright {

std::vector<std::uint8_t> SceneAction::sceneToBytes(const SceneValue& scene) {
    const SceneImage image = encodeScene(scene);
    return {image.begin(), image.end()};
}

std::shared_ptr<ButtonValue> SceneAction::initButton(std::shared_ptr<ButtonValue> button) {
    markFieldsAbsent(*button);
    return button;
}

bool SceneAction::HandshakeOperation() {
    return handshakeOnce();
}

SceneList SceneAction::GetSceneFromDevice() {
    return readScenes(*Progress::record()).scenes;
}

void SceneAction::SendSceneToDevice(const SceneList& scenes) {
    sendScenes(scenes, Progress::record());
}

} // namespace scenewright
