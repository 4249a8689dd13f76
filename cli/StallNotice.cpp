#include "cli/StallNotice.h"

#include "app/OutcomeText.h"
#include "cli/Command.h"
#include "platform/StandardStreams.h"
#include "usb/Transport.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <system_error>
#include <unistd.h>

namespace scenewright {

namespace {

constexpr int kLooks = 20; // how often the limit is divided into looks at the stats

// Packets written beyond those of the handshakes, which a stuck transaction may repeat for ever.
std::int64_t progressOf(const TransferStats& stats) {
    constexpr std::int64_t kHandshakeWrites = 2;
    return stats.writes - kHandshakeWrites * stats.versionReads;
}

void speakOf(const TransferStats& stats) {
    const bool isUnplugged = stats.first && stats.first->code == kResultNoDevice;
    if (isatty(STDERR_FILENO) != 0)
        writeStandardError("\r\033[K"); // a progress line may stand there
    reportError(fmt::format("{} (Ctrl+C stops)",
                            causeAndCure(isUnplugged ? kResultNoDevice : kResultTimeout)),
                kExitController);
}

} // namespace

StallNotice::StallNotice(std::chrono::milliseconds limit) : limit_(limit) {
    try {
        thread_ = std::thread([this] { runQuietly(); });
    } catch (const std::system_error&) { // the transaction goes on without
    }
}

StallNotice::~StallNotice() {
    {
        const std::lock_guard lock(mutex_);
        hasEnded_ = true;
    }
    ended_.notify_one();
    if (thread_.joinable())
        thread_.join();
}

void StallNotice::runQuietly() noexcept {
    try {
        run();
    } catch (const std::exception&) { // the transaction goes on without
    }
}

void StallNotice::run() {
    std::int64_t most = 0;
    int still = 0;
    std::unique_lock lock(mutex_);
    while (!ended_.wait_for(lock, limit_ / kLooks, [this] { return hasEnded_; })) {
        const TransferStats stats = Transport::instance().stats();
        const std::int64_t progress = progressOf(stats);
        still = progress > most ? 0 : still + 1;
        most = std::max(most, progress);
        if (still == kLooks)
            return speakOf(stats);
    }
}

} // namespace scenewright
