// The command line of scenewright-virtual.
#pragma once

#include "virtual/Fault.h"
#include "virtual/VirtualHost.h"

#include <optional>
#include <string>

namespace scenewright {

inline constexpr const char* kVirtualProgram = "scenewright-virtual";

struct ProgramOptions {
    std::string listen = "127.0.0.1:3240";
    std::optional<std::uint32_t> vhciPort; // instead of listening
    std::string bank;                      // file; empty keeps the memory in memory
    FaultPlan faults;
    bool takesOrders = false; // from standard input
    std::string trace;        // file, "-" for standard output; empty for none
    std::string resources;
    VirtualIdentity identity;
};

// What the arguments ask for; one of the three is there.
struct ProgramLine {
    std::optional<ProgramOptions> options;
    // For standard output, and the program is done: help or version.
    std::optional<std::string> answer;
    // One sentence on what is wrong with the arguments.
    std::optional<std::string> trouble;
};

// Touches nothing but its arguments; `argv[0]` is the program's name, which is not looked at.
[[nodiscard]] ProgramLine parseProgramLine(int argc, const char* const* argv);

} // namespace scenewright
