// The command diff: two banks, or one and what the controller holds, setting by setting.
#include "bank/Difference.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Transaction.h"
#include "model/PopUpValue.h"

#include <optional>
#include <string>
#include <vector>

namespace scenewright {

namespace {

constexpr std::string_view kDevice = "device:";
constexpr int kExitDifferent = 1;
constexpr int kExitError = 2; // of any kind, as 1 has a meaning of its own here

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
