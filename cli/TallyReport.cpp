#include "cli/TallyReport.h"

#include "cli/Command.h"
#include "model/Control.h"
#include "protocol/SceneImage.h"
#include "usb/ConnectCause.h"

#include <fmt/format.h>

#include <algorithm>

namespace scenewright {

namespace {

constexpr std::string_view kNotConnected = "Could not connect to midi device";

std::string_view codeWords(ResultCode code) {
    switch (code) {
    case kResultSuccess:
        return "the answer was too short";
    case kResultNoDevice:
        return "the controller was unplugged";
    case kResultStall:
        return "the controller refused it";
    case kResultTimeout:
        return "the controller did not answer";
    case kResultOverflow:
        return "the answer was too long";
    case kResultGivenUp:
        return "the controller had been given up";
    case kResultCancelled:
        return "it was cancelled";
    default:
        return "the USB transfer failed";
    }
}

// Where in a read's image the first failure happened. Before its first byte come the handshakes, as
// many as it took, and the read start with its reply.
std::string placeOf(const TransferTally& tally, const TransferTally::Failure& failure) {
    constexpr std::uint32_t kWritesOfHandshake = 2;
    const std::uint32_t handshakes = std::max(tally.versionReads, 1U);
    const std::uint32_t before =
        (failure.isWrite ? kWritesOfHandshake * handshakes : handshakes) + 1;
    if (failure.transfer < before)
        return "before the first byte";
    return fmt::format("at byte {} of {}", failure.transfer - before, kBankSize);
}

std::string firstFailure(const TransferTally::Failure& failure) {
    return fmt::format("{} (code {:08x})", codeWords(failure.code), failure.code);
}

} // namespace

bool connectFailed(const MessageValue& message) {
    return message.Message() == kNotConnected;
}

int complainOfConnection() {
    complain(kNotConnected, kExitController);
    return complain(connectCause(), kExitController);
}

void complainOfTransfers(const TransferTally& tally) {
    if (tally.first && tally.first->code != kResultSuccess)
        complain(causeAndCure(tally.first->code), kExitController);
}

std::optional<std::string> readReport(const TransferTally& tally, std::string_view consequence) {
    if (tally.isClean())
        return std::nullopt;
    const TransferTally::Failure first = tally.first.value_or(TransferTally::Failure{});
    return fmt::format("the read failed {}: {}; {} of {} transfers failed, so {}",
                       placeOf(tally, first), firstFailure(first),
                       tally.failedReads + tally.failedWrites, tally.reads + tally.writes,
                       consequence);
}

std::optional<std::string> sendReport(const TransferTally& tally) {
    if (tally.isClean())
        return std::nullopt;
    const TransferTally::Failure first = tally.first.value_or(TransferTally::Failure{});
    return fmt::format("the send failed at {} {}: {}; the controller may hold half a bank, and "
                       "sending again repairs it",
                       first.isWrite ? "packet" : "answer", first.transfer, firstFailure(first));
}

} // namespace scenewright
