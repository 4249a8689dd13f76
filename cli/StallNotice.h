// Says once, on standard error, what may be wrong with a controller that keeps a transaction
// waiting. The transaction goes on: only the user ends it.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>

namespace scenewright {

class StallNotice {
public:
    static constexpr std::chrono::milliseconds kLimit{10'000};

    // Watches the transport's stats, on a thread of its own, until destroyed: a transaction that
    // makes no progress for `limit`, whether it waits or repeats its handshake, is spoken of.
    explicit StallNotice(std::chrono::milliseconds limit = kLimit);
    ~StallNotice();
    StallNotice(const StallNotice&) = delete;
    StallNotice& operator=(const StallNotice&) = delete;
    StallNotice(StallNotice&&) = delete;
    StallNotice& operator=(StallNotice&&) = delete;

private:
    void run();
    void runQuietly() noexcept;

    std::chrono::milliseconds limit_;
    std::mutex mutex_;
    std::condition_variable ended_;
    bool hasEnded_ = false; // guarded by mutex_
    std::thread thread_;
};

} // namespace scenewright
