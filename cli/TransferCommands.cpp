// The commands that move whole banks to and from the controller: read and send.
#include "bank/Difference.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Transaction.h"
#include "model/PopUpValue.h"

#include <memory>
#include <string>
#include <unistd.h>

namespace scenewright {

namespace {

// Reads the controller into the file; gives the exit code.
int storeHeld(DeviceOperation operation, const std::string& file) {
    const ControllerRead held = readController(operation);
    if (!held.scenes)
        return held.exitCode;
    const int stored = storeBank(file, *held.scenes, formForArgument(file, BankFormat::Image));
    return stored == kExitDone ? held.exitCode : stored;
}

int readToFile(const std::string& out) {
    if (const auto checked = checkStorable(out); !checked)
        return reportError(checked.error(), kExitUsage);
    return storeHeld(DeviceOperation::SaveScenes, out);
}

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
    if (const auto printed = printOut(differenceLines(list)); !printed)
        reportError(printed.error(), kExitController);
    return reportError(found, kExitController);
}

Result<void> checkBackup(const SendOptions& options) {
    if (options.backup.empty())
        return {};
    if (options.isVerified && outputDescriptor(options.backup) == STDOUT_FILENO)
        return failure("--backup - and --verify both write to standard output");
    return checkStorable(options.backup);
}

int sendBank(const SendOptions& options) {
    const auto bank = loadBank(options.in);
    if (!bank)
        return reportError(bank.error(), kExitUsage);
    const bool needsLists = options.isDryRun || options.isVerified;
    const auto lists = needsLists ? readPopUpValue() : std::make_shared<PopUpValue>();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    if (options.isDryRun)
        return showWhatWouldChange(**lists, bank->scenes);
    if (const auto checked = checkBackup(options); !checked)
        return reportError(checked.error(), kExitUsage);
    if (!options.backup.empty())
        if (const int code = storeHeld(DeviceOperation::Backup, options.backup); code != kExitDone)
            return code;
    if (const int code = sendToController(bank->scenes); code != kExitDone)
        return code;
    return options.isVerified ? verify(**lists, bank->scenes) : kExitDone;
}

} // namespace

CommandChoice readCommand(const Arguments& arguments) {
    const std::string out = arguments.text("OUT");
    return {.run = [out] { return readToFile(out); },
            .usesController = true,
            .files = {bankToWrite(out)}};
}

CommandChoice sendCommand(const Arguments& arguments) {
    const SendOptions options{.in = arguments.text("IN"),
                              .backup = arguments.text("--backup"),
                              .isVerified = arguments.has("--verify"),
                              .isDryRun = arguments.has("--dry-run")};
    return {.run = [options] { return sendBank(options); },
            .usesController = true,
            .files = {
                bankToRead(options.in, "the bank that is to be sent"),
                {options.backup, FileUse::Written, options.backup + ": the backup", "the backup"}}};
}

} // namespace scenewright
