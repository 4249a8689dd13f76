#include "app/WindowAction.h"

#include "bank/Edit.h"
#include "model/MessageValue.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/Diagnostics.h"
#include "protocol/Transactions.h"

#include <memory>
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

// Appends default scenes, each named by its place, until the controller's four are there. The file
// is read once for all.
void padWithDefaults(SceneList& scenes) {
    if (scenes.size() >= kSceneCount)
        return;
    const SceneList scene{FileAction::GetSceneFromDefault()};
    while (scenes.size() < kSceneCount) {
        scenes.push_back(copyOf(scene).front());
        scenes.back()->commonValue()->setSceneName(printfText("SCENE%d", scenes.size()));
    }
}

} // namespace

std::shared_ptr<MessageValue> WindowAction::getMessageValue() {
    return Progress::record();
}

void WindowAction::getSceneValue() {
    setScenes({});
}

SceneList WindowAction::defaultScenes() {
    SceneList scenes;
    padWithDefaults(scenes);
    return scenes;
}

std::shared_ptr<SceneValue> WindowAction::getSceneWithIndex(std::int32_t index) {
    const SceneList& scenes = store().scenes;
    if (index < 0 || static_cast<std::size_t>(index) >= scenes.size())
        throw std::out_of_range(printfText("no scene %d", index));
    return scenes[static_cast<std::size_t>(index)];
}

// A read during a send would take replies that belong to the send, and replace what is being sent.
void WindowAction::readSceneData(const Ended& ended) {
    if (SendJob::isRunning())
        return SendJob::whenIdle([ended] { readSceneData(ended); });
    if (const auto message = Progress::recordIfAny()) {
        message->setMessage("readSceneData");
        message->setIsReadFinish("No");
    }
    ScenesRead read = readScenes(*Progress::record());
    setScenes(std::move(read.scenes));
    if (const auto message = Progress::recordIfAny())
        message->setIsReadFinish("Yes");
    if (ended)
        ended(read.outcome);
}

void WindowAction::sendSceneData(const Ended& ended, const SceneSent& sceneSent) {
    if (SendJob::isRunning())
        return SendJob::whenIdle([ended, sceneSent] { sendSceneData(ended, sceneSent); });
    if (const auto message = Progress::recordIfAny()) {
        message->setIsSendFinish("No");
        message->setMessage("sendSceneData");
    }
    sendScenes(store().scenes, Progress::record(), ended, sceneSent);
    if (const auto message = Progress::recordIfAny())
        message->setIsSendFinish("Yes");
}

void WindowAction::GetDefaultValue() {
    store().spareDefault = FileAction::GetSceneFromDefault();
}

std::shared_ptr<PopUpValue> WindowAction::InitializePopUp() {
    return loadShownPopUpValue();
}

const SceneList& WindowAction::scenes() {
    return store().scenes;
}

void WindowAction::setScenes(SceneList scenes) {
    padWithDefaults(scenes);
    store().scenes = std::move(scenes);
}

void AppDelegate::readSceneDataAction() {
    WindowAction::readSceneData();
}

void AppDelegate::sendSceneDataAction() {
    WindowAction::sendSceneData();
}

} // namespace scenewright
