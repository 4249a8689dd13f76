#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "cli/Command.h"
#include "cli/SceneTable.h"
#include "editor/options/PopUpValue.h"
#include "model/Control.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <cstdio>
#include <memory>
#include <string>

namespace scenewright {

namespace {

struct ShowOptions {
    std::string in;
    int scene = 0; // from 1; 0 is all
};

int show(const ShowOptions& options) {
    const BankFile bank = readBank(options.in);
    if (bank.trouble)
        return complain(*bank.trouble, kExitUsage);
    const auto lists = WindowAction::InitializePopUp();
    std::string text;
    for (int number = 1; number <= kSceneCount; ++number)
        if (options.scene == 0 || options.scene == number)
            text +=
                sceneTable(*lists, *bank.scenes.at(static_cast<std::size_t>(number) - 1), number);
    if (std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0)
        return complain("standard output could not be written", kExitUsage);
    return kExitDone;
}

} // namespace

void addShowCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command =
        app.add_subcommand("show", "Print every setting of a bank under its option's title");
    auto options = std::make_shared<ShowOptions>();
    command->add_option("IN", options->in, "The bank file to show")->required();
    command->add_option("--scene", options->scene, "Only this scene, 1 to 4")
        ->check(CLI::Range(1, kSceneCount))
        ->type_name("N");
    command->callback([&choice, options] {
        choice = {[options] { return show(*options); }, false};
    });
}

} // namespace scenewright
