// The one job that sends the packet stream, on a thread of its own named "sendPro".
//
// A job runs from start() until its last task on the main queue has run. At most one job at a time.
// The connection must have been made; from start() to that last task the transport is the job's,
// and nothing else may touch it.
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

    // Starts the job on `image`, of any length; both arguments are kept alive by the job. False,
    // with nothing done, while a job runs or when the system has no thread to give (which is
    // logged). Main thread.
    [[nodiscard]] static bool start(std::vector<std::uint8_t> image,
                                    std::shared_ptr<MessageValue> message);

    // Whether a job runs. Any thread.
    [[nodiscard]] static bool isRunning() noexcept;

    // Pumps the main queue until no job runs or `limit` has passed; true when none runs. For a main
    // thread without an event loop. Main thread.
    static bool waitForEnd(std::chrono::milliseconds limit);

    // Waits for the thread, once its transfers have ended or been cancelled, without running main
    // queue tasks. To be called before the process ends. Main thread.
    static void join();
};

} // namespace scenewright
