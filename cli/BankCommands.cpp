// The commands on whole banks: show, check, sheet (the window's program draws it), convert, default
// and diff, which takes two banks, or one and what the controller holds.
#include "app/Launch.h"
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "bank/Findings.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Reports.h"
#include "cli/Transaction.h"
#include "model/PopUpValue.h"
#include "platform/Process.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

namespace scenewright {

namespace {

struct ShowOptions {
    std::string in;
    int scene = 0; // from 1; 0 is all
    bool isJson = false;
    bool hasNames = false;
};

std::string tables(const SceneList& scenes, const PopUpValue& lists, const ShowOptions& options) {
    std::string text;
    for (int number = 1; number <= static_cast<int>(scenes.size()); ++number)
        if (options.scene == 0 || options.scene == number)
            text += sceneTable(lists, *scenes.at(static_cast<std::size_t>(number) - 1), number,
                               options.hasNames);
    return text;
}

std::string json(const SceneList& scenes, const PopUpValue& lists, const ShowOptions& options) {
    if (options.scene == 0 && scenes.size() > 1)
        return writeBankJson(scenes, lists);
    return writeSceneJson(*scenes.at(static_cast<std::size_t>(std::max(options.scene, 1)) - 1),
                          lists);
}

int show(const ShowOptions& options) {
    const auto bank = loadBankOrScene(options.in);
    if (!bank)
        return reportError(bank.error(), kExitUsage);
    if (options.scene > static_cast<int>(bank->scenes.size()))
        return reportError(options.in + ": it is a file of one scene", kExitUsage);
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    return printAndEnd((options.isJson ? json : tables)(bank->scenes, **lists, options), kExitDone);
}

BankFormat otherForm(BankFormat form) {
    return form == BankFormat::Image ? BankFormat::Json : BankFormat::Image;
}

int convert(const std::string& in, const std::string& out, const std::string& form) {
    const auto bank = loadBank(in);
    if (!bank)
        return reportError(bank.error(), kExitUsage);
    if (form.empty())
        return storeBank(out, bank->scenes, formForArgument(out, otherForm(bank->form)));
    return storeBank(out, bank->scenes, form == "json" ? BankFormat::Json : BankFormat::Image);
}

int writeDefaults(const std::string& out) {
    const SceneList scenes = WindowAction::defaultScenes();
    if (const auto checked = checkDefaultScenes(scenes); !checked)
        return reportError(checked.error(), kExitUsage);
    return storeBank(out, scenes, formForArgument(out, BankFormat::Image));
}

constexpr int kExitFindings = 1;
constexpr int kExitError = 2; // with a stream's file or standard output too, as 1 means findings

int check(const std::string& name, bool isJson) {
    const auto bank = loadBankOrScene(name);
    if (!bank)
        return reportError(bank.error(), kExitError);
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitError);
    const auto findings = findingsOf(**lists, bank->scenes);
    return printAndEnd(isJson ? findingsJson(findings) : findingLines(findings),
                       findings.empty() ? kExitDone : kExitFindings, kExitError);
}

// Becomes the program beside this one; returns only when it cannot.
int drawSheet(const std::vector<std::string>& words) {
    std::error_code error;
    const auto program =
        std::filesystem::read_symlink("/proc/self/exe", error).parent_path() / "scenewright";
    std::vector<char*> arguments;
    std::string name = program.string();
    arguments.push_back(name.data());
    std::vector<std::string> copies = words;
    for (std::string& word : copies)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    ::execv(name.c_str(), arguments.data());
    return reportError(fmt::format("{}: the window's program, which draws sheets, cannot be "
                                   "started: {}",
                                   name, std::strerror(errno)),
                       kExitOutput);
}

} // namespace

CommandChoice showCommand(const Arguments& arguments) {
    const ShowOptions options{.in = arguments.text("IN"),
                              .scene = arguments.number("--scene").value_or(0),
                              .isJson = arguments.has("--json"),
                              .hasNames = arguments.has("--names")};
    return {.run = [options] { return show(options); },
            .files = {bankToRead(options.in, "the bank that is to be shown")}};
}

