// Runs a program and catches what it writes.
#pragma once

#include <string>
#include <vector>

namespace scenewright::testing {

struct ProgramRun {
    int exitCode = -1; // 128 + the signal's number when a signal ended it
    std::string output;
    std::string errors;
};

// `command[0]` is the program's path. Standard input is empty. Throws when it cannot be started.
[[nodiscard]] ProgramRun runProgram(const std::vector<std::string>& command,
                                    const std::vector<std::string>& environment = {});

} // namespace scenewright::testing
