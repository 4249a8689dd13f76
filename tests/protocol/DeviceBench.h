// The ground of the tests that talk to a device: the transport's, with a fake controller behind the
// scripted host, a pause that is only counted, and what the progress record tells. Beside it, what
// such a conversation must hold.
#pragma once

#include "model/MessageValue.h"
#include "tests/protocol/FakeController.h"
#include "tests/support/NoMoreThreads.h"
#include "tests/usb/TransportFixture.h"

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace scenewright::testing {

using Lines = std::vector<std::string>;

class DeviceBench : public TransportFixture {
protected:
    void SetUp() override;
    // Waits for a send job that the test left running.
    void TearDown() override;

    // The host's calls and both streams, in the order in which they came.
    [[nodiscard]] Lines withoutMessages() const;
    // The log and the messages as they came: "log TEXT", "message TEXT".
    [[nodiscard]] Lines told() const;
    // The packets written, "09 9c 01 02" each.
    [[nodiscard]] Lines written() const { return script->written(); }

    FakeController controller{script};
    // Called on each pause, on the thread that pauses; the pauses are counted in any case.
    std::function<void()> onPause;
    Lines messages; // every text of the progress record's Message

private:
    MessageValue::Subscription observed_;
};

// "09 9c 01 02 " for four bytes.
[[nodiscard]] std::string dumpOf(std::span<const std::uint8_t> bytes);

// What the host is asked and what the two diagnostic streams must hold in a conversation, in one
// order, put together transfer by transfer. Shares no code with what it checks.
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
