#include "bank/Edit.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "model/PopUpValue.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

struct SetOptions {
    std::string bank;
    std::vector<std::string> assignments;
};

int set(const SetOptions& options) {
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    return changeBank(options.bank, [&](const BankFile& bank) -> Result<SceneList> {
        Edited edited = setValues(**lists, bank.scenes, options.assignments);
        if (edited.trouble)
            return failure(*edited.trouble);
        return std::move(edited.scenes);
    });
}

constexpr const char* kSetFooter =
    "VALUE is an index in the option list (digits only) or an option's title; title:1 is the "
    "title\n"
    "1, not the index 1. A scene's name is its text, or bytes: and 24 hexadecimal digits. The "
    "number\n"
    "of a pad or key is a note's name if the control sends notes once all is set. Of two values "
    "for\n"
    "one setting the later counts. The bank keeps its form. One bad argument, and nothing is "
    "set.\n\n"
    "Examples:\n"
    "  scenewright-cli set live.bank scene1.pad3.AssignType=Note scene1.pad3.CCOrNoteNumber=C2\n"
    "  scenewright-cli set live.bank 'scene*.knob*.Enable=On' scene1.common.SceneName=STAGE\n"
    "  scenewright-cli set - scene1.pad1.CR=127 <live.bank >red.bank\n";

} // namespace

void addSetCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command = app.add_subcommand("set", "Change settings of a bank, all or none");
    auto options = std::make_shared<SetOptions>();
    command->add_option("BANK", options->bank, kChangedBankHelp)->required();
    command->add_option("ASSIGNMENT", options->assignments, kAssignmentHelp)->required();
    command->footer(kSetFooter);
    command->callback([&choice, options] {
        choice = {[options] { return set(*options); }, false, {bankToChange(options->bank)}};
    });
}

} // namespace scenewright
