#include "tests/protocol/FakeController.h"

namespace scenewright::testing {

namespace {

constexpr std::size_t kBlockSize = 512;

} // namespace

FakeController::FakeController(std::shared_ptr<HostScript> script) : script_(std::move(script)) {
    script_->onWrite = [this](std::span<const std::uint8_t> packet) { receive(packet); };
}

FakeController::~FakeController() {
    script_->onWrite = nullptr;
}

void FakeController::reply(const Bytes& bytes) {
    script_->replies.push_back({.bytes = bytes});
}

Bytes FakeController::nextData() {
    const std::size_t position = position_++;
    if (const auto replaced = dataReplies.find(position); replaced != dataReplies.end())
        return replaced->second;
    const std::uint8_t byte = position < bank.size() ? bank[position] : std::uint8_t{0};
    return {0x09, 0x90, static_cast<std::uint8_t>(byte / 16), static_cast<std::uint8_t>(byte % 16)};
}

void FakeController::receive(std::span<const std::uint8_t> packet) {
    if (packet[1] == 0x90) {
        receiveData(static_cast<std::uint8_t>(packet[2] * 16 + packet[3]));
    } else if (expectsCount_) {
        expectsCount_ = false;
        reply(countReply);
    } else if (packet[2] == 0x7E) {
        if (wrongReplies.empty())
            return reply(handshakeReply);
        reply(wrongReplies.front());
        wrongReplies.pop_front();
    } else {
        receiveCommand(packet[3]);
    }
}

void FakeController::receiveCommand(std::uint8_t code) {
    if (code == 0x03) {
        expectsCount_ = true;
        received_.clear();
    } else if (code == 0x04) {
        position_ = 0;
        reply(startReply);
    } else if (code == 0x06) {
        reply(nextData());
    }
}

void FakeController::receiveData(std::uint8_t byte) {
    received_.push_back(byte);
    if (received_.size() % kBlockSize == 0)
        reply(blockReply);
}

} // namespace scenewright::testing
