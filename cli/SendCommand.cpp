#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "cli/Command.h"
#include "cli/ProgressLine.h"
#include "cli/TallyReport.h"
#include "protocol/SendJob.h"

#include <CLI/CLI.hpp>

#include <chrono>
#include <memory>
#include <string>

namespace scenewright {

namespace {

int sendFile(const std::string& in) {
    BankFile bank = readBank(in);
    if (bank.trouble)
        return complain(*bank.trouble, kExitUsage);
    WindowAction::setScenes(std::move(bank.scenes));
    const auto message = WindowAction::getMessageValue();
    {
        const ProgressLine progress("Sending", kSendPackets);
        WindowAction::sendSceneData();
        while (!SendJob::waitForEnd(std::chrono::hours(1))) {
            // A device that does not answer is waited for without limit.
        }
    }
    SendJob::join();
    if (connectFailed(*message))
        return complainOfConnection();
    if (const auto report = sendReport(Transport::instance().tally()))
        return complain(*report, kExitController);
    return kExitDone;
}

} // namespace

void addSendCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command = app.add_subcommand("send", "Send four scenes to the controller");
    auto in = std::make_shared<std::string>();
    command->add_option("IN", *in, "The bank file to send (1012 bytes)")->required();
    command->callback([&choice, in] { choice = {[in] { return sendFile(*in); }, true}; });
}

} // namespace scenewright
