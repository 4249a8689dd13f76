// What a device operation did, told once: a read returns it, a send delivers it on the main queue.
#pragma once

#include "usb/TransferStats.h"

#include <cstdint>
#include <string>
#include <vector>

namespace scenewright {

struct Outcome {
    enum class End : std::uint8_t {
        Done,
        NotConnected, // no listed keyboard, or its interface could not be taken; nothing was moved
        NotStarted,   // the system could not start it; nothing was moved
        Unreliable,   // it ran to its end, and transfers failed
        Cancelled,    // the program was asked to end meanwhile
    };

    End end = End::NotStarted;
    // Why it is not Done: the result code of the first step or transfer that failed; success for
    // a read that was merely short.
    ResultCode cause = kResultSuccess;
    TransferStats stats{};
    // kResultNoDriver when the kernel's sound driver did not come back after it.
    ResultCode release = kResultSuccess;
    // Of a read: setting bytes above 127, which the controller may hold and scenes cannot; they
    // were read as 0.
    std::uint32_t replacedBytes = 0;
    // What could not be kept afterwards, one sentence each.
    std::vector<std::string> notKept{};

    // Whether everything that was asked for is done, what is to be kept included.
    [[nodiscard]] bool isDone() const { return end == End::Done && notKept.empty(); }
    friend bool operator==(const Outcome&, const Outcome&) = default;
};

// For an operation whose connection failed, by what the transport keeps of it.
[[nodiscard]] Outcome connectionOutcome();
// For an operation that has made its transfers.
[[nodiscard]] Outcome transferOutcome();
// Adds what the host could not keep of the transfers.
void addStorageError(Outcome& outcome);
// Closes and releases the interface as the end of a send does, and tells how that went: the
// kernel's drivers are back after it, and other programs can use the keyboard.
void releaseKeyboard(Outcome& outcome);

} // namespace scenewright
