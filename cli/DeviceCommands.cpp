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

int readToFile(const std::string& out) {
    if (const auto checked = checkStorable(out); !checked)
        return reportError(checked.error(), kExitUsage);
    return storeHeld(readController(DeviceOperation::SaveScenes), out);
}

struct SendOptions {
    std::string in;
    std::string backup; // a file for what is held; empty to keep it among the earlier scenes
    bool hasBackup = true;
    bool isVerified = false;
    bool isDryRun = false;
};

int showWhatWouldChange(const PopUpValue& lists, const SceneList& scenes) {
    const ControllerRead held = readController(DeviceOperation::DryRun);
    if (!held.scenes)
        return held.exitCode;
    const auto list = differences(lists, *held.scenes, scenes);
    return printAndEnd(list.empty() ? "Nothing would change.\n" : differenceLines(list),
                       held.exitCode);
}

int verify(const PopUpValue& lists, const SceneList& sent) {
    const ControllerRead held = readController(DeviceOperation::Verify);
    if (!held.scenes)
        return held.exitCode;
    const auto list = differences(lists, sent, *held.scenes);
    const std::string found = comparisonText(DeviceOperation::Verify, list.size());
    if (list.empty())
        return printAndEnd(found + ".\n", held.exitCode);
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
    SendOrder order{.scenes = bank->scenes,
                    .subject = std::filesystem::path(options.in).filename().string(),
                    .keepsCopy = options.hasBackup};
    if (!options.backup.empty()) {
        const ControllerRead held = readController(DeviceOperation::Backup);
        if (const int code = storeHeld(held, options.backup); code != kExitDone)
            return code;
        order.before = encodeBank(*held.scenes);
    }
    if (const int code = sendToController(std::move(order)); code != kExitDone)
        return code;
    return options.isVerified ? verify(**lists, bank->scenes) : kExitDone;
}

// The send to the keyboard that is plugged in, or the newest when none is, which is then told.
std::optional<SendJournal::Unfinished> unfinishedHere(const SendJournal& journal) {
    const std::string keyboard = KnownKeyboard::pluggedInName();
    if (!keyboard.empty())
        return journal.unfinishedOf(keyboard);
    const auto all = journal.unfinished();
    return all.empty() ? std::nullopt : std::optional(all.front());
}

struct ResumeOptions {
    bool isBefore = false;
    bool isForget = false;
};

int resume(const ResumeOptions& options) {
    const auto unfinished = unfinishedHere(SendJournal{});
    if (!unfinished)
        return printAndEnd("No send is unfinished.\n", kExitDone);
    if (options.isForget) {
        SendJournal::forget(*unfinished);
        return kExitDone;
    }
    const SendJournal::Send& send = unfinished->send;
    if (options.isBefore && !send.before)
        return reportError("what the keyboard held before the send is not known; earlier list "
                           "tells which scenes are kept",
                           kExitUsage);
    const auto scenes = readBankImage(options.isBefore ? *send.before : send.sent);
    return scenes ? sendToController({.scenes = *scenes,
                                      .subject = options.isBefore ? std::string() : send.subject,
                                      .before = send.before ? *send.before : send.sent})
                  : reportError(scenes.error(), kExitUsage);
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
                              .hasBackup = !arguments.has("--no-backup"),
                              .isVerified = arguments.has("--verify"),
                              .isDryRun = arguments.has("--dry-run")};
    return {.run = [options] { return sendBank(options); },
            .usesController = true,
            .files = {
                bankToRead(options.in, "the bank that is to be sent"),
                {options.backup, FileUse::Written, options.backup + ": the backup", "the backup"}}};
}

CommandChoice resumeCommand(const Arguments& arguments) {
    const ResumeOptions options{.isBefore = arguments.has("--before"),
                                .isForget = arguments.has("--forget")};
    return {.run = [options] { return resume(options); }, .usesController = true};
}

namespace {

constexpr int kIndent = 2;

struct EarlierOptions {
    std::string action;
    std::optional<int> number; // from 1, the newest
    bool isJson = false;
};

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

int show(const PopUpValue& lists, const SceneList& scenes, bool isJson) {
    if (isJson)
        return printAndEnd(writeBankJson(scenes, lists), kExitDone);
    std::string text;
    int number = 0;
    for (const auto& scene : scenes)
        text += sceneTable(lists, *scene, ++number);
    return printAndEnd(text, kExitDone);
}

// What a restore would change.
int diff(const PopUpValue& lists, const SceneList& scenes, bool isJson) {
    const ControllerRead held = readController(DeviceOperation::Compare);
    if (!held.scenes)
        return held.exitCode;
    const auto list = differences(lists, *held.scenes, scenes);
    return printAndEnd(isJson ? differencesJson(list) : differenceLines(list), held.exitCode);
}

int runOn(const EarlierScenes::Entry& entry, const EarlierOptions& options) {
    if (options.action == "restore")
        return sendToController({.scenes = entry.scenes()});
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    return (options.action == "show" ? show : diff)(**lists, entry.scenes(), options.isJson);
}

int runEarlier(const EarlierOptions& options) {
    const auto entries = EarlierScenes().list();
    if (options.action == "list")
        return printAndEnd((options.isJson ? listJson : listLines)(entries), kExitDone);
    if (!options.number)
        return reportError("earlier " + options.action +
                               ": N is missing, the number that earlier "
                               "list gives",
                           kExitUsage);
    const auto place = static_cast<std::size_t>(*options.number) - 1;
    if (place >= entries.size())
        return reportError(fmt::format("earlier {}: there is no number {}; earlier list gives {}",
                                       options.action, *options.number, entries.size()),
                           kExitUsage);
    return runOn(entries[place], options);
}

} // namespace

CommandChoice earlierCommand(const Arguments& arguments) {
    const EarlierOptions options{.action = arguments.text("ACTION"),
                                 .number = arguments.number("N"),
                                 .isJson = arguments.has("--json")};
    return {.run = [options] { return runEarlier(options); },
            .usesController = options.action == "restore" || options.action == "diff"};
}

namespace {

int addDevice(const std::string& portOrSerial) {
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

int printDevices(bool asJson) {
    if (const auto listed = readDeviceList(); !listed)
        return reportError(listed.error(), kExitUsage);
    std::vector<PluggedDevice> devices = Keyboards().all();
    std::erase_if(devices,
                  [](const PluggedDevice& plugged) { return !plugged.device.hasMidiStreaming; });
    return printAndEnd((asJson ? deviceJson : deviceTable)(devices), kExitDone);
}

int printRules() {
    const auto listed = readDeviceList();
    return listed ? printAndEnd(udevRules(*listed), kExitDone)
                  : reportError(listed.error(), kExitUsage);
}

} // namespace

CommandChoice devicesCommand(const Arguments& arguments) {
    if (arguments.has("--add"))
        return {.run = [name = arguments.text("--add")] { return addDevice(name); }};
    return {.run = [asJson = arguments.has("--json")] { return printDevices(asJson); }};
}

CommandChoice udevRulesCommand(const Arguments& /*arguments*/) {
    return {.run = &printRules};
}

} // namespace scenewright
