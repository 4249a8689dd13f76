#include "cli/Transaction.h"

#include "app/DeviceSession.h"
#include "app/SafeSend.h"
#include "app/SendJournal.h"
#include "bank/BankFile.h"
#include "cli/Command.h"
#include "platform/MainQueue.h"
#include "platform/Process.h"
#include "protocol/Transactions.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <functional>
#include <future>
#include <optional>
#include <stop_token>
#include <string>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace scenewright {

namespace {

int report(DeviceOperation operation, const Outcome& outcome) {
    const OutcomeText text = textOf(operation, outcome);
    const std::string report = text.joined(". ");
    return report.empty() ? text.exitCode : reportError(report, text.exitCode);
}

constexpr const char* kWithoutCopy = "nothing was sent; --no-backup sends without a copy";

int reportRefusal(const SafeSend::Asked& asked) {
    if (asked.question == SafeSend::Question::NotRead)
        return report(DeviceOperation::Backup, asked.read);
    std::string why = asked.why;
    if (why.ends_with('.'))
        why.pop_back();
    return reportError(
        fmt::format("What the keyboard holds could not be kept: {}; {}", why, kWithoutCopy),
        kExitOutput);
}

// Says it once it is seen that the keyboard holds neither of the two banks.
void tellUnfinished(const BankImage& held) {
    const SendJournal journal;
    const std::string keyboard = KnownKeyboard::pluggedInName();
    journal.forgetSettled(keyboard, held);
    if (const auto unfinished = journal.unfinishedOf(keyboard))
        reportError(unfinishedText(unfinished->send) +
                        ". 'scenewright-cli resume' sends it again, 'scenewright-cli resume "
                        "--before' what was there before",
                    kExitDone);
}

constexpr const char* kClearLine = "\r\033[K";

bool isTerminal() {
    return ::isatty(STDERR_FILENO) != 0;
}

// Packets written beyond those of the handshakes, which a stuck transaction may repeat for ever.
std::int64_t progressOf(const TransferStats& stats) {
    constexpr std::int64_t kHandshakeWrites = 2;
    return stats.writes - kHandshakeWrites * stats.versionReads;
}

} // namespace

ControllerRead readController(DeviceOperation operation) {
    ScenesRead read;
    watchTransfer("Reading", kReadPackets, [&read] { read = DeviceSession::heldScenes(); });
    const int exitCode = report(operation, read.outcome);
    if (read.outcome.end != Outcome::End::Done)
        return {.scenes = std::nullopt, .exitCode = exitCode};
    tellUnfinished(encodeBank(read.scenes));
    return {.scenes = std::move(read.scenes), .exitCode = exitCode};
}

int sendToController(SendOrder order) {
    WindowAction::setScenes(std::move(order.scenes));
    std::optional<SafeSend::Ended> ended;
    int refused = kExitDone;
    SafeSend::Request request{.readsFirst = order.keepsCopy && !order.before,
                              .subject = order.subject,
                              .before = order.before};
    request.ask = [&](const SafeSend::Asked& asked, const SafeSend::Answered& answered) {
        if (order.keepsCopy)
            refused = reportRefusal(asked);
        answered(order.keepsCopy ? SafeSend::Answer::Cancel : SafeSend::Answer::Send);
    };
    request.ended = [&ended](const SafeSend::Ended& told) { ended = told; };
    request.reading = [](const std::function<void()>& step) {
        watchTransfer("Reading", kReadPackets, step);
    };
    request.sending = [&ended](const std::function<void()>& step) {
        watchTransfer("Sending", kSendPackets, [&] {
            step();
            MainQueue::pumpUntil([&ended] { return ended.has_value(); });
        });
    };
    SafeSend::run({}, std::move(request));
    SendJob::join();
    return ended->outcome ? report(DeviceOperation::Send, *ended->outcome) : refused;
}

std::jthread watchStats(std::chrono::milliseconds period,
                        std::function<bool(const TransferStats&)> look) {
    try {
        return std::jthread([period, look = std::move(look)](const std::stop_token& stop) noexcept {
            try {
                std::promise<void> stopped;
                const auto end = stopped.get_future();
                const std::stop_callback onStop(stop, [&stopped] { stopped.set_value(); });
                while (end.wait_for(period) == std::future_status::timeout &&
                       look(Transport::instance().stats())) {
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
