// Builds the default scene from the resource default.plist.
#pragma once

#include "model/SceneValue.h"

#include <memory>

namespace scenewright {

class FileAction {
public:
    FileAction() = delete;

    // A new scene of fresh records; the file is read anew at each call. A missing or unreadable
    // file gives a scene without controls and with zeros. The name is always empty.
    [[nodiscard]] static std::shared_ptr<SceneValue> GetSceneFromDefault();
};

} // namespace scenewright
