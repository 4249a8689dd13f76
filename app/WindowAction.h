// The scene store, the two commands on it (read the scenes from the controller, send them back),
// and the menu commands that call them. Main thread only.
#pragma once

#include "model/MessageValue.h"
#include "model/SceneValue.h"
#include "protocol/Transactions.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace scenewright {

class PopUpValue;

// No instances; the scene list lives as long as the process, in WindowAction.cpp. The list holds
// the records themselves: who gets a scene edits the stored one.
class WindowAction {
public:
    WindowAction() = delete;

    // The one progress record of the process, made on the first call.
    [[nodiscard]] static std::shared_ptr<MessageValue> getMessageValue();
    // Replaces the scenes by four fresh default scenes, SCENE1 to SCENE4.
    static void getSceneValue();
    // The stored scene. Throws std::out_of_range for an index outside the list.
    [[nodiscard]] static std::shared_ptr<SceneValue> getSceneWithIndex(std::int32_t index);
    // Told what a command did, once, on the main thread, when it has ended.
    using Ended = std::function<void(const Outcome&)>;
    // Blocks until the read has ended; then at least four scenes are there, read ones first, and
    // `ended` has been told. The interface stays open. While a send runs it returns at once and is
    // carried out when the send, and each command given before, has ended.
    static void readSceneData(const Ended& ended = {});
    // Returns as soon as the transfer has been started; `ended` is told by the main queue. While a
    // send runs it is carried out later, as a read is.
    static void sendSceneData(const Ended& ended = {}, const SceneSent& sceneSent = {});
    // Four fresh ones, SCENE1 to SCENE4.
    [[nodiscard]] static SceneList defaultScenes();
    // Keeps a spare default scene; nothing reads it.
    static void GetDefaultValue();
    // The option lists in the words of the window's language, read anew.
    [[nodiscard]] static std::shared_ptr<PopUpValue> InitializePopUp();

    // The stored scenes, shared; for programs that save them.
    [[nodiscard]] static const SceneList& scenes();
    // Replaces the stored scenes, as a read does: a list of fewer than four is filled up with
    // default scenes named by their place, a longer one is kept whole.
    static void setScenes(SceneList scenes);
};

// The application's menu commands.
class AppDelegate {
public:
    void applicationDidFinishLaunching() {}
    void applicationWillTerminate() {}
    // Blocks until the read has ended.
    void readSceneDataAction();
    // Returns as soon as the transfer has been started.
    void sendSceneDataAction();
};

} // namespace scenewright
