// What the two diagnostic streams must hold after a conversation, put together transfer by transfer
// from the texts that each transfer owes them. Shares no code with what it checks.
#pragma once

#include "tests/protocol/DeviceTest.h"

#include <array>
#include <cstdint>
#include <span>

namespace scenewright::testing {

// "09 9c 01 02 " for four bytes.
[[nodiscard]] std::string dumpOf(std::span<const std::uint8_t> bytes);

class ExpectedStreams {
public:
    // Finding the scripted device, and taking its second interface.
    void connect();
    // The handshake of a controller that answers rightly at once.
    void handshake(const Bytes& reply);

    void write(const Bytes& packet);
    void readVersion(const Bytes& transfer);
    void readData(const Bytes& transfer);
    void read(const Bytes& transfer);
    void say(const std::string& logLine) { log.push_back(logLine); }

    Lines log;
    Lines console;

private:
    void receive(const Bytes& transfer);
    void printText(const Bytes& transfer);

    std::array<std::uint8_t, 64> buffer_{};
};

} // namespace scenewright::testing
