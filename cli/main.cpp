#include "app/ListCheck.h"
#include "cli/BankArgument.h"
#include "cli/CommandLine.h"
#include "platform/DiagnosticSinks.h"
#include "platform/NamedFiles.h"
#include "platform/StandardStreams.h"
#include "usb/Shutdown.h"

#include <exception>
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

int runChosen(const LaunchOptions& options, const CommandChoice& choice) {
    if (const auto checked = checkNamedFiles(filesOf(options, choice)); !checked)
        return complain(checked.error(), kExitUsage);
    if (const auto trouble = launch(options))
        return complain(*trouble, kExitUsage);
    if (!choice.usesController)
        return choice.run();
    if (const auto checked = checkList(kProjectList); !checked)
        return complain(checked.error(), kExitUsage);
    const Shutdown shutdown;
    if (const auto trouble = connectHost(options))
        return complain(*trouble, kExitUsage);
    return choice.run();
}

// The exit code of a command whose streams can still fail.
int endStreams(int exitCode, int failed) {
    for (const auto& ended : {endDiagnostics(), closeStandardOutput()})
        if (!ended && exitCode < failed)
            exitCode = complain(ended.error(), failed);
    return exitCode;
}

int run(int argc, char** argv) {
    const CommandLine line = parseCommandLine(argc, argv);
    if (line.answer)
        return endStreams(printAndEnd(*line.answer, kExitDone), kExitOutput);
    if (line.trouble)
        return complain(*line.trouble, kExitUsage);
    return endStreams(runChosen(line.options, line.choice), line.choice.failed);
}

} // namespace

} // namespace scenewright

int main(int argc, char** argv) {
    scenewright::prepareProcess();
    try {
        return scenewright::run(argc, argv);
    } catch (const std::bad_alloc&) {
        return scenewright::complain("the system has no memory left", scenewright::kExitController);
    } catch (const std::exception& error) {
        return scenewright::complain(error.what(), scenewright::kExitUsage);
    }
}
