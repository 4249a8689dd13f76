// Playing without a keyboard: a scene of the store, the port by which other programs hear it, and
// the virtual controller of this process.
#pragma once

#include "app/KeyboardPorts.h"
#include "model/Midi.h"
#include "protocol/SceneImage.h"
#include "sequencer/Sequencer.h"
#include "virtual/VirtualController.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace scenewright {

// A scene that is played here: gestures in, what the keyboard would send out. All that has been
// begun ends before another scene is played, when releaseAll() is called, and with the object.
//
// The bank is asked for at each gesture, so that what is edited is heard. One thread.
class ScenePlayer {
public:
    using Bank = std::function<BankImage()>;
    using Send = std::function<void(const MidiMessage& message)>;

    // Plays scene 1 until it is told another.
    ScenePlayer(Bank bank, Send send);
    ~ScenePlayer();
    ScenePlayer(const ScenePlayer&) = delete;
    ScenePlayer& operator=(const ScenePlayer&) = delete;
    ScenePlayer(ScenePlayer&&) = delete;
    ScenePlayer& operator=(ScenePlayer&&) = delete;

    void play(const PlayOrder& order, PlayingTime now = PlayingTime::clock::now());
    // For slides: what is due by now, and when to call it again.
    void advance(PlayingTime now = PlayingTime::clock::now());
    [[nodiscard]] std::optional<PlayingTime> next() const { return playing_.next(); }
    void releaseAll();

private:
    void send(const Playing::Messages& messages) const;

    Bank bank_;
    Send send_;
    Playing playing_;
};

// The port that other programs connect to, to hear what is played here, and which those are. One
// thread.
class PlayPort {
public:
    // Its client's name, and its own.
    static constexpr const char* kName = "Scenewright";

    // As openSequencer().
    [[nodiscard]] static Result<std::unique_ptr<Sequencer>> openMachines();
    // Not null.
    explicit PlayPort(std::unique_ptr<Sequencer> sequencer);

    // To be waited on for reading, and then process() called.
    [[nodiscard]] int descriptor() const { return sequencer_->descriptor(); }
    // Whether a program that was connected no longer is: it has heard the beginning of notes, and
    // those that are left are to hear their end.
    bool process();

    // "128:0", as other programs address it.
    [[nodiscard]] std::string address() const;
    // The names of those that are connected.
    [[nodiscard]] const std::vector<std::string>& listeners() const { return names_; }

    Result<void> send(const MidiMessage& message) { return sequencer_->send(message); }

private:
    bool refresh(const std::vector<PortAddress>& ended);

    std::unique_ptr<Sequencer> sequencer_;
    PortAddress own_;
    std::vector<PortAddress> listeners_;
    std::vector<std::string> names_;
};

// The virtual controller of this process where a keyboard's MIDI port is otherwise: what is played
// on it, and a sequencer that hears it.
//
// It is the one that the transport has; without it nothing is held, played and heard. Main thread
// only.
class VirtualPort {
public:
    VirtualPort() = delete;

    // What the controller holds.
    [[nodiscard]] static BankImage bank();
    // Dropped while a transaction has the controller, and where nobody listens.
    static void play(const MidiMessage& message);
    // A sequencer whose one port is the controller's; `ready` is called when there is something to
    // take. One at a time listens.
    [[nodiscard]] static std::unique_ptr<Sequencer> listen(std::function<void()> ready);
    // The controller, as the owner of that port.
    [[nodiscard]] static std::vector<SoundKeyboard> keyboards();
};

} // namespace scenewright
