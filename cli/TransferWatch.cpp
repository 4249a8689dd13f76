#include "cli/TransferWatch.h"

#include "app/OutcomeText.h"
#include "cli/Command.h"
#include "platform/Process.h"

#include <fmt/format.h>

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace scenewright {

namespace {

constexpr const char* kClearLine = "\r\033[K";

bool isTerminal() {
    return ::isatty(STDERR_FILENO) != 0;
}

// Packets written beyond those of the handshakes, which a stuck transaction may repeat for ever.
std::int64_t progressOf(const TransferStats& stats) {
    constexpr std::int64_t kHandshakeWrites = 2;
    return stats.writes - kHandshakeWrites * stats.versionReads;
}

class Pause {
public:
    // Whether it lasted its time, and nobody asked to stop.
    bool lasts(std::chrono::milliseconds time, const std::stop_token& stop) {
        std::unique_lock lock(mutex_);
        return !stopped_.wait_for(lock, stop, time, [&stop] { return stop.stop_requested(); });
    }

private:
    std::mutex mutex_;
    std::condition_variable_any stopped_;
};

} // namespace

std::jthread watchStats(std::chrono::milliseconds period,
                        std::function<bool(const TransferStats&)> look) {
    try {
        return std::jthread([period, look = std::move(look)](const std::stop_token& stop) noexcept {
            try {
                Pause pause;
                while (pause.lasts(period, stop) && look(Transport::instance().stats())) {
                }
            } catch (const std::exception&) { // the transfer goes on without
            }
        });
    } catch (const std::system_error&) {
        return {};
    }
}

void watchTransfer(std::string_view verb, std::uint32_t packets,
                   const std::function<void()>& transfer) {
    const bool hasLine = isTerminal();
    {
        std::jthread line;
        if (hasLine)
            line = watchStats(ProgressLine::kPeriod, [progress = ProgressLine(verb, packets)](
                                                         const TransferStats& stats) mutable {
                writeStandardError(kClearLine + progress.next(stats.writes));
                return true;
            });
        const std::jthread notice = watchStats(
            StallNotice::kPeriod, [stall = StallNotice()](const TransferStats& stats) mutable {
                return stall.look(stats);
            });
        transfer();
    }
    if (hasLine)
        writeStandardError(kClearLine);
}

std::string ProgressLine::next(std::uint32_t written) {
    still_ = written == written_ ? std::min(still_ + 1, kStuckAfter) : 0;
    written_ = written;
    if (written > packets_)
        return fmt::format("{}: the controller does not accept the handshake, trying again "
                           "(Ctrl+C stops)",
                           verb_);
    if (still_ == kStuckAfter)
        return fmt::format("{}: {} of {} packets, waiting for the controller (Ctrl+C stops)", verb_,
                           written, packets_);
    return fmt::format("{}: {} %", verb_, 100 * written / packets_);
}

bool StallNotice::look(const TransferStats& stats) {
    const std::int64_t progress = progressOf(stats);
    still_ = progress > most_ ? 0 : still_ + 1;
    most_ = std::max(most_, progress);
    if (still_ < kLooks)
        return true;
    const bool isUnplugged = stats.first && stats.first->code == kResultNoDevice;
    if (isTerminal())
        writeStandardError(kClearLine); // a progress line may stand there
    reportError(fmt::format("{} (Ctrl+C stops)",
                            causeAndCure(isUnplugged ? kResultNoDevice : kResultTimeout)),
                kExitController);
    return false;
}

} // namespace scenewright
