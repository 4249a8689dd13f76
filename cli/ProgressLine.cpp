#include "cli/ProgressLine.h"

#include "platform/StandardStreams.h"
#include "usb/Transport.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <exception>
#include <system_error>
#include <unistd.h>

namespace scenewright {

namespace {

constexpr std::chrono::milliseconds kRefresh{100};
constexpr int kStuckAfter = 30; // refreshes without a packet
constexpr const char* kClearLine = "\r\033[K";

void show(std::string_view text) {
    writeStandardError(fmt::format("{}{}", kClearLine, text));
}

} // namespace

std::string progressText(std::string_view verb, std::uint32_t written, std::uint32_t total,
                         bool isStuck) {
    if (written > total)
        return fmt::format("{}: the controller does not accept the handshake, trying again "
                           "(Ctrl+C stops)",
                           verb);
    if (isStuck)
        return fmt::format("{}: {} of {} packets, waiting for the controller (Ctrl+C stops)", verb,
                           written, total);
    return fmt::format("{}: {} %", verb, 100 * written / total);
}

ProgressLine::ProgressLine(std::string_view verb, std::uint32_t total)
    : verb_(verb), total_(total) {
    if (isatty(STDERR_FILENO) == 0)
        return;
    try {
        thread_ = std::thread([this] { runQuietly(); });
    } catch (const std::system_error&) { // the transaction goes on without
    }
}

ProgressLine::~ProgressLine() {
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard lock(mutex_);
        hasEnded_ = true;
    }
    ended_.notify_one();
    thread_.join();
    writeStandardError(kClearLine);
}

void ProgressLine::runQuietly() noexcept {
    try {
        run();
    } catch (const std::exception&) { // the transaction goes on without
    }
}

void ProgressLine::run() {
    std::uint32_t last = 0;
    int still = 0;
    std::unique_lock lock(mutex_);
    while (!ended_.wait_for(lock, kRefresh, [this] { return hasEnded_; })) {
        const std::uint32_t written = Transport::instance().stats().writes;
        still = written == last ? std::min(still + 1, kStuckAfter) : 0;
        last = written;
        show(progressText(verb_, written, total_, still == kStuckAfter));
    }
}

} // namespace scenewright
