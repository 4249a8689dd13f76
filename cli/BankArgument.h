// A bank as the command line names it: a file, or "-" for standard input or output.
#pragma once

#include "bank/BankFile.h"

#include <optional>
#include <string>
#include <string_view>

namespace scenewright {

[[nodiscard]] bool isStream(std::string_view name);

// As readBank(); standard input is read to its end, and called so in the trouble.
[[nodiscard]] BankFile loadBank(const std::string& name);

// The same for a bank, or for a file of one scene, which gives one.
[[nodiscard]] BankFile loadBankOrScene(const std::string& name);

// The form for a new bank: what the file's name asks for, or `streamForm` for "-".
[[nodiscard]] BankForm formForArgument(const std::string& name, BankForm streamForm);

// Nothing, or one sentence that names what could not be written; a file is then what it was.
[[nodiscard]] std::optional<std::string> storeBank(const std::string& name, const SceneList& scenes,
                                                   BankForm form);
// The same, asked before work that would be lost.
[[nodiscard]] std::optional<std::string> whyNotStorable(const std::string& name);

// Writes to standard output; nothing, or one sentence.
[[nodiscard]] std::optional<std::string> printOut(std::string_view text);
// The same for a command that ends with it: tells the trouble and gives the exit code, `done` or
// that of a bad file.
[[nodiscard]] int printAndEnd(std::string_view text, int done);

} // namespace scenewright
