// The commands on the keyboard: read, send and resume move whole banks to and from it, earlier
// gives back what they and opened files have replaced, and devices and udev-rules tell what is
// plugged in.
#include "app/DeviceSession.h"
#include "app/Earlier.h"
#include "app/Keyboards.h"
#include "app/SendJournal.h"
#include "bank/BankFile.h"
#include "bank/Findings.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Reports.h"
#include "cli/Transaction.h"
#include "model/PopUpValue.h"

#include <fmt/chrono.h>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

// What a read that went well gave, into the file; gives the exit code.
int storeHeld(const ControllerRead& held, const std::string& file) {
    if (!held.scenes)
        return held.exitCode;
    const int stored = storeBank(file, *held.scenes, formForArgument(file, BankFormat::Image));
    return stored == kExitDone ? held.exitCode : stored;
}

int readToFile(const Arguments& arguments) {
    const std::string out = arguments.text("OUT");
    if (const auto checked = checkStorable(out); !checked)
        return reportError(checked.error(), kExitUsage);
    return storeHeld(readController(DeviceOperation::SaveScenes), out);
}

// What would change in the controller if it got these scenes; gives the exit code.
int printChanges(DeviceOperation operation, const PopUpValue& lists, const SceneList& scenes,
                 std::string (*textOf)(const std::vector<Difference>& list)) {
    const ControllerRead held = readController(operation);
    return held.scenes
               ? printAndEnd(textOf(differences(lists, *held.scenes, scenes)), held.exitCode)
               : held.exitCode;
}

std::string changesOrNone(const std::vector<Difference>& list) {
    return list.empty() ? "Nothing would change.\n" : differenceLines(list);
}

int verify(const PopUpValue& lists, const SceneList& sent) {
    const ControllerRead held = readController(DeviceOperation::Verify);
    if (!held.scenes)
        return held.exitCode;
    const auto list = differences(lists, sent, *held.scenes);
    const std::string found = comparisonText(DeviceOperation::Verify, list.size());
    if (list.empty())
        return printAndEnd(found + ".\n", held.exitCode);
    if (const auto printed = writeStandardOutput(differenceLines(list)); !printed)
        reportError(printed.error(), kExitController);
    return reportError(found, kExitController);
}

Result<void> checkBackup(const std::string& backup, bool isVerified) {
    if (backup.empty())
        return {};
    if (isVerified && outputDescriptor(backup) == STDOUT_FILENO)
        return failure("--backup - and --verify both write to standard output");
    return checkStorable(backup);
}

int sendBank(const Arguments& arguments) {
    const std::string in = arguments.text("IN");
    const std::string backup = arguments.text("--backup"); // empty: among the earlier scenes
    const bool isVerified = arguments.has("--verify");
    const bool isDryRun = arguments.has("--dry-run");
    const auto bank = loadBank(in);
    if (!bank)
        return reportError(bank.error(), kExitUsage);
    const auto lists = isDryRun || isVerified ? readPopUpValue() : std::make_shared<PopUpValue>();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    if (isDryRun)
        return printChanges(DeviceOperation::DryRun, **lists, bank->scenes, &changesOrNone);
    if (const auto checked = checkBackup(backup, isVerified); !checked)
        return reportError(checked.error(), kExitUsage);
    SendOrder order{.scenes = bank->scenes,
                    .subject = std::filesystem::path(in).filename().string(),
                    .keepsCopy = !arguments.has("--no-backup")};
    if (!backup.empty()) {
        const ControllerRead held = readController(DeviceOperation::Backup);
        if (const int code = storeHeld(held, backup); code != kExitDone)
            return code;
        order.before = encodeBank(*held.scenes);
    }
    if (const int code = sendToController(std::move(order)); code != kExitDone)
        return code;
    return isVerified ? verify(**lists, bank->scenes) : kExitDone;
}

// The send to the keyboard that is plugged in, or the newest when none is, which is then told.
std::optional<SendJournal::Unfinished> unfinishedHere(const SendJournal& journal) {
    const std::string keyboard = KnownKeyboard::pluggedInName();
    if (!keyboard.empty())
        return journal.unfinishedOf(keyboard);
    const auto all = journal.unfinished();
    return all.empty() ? std::nullopt : std::optional(all.front());
}

int resume(const Arguments& arguments) {
    const bool isBefore = arguments.has("--before");
    const auto unfinished = unfinishedHere(SendJournal{});
    if (!unfinished)
        return printAndEnd("No send is unfinished.\n", kExitDone);
    if (arguments.has("--forget")) {
        SendJournal::forget(*unfinished);
        return kExitDone;
    }
    const SendJournal::Send& send = unfinished->send;
    if (isBefore && !send.before)
        return reportError("what the keyboard held before the send is not known; earlier list "
                           "tells which scenes are kept",
                           kExitUsage);
    const auto scenes = readBankImage(isBefore ? *send.before : send.sent);
    return scenes ? sendToController({.scenes = *scenes,
                                      .subject = isBefore ? std::string() : send.subject,
                                      .before = send.before ? *send.before : send.sent})
                  : reportError(scenes.error(), kExitUsage);
}

} // namespace

CommandChoice readCommand(const Arguments& arguments) {
    return {
        .run = &readToFile, .usesController = true, .files = {bankToWrite(arguments.text("OUT"))}};
}

