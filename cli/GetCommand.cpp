#include "bank/Path.h"
#include "bank/SettingText.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "model/PopUpValue.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <memory>
#include <string>
#include <vector>

namespace scenewright {

namespace {

struct GetOptions {
    std::string bank;
    std::vector<std::string> paths;
};

std::string lineOf(const PopUpValue& lists, const SceneList& scenes, const SettingPlace& place) {
    const SettingText text =
        settingText(lists, *scenes.at(static_cast<std::size_t>(place.scene)), place);
    return fmt::format("{}={}{}{}\n", pathOf(place), text.value, text.title.empty() ? "" : "\t",
                       text.title);
}

int get(const GetOptions& options) {
    std::vector<SettingPlace> places;
    for (const std::string& text : options.paths) {
        const PathResult result = parsePath(text);
        if (!result.path)
            return reportError(result.trouble, kExitUsage);
        const auto more = settingsAt(*result.path);
        places.insert(places.end(), more.begin(), more.end());
    }
    const BankFile bank = loadBank(options.bank);
    if (bank.trouble)
        return reportError(*bank.trouble, kExitUsage);
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    std::string text;
    for (const SettingPlace& place : places)
        text += lineOf(**lists, bank.scenes, place);
    return printAndEnd(text, kExitDone);
}

constexpr const char* kGetFooter =
    "Prints a line PATH=INDEX for each setting, then a tab and the option's title.\n"
    "What stands before the tab is an argument for set.\n\n"
    "Examples:\n"
    "  scenewright-cli get live.bank scene1.pad3.CR\n"
    "  scenewright-cli get live.bank scene1.pad3 'scene*.common.SceneName'\n"
    "  scenewright-cli get live.bank 'scene*' | cut -f1\n";

} // namespace

void addGetCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command = app.add_subcommand("get", "Print settings of a bank by their paths");
    auto options = std::make_shared<GetOptions>();
    command->add_option("BANK", options->bank, kBankHelp)->required();
    command->add_option("PATH", options->paths, kPathHelp)->required();
    command->footer(kGetFooter);
    command->callback([&choice, options] {
        choice = {[options] { return get(*options); },
                  false,
                  {bankToRead(options->bank, "the bank that is to be read")}};
    });
}

} // namespace scenewright
