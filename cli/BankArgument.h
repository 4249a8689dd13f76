// A bank as the command line names it: a file, or "-" for standard input or output. A name that
// stands for a descriptor (/dev/stdout, /dev/fd/3) is that descriptor.
#pragma once

#include "bank/BankFile.h"
#include "model/PopUpValue.h"
#include "platform/Files.h"
#include "platform/Text.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace scenewright {

// The descriptor that is read or written in place of a file; nothing for a file.
[[nodiscard]] std::optional<int> inputDescriptor(const std::string& name);
[[nodiscard]] std::optional<int> outputDescriptor(const std::string& name);

// A command's files, to be compared before any is opened; `content` as in "the bank to be shown".
[[nodiscard]] NamedFile bankToRead(const std::string& name, const std::string& content);
[[nodiscard]] NamedFile bankToWrite(const std::string& name);
[[nodiscard]] NamedFile bankToChange(const std::string& name);

// As readBank(); standard input is read to its end, and called so in the error. A pipe that nobody
// writes to is waited for, and that is told.
[[nodiscard]] Result<BankFile> loadBank(const std::string& name);

// The same for a bank, or for a file of one scene, which gives one.
[[nodiscard]] Result<BankFile> loadBankOrScene(const std::string& name);

// What is to be told of a bank, and the option lists that have the words for it.
struct ShownBank {
    SceneList scenes;
    std::shared_ptr<PopUpValue> lists;
};
// `load` is one of the two above. The bank comes first, in errors too.
[[nodiscard]] Result<ShownBank> loadShown(const std::string& name,
                                          Result<BankFile> (*load)(const std::string& name));

// The form for a new bank: what the file's name asks for, or `streamForm` for a descriptor.
[[nodiscard]] BankFormat formForArgument(const std::string& name, BankFormat streamForm);

// Each tells its error and gives the exit code, kExitDone when all is written; else a file is what
// it was.
[[nodiscard]] int storeBank(const std::string& name, const SceneList& scenes, BankFormat form);
// Reads, changes and stores a bank in its form, without another writer of ours in between.
using BankEdit = std::function<Result<SceneList>(const BankFile& former)>;
[[nodiscard]] int changeBank(const std::string& name, const BankEdit& edit);
// The same with the option lists; once the bank is stored, standard error tells each changed
// setting, former and new.
using ScenesEdit =
    std::function<Result<SceneList>(const PopUpValue& lists, const SceneList& scenes)>;
[[nodiscard]] int changeBankAndTell(const std::string& name, const ScenesEdit& edit);

// Whether storeBank() could begin, asked before work that would be lost.
[[nodiscard]] Result<void> checkStorable(const std::string& name);

// Writes to standard output, for a command that ends with it: tells the error and gives the exit
// code, `done` or `failed`.
[[nodiscard]] int printAndEnd(std::string_view text, int done, int failed = 1);

} // namespace scenewright
