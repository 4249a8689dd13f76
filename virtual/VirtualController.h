// The keyboard controller with no USB in it: its side of the protocol, and what it sends when it is
// played.
//
// It holds 1012 bytes, takes the transfers that a host writes and queues those that the host will
// read. It does nothing before a handshake; a handshake request starts the conversation anew in
// any state, and so does the end of a read or a send. What it does not expect it ignores.
//
// Faults act where a bus would show them: a write can fail, a pipe can halt, the controller can
// leave the bus. The clock of what is played is the caller's. One thread at a time.
#pragma once

#include "model/ControlOutput.h"
#include "model/Midi.h"
#include "model/SceneValue.h"
#include "platform/Text.h"
#include "protocol/SceneImage.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <deque>
#include <list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

// What can be made to go wrong with the virtual controller, on order.
//
// Counts start when the controller is plugged in. A data byte is one byte of the bank on the wire,
// in either direction: a reply to a read next, or a data packet of a send.
struct Fault {
    enum class Kind : std::uint8_t {
        WrongHandshake, // the first `count` handshake replies are wrong
        NoAnswer,       // after `count` replies the controller never answers again
        ShortTransfer,  // data reply `count` (from 0) has 2 bytes
        WrongNibble,    // data reply `count` carries a low nibble above 0x0F
        FailedWrite,    // every write after `count` packets fails
        Unplug,         // at data byte `count` the controller leaves the bus, once
        Stall,          // at data byte `count` the pipe that carries it halts
    };
    Kind kind = Kind::WrongHandshake;
    std::uint32_t count = 0;
    friend bool operator==(const Fault&, const Fault&) = default;
};

using FaultPlan = std::vector<Fault>;

// Reads "handshake:3", "silent:0", "short:7", "nibble:7", "write:12", "unplug:500", "stall:9".
[[nodiscard]] Result<Fault> parseFault(std::string_view text);

class VirtualController {
public:
    using Transfer = std::vector<std::uint8_t>;
    enum class Pipe : std::uint8_t { In, Out };
    enum class WriteResult : std::uint8_t { Taken, Failed, Halted, Gone };

    explicit VirtualController(const BankImage& bank, FaultPlan faults = {});

    // One bulk OUT transfer: one or more whole event packets; anything else is taken and ignored.
    WriteResult receive(std::span<const std::uint8_t> transfer);
    // The next bulk IN transfer, if the controller has one to give; none while the pipe is halted
    // and after an unplug.
    [[nodiscard]] std::optional<Transfer> nextReply();
    // How many the host has not read yet.
    [[nodiscard]] std::size_t repliesWaiting() const noexcept { return now_.replies.size(); }

    // A pipe that halts carries nothing until the halt is cleared.
    [[nodiscard]] bool isHalted(Pipe pipe) const noexcept;
    void clearHalt(Pipe pipe) noexcept;
    // From a handshake request to the end of what follows it, and as long as an answer is unread or
    // will never come.
    [[nodiscard]] bool isConversing() const noexcept;
    // False after an unplug, until reset().
    [[nodiscard]] bool isPresent() const noexcept { return isPresent_; }

    [[nodiscard]] const BankImage& bank() const noexcept { return bank_; }
    // How often the bank was changed by a host, counted in blocks.
    [[nodiscard]] std::uint32_t blocksWritten() const noexcept { return blocksWritten_; }
    // How many sends have reached their last block.
    [[nodiscard]] std::uint32_t sendsEnded() const noexcept { return sendsEnded_; }

    // As after plugging it in: the bank stays, the conversation and its faults start over, but for
    // the unplug that has happened.
    void reset();
    // Other faults in place of those there are. What they count starts over; the conversation goes
    // on where it is.
    void order(FaultPlan faults);

private:
    enum class State : std::uint8_t {
        Idle,       // waits for a handshake request
        Requested,  // waits for the confirm
        Ready,      // waits for read start or send start
        Reading,    // waits for read next or read end
        Announcing, // waits for the block count
        Receiving,  // takes data packets
    };

