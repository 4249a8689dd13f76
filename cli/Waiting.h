// How a command waits that goes on until there is nothing more to do, or a signal ends it.
#pragma once

#include "platform/Process.h"

#include <chrono>
#include <optional>

namespace scenewright {

// While it lives SIGINT, SIGTERM and SIGHUP end no program: they are told here. One that was
// ignored at the start stays ignored. Made before any thread starts.
class Waiting {
public:
    Waiting();

    struct Come {
        bool hasInput = false;
        bool hasLines = false;
        bool isToEnd = false; // by a signal
    };
    // Until one of the descriptors can be read, of which -1 is none, or the time has come.
    [[nodiscard]] Come
    wait(int input, int lines = -1,
         std::optional<std::chrono::steady_clock::time_point> until = std::nullopt) const;

private:
    FileDescriptor signals_;
};

} // namespace scenewright
