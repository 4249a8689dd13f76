#include "app/ListCheck.h"
#include "app/WindowAction.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace scenewright {

namespace {

int writeDefaults(const std::string& out) {
    WindowAction::getSceneValue();
    const SceneList scenes = WindowAction::scenes();
    if (const auto checked = checkDefaultScenes(scenes); !checked)
        return reportError(checked.error(), kExitUsage);
    return storeBank(out, scenes, formForArgument(out, BankFormat::Image));
}

constexpr const char* kDefaultFooter =
    "Examples:\n"
    "  scenewright-cli default fresh.bank\n"
    "  scenewright-cli default - | scenewright-cli show - --scene 1\n";

} // namespace

void addDefaultCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command =
        app.add_subcommand("default", "Write a bank of four default scenes, SCENE1 to SCENE4");
    auto out = std::make_shared<std::string>();
    command->add_option("OUT", *out, kNewBankHelp)->required();
    command->footer(kDefaultFooter);
    command->callback([&choice, out] {
        choice = {[out] { return writeDefaults(*out); }, false, {bankToWrite(*out)}};
    });
}

} // namespace scenewright