CommandChoice sendCommand(const Arguments& arguments) {
    const std::string backup = arguments.text("--backup");
    return {.run = &sendBank,
            .usesController = true,
            .files = {bankToRead(arguments.text("IN"), "the bank that is to be sent"),
                      {backup, FileUse::Written, backup + ": the backup", "the backup"}}};
}

CommandChoice resumeCommand(const Arguments& /*arguments*/) {
    return {.run = &resume, .usesController = true};
}

namespace {

constexpr int kIndent = 2;

std::string timeText(const EarlierScenes::Entry& entry) {
    return fmt::format("{:%Y-%m-%d %H:%M:%S}",
                       fmt::localtime(EarlierScenes::Clock::to_time_t(entry.kept)));
}

std::string listLines(const std::vector<EarlierScenes::Entry>& entries) {
    std::string text;
    for (std::size_t place = 0; place < entries.size(); ++place) {
        const EarlierScenes::Entry& entry = entries[place];
        const std::string reason = reasonText(entry.occasion);
        text += fmt::format("{:>4}  {}  {}\n      {}\n", place + 1, timeText(entry),
                            reason.empty() ? "-" : reason, fmt::join(entry.names(), ", "));
    }
    return text;
}

std::string listJson(const std::vector<EarlierScenes::Entry>& entries) {
    using Json = nlohmann::ordered_json;
    auto array = Json::array();
    for (std::size_t place = 0; place < entries.size(); ++place) {
        const EarlierScenes::Entry& entry = entries[place];
        const std::tm utc = fmt::gmtime(EarlierScenes::Clock::to_time_t(entry.kept));
        array.push_back({{"number", place + 1},
                         {"kept", fmt::format("{:%Y-%m-%dT%H:%M:%SZ}", utc)},
                         {"reason", reasonText(entry.occasion)},
                         {"keyboard", entry.occasion.keyboard},
                         {"names", entry.names()}});
    }
    return array.dump(kIndent, ' ', false, Json::error_handler_t::replace) + "\n";
}

int runOn(const EarlierScenes::Entry& entry, const std::string& action, bool isJson) {
    if (action == "restore")
        return sendToController({.scenes = entry.scenes()});
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    if (action == "diff") // what a restore would change
        return printChanges(DeviceOperation::Compare, **lists, entry.scenes(),
                            isJson ? &differencesJson : &differenceLines);
    return printAndEnd(isJson ? writeBankJson(entry.scenes(), **lists)
                              : sceneTables(**lists, entry.scenes()),
                       kExitDone);
}

int runEarlier(const Arguments& arguments) {
    const std::string action = arguments.text("ACTION");
    const bool isJson = arguments.has("--json");
    const auto number = arguments.number("N"); // from 1, the newest
    const auto entries = EarlierScenes().list();
    if (action == "list")
        return printAndEnd((isJson ? listJson : listLines)(entries), kExitDone);
    if (!number)
        return reportError(
            "earlier " + action + ": N is missing, the number that earlier list gives", kExitUsage);
    const auto place = static_cast<std::size_t>(*number) - 1;
    if (place >= entries.size())
        return reportError(fmt::format("earlier {}: there is no number {}; earlier list gives {}",
                                       action, *number, entries.size()),
                           kExitUsage);
    return runOn(entries[place], action, isJson);
}

} // namespace

CommandChoice earlierCommand(const Arguments& arguments) {
    const std::string action = arguments.text("ACTION");
    return {.run = &runEarlier, .usesController = action == "restore" || action == "diff"};
}

namespace {

int addDevice(const Arguments& arguments) {
    const std::string portOrSerial = arguments.text("--add");
    const Keyboards keyboards;
    std::vector<PluggedDevice> named = keyboards.all();
    std::erase_if(named, [&portOrSerial](const PluggedDevice& plugged) {
        return !plugged.device.isNamed(portOrSerial);
    });
    if (named.size() != 1)
        return reportError(
            fmt::format("there {} '{}'; 'scenewright-cli devices' lists the USB MIDI "
                        "devices with their ports",
                        named.empty() ? "is no device" : "are several devices", portOrSerial),
            kExitUsage);
    if (!named.front().isListed)
        if (const auto added = addToDeviceList(named.front().device.ids); !added)
            return reportError(added.error(), kExitUsage);
    return printAndEnd(named.front().description() + " is in the list of keyboards.\n", kExitDone);
}

int printDevices(const Arguments& arguments) {
    if (const auto listed = readDeviceList(); !listed)
        return reportError(listed.error(), kExitUsage);
    std::vector<PluggedDevice> devices = Keyboards().all();
    std::erase_if(devices,
                  [](const PluggedDevice& plugged) { return !plugged.device.hasMidiStreaming; });
    return printAndEnd((arguments.has("--json") ? deviceJson : deviceTable)(devices), kExitDone);
}

int printRules(const Arguments& /*arguments*/) {
    const auto listed = readDeviceList();
    return listed ? printAndEnd(udevRules(*listed), kExitDone)
                  : reportError(listed.error(), kExitUsage);
}

} // namespace

CommandChoice devicesCommand(const Arguments& arguments) {
    return {.run = arguments.has("--add") ? &addDevice : &printDevices};
}

CommandChoice udevRulesCommand(const Arguments& /*arguments*/) {
    return {.run = &printRules};
}

} // namespace scenewright
