// A host's side of the conversation in as few words as possible, for tests of the controller.
#pragma once

#include "virtual/VirtualController.h"

#include <gtest/gtest.h>

#include <vector>

namespace scenewright::testing {

using Bytes = std::vector<std::uint8_t>;
using Pipe = VirtualController::Pipe;
using WriteResult = VirtualController::WriteResult;

inline const Bytes kNothing;
inline const Bytes kHandshakeReply{0x09, 0x9C, 0x01, 0x02, 0x09, 0x9C,
                                   0x01, 0x38, 0x09, 0x9C, 0x00, 0x01};

// Byte n of the bank is n modulo 128.
inline BankImage countingBank() {
    BankImage bank{};
    for (std::size_t index = 0; index < bank.size(); ++index)
        bank[index] = static_cast<std::uint8_t>(index % 128);
    return bank;
}

inline Bytes dataPacket(unsigned byte) {
    return {0x09, 0x90, static_cast<std::uint8_t>(byte / 16), static_cast<std::uint8_t>(byte % 16)};
}

class ControllerDriver {
public:
    explicit ControllerDriver(FaultPlan faults = {}, const BankImage& bank = countingBank())
        : controller(bank, std::move(faults)) {}

    WriteResult write(const Bytes& bytes) { return controller.receive(bytes); }
    // What the controller gives after a write; nothing is an empty transfer.
    Bytes ask(const Bytes& bytes) {
        write(bytes);
        return reply();
    }
    Bytes reply() { return controller.nextReply().value_or(Bytes{}); }

    Bytes handshake() {
        write({0x09, 0x9C, 0x01, 0x02});
        return ask({0x09, 0x9C, 0x7E, 0x7D});
    }
    void startReading() {
        handshake();
        ask({0x09, 0x9C, 0x01, 0x04});
    }
    Bytes readNext() { return ask({0x09, 0x9C, 0x01, 0x06}); }
    Bytes startSending(unsigned blocks) {
        handshake();
        write({0x09, 0x9C, 0x01, 0x03});
        return ask({0x09, 0x9C, static_cast<std::uint8_t>(blocks / 16),
                    static_cast<std::uint8_t>(blocks % 16)});
    }
    // Sends `count` data packets of one byte; the last one's result.
    WriteResult sendBytes(unsigned byte, std::size_t count) {
        WriteResult result = WriteResult::Taken;
        for (std::size_t packet = 0; packet < count; ++packet)
            result = write(dataPacket(byte));
        return result;
    }

    VirtualController controller;
};

} // namespace scenewright::testing
