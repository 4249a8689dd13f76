// Which system calls touch a file, and which one, seen from the process that traces the caller.
#pragma once

#include "tests/support/TracedProcess.h"

#include <array>
#include <optional>
#include <sys/types.h>

namespace scenewright::testing {

// A system call at its beginning.
struct RawCall {
    pid_t thread = 0;
    std::uint64_t number = 0;
    std::array<std::uint64_t, 6> arguments{};
};

// Nothing for a call that touches nothing in `folder`, an absolute path.
[[nodiscard]] std::optional<FileCall> fileCallIn(const std::filesystem::path& folder,
                                                 const RawCall& call);

} // namespace scenewright::testing
