#include "cli/BankArgument.h"
#include "cli/CommandLine.h"
#include "platform/StandardStreams.h"
#include "usb/Shutdown.h"

#include <exception>

namespace scenewright {

namespace {

int runChosen(const LaunchOptions& options, const CommandChoice& choice) {
    if (const auto trouble = launch(options))
        return complain(*trouble, kExitUsage);
    if (!choice.usesController)
        return choice.run();
    const Shutdown shutdown;
    if (const auto trouble = connectHost(options))
        return complain(*trouble, kExitUsage);
    return choice.run();
}

int run(int argc, char** argv) {
    const CommandLine line = parseCommandLine(argc, argv);
    if (line.answer)
        return printAndEnd(*line.answer, kExitDone);
    if (line.trouble)
        return complain(*line.trouble, kExitUsage);
    return runChosen(line.options, line.choice);
}

} // namespace

} // namespace scenewright

int main(int argc, char** argv) {
    scenewright::prepareProcess();
    try {
        return scenewright::run(argc, argv);
    } catch (const std::exception& error) {
        return scenewright::complain(error.what(), scenewright::kExitUsage);
    }
}
