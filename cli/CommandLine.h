// What the arguments of scenewright-cli ask for. Parsing touches nothing: no file, no device.
#pragma once

#include "app/Launch.h"
#include "cli/Command.h"

#include <optional>
#include <string>

namespace scenewright {

// One of the three is there: work to do, an answer, or trouble.
struct CommandLine {
    LaunchOptions options;
    CommandChoice choice;
    // For standard output, and the program is done: help or version.
    std::optional<std::string> answer;
    // One sentence on what is wrong with the arguments.
    std::optional<std::string> trouble;
};

// `argv[0]` is the program's name, which is not looked at.
[[nodiscard]] CommandLine parseCommandLine(int argc, const char* const* argv);

} // namespace scenewright
