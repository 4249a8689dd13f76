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

// Transfers that come before the image's first byte: a read's handshake writes and read start, and
// their replies.
constexpr std::uint32_t kWritesBeforeData = 3;
constexpr std::uint32_t kReadsBeforeData = 2;

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

std::optional<std::string> readReport(const TransferTally& tally, std::string_view consequence) {
    if (tally.isClean())
        return std::nullopt;
    const TransferTally::Failure first = tally.first.value_or(TransferTally::Failure{});
    const std::uint32_t before = first.isWrite ? kWritesBeforeData : kReadsBeforeData;
    const std::string place =
        first.transfer < before
            ? std::string("before the first byte")
            : fmt::format("at byte {} of {}", first.transfer - before, kBankSize);
    return fmt::format("the read failed {}: {}; {} of {} transfers failed, so {}", place,
                       firstFailure(first), tally.failedReads + tally.failedWrites,
                       tally.reads + tally.writes, consequence);
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
