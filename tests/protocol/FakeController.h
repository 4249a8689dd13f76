// The device's half of the conversation, as simple as it can be, behind a scripted host: it answers
// the packets that call for an answer and checks nothing. Its replies can be replaced. The virtual
// controller is no substitute: it is written with the packets of the code that is tested here, and
// both could be wrong alike.
#pragma once

#include "tests/usb/ScriptedHost.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <span>
#include <vector>

namespace scenewright::testing {

using Bytes = std::vector<std::uint8_t>;

class FakeController {
public:
    // Answers what `script` is written, as long as this object lives.
    explicit FakeController(std::shared_ptr<HostScript> script);
    ~FakeController();
    FakeController(const FakeController&) = delete;
    FakeController& operator=(const FakeController&) = delete;
    FakeController(FakeController&&) = delete;
    FakeController& operator=(FakeController&&) = delete;

    // Handshake replies that are given first, one an attempt; then the right one.
    std::deque<Bytes> wrongReplies;
    Bytes handshakeReply{0x09, 0x9C, 0x01, 0x02, 0x09, 0x9C, 0x01, 0x38, 0x09, 0x9C, 0x02, 0x10};
    Bytes startReply{0x09, 0x9C, 0x01, 0x8A};
    // What the device holds; a read past its end gives nothing.
    Bytes bank = Bytes(1012, 0);
    // Answers to the n-th read of a byte, in place of the one of the bank.
    std::map<std::size_t, Bytes> dataReplies;
    Bytes countReply{0x09, 0x9C, 0x03, 0x01};
    Bytes blockReply{0x09, 0x9C, 0x03, 0x02};

    // The image bytes that were sent, fill packets included as 0xFF.
    [[nodiscard]] const Bytes& received() const { return received_; }

private:
    void receive(std::span<const std::uint8_t> packet);
    void receiveCommand(std::uint8_t code);
    void receiveData(std::uint8_t byte);
    void reply(const Bytes& bytes);
    [[nodiscard]] Bytes nextData();

    std::shared_ptr<HostScript> script_;
    std::size_t position_ = 0;
    bool expectsCount_ = false;
    Bytes received_;
};

} // namespace scenewright::testing
