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
#include <filesystem>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

namespace scenewright {

namespace {

std::string json(const PopUpValue& lists, const SceneList& scenes, int only) {
    if (only == 0 && scenes.size() > 1)
        return writeBankJson(scenes, lists);
    return writeSceneJson(*scenes.at(static_cast<std::size_t>(std::max(only, 1)) - 1), lists);
}

int show(const Arguments& arguments) {
    const std::string in = arguments.text("IN");
    const int scene = arguments.number("--scene").value_or(0); // from 1; 0 is all
    const auto bank = loadBankOrScene(in);
    if (!bank)
        return reportError(bank.error(), kExitUsage);
    if (scene > static_cast<int>(bank->scenes.size()))
        return reportError(in + ": it is a file of one scene", kExitUsage);
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    return printAndEnd(arguments.has("--json")
                           ? json(**lists, bank->scenes, scene)
                           : sceneTables(**lists, bank->scenes, scene, arguments.has("--names")),
                       kExitDone);
}

BankFormat otherForm(BankFormat form) {
    return form == BankFormat::Image ? BankFormat::Json : BankFormat::Image;
}

int convert(const Arguments& arguments) {
    const std::string out = arguments.text("OUT");
    const std::string form = arguments.text("--to");
    const auto bank = loadBank(arguments.text("IN"));
    if (!bank)
        return reportError(bank.error(), kExitUsage);
    if (form.empty())
        return storeBank(out, bank->scenes, formForArgument(out, otherForm(bank->form)));
    return storeBank(out, bank->scenes, form == "json" ? BankFormat::Json : BankFormat::Image);
}

int writeDefaults(const Arguments& arguments) {
    const std::string out = arguments.text("OUT");
    const SceneList scenes = WindowAction::defaultScenes();
    if (const auto checked = checkDefaultScenes(scenes); !checked)
        return reportError(checked.error(), kExitUsage);
    return storeBank(out, scenes, formForArgument(out, BankFormat::Image));
}

constexpr int kExitFindings = 1;
constexpr int kExitError = 2; // with a stream's file or standard output too, as 1 means findings

int check(const Arguments& arguments) {
    const auto bank = loadShown(arguments.text("BANK"), &loadBankOrScene);
    if (!bank)
        return reportError(bank.error(), kExitError);
    const auto findings = findingsOf(*bank->lists, bank->scenes);
    return printAndEnd(arguments.has("--json") ? findingsJson(findings) : findingLines(findings),
                       findings.empty() ? kExitDone : kExitFindings, kExitError);
}

// Becomes the program beside this one; returns only when it cannot.
int drawSheet(const Arguments& arguments) {
    std::error_code error;
    const std::string name =
        std::filesystem::read_symlink("/proc/self/exe", error).parent_path() / "scenewright";
    const std::string in = arguments.text("IN");
    std::vector<std::string> words{name, "--sheet", arguments.text("OUT")};
    for (const char* const option : {"--scene", "--paper", "--resources"})
        if (arguments.has(option))
            words.insert(words.end(), {option, arguments.text(option)});
    words.insert(words.end(), {"--", in == "-" ? "/dev/stdin" : in});
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    ::execv(name.c_str(), pointers.data());
    return reportError(fmt::format("{}: the window's program, which draws sheets, cannot be "
                                   "started: {}",
                                   name, systemText()),
                       kExitOutput);
}

} // namespace

CommandChoice showCommand(const Arguments& arguments) {
    return {.run = &show,
            .files = {bankToRead(arguments.text("IN"), "the bank that is to be shown")}};
}

CommandChoice convertCommand(const Arguments& arguments) {
    return {.run = &convert,
            .files = {bankToRead(arguments.text("IN"), "the bank that is to be converted"),
                      bankToWrite(arguments.text("OUT"))}};
}

CommandChoice defaultCommand(const Arguments& arguments) {
    return {.run = &writeDefaults, .files = {bankToWrite(arguments.text("OUT"))}};
}

CommandChoice checkCommand(const Arguments& arguments) {
    return {.run = &check,
            .files = {bankToRead(arguments.text("BANK"), "the bank that is to be checked")},
            .failed = kExitError};
}

CommandChoice sheetCommand(const Arguments& arguments) {
    const std::string out = arguments.text("OUT");
    return {.run = &drawSheet,
            .files = {bankToRead(arguments.text("IN"), "the bank that is to be drawn"),
                      {out, FileUse::Replaced, out + ": the sheet", "the sheet"}}};
}

namespace {

constexpr std::string_view kDevice = "device:";
constexpr int kExitDifferent = 1;

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

int diff(const Arguments& arguments) {
    const std::string a = arguments.text("A");
    const std::string b = arguments.text("B");
    if (inputDescriptor(a) && inputDescriptor(a) == inputDescriptor(b))
        return reportError("standard input can be one of the two banks, not both", kExitError);
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitError);
    // What is wrong with a file is told before the controller is asked.
    const bool secondIsFile = b != kDevice;
    auto second = secondIsFile ? scenesOf(b) : std::nullopt;
    if (secondIsFile && !second)
        return kExitError;
    const auto first = scenesOf(a);
    if (!first)
        return kExitError;
    if (!secondIsFile)
        second = scenesOf(b);
    if (!second)
        return kExitError;
    const auto list = differences(**lists, *first, *second);
    return printAndEnd(arguments.has("--json") ? differencesJson(list) : differenceLines(list),
                       list.empty() ? kExitDone : kExitDifferent, kExitError);
}

} // namespace

CommandChoice diffCommand(const Arguments& arguments) {
    CommandChoice choice{.run = &diff, .failed = kExitError};
    for (const char* const place : {"A", "B"})
        if (const std::string name = arguments.text(place); name == kDevice)
            choice.usesController = true;
        else
            choice.files.push_back(bankToRead(name, "a bank that is to be compared"));
    return choice;
}

} // namespace scenewright
