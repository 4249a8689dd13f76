// What can be made to go wrong with the virtual controller, on order.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

struct Fault {
    enum class Kind : std::uint8_t {
        WrongHandshake, // the first `count` handshake replies are wrong
        NoAnswer,       // the controller never answers anything after transfer `count`
        ShortTransfer,  // data reply `count` (from 0) has 2 bytes
        WrongNibble,    // data reply `count` carries a nibble above 0x0F
        FailedWrite,    // every write after packet `count` fails
        Unplug,         // the controller leaves the bus at data byte `count`
        Stall,          // the pipe halts at data byte `count`
    };
    Kind kind;
    std::uint32_t count = 0;
    friend bool operator==(const Fault&, const Fault&) = default;
};

using FaultPlan = std::vector<Fault>;

// Reads "handshake:3", "silent:0", "short:7", "nibble:7", "write:12", "unplug:500", "stall:9".
// Nothing, and one sentence in `trouble`, for anything else.
[[nodiscard]] std::optional<Fault> parseFault(std::string_view text, std::string& trouble);

} // namespace scenewright
