#include "cli/Command.h"
#include "platform/Process.h"

namespace scenewright {

Result<CommandLine> parseCommandLine(int argc, const char* const* argv) {
    return parseArguments(commandLineSyntax(), argc, argv).map([](const ParsedArguments& line) {
        if (line.answer)
            return CommandLine{.options = {}, .choice = {}, .answer = line.answer};
        return CommandLine{.options = launchOptions(line.arguments),
                           .choice = chooseCommand(line.command, line.arguments),
                           .answer = std::nullopt};
    });
}

int reportError(std::string_view sentence, int exitCode) {
    reportError("scenewright-cli", sentence);
    return exitCode;
}

} // namespace scenewright
