#include "cli/Transaction.h"

#include "app/DeviceSession.h"
#include "cli/Command.h"
#include "cli/TransferWatch.h"
#include "platform/MainQueue.h"
#include "protocol/Transactions.h"

#include <string>
#include <utility>

namespace scenewright {

namespace {

int report(DeviceOperation operation, const Outcome& outcome) {
    const OutcomeText text = textOf(operation, outcome);
    std::string report = text.sentence;
    for (const std::string& detail : text.details)
        report += (report.empty() ? "" : ". ") + detail;
    return report.empty() ? text.exitCode : reportError(report, text.exitCode);
}

} // namespace

ControllerRead readController(DeviceOperation operation) {
    ScenesRead read;
    watchTransfer("Reading", kReadPackets, [&read] { read = DeviceSession::heldScenes(); });
    const int exitCode = report(operation, read.outcome);
    if (read.outcome.end != Outcome::End::Done)
        return {.scenes = std::nullopt, .exitCode = exitCode};
    return {.scenes = std::move(read.scenes), .exitCode = exitCode};
}

int sendToController(SceneList scenes) {
    WindowAction::setScenes(std::move(scenes));
    Outcome outcome;
    watchTransfer("Sending", kSendPackets, [&outcome] {
        bool hasEnded = false;
        DeviceSession::send([&](const Outcome& ended) {
            outcome = ended;
            hasEnded = true;
        });
        MainQueue::pumpUntil([&hasEnded] { return hasEnded; });
    });
    SendJob::join();
    return report(DeviceOperation::Send, outcome);
}

} // namespace scenewright
