#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Transaction.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

namespace scenewright {

namespace {

int readToFile(const std::string& out) {
    if (const auto trouble = whyNotStorable(out))
        return reportError(*trouble, kExitUsage);
    const ControllerRead read = readController(DeviceOperation::SaveScenes);
    if (!read.scenes)
        return read.exitCode;
    const int stored = storeBank(out, *read.scenes, formForArgument(out, BankFormat::Image));
    return stored == kExitDone ? read.exitCode : stored;
}

constexpr const char* kReadFooter =
    "OUT is written only if every byte came from the controller, and then whole.\n\n"
    "Examples:\n"
    "  scenewright-cli read live.bank\n"
    "  scenewright-cli read live.json             to be read and changed with any editor of texts\n"
    "  scenewright-cli read - | scenewright-cli show -\n";

} // namespace

void addReadCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command = app.add_subcommand("read", "Read the four scenes from the controller");
    auto out = std::make_shared<std::string>();
    command->add_option("OUT", *out, kNewBankHelp)->required();
    command->footer(kReadFooter);
    command->callback([&choice, out] {
        choice = {[out] { return readToFile(*out); }, true, {bankToWrite(*out)}};
    });
}

} // namespace scenewright
