#include "app/WindowAction.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "model/Control.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <memory>
#include <string>

namespace scenewright {

namespace {

int writeDefaults(const std::string& out) {
    WindowAction::getSceneValue();
    const SceneList scenes = WindowAction::scenes();
    // The list is read for each scene, and may be gone for one of them.
    for (const auto& scene : scenes)
        if (const std::size_t count = scene->buttonValueArray().size(); count != kControlCount)
            return complain(fmt::format("default.plist: the default scene holds {} controls, and "
                                        "the keyboard has {}; no file was written",
                                        count, kControlCount),
                            kExitUsage);
    return storeBank(out, scenes, formForArgument(out, BankForm::Image));
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
