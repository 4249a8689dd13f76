#include "tests/protocol/DeviceBench.h"

#include "protocol/Transactions.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iterator>
#include <string_view>

namespace scenewright::testing {

namespace {

constexpr std::string_view kMessage = "message ";

} // namespace

void DeviceBench::SetUp() {
    TransportFixture::SetUp();
    Transport::instance().use(makeScriptedHost(script), [this](std::chrono::nanoseconds pause) {
        pauses.push_back(pause);
        if (onPause)
            onPause();
    });
    Progress::forget();
    observed_ =
        Progress::record()->addObserver("Message", [this](auto, const MessageValue::Text& text) {
            messages.push_back(text.value());
            script->note(std::string(kMessage) + text.value());
        });
}

void DeviceBench::TearDown() {
    SendJob::waitForEnd();
    SendJob::join();
    TransportFixture::TearDown();
    Progress::forget();
}

Lines DeviceBench::withoutMessages() const {
    Lines lines = script->events;
    std::erase_if(lines, [](const std::string& line) { return line.starts_with(kMessage); });
    return lines;
}

Lines DeviceBench::told() const {
    Lines lines;
    std::ranges::copy_if(script->events, std::back_inserter(lines), [](const std::string& line) {
        return line.starts_with("log ") || line.starts_with(kMessage);
    });
    return lines;
}

std::string dumpOf(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        std::array<char, 4> piece{};
        std::snprintf(piece.data(), piece.size(), "%02x ", byte);
        text += piece.data();
    }
    return text;
}

void ExpectedStreams::connect() {
    events.insert(events.end(), {"canMatch 1209 0001",
                                 "devices any any",
                                 "prepare one",
                                 "vendor one",
                                 "product one",
                                 "console Found device (vendor 4617, product 1)\n",
                                 "console list index:0 (vendor 4617, product 1)\n",
                                 "console get it",
                                 "interface one 1",
                                 "interfaceClass one/1",
                                 "console Interface class 1, subclass 3\n",
                                 "open one/1",
                                 "endpointCount one/1",
                                 "console Interface has 2 endpoints\n",
                                 "pipeProperties one/1 1",
                                 "console PipeRef 1:",
                                 "console direction in,",
                                 "console transfer type bulk, maxPacketSize 64\n",
                                 "pipeProperties one/1 2",
                                 "console PipeRef 2:",
                                 "console direction out,",
                                 "console transfer type bulk, maxPacketSize 64\n"});
}

void ExpectedStreams::handshake(const Bytes& reply) {
    say("开始握手协议");
    events.emplace_back("open one/1");
    write({0x09, 0x9C, 0x01, 0x02});
    write({0x09, 0x9C, 0x7E, 0x7D});
    readVersion(reply);
    std::string version = "version    " + dumpOf(std::span(reply).first<11>());
    version.pop_back();
    say(version);
    say("handshake yes");
}

void ExpectedStreams::write(const Bytes& packet) {
    say("sleep(0.001)");
    const std::string dump = dumpOf(packet);
    events.push_back("write one/1 2 " + dump.substr(0, dump.size() - 1));
    say(dump);
    print("Wrote " + std::to_string(packet.size()) + " bytes to bulk endpoint\n");
}

void ExpectedStreams::receive(const Bytes& transfer) {
    events.emplace_back("read one/1 1 63");
    std::ranges::copy(transfer, buffer_.begin());
}

void ExpectedStreams::printText(const Bytes& transfer) {
    const std::string text(buffer_.begin(), std::ranges::find(buffer_, 0));
    print("Read \"" + text + "\" (" + std::to_string(transfer.size()) +
          " bytes) from bulk endpoint\n");
}

void ExpectedStreams::readVersion(const Bytes& transfer) {
    receive(transfer);
    printText(transfer);
    say("readversion  " + dumpOf(buffer_));
}

void ExpectedStreams::readData(const Bytes& transfer) {
    receive(transfer);
    print("Read " + std::to_string(transfer.size()) + " bytes from bulk endpoint\n");
    say("ReadDataFromDevice  " + dumpOf(buffer_));
}

void ExpectedStreams::read(const Bytes& transfer) {
    receive(transfer);
    printText(transfer);
    say(dumpOf(buffer_));
}

} // namespace scenewright::testing
