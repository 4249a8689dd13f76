#include "tests/protocol/ExpectedStreams.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <span>
#include <string>

namespace scenewright::testing {

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
    console.insert(console.end(),
                   {"Found device (vendor 4617, product 1)\n",
                    "list index:0 (vendor 4617, product 1)\n", "get it",
                    "Interface class 1, subclass 3\n", "Interface has 2 endpoints\n",
                    "PipeRef 1:", "direction in,", "transfer type bulk, maxPacketSize 64\n",
                    "PipeRef 2:", "direction out,", "transfer type bulk, maxPacketSize 64\n"});
}

void ExpectedStreams::handshake(const Bytes& reply) {
    say("开始握手协议");
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
    say(dumpOf(packet));
    console.push_back("Wrote " + std::to_string(packet.size()) + " bytes to bulk endpoint\n");
}

void ExpectedStreams::receive(const Bytes& transfer) {
    std::ranges::copy(transfer, buffer_.begin());
}

void ExpectedStreams::printText(const Bytes& transfer) {
    const std::string text(buffer_.begin(), std::ranges::find(buffer_, 0));
    console.push_back("Read \"" + text + "\" (" + std::to_string(transfer.size()) +
                      " bytes) from bulk endpoint\n");
}

void ExpectedStreams::readVersion(const Bytes& transfer) {
    receive(transfer);
    printText(transfer);
    say("readversion  " + dumpOf(buffer_));
}

void ExpectedStreams::readData(const Bytes& transfer) {
    receive(transfer);
    console.push_back("Read " + std::to_string(transfer.size()) + " bytes from bulk endpoint\n");
    say("ReadDataFromDevice  " + dumpOf(buffer_));
}

void ExpectedStreams::read(const Bytes& transfer) {
    receive(transfer);
    printText(transfer);
    say(dumpOf(buffer_));
}

} // namespace scenewright::testing
