#include "cli/CommandLine.h"

#include "platform/ReadableText.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <array>
#include <sstream>

namespace scenewright {

namespace {

constexpr const char* kDescription =
    "Reads the four scenes of a USB MIDI keyboard controller into a bank file, shows, changes and\n"
    "compares banks, and sends a bank back to the controller.";

// In the order of the help.
constexpr std::array kCommands{addReadCommand,    addSendCommand,     addShowCommand,
                               addGetCommand,     addSetCommand,      addCopyCommand,
                               addDiffCommand,    addConvertCommand,  addDefaultCommand,
                               addDevicesCommand, addUdevRulesCommand};

constexpr const char* kFooter =
    "A bank is the controller's image of 1012 bytes or a JSON text; every command takes both.\n"
    "A - in its place is standard input or output. COMMAND --help tells more.\n\n"
    "Examples:\n"
    "  scenewright-cli read mine.bank            keep what the controller holds\n"
    "  scenewright-cli show mine.bank --scene 2  look at its second scene\n"
    "  scenewright-cli send mine.bank --verify   bring it back and check\n"
    "  scenewright-cli set mine.bank scene1.pad3.CR=127\n"
    "                                            make its third pad redder\n"
    "  scenewright-cli diff device: mine.bank    what would a send change?\n"
    "  scenewright-cli --virtual=pretend.bank send mine.bank\n"
    "                                            the same without a controller\n\n"
    "Exit code: 0 done; 1 the controller could not be reached, its transfers failed, or standard\n"
    "output or a stream's file could not be written; 2 bad usage or a bad file, and then nothing\n"
    "was sent and no file was touched.\n"
    "diff: 0 equal; 1 different; 2 trouble of any kind.";

void describe(CLI::App& app) {
    // After the commands were added, which would take the footer over.
    app.footer(kFooter);
    app.set_version_flag("--version", "scenewright-cli " SCENEWRIGHT_VERSION);
    app.require_subcommand(0, 1); // so that a wrong one is named
    app.get_formatter()->column_width(26);
}

// The answer that ends the program, as the parser words it.
std::string answerTo(const CLI::Success& request, const CLI::App& app) {
    std::ostringstream out;
    std::ostringstream errors;
    app.exit(request, out, errors);
    return out.str();
}

void parse(CLI::App& app, int argc, const char* const* argv, CommandLine& line) {
    try {
        app.parse(argc, argv);
        if (!line.choice.run)
            line.trouble = "a command is required (--help lists them)";
    } catch (const CLI::Success& request) {
        line.answer = answerTo(request, app);
    } catch (const CLI::ParseError& error) {
        line.trouble = fmt::format("{} (--help tells more)", readableText(error.what()));
    }
}

} // namespace

CommandLine parseCommandLine(int argc, const char* const* argv) {
    CommandLine line;
    CLI::App app(kDescription, "scenewright-cli");
    addLaunchOptions(app, line.options);
    for (const auto add : kCommands)
        add(app, line.choice);
    describe(app);
    parse(app, argc, argv, line);
    return line;
}

} // namespace scenewright
