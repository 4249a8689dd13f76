#include "bank/Difference.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Transaction.h"
#include "model/PopUpValue.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace scenewright {

namespace {

constexpr std::string_view kDevice = "device:";
constexpr int kExitDifferent = 1;
constexpr int kExitTrouble = 2; // of any kind, as 1 has a meaning of its own here

struct DiffOptions {
    std::string first;
    std::string second;
    bool isJson = false;
};

// Nothing when the trouble has been told.
std::optional<SceneList> scenesOf(const std::string& name) {
    if (name == kDevice) {
        ControllerRead read = readController(DeviceOperation::Compare);
        return read.exitCode == kExitDone ? std::move(read.scenes) : std::nullopt;
    }
    BankFile bank = loadBank(name);
    if (bank.trouble) {
        reportError(*bank.trouble, kExitTrouble);
        return std::nullopt;
    }
    return std::move(bank.scenes);
}

int diff(const DiffOptions& options) {
    if (inputDescriptor(options.first) &&
        inputDescriptor(options.first) == inputDescriptor(options.second))
        return reportError("standard input can be one of the two banks, not both", kExitTrouble);
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitTrouble);
    // A file's trouble is told before the controller is asked.
    const bool secondIsFile = options.second != kDevice;
    auto second = secondIsFile ? scenesOf(options.second) : std::nullopt;
    if (secondIsFile && !second)
        return kExitTrouble;
    const auto first = scenesOf(options.first);
    if (!first)
        return kExitTrouble;
    if (!secondIsFile)
        second = scenesOf(options.second);
    if (!second)
        return kExitTrouble;
    const auto list = differences(**lists, *first, *second);
    return printAndEnd(options.isJson ? differencesJson(list) : differenceLines(list),
                       list.empty() ? kExitDone : kExitDifferent, kExitTrouble);
}

std::vector<NamedFile> filesOf(const DiffOptions& options) {
    std::vector<NamedFile> files;
    for (const std::string& name : {options.first, options.second})
        if (name != kDevice)
            files.push_back(bankToRead(name, "a bank that is to be compared"));
    return files;
}

constexpr const char* kDiffFooter =
    "Prints a line for each setting that differs: its path, its name in words, and its value in A\n"
    "and in B. With --json an array of objects: path, words, first and second.\n\n"
    "Exit code: 0 no difference; 1 differences; 2 trouble, that with the controller included.\n\n"
    "Examples:\n"
    "  scenewright-cli diff monday.bank friday.json\n"
    "  scenewright-cli diff device: live.bank     what a send would change\n";

} // namespace

void addDiffCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command = app.add_subcommand("diff", "List the settings in which two banks differ");
    auto options = std::make_shared<DiffOptions>();
    command->add_option("A", options->first, "A bank, or device: for what the controller holds")
        ->required();
    command->add_option("B", options->second, "The bank to compare it with, or device:")
        ->required();
    command->add_flag("--json", options->isJson, "As a JSON text instead of lines");
    command->footer(kDiffFooter);
    command->callback([&choice, options] {
        const bool usesController = options->first == kDevice || options->second == kDevice;
        choice = {.run = [options] { return diff(*options); },
                  .usesController = usesController,
                  .files = filesOf(*options),
                  .failed = kExitTrouble};
    });
}

} // namespace scenewright