CommandChoice convertCommand(const Arguments& arguments) {
    const std::string in = arguments.text("IN");
    const std::string out = arguments.text("OUT");
    return {.run = [in, out, form = arguments.text("--to")] { return convert(in, out, form); },
            .files = {bankToRead(in, "the bank that is to be converted"), bankToWrite(out)}};
}

CommandChoice defaultCommand(const Arguments& arguments) {
    const std::string out = arguments.text("OUT");
    return {.run = [out] { return writeDefaults(out); }, .files = {bankToWrite(out)}};
}

CommandChoice checkCommand(const Arguments& arguments) {
    const std::string bank = arguments.text("BANK");
    return {.run = [bank, isJson = arguments.has("--json")] { return check(bank, isJson); },
            .files = {bankToRead(bank, "the bank that is to be checked")},
            .failed = kExitError};
}

CommandChoice sheetCommand(const Arguments& arguments) {
    const std::string in = arguments.text("IN");
    const std::string out = arguments.text("OUT");
    std::vector<std::string> words{"--sheet", out};
    for (const char* const option : {"--scene", "--paper", "--resources"})
        if (arguments.has(option))
            words.insert(words.end(), {option, arguments.text(option)});
    words.insert(words.end(), {"--", in == "-" ? "/dev/stdin" : in});
    return {.run = [words] { return drawSheet(words); },
            .files = {bankToRead(in, "the bank that is to be drawn"),
                      {out, FileUse::Replaced, out + ": the sheet", "the sheet"}}};
}

namespace {

constexpr std::string_view kDevice = "device:";
constexpr int kExitDifferent = 1;

struct DiffOptions {
    std::string first;
    std::string second;
    bool isJson = false;
};

// Nothing when the error has been told.
std::optional<SceneList> scenesOf(const std::string& name) {
    if (name == kDevice) {
        ControllerRead read = readController(DeviceOperation::Compare);
        return read.exitCode == kExitDone ? std::move(read.scenes) : std::nullopt;
    }
    auto bank = loadBank(name);
    if (!bank) {
        reportError(bank.error(), kExitError);
        return std::nullopt;
    }
    return std::move(bank->scenes);
}

int diff(const DiffOptions& options) {
    if (inputDescriptor(options.first) &&
        inputDescriptor(options.first) == inputDescriptor(options.second))
        return reportError("standard input can be one of the two banks, not both", kExitError);
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitError);
    // What is wrong with a file is told before the controller is asked.
    const bool secondIsFile = options.second != kDevice;
    auto second = secondIsFile ? scenesOf(options.second) : std::nullopt;
    if (secondIsFile && !second)
        return kExitError;
    const auto first = scenesOf(options.first);
    if (!first)
        return kExitError;
    if (!secondIsFile)
        second = scenesOf(options.second);
    if (!second)
        return kExitError;
    const auto list = differences(**lists, *first, *second);
    return printAndEnd(options.isJson ? differencesJson(list) : differenceLines(list),
                       list.empty() ? kExitDone : kExitDifferent, kExitError);
}

std::vector<NamedFile> filesOf(const DiffOptions& options) {
    std::vector<NamedFile> files;
    for (const std::string& name : {options.first, options.second})
        if (name != kDevice)
            files.push_back(bankToRead(name, "a bank that is to be compared"));
    return files;
}

} // namespace

CommandChoice diffCommand(const Arguments& arguments) {
    const DiffOptions options{.first = arguments.text("A"),
                              .second = arguments.text("B"),
                              .isJson = arguments.has("--json")};
    return {.run = [options] { return diff(options); },
            .usesController = options.first == kDevice || options.second == kDevice,
            .files = filesOf(options),
            .failed = kExitError};
}

} // namespace scenewright
