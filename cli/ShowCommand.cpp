#include "bank/BankJson.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/SceneTable.h"
#include "model/Control.h"
#include "model/PopUpValue.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string>

namespace scenewright {

namespace {

struct ShowOptions {
    std::string in;
    int scene = 0; // from 1; 0 is all
    bool isJson = false;
};

std::string tables(const SceneList& scenes, const PopUpValue& lists, int scene) {
    std::string text;
    for (int number = 1; number <= static_cast<int>(scenes.size()); ++number)
        if (scene == 0 || scene == number)
            text += sceneTable(lists, *scenes.at(static_cast<std::size_t>(number) - 1), number);
    return text;
}

std::string json(const SceneList& scenes, const PopUpValue& lists, int scene) {
    if (scene == 0 && scenes.size() > 1)
        return writeBankJson(scenes, lists);
    return writeSceneJson(*scenes.at(static_cast<std::size_t>(std::max(scene, 1)) - 1), lists);
}

int show(const ShowOptions& options) {
    const BankFile bank = loadBankOrScene(options.in);
    if (bank.trouble)
        return reportError(*bank.trouble, kExitUsage);
    if (options.scene > static_cast<int>(bank.scenes.size()))
        return reportError(options.in + ": it is a file of one scene", kExitUsage);
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    return printAndEnd((options.isJson ? json : tables)(bank.scenes, **lists, options.scene),
                       kExitDone);
}

constexpr const char* kShowFooter =
    "Examples:\n"
    "  scenewright-cli show live.bank --scene 2\n"
    "  scenewright-cli show live.bank --json      the text that convert writes\n"
    "  scenewright-cli show live.bank --json --scene 2\n"
    "                                             that scene alone, as the editor opens it\n";

} // namespace

void addShowCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command =
        app.add_subcommand("show", "Print every setting of a bank under its option's title");
    auto options = std::make_shared<ShowOptions>();
    command->add_option("IN", options->in, kBankOrSceneHelp)->required();
    command->add_option("--scene", options->scene, "Only this scene, 1 to 4")
        ->check(CLI::Range(1, kSceneCount))
        ->type_name("N");
    command->add_flag("--json", options->isJson, "As a JSON text instead of tables");
    command->footer(kShowFooter);
    command->callback([&choice, options] {
        choice = {[options] { return show(*options); },
                  false,
                  {bankToRead(options->in, "the bank that is to be shown")}};
    });
}

} // namespace scenewright
