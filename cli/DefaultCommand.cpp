#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "cli/Command.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace scenewright {

namespace {

int writeDefaults(const std::string& out) {
    WindowAction::getSceneValue();
    if (const auto trouble = writeBank(out, WindowAction::scenes()))
        return complain(*trouble, kExitUsage);
    return kExitDone;
}

} // namespace

void addDefaultCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command =
        app.add_subcommand("default", "Write a bank of four default scenes, SCENE1 to SCENE4");
    auto out = std::make_shared<std::string>();
    command->add_option("OUT", *out, "The bank file to write (1012 bytes)")->required();
    command->callback([&choice, out] { choice = {[out] { return writeDefaults(*out); }, false}; });
}

} // namespace scenewright
