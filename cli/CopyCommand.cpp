#include "bank/Edit.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <utility>

namespace scenewright {

namespace {

struct CopyOptions {
    std::string bank;
    std::string from;
    std::string to;
    std::string source; // empty for the bank itself
};

int copy(const CopyOptions& options) {
    if (inputDescriptor(options.bank) &&
        inputDescriptor(options.bank) == inputDescriptor(options.source))
        return reportError("standard input can be the bank or what is copied from, not both",
                           kExitUsage);
    return changeBank(options.bank, [&options](const BankFile& bank) -> Result<SceneList> {
        const BankFile source = options.source.empty() ? bank : loadBankOrScene(options.source);
        if (source.trouble)
            return failure(*source.trouble);
        Edited edited = copyValues(source.scenes, bank.scenes, options.from, options.to);
        if (edited.trouble)
            return failure(*edited.trouble);
        return std::move(edited.scenes);
    });
}

constexpr const char* kCopyFooter =
    "FROM and TO are both a scene, controls of one kind, or one and "
    "the same setting. A star in FROM\n"
    "goes with a star in TO, pair by pair; a number in FROM is copied "
    "to all that TO names. A scene\n"
    "goes with its name. The bank keeps its form. With --from, FROM "
    "is looked up in another bank, or in\n"
    "a file of one scene, which is its scene1.\n\n"
    "Examples:\n"
    "  scenewright-cli copy live.bank scene1 scene4\n"
    "  scenewright-cli copy live.bank scene1.pad1 'scene1.pad*'\n"
    "  scenewright-cli copy live.bank 'scene1.knob*' 'scene*.knob*'\n"
    "  scenewright-cli copy live.bank scene1 scene3 --from solo.json\n";

} // namespace

void addCopyCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command = app.add_subcommand("copy", "Copy a scene, a control or a kind of control");
    auto options = std::make_shared<CopyOptions>();
    command->add_option("BANK", options->bank, kChangedBankHelp)->required();
    command->add_option("FROM", options->from, "What to copy, as in scene1.pad1")->required();
    command->add_option("TO", options->to, "Where to, as in scene2.pad8")->required();
    command
        ->add_option("--from", options->source, "Copy out of FILE, a bank or one scene, into BANK")
        ->type_name("FILE");
    command->footer(kCopyFooter);
    command->callback([&choice, options] {
        choice = {
            [options] { return copy(*options); },
            false,
            {bankToRead(options->source, "what is to be copied"), bankToChange(options->bank)}};
    });
}

} // namespace scenewright
