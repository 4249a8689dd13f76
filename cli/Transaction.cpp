#include "cli/Transaction.h"

#include "app/WindowAction.h"
#include "cli/Command.h"
#include "cli/ProgressLine.h"
#include "cli/TallyReport.h"
#include "protocol/SendJob.h"

#include <chrono>

namespace scenewright {

std::optional<SceneList> readController(std::string_view consequence) {
    const auto message = WindowAction::getMessageValue();
    {
        const ProgressLine progress("Reading", kReadPackets);
        WindowAction::readSceneData();
    }
    if (connectFailed(*message)) {
        complainOfConnection();
        return std::nullopt;
    }
    if (const auto report = readReport(Transport::instance().tally(), consequence)) {
        complain(*report, kExitController);
        return std::nullopt;
    }
    return WindowAction::scenes();
}

bool sendToController(SceneList scenes) {
    WindowAction::setScenes(std::move(scenes));
    const auto message = WindowAction::getMessageValue();
    {
        const ProgressLine progress("Sending", kSendPackets);
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
    if (const auto report = sendReport(Transport::instance().tally())) {
        complain(*report, kExitController);
        return false;
    }
    return true;
}

} // namespace scenewright
