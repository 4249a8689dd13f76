// What can be made to go wrong with the virtual controller, on order.
//
// Counts start when the controller is plugged in. A data byte is one byte of the bank on the wire,
// in either direction: a reply to a read next, or a data packet of a send.
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
        NoAnswer,       // after `count` replies the controller never answers again
        ShortTransfer,  // data reply `count` (from 0) has 2 bytes
        WrongNibble,    // data reply `count` carries a low nibble above 0x0F
        FailedWrite,    // every write after `count` packets fails
        Unplug,         // at data byte `count` the controller leaves the bus, once
        Stall,          // at data byte `count` the pipe that carries it halts
    };
    Kind kind = Kind::WrongHandshake;
    std::uint32_t count = 0;
    friend bool operator==(const Fault&, const Fault&) = default;
};

using FaultPlan = std::vector<Fault>;

// Reads "handshake:3", "silent:0", "short:7", "nibble:7", "write:12", "unplug:500", "stall:9".
// Nothing, and one sentence in `trouble`, for anything else.
[[nodiscard]] std::optional<Fault> parseFault(std::string_view text, std::string& trouble);

} // namespace scenewright
