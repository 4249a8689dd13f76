// The one job that sends the packet stream, on a thread of its own named "sendPro".
//
// A job runs from start() until its last task on the main queue has run. At most one job at a time.
#pragma once

#include "model/MessageValue.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <vector>

namespace scenewright {

class SendJob {
public:
    SendJob() = delete;

    // Starts the job on `image`; both arguments are kept alive by the job. False, with nothing
    // done, while a job runs. Main thread.
    static bool start(std::vector<std::uint8_t> image, std::shared_ptr<MessageValue> message);

    // Whether a job runs. Any thread.
    [[nodiscard]] static bool isRunning() noexcept;

    // Pumps the main queue until no job runs or `limit` has passed; true when none runs. For a main
    // thread without an event loop.
    static bool waitForEnd(std::chrono::milliseconds limit);

    // Waits for the thread, once its transfers have ended or been cancelled, without running main
    // queue tasks. Before the process ends.
    static void join();
};

} // namespace scenewright
