#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/UdevRules.h"

#include <CLI/CLI.hpp>

namespace scenewright {

void addUdevRulesCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command =
        app.add_subcommand("udev-rules", "Print the udev rules that permit the listed keyboards");
    command->callback([&choice] {
        choice.run = [] {
            const auto listed = readDeviceList();
            return listed ? printAndEnd(udevRules(*listed), kExitDone)
                          : reportError(listed.error(), kExitUsage);
        };
    });
}

} // namespace scenewright
