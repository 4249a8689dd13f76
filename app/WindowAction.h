// The scene store and the two commands on it: read the scenes from the controller, send them back.
//
// No instances; the scene list lives as long as the process, in WindowAction.cpp. The list holds
// the records themselves: who gets a scene edits the stored one. Main thread only.
#pragma once

#include "model/MessageValue.h"
#include "model/SceneValue.h"

#include <cstdint>
#include <memory>

namespace scenewright {

class PopUpValue;

class WindowAction {
public:
    WindowAction() = delete;

    // The one progress record of the process, made on the first call.
    [[nodiscard]] static std::shared_ptr<MessageValue> getMessageValue();
    // Replaces the scenes by four fresh default scenes, SCENE1 to SCENE4.
    static void getSceneValue();
    // The stored scene. Throws std::out_of_range for an index outside the list.
    [[nodiscard]] static std::shared_ptr<SceneValue> getSceneWithIndex(std::int32_t index);
    // Blocks until the read has ended; then at least four scenes are there, read ones first.
    // Refused with a log line, nothing touched, while a send runs.
    static void readSceneData();
    // Returns as soon as the transfer has been started.
    static void sendSceneData();
    // Keeps a spare default scene; nothing reads it.
    static void GetDefaultValue();
    // The option lists, read anew from basic.plist.
    [[nodiscard]] static std::shared_ptr<PopUpValue> InitializePopUp();

    // The stored scenes, shared; for programs that save them.
    [[nodiscard]] static const SceneList& scenes();
    // Replaces the stored scenes, as a read does: a list of fewer than four is filled up with
    // default scenes named by their place, a longer one is kept whole.
    static void setScenes(SceneList scenes);
};

} // namespace scenewright
