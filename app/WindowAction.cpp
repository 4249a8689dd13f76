#include "app/WindowAction.h"

#include "editor/options/PopUpValue.h"
#include "model/Control.h"
#include "model/FileAction.h"
#include "model/Progress.h"
#include "platform/Diagnostics.h"
#include "protocol/SceneAction.h"
#include "protocol/SendJob.h"

#include <fmt/printf.h>

#include <stdexcept>
#include <utility>

namespace scenewright {

namespace {

// The store's process-wide state: made empty, filled by getSceneValue or a read, kept to the end.
struct Store {
    SceneList scenes;
    std::shared_ptr<SceneValue> spareDefault;
};

Store& store() {
    static Store state;
    return state;
}

// `number` counts from 1.
std::shared_ptr<SceneValue> namedDefaultScene(std::int32_t number) {
    auto scene = FileAction::GetSceneFromDefault();
    scene->commonValue()->setSceneName(fmt::sprintf("SCENE%d", number));
    return scene;
}

// Appends default scenes, each named by its place, until the controller's four are there.
void padWithDefaults(SceneList& scenes) {
    while (scenes.size() < kSceneCount)
        scenes.push_back(namedDefaultScene(static_cast<std::int32_t>(scenes.size()) + 1));
}

} // namespace

std::shared_ptr<MessageValue> WindowAction::getMessageValue() {
    return Progress::record();
}

void WindowAction::getSceneValue() {
    setScenes({});
}

std::shared_ptr<SceneValue> WindowAction::getSceneWithIndex(std::int32_t index) {
    const SceneList& scenes = store().scenes;
    if (index < 0 || static_cast<std::size_t>(index) >= scenes.size())
        throw std::out_of_range(fmt::sprintf("no scene %d", index));
    return scenes[static_cast<std::size_t>(index)];
}

void WindowAction::readSceneData() {
    // The read would take replies that belong to the send, and replace what is being sent.
    if (SendJob::isRunning()) {
        Diagnostics::log("The scenes are not read: a send is still running");
        return;
    }
    if (const auto message = Progress::recordIfAny()) {
        message->setMessage("readSceneData");
        message->setIsReadFinish("No");
    }
    setScenes(SceneAction::GetSceneFromDevice());
    if (const auto message = Progress::recordIfAny())
        message->setIsReadFinish("Yes");
}

void WindowAction::sendSceneData() {
    if (const auto message = Progress::recordIfAny()) {
        message->setIsSendFinish("No");
        message->setMessage("sendSceneData");
    }
    SceneAction::SendSceneToDevice(store().scenes);
    if (const auto message = Progress::recordIfAny())
        message->setIsSendFinish("Yes");
}

void WindowAction::GetDefaultValue() {
    store().spareDefault = FileAction::GetSceneFromDefault();
}

std::shared_ptr<PopUpValue> WindowAction::InitializePopUp() {
    return loadPopUpValue();
}

const SceneList& WindowAction::scenes() {
    return store().scenes;
}

void WindowAction::setScenes(SceneList scenes) {
    padWithDefaults(scenes);
    store().scenes = std::move(scenes);
}

} // namespace scenewright
