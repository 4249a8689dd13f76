#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "cli/Command.h"
#include "cli/ProgressLine.h"
#include "cli/TallyReport.h"
#include "platform/WholeFile.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace scenewright {

namespace {

int readToFile(const std::string& out) {
    if (const auto trouble = whyNotWritable(out))
        return complain(*trouble, kExitUsage);
    const auto message = WindowAction::getMessageValue();
    {
        const ProgressLine progress("Reading", kReadPackets);
        WindowAction::readSceneData();
    }
    if (connectFailed(*message))
        return complainOfConnection();
    if (const auto report = readReport(Transport::instance().tally()))
        return complain(*report, kExitController);
    if (const auto trouble = writeBank(out, WindowAction::scenes()))
        return complain(*trouble, kExitUsage);
    return kExitDone;
}

} // namespace

void addReadCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command = app.add_subcommand("read", "Read the four scenes from the controller");
    auto out = std::make_shared<std::string>();
    command->add_option("OUT", *out, "The bank file to write (1012 bytes)")->required();
    command->callback([&choice, out] { choice = {[out] { return readToFile(*out); }, true}; });
}

} // namespace scenewright
