// The two transactions: reading all scenes from the controller, and sending scenes to it.
#pragma once

#include "model/MessageValue.h"
#include "model/SceneValue.h"
#include "protocol/Connection.h"
#include "protocol/SceneImage.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace scenewright {

struct ScenesRead {
    SceneList scenes; // four; none when the device could not be reached
    Outcome outcome;
};

// Connects, then asks for the 1012 bytes of the four scenes one at a time; blocks until the device
// has answered each. The message of `progress` tells where it is: the process's record for the
// command that the user gave, one of its own for a read beside it. The interface stays open.
// Main thread; no send job may run, as the transport is the job's.
[[nodiscard]] ScenesRead readScenes(MessageValue& progress);

// Told how a send has ended, once, by the main queue, after the interface has been released.
using SendEnded = std::function<void(const Outcome&)>;

// Told on the job's thread each time that a whole scene has been moved and no transfer has failed:
// how many by then.
using SceneSent = std::function<void(std::size_t count)>;

// Connects on the calling thread, then leaves the packet stream to a job on a thread of its own
// named "sendPro", and returns. `ended` comes in every case, never before this returns. The scenes
// are encoded before it returns. The message of `progress` tells the end. While a send runs nothing
// is touched, and `ended` is told NotStarted with kResultBusy. Main thread.
void sendScenes(const SceneList& scenes, std::shared_ptr<MessageValue> progress,
                SendEnded ended = {}, SceneSent sceneSent = {});

// The one job that sends the packet stream: it runs from start() until its last task on the main
// queue has run. The transport is the job's meanwhile, and nothing else may touch it.
class SendJob {
public:
    SendJob() = delete;

    // Starts the job on `image`, of any length, over a connection that has been made. Success, or
    // why nothing was done: kResultBusy while a job runs, kResultNoThread, kResultNoMemory. Main
    // thread.
    [[nodiscard]] static ResultCode start(std::vector<std::uint8_t> image,
                                          std::shared_ptr<MessageValue> progress, SendEnded ended,
                                          SceneSent sceneSent = {});

    // Any thread.
    [[nodiscard]] static bool isRunning() noexcept;
    // Calls `task` once no send runs: now, or after the one that runs and the tasks that came
    // before, each when no send runs. Main thread.
    static void whenIdle(std::function<void()> task);
    // Pumps the main queue until no send runs. For a main thread without an event loop.
    static void waitForEnd();
    // Waits for the thread, once its transfers have ended or been cancelled, without running main
    // queue tasks. To be called before the process ends. Main thread.
    static void join();
};

// The device protocol's operations under their own names.
class SceneAction {
public:
    SceneAction() = delete;

    // Exactly 253 bytes; see SceneImage.h.
    [[nodiscard]] static std::vector<std::uint8_t> sceneToBytes(const SceneValue& scene) {
        const SceneImage image = encodeScene(scene);
        return {image.begin(), image.end()};
    }
    // Sets all fields but ButtonID to kFieldAbsent and gives the same record back.
    static std::shared_ptr<ButtonValue> initButton(std::shared_ptr<ButtonValue> button) {
        markFieldsAbsent(*button);
        return button;
    }

    // One handshake; see Connection.h.
    [[nodiscard]] static bool HandshakeOperation() { return handshakeOnce(); }

    // Both transactions, with the process's progress record.
    [[nodiscard]] static SceneList GetSceneFromDevice() {
        return readScenes(*Progress::record()).scenes;
    }
    static void SendSceneToDevice(const SceneList& scenes) {
        sendScenes(scenes, Progress::record());
    }
};

} // namespace scenewright
