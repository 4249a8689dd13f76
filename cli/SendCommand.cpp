#include "bank/Difference.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Transaction.h"
#include "model/PopUpValue.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <memory>
#include <optional>
#include <string>
#include <unistd.h>

namespace scenewright {

namespace {

struct SendOptions {
    std::string in;
    std::string backup; // empty for none
    bool isVerified = false;
    bool isDryRun = false;
};

int showWhatWouldChange(const PopUpValue& lists, const SceneList& scenes) {
    const ControllerRead held = readController(DeviceOperation::DryRun);
    if (!held.scenes)
        return held.exitCode;
    const auto list = differences(lists, *held.scenes, scenes);
    const int printed =
        printAndEnd(list.empty() ? "Nothing would change.\n" : differenceLines(list), kExitDone);
    return printed == kExitDone ? held.exitCode : printed;
}

// The exit code; kExitDone when the backup is written.
int writeBackup(const std::string& file) {
    const ControllerRead held = readController(DeviceOperation::Backup);
    if (!held.scenes)
        return held.exitCode;
    const int stored = storeBank(file, *held.scenes, formForArgument(file, BankFormat::Image));
    return stored == kExitDone ? held.exitCode : stored;
}

int verify(const PopUpValue& lists, const SceneList& sent) {
    const ControllerRead held = readController(DeviceOperation::Verify);
    if (!held.scenes)
        return held.exitCode;
    const auto list = differences(lists, sent, *held.scenes);
    const std::string found = comparisonText(DeviceOperation::Verify, list.size());
    if (list.empty()) {
        const int printed = printAndEnd(found + ".\n", kExitDone);
        return printed == kExitDone ? held.exitCode : printed;
    }
    if (const auto trouble = printOut(differenceLines(list)))
        reportError(*trouble, kExitController);
    return reportError(found, kExitController);
}

std::optional<std::string> backupTrouble(const SendOptions& options) {
    if (options.backup.empty())
        return std::nullopt;
    if (options.isVerified && outputDescriptor(options.backup) == STDOUT_FILENO)
        return "--backup - and --verify both write to standard output";
    return whyNotStorable(options.backup);
}

int sendBank(const SendOptions& options) {
    const BankFile bank = loadBank(options.in);
    if (bank.trouble)
        return reportError(*bank.trouble, kExitUsage);
    const bool needsLists = options.isDryRun || options.isVerified;
    const auto lists = needsLists ? readPopUpValue() : std::make_shared<PopUpValue>();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    if (options.isDryRun)
        return showWhatWouldChange(**lists, bank.scenes);
    if (const auto trouble = backupTrouble(options))
        return reportError(*trouble, kExitUsage);
    if (!options.backup.empty())
        if (const int code = writeBackup(options.backup); code != kExitDone)
            return code;
    if (const int code = sendToController(bank.scenes); code != kExitDone)
        return code;
    return options.isVerified ? verify(**lists, bank.scenes) : kExitDone;
}

constexpr const char* kSendFooter =
    "Each line about a setting tells its path, its name in words, and its value before and after:\n"
    "with --dry-run what is held and what would be sent, with --verify what was sent and what is "
    "held.\n\n"
    "Exit code: 0 done; 1 the controller could not be reached, its transfers failed, or it does "
    "not\n"
    "hold what was sent; 2 bad usage or a bad file, and then nothing was sent.\n\n"
    "Examples:\n"
    "  scenewright-cli send live.bank --dry-run\n"
    "  scenewright-cli send live.bank --backup before.bank --verify\n";

} // namespace

void addSendCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command = app.add_subcommand("send", "Send four scenes to the controller");
    auto options = std::make_shared<SendOptions>();
    command->add_option("IN", options->in, kBankHelp)->required();
    command->add_flag("--verify", options->isVerified,
                      "Read back what was sent, and list what the controller does not hold");
    CLI::Option* backup =
        command
            ->add_option("--backup", options->backup,
                         "First keep what the controller holds in FILE; without that, send nothing")
            ->type_name("FILE");
    CLI::Option* dryRun = command->add_flag("--dry-run", options->isDryRun,
                                            "Only list what would change; send and write nothing");
    dryRun->excludes(backup)->excludes("--verify");
    command->footer(kSendFooter);
    command->callback([&choice, options] {
        choice = {
            [options] { return sendBank(*options); },
            true,
            {bankToRead(options->in, "the bank that is to be sent"),
             {options->backup, FileUse::Written, options->backup + ": the backup", "the backup"}}};
    });
}

} // namespace scenewright