    void take(const Packet& packet);
    void takeCommand(const Packet& packet);
    void takeBlockCount(const Packet& packet);
    void takeData(const Packet& packet);
    void answerHandshake();
    void answerReadNext();
    void endBlock();
    void reply(Transfer transfer);
    // Counts one data byte on `pipe`; false when a fault keeps it from being carried.
    bool carryDataByte(Pipe pipe);
    [[nodiscard]] std::optional<std::uint32_t> faultCount(Fault::Kind kind) const;
    [[nodiscard]] bool isFaultAt(Fault::Kind kind, std::uint32_t count) const;

    // What the faults count.
    struct Counts {
        std::uint32_t packets = 0;
        std::uint32_t handshakes = 0;
        std::uint32_t repliesQueued = 0;
        std::uint32_t dataReplies = 0;
        std::uint32_t dataBytes = 0;
    };
    // What a plug-in starts with.
    struct Conversation {
        State state = State::Idle;
        std::deque<Transfer> replies;
        std::vector<std::uint8_t> block; // the data bytes of the current block
        std::uint32_t readPosition = 0;  // in the bank
        std::uint32_t blocksDue = 0;
        std::uint32_t blocksDone = 0;
        bool isInHalted = false;
        bool isOutHalted = false;
        bool isSilent = false; // an answer was left out
        Counts counts;
    };

    BankImage bank_;
    FaultPlan faults_;
    bool isPresent_ = true;
    std::uint32_t blocksWritten_ = 0;
    std::uint32_t sendsEnded_ = 0;
    Conversation now_;
};

using PlayingTime = std::chrono::steady_clock::time_point;

struct PlayOrder {
    enum class Kind : std::uint8_t { Scene, Press, Release, Turn, Slide };
    Kind kind = Kind::Scene;
    std::int32_t number = 1;           // of a scene, from 1; or a control index
    std::uint8_t value = 0;            // velocity, travel, or where a slide begins
    std::uint8_t end = 0;              // where it ends
    std::chrono::milliseconds time{0}; // that it takes
    friend bool operator==(const PlayOrder&, const PlayOrder&) = default;
};

// Reads "scene 2", "press pad3 100", "release pad3", "turn knob1 64", "slide slider2 0 127 500ms".
// Nothing when the first word is none of these; an error says how the order must be.
[[nodiscard]] std::optional<Result<PlayOrder>> parsePlayOrder(std::string_view line);

// The event packet that carries a channel message on cable 0.
[[nodiscard]] Packet packetOf(const MidiMessage& message);

// What a keyboard sends: orders in, MIDI messages out, by the scenes of a bank.
class Playing {
public:
    using Messages = std::vector<MidiMessage>;

    // What the order sends at once. A slide sends nothing yet; it ends one on the same control.
    Messages take(const PlayOrder& order, const BankImage& bank, PlayingTime now);
    // What the slides send up to now. Each passes through every position, evenly in its time, and
    // sends a value once.
    Messages advance(const BankImage& bank, PlayingTime now);
    // When to call advance() again; nothing while no slide runs.
    [[nodiscard]] std::optional<PlayingTime> next() const;

    // Ends all that has been begun: what sounds, what is on, what slides.
    Messages releaseAll();
    // As after switching it on: scene 1, nothing held, no slide.
    void reset() { *this = {}; }

private:
    struct Slide {
        PlayOrder order;
        PlayingTime begin;
        std::int32_t step = 0; // the next to send, from 0
        std::optional<MidiMessage> last{};
    };
    [[nodiscard]] static PlayingTime timeOf(const Slide& slide);
    [[nodiscard]] Messages play(const BankImage& bank, std::int32_t control, Gesture gesture);

    std::int32_t scene_ = 1;
    std::array<ControlState, kControlIndexEnd> states_{};
    std::list<Slide> slides_;
};

} // namespace scenewright
