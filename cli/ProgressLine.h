// A line on standard error that tells how far a transaction is, while the main thread is busy in
// it.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace scenewright {

// Packets that a transaction writes when the first handshake is answered.
inline constexpr std::uint32_t kReadPackets = 2 + 1 + 1012 + 1;
inline constexpr std::uint32_t kSendPackets = 2 + 2 + 1024;

// What the line says after `written` of `total` packets; `isStuck` when none was written lately.
[[nodiscard]] std::string progressText(std::string_view verb, std::uint32_t written,
                                       std::uint32_t total, bool isStuck);

// Shown from construction to destruction, by a thread of its own that looks at the transport's
// stats; nothing at all when standard error is no terminal.
class ProgressLine {
public:
    ProgressLine(std::string_view verb, std::uint32_t total);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ProgressLine(ProgressLine&&) = delete;
    ProgressLine& operator=(ProgressLine&&) = delete;

private:
    void run();
    void runQuietly() noexcept;

    std::string verb_;
    std::uint32_t total_;
    std::mutex mutex_;
    std::condition_variable ended_;
    bool hasEnded_ = false;
    std::thread thread_;
};

} // namespace scenewright
