#include "protocol/Outcome.h"

#include "usb/InterfaceAction.h"

namespace scenewright {

namespace {

Outcome::End endOf(const TransferStats& stats) {
    if (!stats.first)
        return Outcome::End::Done;
    // Only the end of the program closes or gives up an interface while transfers go on.
    const ResultCode code = stats.first->code;
    const bool isCancelled = code == kResultCancelled || code == kResultGivenUp;
    return isCancelled ? Outcome::End::Cancelled : Outcome::End::Unreliable;
}

} // namespace

Outcome connectionOutcome() {
    const Transport& transport = Transport::instance();
    return {.end = transport.isShutDown() ? Outcome::End::Cancelled : Outcome::End::NotConnected,
            .cause = transport.connectFailure,
            .stats = transport.stats()};
}

Outcome transferOutcome() {
    const TransferStats stats = Transport::instance().stats();
    return {.end = endOf(stats),
            .cause = stats.first ? stats.first->code : kResultSuccess,
            .stats = stats};
}

void addStorageError(Outcome& outcome) {
    UsbHost* const host = Transport::instance().host();
    if (auto error = host != nullptr ? host->storageError() : std::nullopt)
        outcome.notKept.push_back(*std::move(error));
}

void releaseKeyboard(Outcome& outcome) {
    InterfaceAction::KillInterface();
    if (const auto interface = Transport::instance().interface())
        outcome.release = interface->releaseCode();
}

} // namespace scenewright
