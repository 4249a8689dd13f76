#include "cli/BankArgument.h"

#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "bank/Findings.h"
#include "cli/Command.h"
#include "model/PopUpValue.h"
#include "platform/Files.h"
#include "platform/Process.h"

#include <fmt/format.h>

#include <cstdint>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

constexpr const char* kStandardInput = "standard input";

std::optional<int> descriptorOf(const std::string& name, int standard) {
    return name == "-" ? standard : namedDescriptor(name);
}

std::string inputName(const std::string& name) {
    return inputDescriptor(name) == STDIN_FILENO ? kStandardInput : name;
}

Result<FileContent> readDescriptor(int fd, const std::string& name) {
    auto bytes = readFully(fd, kJsonBytes);
    if (!bytes)
        return failure(fmt::format("{} could not be read", name));
    if (bytes->size() > kJsonBytes)
        return failure(fmt::format("{}: it is longer than {} bytes", name, kJsonBytes));
    return *std::move(bytes);
}

Result<FileContent> readArgument(const std::string& name) {
    if (const auto fd = inputDescriptor(name))
        return readDescriptor(*fd, inputName(name));
    return readFile(name, kJsonBytes, [&name] {
        reportError(name + ": waiting for a writer of this pipe (Ctrl+C stops)", kExitDone);
    });
}

using Parse = Result<BankFile> (*)(std::span<const std::uint8_t> bytes, const std::string& name);

Result<BankFile> load(const std::string& name, Parse parse) {
    return readArgument(name).and_then(
        [&](const FileContent& bytes) { return parse(bytes, inputName(name)); });
}

int storeToDescriptor(int fd, const std::string& name, std::span<const std::uint8_t> bytes) {
    if (fd == STDOUT_FILENO)
        return printAndEnd(asText(bytes), kExitDone);
    if (const int error = writeFully(fd, asText(bytes)); error != 0)
        return reportError(fmt::format("Cannot write {}: {}.", name, systemText(error)),
                           kExitOutput);
    return kExitDone;
}

int endOf(const std::string& name, const Result<Replaced>& replaced) {
    if (!replaced)
        return reportError(replaced.error(), kExitUsage);
    // The bank is written: this is no error, but nobody would expect it.
    if (replaced->otherNames == 1)
        reportError(name + " had 2 names; the other one keeps the former content", kExitDone);
    else if (replaced->otherNames > 1)
        reportError(fmt::format("{} had {} names; the others keep the former content", name,
                                replaced->otherNames + 1),
                    kExitDone);
    return kExitDone;
}

// An image holds no titles.
Result<std::shared_ptr<PopUpValue>> listsFor(BankFormat form) {
    if (form == BankFormat::Json)
        return readPopUpValue();
    return std::make_shared<PopUpValue>();
}

int changeStream(const std::string& name, const BankEdit& edit) {
    const auto bank = loadBank(name);
    if (!bank)
        return reportError(bank.error(), kExitUsage);
    const auto scenes = edit(*bank);
    if (!scenes)
        return reportError(scenes.error(), kExitUsage);
    return storeBank("-", *scenes, bank->form);
}

} // namespace

std::optional<int> inputDescriptor(const std::string& name) {
    return descriptorOf(name, STDIN_FILENO);
}

std::optional<int> outputDescriptor(const std::string& name) {
    return descriptorOf(name, STDOUT_FILENO);
}

NamedFile bankToRead(const std::string& name, const std::string& content) {
    return {name, FileUse::Read, {}, content};
}

NamedFile bankToWrite(const std::string& name) {
    return {name, FileUse::Replaced, (name == "-" ? "standard output" : name) + ": it",
            "the bank that is to be written"};
}

NamedFile bankToChange(const std::string& name) {
    // A stream is only read here: what is written is another one.
    return {name, inputDescriptor(name) ? FileUse::Read : FileUse::Replaced, name + ": it",
            "the bank that is to be changed"};
}

Result<BankFile> loadBank(const std::string& name) {
    return load(name, &parseBank);
}

Result<BankFile> loadBankOrScene(const std::string& name) {
    return load(name, &parseBankOrScene);
}

Result<ShownBank> loadShown(const std::string& name,
                            Result<BankFile> (*load)(const std::string& name)) {
    return load(name).and_then([](BankFile bank) {
        return readPopUpValue().map([&bank](std::shared_ptr<PopUpValue> lists) {
            return ShownBank{std::move(bank.scenes), std::move(lists)};
        });
    });
}

BankFormat formForArgument(const std::string& name, BankFormat streamForm) {
    return outputDescriptor(name) ? streamForm : formatForName(name);
}

int storeBank(const std::string& name, const SceneList& scenes, BankFormat form) {
    const auto lists = listsFor(form);
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    const std::vector<std::uint8_t> bytes = bankBytes(scenes, form, **lists);
    if (const auto fd = outputDescriptor(name))
        return storeToDescriptor(*fd, name, bytes);
    return endOf(name, replaceFile(name, bytes));
}

int changeBank(const std::string& name, const BankEdit& edit) {
    if (inputDescriptor(name))
        return changeStream(name, edit);
    const FileChange change = [&](const FileContent& bytes) -> Result<FileContent> {
        const auto bank = parseBank(bytes, name);
        if (!bank)
            return failure(bank.error());
        const auto lists = listsFor(bank->form);
        if (!lists)
            return failure(lists.error());
        return edit(*bank).map(
            [&](const SceneList& scenes) { return bankBytes(scenes, bank->form, **lists); });
    };
    return endOf(name, changeFile(name, kJsonBytes, change));
}

int changeBankAndTell(const std::string& name, const ScenesEdit& edit) {
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    std::string told;
    const int exitCode = changeBank(name, [&](const BankFile& bank) {
        return edit(**lists, bank.scenes).map([&](SceneList scenes) {
            told = changeLines(differences(**lists, bank.scenes, scenes));
            return scenes;
        });
    });
    if (exitCode == kExitDone)
        writeStandardError(told);
    return exitCode;
}

Result<void> checkStorable(const std::string& name) {
    if (const auto lists = listsFor(formForArgument(name, BankFormat::Image)); !lists)
        return failure(lists.error());
    return outputDescriptor(name) ? Result<void>{} : checkReplaceable(name);
}

int printAndEnd(std::string_view text, int done, int failed) {
    if (const auto printed = writeStandardOutput(text); !printed)
        return reportError(printed.error(), failed);
    return done;
}

} // namespace scenewright
