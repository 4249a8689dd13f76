// The virtual controller as a USB device: transfers are handed in, and come back when they end.
//
// An IN transfer waits until the controller has a reply for it, and can be taken back meanwhile.
// One thread at a time.
#pragma once

#include "virtual/BankKeeper.h"
#include "virtual/usbip/ControlEndpoint.h"

#include <cstdint>
#include <deque>
#include <vector>

namespace scenewright::usbip {

// A transfer that has ended.
struct Completion {
    SubmitCommand command;
    UrbStatus status = UrbStatus::Ok;
    std::uint32_t moved = 0; // bytes
    Bytes data;              // what was carried, in either direction
};

class BusDevice {
public:
    // Both must outlive the object.
    BusDevice(VirtualController& controller, BankKeeper& keeper, VirtualIdentity identity);

    // Takes a transfer; `data` are the bytes of an OUT transfer. False when too many wait.
    [[nodiscard]] bool submit(const SubmitCommand& command, ByteView data);
    // Takes a waiting transfer back; false when there is none of that number.
    bool unlink(std::uint32_t sequence);
    // The transfers that have ended, in the order of their ends.
    [[nodiscard]] std::vector<Completion> takeCompletions();

    // False once the controller has left the bus; then nothing completes any more.
    [[nodiscard]] bool isPresent() const noexcept { return controller_.isPresent(); }

private:
    void control(const SubmitCommand& command);
    void bulkOut(const SubmitCommand& command, ByteView data);
    void fill(); // gives waiting IN transfers what the controller has
    void complete(const SubmitCommand& command, UrbStatus status, std::uint32_t moved = 0,
                  Bytes data = {});

    VirtualController& controller_;
    BankKeeper& keeper_;
    bool hasPipes_;
    ControlEndpoint control_;
    std::deque<SubmitCommand> waiting_; // IN transfers, oldest first
    std::vector<Completion> completions_;
};

} // namespace scenewright::usbip
