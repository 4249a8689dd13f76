// What is done to the controller while it runs, said in lines of text.
#pragma once

#include "platform/Result.h"
#include "virtual/Playing.h"
#include "virtual/VirtualController.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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

// The commands that come from a descriptor, which stays the caller's.
class CommandReader {
public:
    // -1 gives none ever.
    explicit CommandReader(int descriptor = -1) : descriptor_(descriptor) {}

    // To be waited for; -1 once the input has ended.
    [[nodiscard]] int descriptor() const noexcept { return descriptor_; }
    // What the lines say that are whole after one read; blocks unless the descriptor is ready. The
    // end of the input ends its last line.
    [[nodiscard]] std::vector<Result<ServerCommand>> take();

private:
    [[nodiscard]] Result<ServerCommand> endLine();

    int descriptor_;
    std::string begun_; // a line whose end has not come
    bool isTooLong_ = false;
};

} // namespace scenewright::usbip
