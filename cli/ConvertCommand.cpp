#include "cli/BankArgument.h"
#include "cli/Command.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <string>

namespace scenewright {

namespace {

struct ConvertOptions {
    std::string in;
    std::string out;
    std::optional<BankFormat> form;
};

BankFormat otherForm(BankFormat form) {
    return form == BankFormat::Image ? BankFormat::Json : BankFormat::Image;
}

int convert(const ConvertOptions& options) {
    const BankFile bank = loadBank(options.in);
    if (bank.trouble)
        return reportError(*bank.trouble, kExitUsage);
    const BankFormat form =
        options.form.value_or(formForArgument(options.out, otherForm(bank.form)));
    return storeBank(options.out, bank.scenes, form);
}

constexpr const char* kConvertFooter =
    "The bank is written as JSON when OUT ends in .json, else as an image; to standard output in\n"
    "the form that IN has not. Nothing is lost either way, names that are no text included.\n\n"
    "Examples:\n"
    "  scenewright-cli convert live.bank live.json\n"
    "  scenewright-cli convert live.json live.bank\n"
    "  scenewright-cli convert --to json live.bank - | less\n";

} // namespace

void addConvertCommand(CLI::App& app, CommandChoice& choice) {
    CLI::App* command =
        app.add_subcommand("convert", "Write a bank in the other form, JSON or image");
    auto options = std::make_shared<ConvertOptions>();
    command->add_option("IN", options->in, kBankHelp)->required();
    command->add_option("OUT", options->out, kNewBankHelp)->required();
    command
        ->add_option_function<std::string>(
            "--to",
            [options](const std::string& form) {
                options->form = form == "json" ? BankFormat::Json : BankFormat::Image;
            },
            "The form to write, whatever OUT is called")
        ->check(CLI::IsMember({"json", "image"}))
        ->option_text("json|image");
    command->footer(kConvertFooter);
    command->callback([&choice, options] {
        choice = {[options] { return convert(*options); },
                  false,
                  {bankToRead(options->in, "the bank that is to be converted"),
                   bankToWrite(options->out)}};
    });
}

} // namespace scenewright
