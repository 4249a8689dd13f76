// Runs a program, or a copy of this one, and catches what it writes.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace scenewright::testing {

struct ProgramRun {
    int exitCode = -1; // 128 + the signal's number when a signal ended it
    int signal = 0;    // which ended it; 0 for none
    std::string output;
    std::string errors;
};

// One of the program's descriptors 0 to 2: an open one of the caller's, or closed. What goes to
// such a one is not caught.
struct GivenDescriptor {
    static constexpr int kClosed = -1;
    int number;
    int source;
};

// `command[0]` is the program's path. Standard input is empty unless given. Throws when it cannot
// be started.
[[nodiscard]] ProgramRun runProgram(const std::vector<std::string>& command,
                                    const std::vector<std::string>& environment = {},
                                    const std::vector<GivenDescriptor>& given = {});

// Runs `body` in a copy of this process, whose exit code is what it returns and whose output is
// what it writes to the descriptor that it is given. Signals that end a program do so in it.
[[nodiscard]] ProgramRun runForked(const std::function<int(int output)>& body);

} // namespace scenewright::testing
