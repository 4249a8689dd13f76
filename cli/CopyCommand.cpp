#include "bank/Edit.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace scenewright {

namespace {

struct CopyOptions {
    std::string bank;
    std::string from;
    std::string to;
};

int copy(const CopyOptions& options) {
    const BankFile bank = loadBank(options.bank);
    if (bank.trouble)
        return complain(*bank.trouble, kExitUsage);
    const Edited edited = copyValues(bank.scenes, options.from, options.to);
    if (edited.trouble)
        return complain(*edited.trouble, kExitUsage);
    if (const auto trouble = storeBank(options.bank, edited.scenes, bank.form))
        return complain(*trouble, kExitUsage);
    return kExitDone;
}

constexpr const char* kCopyFooter =
    "FROM and TO are both a scene, controls of one kind, or one and "
    "the same setting. A star in FROM\n"
    "goes with a star in TO, pair by pair; a number in FROM is copied "
    "to all that TO names. A scene\n"
    "goes with its name. The bank keeps its form.\n\n"
    "Examples:\n"
    "  scenewright-cli copy live.bank scene1 scene4\n"
    "  scenewright-cli copy live.bank scene1.pad1 'scene1.pad*'\n"
    "  scenewright-cli copy live.bank 'scene1.knob*' 'scene*.knob*'\n";

} // namespace

void addCopyCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command =
        app.add_subcommand("copy", "Copy a scene, a control or a kind of control within a bank");
    auto options = std::make_shared<CopyOptions>();
    command->add_option("BANK", options->bank, kChangedBankHelp)->required();
    command->add_option("FROM", options->from, "What to copy, as in scene1.pad1")->required();
    command->add_option("TO", options->to, "Where to, as in scene2.pad8")->required();
    command->footer(kCopyFooter);
    command->callback([&choice, options] {
        choice = {[options] { return copy(*options); }, false};
    });
}

} // namespace scenewright
