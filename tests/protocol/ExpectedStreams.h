// What the host is asked and what the two diagnostic streams must hold in a conversation, in one
// order, put together transfer by transfer. Shares no code with what it checks.
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
    void say(const std::string& logLine) { events.push_back("log " + logLine); }
    void print(const std::string& text) { events.push_back("console " + text); }

    // "log LINE", "console TEXT", and the host's calls as ScriptedHost.h writes them.
    Lines events;

private:
    void receive(const Bytes& transfer);
    void printText(const Bytes& transfer);

    std::array<std::uint8_t, 64> buffer_{};
};

} // namespace scenewright::testing
