// The command line of scenewright-virtual.
#pragma once

#include "platform/Arguments.h"
#include "platform/Text.h"
#include "virtual/VirtualController.h"
#include "virtual/VirtualHost.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace scenewright {

inline constexpr const char* kVirtualProgram = "scenewright-virtual";

struct ProgramOptions {
    std::string listen;                    // address and port
    std::optional<std::uint32_t> vhciPort; // instead of listening
    std::string bank;                      // file; empty keeps the memory in memory
    FaultPlan faults;
    bool takesOrders = false; // from standard input
    std::string trace;        // file, "-" for standard output; empty for none
    std::string resources;
    VirtualIdentity identity;
};

// What the arguments ask for: to serve, or a text for standard output (help or version) and no
// more.
using ProgramLine = std::variant<ProgramOptions, std::string>;

// Touches nothing but its arguments; `argv[0]` is the program's name, which is not looked at.
[[nodiscard]] Result<ProgramLine> parseProgramLine(int argc, const char* const* argv);

// Made from command-line.json.
[[nodiscard]] Syntax virtualSyntax();

} // namespace scenewright
