// The one seam to whatever provides MIDI ports: ALSA's sequencer, or a script in tests.
//
// A sequencer has ports of clients, and connections from one port to another; anyone may make a
// connection between any two. It tells by a file descriptor when ports come and go, when
// connections change, and what the ports sent that it listens to. One thread at a time.
#pragma once

#include "model/Midi.h"
#include "platform/Text.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace scenewright {

struct PortAddress {
    int client = 0;
    int port = 0;
    friend auto operator<=>(const PortAddress&, const PortAddress&) = default;
};

struct SequencerPort {
    PortAddress address{};
    std::string clientName{};
    std::string portName{};
    int card = -1;      // the number of the sound card behind it; -1 for a program's
    bool isOwn = false; // of this object
    bool sends = false; // others may connect from it
};

struct PortConnection {
    PortAddress from{};
    PortAddress to{};
    bool isExclusive = false; // it lets no other in
    // How events get their time: none, or by the clock of this queue, in seconds or in ticks.
    int timeQueue = -1;
    bool hasRealTime = false;
    friend bool operator==(const PortConnection&, const PortConnection&) = default;
};

// What has come in since the last time, in order.
struct SequencerInput {
    struct Message {
        PortAddress from;
        MidiMessage message;
    };
    std::vector<Message> messages{};
    // Ports that have gone, though others may have their addresses now.
    std::vector<PortAddress> ended{};
    bool hasChanged = false;   // a port or a connection came or went
    bool isIncomplete = false; // more came than there was room for, of either kind
};

class Sequencer {
public:
    Sequencer() = default;
    Sequencer(const Sequencer&) = delete;
    Sequencer& operator=(const Sequencer&) = delete;
    Sequencer(Sequencer&&) = delete;
    Sequencer& operator=(Sequencer&&) = delete;
    // Ends its connections.
    virtual ~Sequencer() = default;

    // Readable when there is input; lives as long as the object.
    [[nodiscard]] virtual int descriptor() const = 0;
    // Until there is input, or the time has passed.
    virtual void wait(std::chrono::milliseconds limit) = 0;
    [[nodiscard]] virtual SequencerInput take() = 0;

    [[nodiscard]] virtual std::vector<SequencerPort> ports() = 0;
    // Those from and to the port; none when it has gone.
    [[nodiscard]] virtual std::vector<PortConnection> connectionsOf(PortAddress port) = 0;
    // Makes it for whoever the ports belong to; fine if it is there. The error is one sentence.
    virtual Result<void> connect(const PortConnection& connection) = 0;
    // Connects the port to this object; fine if it is so already.
    virtual Result<void> listenTo(PortAddress port) = 0;
    // To whatever is connected from this object's port. The error is one sentence.
    virtual Result<void> send(const MidiMessage& message) = 0;
};

// What the port of a client is for: to listen to others, or for others to listen to.
enum class SequencerUse : std::uint8_t { Listening, Sending };

// Becomes a client of ALSA's sequencer under this name. The error is one sentence that says why it
// cannot and what helps. libasound is told to print nothing.
[[nodiscard]] Result<std::unique_ptr<Sequencer>>
openSequencer(const std::string& name, SequencerUse use = SequencerUse::Listening);

} // namespace scenewright
