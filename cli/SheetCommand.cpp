// The command that puts scenes on paper: sheet. The window's program draws them.
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "platform/Process.h"

#include <fmt/format.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

namespace scenewright {

namespace {

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

} // namespace scenewright
