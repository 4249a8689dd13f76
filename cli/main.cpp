#include "app/KeyboardPorts.h"
#include "app/Launch.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "platform/Diagnostics.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "usb/Shutdown.h"

#include <new>
#include <vector>

namespace scenewright {

namespace {

// A send alone writes the virtual controller's memory.
std::vector<NamedFile> filesOf(const LaunchOptions& options, const CommandChoice& choice) {
    LaunchOptions used = options;
    if (!choice.usesController)
        used.virtualBank.clear();
    std::vector<NamedFile> files = launchFiles(used);
    files.insert(files.end(), choice.files.begin(), choice.files.end());
    return files;
}

int runChosen(const CommandLine& line) {
    const LaunchOptions& options = line.options;
    const CommandChoice& choice = line.choice;
    if (const auto checked = checkNamedFiles(filesOf(options, choice)); !checked)
        return reportError(checked.error(), kExitUsage);
    if (const auto launched = launch(options); !launched)
        return reportError(launched.error(), kExitUsage);
    if (!choice.usesController)
        return choice.run(line.arguments);
    if (const auto checked = checkList(kProjectList); !checked)
        return reportError(checked.error(), kExitUsage);
    Shutdown shutdown;
    LaunchOptions host = options;
    host.needsLists = true;
    const auto connected = connectHost(host);
    if (!connected)
        return reportError(connected.error(), kExitUsage);
    if (options.isVirtual)
        return choice.run(line.arguments);
    if (const auto checked = (*connected)->checkChosen(); !checked)
        return reportError(checked.error(), kExitController);
    if (const auto told = (*connected)->tacitChoice())
        reportError(*told, kExitDone);
    KeyboardConnections connections(KeyboardConnections::sequencerIfAny());
    connections.beforeTransaction();
    shutdown.setWorkAfterRelease(&restoreNotedConnections);
    const int exitCode = choice.run(line.arguments);
    connections.restore(KeyboardConnections::kLimit);
    return exitCode;
}

// With the exit code by which the command tells an error of the system's.
int runToEnd(const CommandLine& line) {
    try {
        return runChosen(line);
    } catch (const std::bad_alloc& error) {
        return reportError(sentenceOf(error), line.choice.failed);
    }
}

// The exit code of a command whose streams can still fail.
int endStreams(int exitCode, int failed) {
    for (const auto& ended : {endDiagnostics(), closeStandardOutput()})
        if (!ended && exitCode < failed)
            exitCode = reportError(ended.error(), failed);
    return exitCode;
}

int run(int argc, char** argv) {
    const auto line = parseCommandLine(argc, argv);
    if (!line)
        return reportError(line.error(), kExitUsage);
    if (line->answer)
        return endStreams(printAndEnd(*line->answer, kExitDone), kExitOutput);
    return endStreams(runToEnd(*line), line->choice.failed);
}

} // namespace

} // namespace scenewright

int main(int argc, char** argv) {
    return scenewright::runProgram("scenewright-cli", &scenewright::run, argc, argv);
}
