// The keyboard controller's side of the protocol, with no USB in it.
//
// It holds 1012 bytes, takes the transfers that a host writes and queues those that the host will
// read. One thread at a time.
#pragma once

#include "protocol/SceneImage.h"
#include "virtual/Fault.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <vector>

namespace scenewright {

class VirtualController {
public:
    using Transfer = std::vector<std::uint8_t>;

    explicit VirtualController(const BankImage& bank, FaultPlan faults = {});

    // One bulk OUT transfer: whole event packets; anything else is ignored.
    void receive(std::span<const std::uint8_t> transfer);
    // The next bulk IN transfer, if the controller has one to give.
    [[nodiscard]] std::optional<Transfer> nextReply();

    [[nodiscard]] const BankImage& bank() const noexcept { return bank_; }
    // How often the bank was changed by a host, counted in blocks.
    [[nodiscard]] std::uint32_t blocksWritten() const noexcept { return blocksWritten_; }

    // As after plugging it in: the bank stays, the conversation and its faults start over.
    void reset();

private:
    // The helper that writes this class lays out its state here.
    BankImage bank_;
    FaultPlan faults_;
    std::deque<Transfer> replies_;
    std::uint32_t blocksWritten_ = 0;
};

} // namespace scenewright
