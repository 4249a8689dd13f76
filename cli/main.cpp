#include "app/Launch.h"
#include "cli/Command.h"
#include "usb/Shutdown.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <array>
#include <exception>

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
    "Exit code: 0 done; 1 the controller could not be reached or its transfers failed;\n"
    "2 bad usage or a bad file, and then nothing was sent and no file was touched.\n"
    "diff: 0 equal; 1 different; 2 trouble of any kind.";

void describe(CLI::App& app) {
    // After the commands were added, which would take the footer over.
    app.footer(kFooter);
    app.set_version_flag("--version", "scenewright-cli " SCENEWRIGHT_VERSION);
    app.require_subcommand(0, 1); // so that a wrong one is named
    app.get_formatter()->column_width(26);
}

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
    CLI::App app(kDescription, "scenewright-cli");
    LaunchOptions options;
    CommandChoice choice;
    addLaunchOptions(app, options);
    for (const auto add : kCommands)
        add(app, choice);
    describe(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& request) {
        return app.exit(request);
    } catch (const CLI::ParseError& error) {
        return complain(fmt::format("{} (--help tells more)", error.what()), kExitUsage);
    }
    if (!choice.run)
        return complain("a command is required (--help lists them)", kExitUsage);
    return runChosen(options, choice);
}

} // namespace

} // namespace scenewright

int main(int argc, char** argv) {
    try {
        return scenewright::run(argc, argv);
    } catch (const std::exception& error) {
        return scenewright::complain(error.what(), scenewright::kExitUsage);
    }
}
