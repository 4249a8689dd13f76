#include "cli/Transaction.h"

#include "app/DeviceSession.h"
#include "app/KnownKeyboard.h"
#include "app/SafeSend.h"
#include "app/SendJournal.h"
#include "bank/BankFile.h"
#include "cli/Command.h"
#include "cli/TransferWatch.h"
#include "platform/MainQueue.h"
#include "protocol/Transactions.h"

#include <fmt/format.h>

#include <functional>
#include <optional>
#include <string>
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

} // namespace scenewright
