#include "protocol/SendTransaction.h"

#include "model/Progress.h"
#include "platform/Diagnostics.h"
#include "protocol/Handshake.h"
#include "protocol/SceneImage.h"
#include "protocol/SendJob.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

std::vector<std::uint8_t> encodeScenes(const SceneList& scenes) {
    std::vector<std::uint8_t> images;
    images.reserve(scenes.size() * kSceneImageSize);
    for (const auto& scene : scenes) {
        const SceneImage image = encodeScene(*scene);
        images.insert(images.end(), image.begin(), image.end());
    }
    return images;
}

} // namespace

void sendScenes(const SceneList& scenes) {
    if (SendJob::isRunning()) {
        Diagnostics::log("The scenes are not sent: an earlier send is still running");
        return;
    }
    std::vector<std::uint8_t> images = encodeScenes(scenes);
    Diagnostics::log("%s", hexDump(images));
    if (!connectToDevice())
        return;
    if (!SendJob::start(std::move(images), Progress::record()))
        Diagnostics::log("The scenes are not sent");
}

} // namespace scenewright
