// The command line of scenewright-virtual.
#pragma once

#include "virtual/Fault.h"
#include "virtual/VirtualHost.h"

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace scenewright {

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

// `options` must outlive `app`. A value that cannot be taken is a parse error of one sentence.
void addProgramOptions(CLI::App& app, ProgramOptions& options);

} // namespace scenewright
