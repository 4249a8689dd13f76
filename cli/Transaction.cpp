#include "cli/Transaction.h"

#include "app/WindowAction.h"
#include "cli/Command.h"
#include "cli/Patience.h"
#include "cli/ProgressLine.h"
#include "cli/TallyReport.h"
#include "protocol/SendJob.h"

#include <chrono>

namespace scenewright {

std::optional<SceneList> readController(std::string_view consequence) {
    const auto message = WindowAction::getMessageValue();
    {
        const ProgressLine progress("Reading", kReadPackets);
        const Patience patience;
        WindowAction::readSceneData();
    }
    if (connectFailed(*message)) {
        complainOfConnection();
        return std::nullopt;
    }
    const TransferTally tally = Transport::instance().tally();
    if (const auto report = readReport(tally, consequence)) {
        complain(*report, kExitController);
        complainOfTransfers(tally);
        return std::nullopt;
    }
    return WindowAction::scenes();
}

bool sendToController(SceneList scenes) {
    WindowAction::setScenes(std::move(scenes));
    const auto message = WindowAction::getMessageValue();
    {
        const ProgressLine progress("Sending", kSendPackets);
        const Patience patience;
        WindowAction::sendSceneData();
        while (!SendJob::waitForEnd(std::chrono::hours(1))) {
            // A device that does not answer is waited for without limit.
        }
    }
    SendJob::join();
    if (connectFailed(*message)) {
        complainOfConnection();
        return false;
    }
    const TransferTally tally = Transport::instance().tally();
    if (const auto report = sendReport(tally)) {
        complain(*report, kExitController);
        complainOfTransfers(tally);
        return false;
    }
    return true;
}

} // namespace scenewright
