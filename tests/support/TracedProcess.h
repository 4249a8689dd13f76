// A process whose system calls on the files of one folder are written down, and that is killed, or
// fails, at one of them. It is a child of the test, traced by it, which needs no privilege. Linux
// on x86-64. One at a time, on the thread that calls.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace scenewright::testing {

// One system call that touches the folder or what lies in it. Paths are relative to the folder, "."
// for itself; a temporary file's name, which differs from run to run, is "(temporary)".
struct FileCall {
    std::string name;
    std::string path;
    std::string target; // of a rename

    friend bool operator==(const FileCall&, const FileCall&) = default;
};

// What happens at the call of that number, from 0.
struct Blow {
    enum class Kind : std::uint8_t {
        None,
        KillBefore, // SIGKILL, and the call is not made
        KillAfter,  // the call is made, and SIGKILL before the process learns of it
        Fail,       // the call is not made and gives `error`
        CutShort,   // a write takes half of its bytes; any other call is made as it is
    };
    Kind kind = Kind::None;
    std::size_t call = 0;
    int error = 0; // an errno
};

struct TracedRun {
    std::vector<FileCall> calls;
    bool isKilled = false;
    int exitCode = -1;  // unless it was killed
    std::string errors; // what it wrote to standard error
};

// Runs `body` in a copy of this process, which then ends with 0; the text it gives is written to
// standard error.
[[nodiscard]] TracedRun runTraced(const std::filesystem::path& folder,
                                  const std::function<std::string()>& body, const Blow& blow = {});

// The same for a program; `command[0]` is its path. It does not sleep: its pauses end at once.
[[nodiscard]] TracedRun runTraced(const std::filesystem::path& folder,
                                  const std::vector<std::string>& command, const Blow& blow = {});

} // namespace scenewright::testing
