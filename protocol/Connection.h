// How every transaction begins and ends: the connection, the handshake and its retry, packets as
// transfers, and its outcome.
#pragma once

#include "model/MessageValue.h"
#include "protocol/SceneImage.h"
#include "usb/Transport.h"

#include <cstdint>
#include <string>
#include <vector>

namespace scenewright {

// What a device operation did, told once: a read returns it, a send delivers it on the main queue.
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

// Writes one packet to the controller, as a transfer of its own. A failure is logged by the
// transport and changes nothing here: a transaction goes on to its end.
void writePacket(const Packet& packet);

// One attempt; opens the interface itself. True when the reply's first 8 bytes were right.
[[nodiscard]] bool handshakeOnce();

// Attempts without limit and without delay, closing the interface between two attempts. A device
// that never answers correctly keeps the caller here.
void handshakeUntilAnswered();

// Finds the device, takes its interface and makes the handshake. False, with the message "Could not
// connect to midi device" set, when there is no device or its interface cannot be taken.
[[nodiscard]] bool connectToDevice(MessageValue& progress);

} // namespace scenewright
