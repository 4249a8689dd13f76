// What is done to the controller while it runs, said in lines of text.
#pragma once

#include "platform/Text.h"
#include "virtual/Playing.h"
#include "virtual/VirtualController.h"

#include <cstdint>
#include <string_view>

namespace scenewright::usbip {

// "faults KIND:N ..." (in place of those there are; none after the word ends them), "unplug",
// "plug", and what parsePlayOrder() reads.
struct ServerCommand {
    enum class Kind : std::uint8_t { Faults, Unplug, Plug, Play };
    Kind kind = Kind::Faults;
    FaultPlan faults{};
    PlayOrder play{};
    friend bool operator==(const ServerCommand&, const ServerCommand&) = default;
};

[[nodiscard]] Result<ServerCommand> parseCommand(std::string_view line);

} // namespace scenewright::usbip
