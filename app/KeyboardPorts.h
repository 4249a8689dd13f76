// The MIDI ports of the keyboards that are plugged in: what other programs have connected to them,
// and what comes in through them.
#pragma once

#include "app/Keyboards.h"
#include "model/Midi.h"
#include "sequencer/Sequencer.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

// A listed keyboard that is plugged in.
struct SoundKeyboard {
    std::string identity; // "1209:0001#0": its ids, and which of those that are alike
    std::optional<int> card = std::nullopt; // nothing while the kernel's driver is away
    std::string port{};                     // "1-2.3"
};

// By bus and address.
[[nodiscard]] std::vector<SoundKeyboard> soundKeyboards();
// Those that are to be heard: the chosen one alone, or without a choice all.
[[nodiscard]] std::vector<SoundKeyboard> heardKeyboards(const Keyboards& keyboards);
// The ports of those, with the keyboard that each is of, in its order.
[[nodiscard]] std::vector<std::pair<SequencerPort, std::string>>
portsOf(const std::vector<SequencerPort>& ports, const std::vector<SoundKeyboard>& keyboards);

// Makes again what a transaction of this process, or of another that ended, has noted in the file:
// for the end by a signal, on any thread.
void restoreNotedConnections();

// The connections that other programs have with the keyboard's MIDI port, kept across what takes
// the port away: a transaction, an unplug.
//
// They are noted while the port is there, and made again when it is back. A transaction leaves a
// note in a file until they are, so that the next run can do it after a program that was killed.
// Without a sequencer nothing happens. One thread.
class KeyboardConnections {
public:
    using Keyboards = std::function<std::vector<SoundKeyboard>()>;
    using Milliseconds = std::chrono::milliseconds;

    // How long a port that comes back is waited for: a fraction of a second as a rule.
    static constexpr Milliseconds kLimit{3000};

    // A client of the machine's sequencer, or none where there is no sequencer.
    [[nodiscard]] static std::unique_ptr<Sequencer> sequencerIfAny();
    // $XDG_STATE_HOME/scenewright/connections.json, or the same under ~/.local/state.
    [[nodiscard]] static std::optional<std::filesystem::path> stateFile();

    // Takes the note that another run has left, unless the system was started anew since. Null for
    // no sequencer.
    explicit KeyboardConnections(std::unique_ptr<Sequencer> sequencer,
                                 Keyboards keyboards = &soundKeyboards,
                                 std::optional<std::filesystem::path> file = stateFile());

    // To be waited on for reading, and then process() called; -1 without a sequencer.
    [[nodiscard]] int descriptor() const;
    // Notes what is there, and makes again what has gone with a port that is back.
    void process();

    // Around each transaction, or several.
    void beforeTransaction();
    void afterTransaction() { process(); }
    // The same, and waits until all are made again, as long as a keyboard without its port is
    // plugged in and the time lasts.
    void restore(Milliseconds limit);

    // Whether a noted connection waits for its keyboard's port.
    [[nodiscard]] bool isPending() const;
    // How many the keyboards have now, as far as is known.
    [[nodiscard]] std::size_t count() const;

private:
    struct Noted {
        int keyboardPort = 0;
        PortConnection connection; // with the addresses of that time
        bool isFromKeyboard = false;
        std::string otherClient; // names, in case that it has another address then
        std::string otherPort;
    };
    using Ports = std::vector<SequencerPort>;

    void refresh();
    [[nodiscard]] std::vector<Noted> current(const Ports& own, const Ports& all);
    void makeAgain(const std::vector<Noted>& noted, const Ports& own, const Ports& all);
    void forgetEnded(const SequencerInput& input);
    void load();
    void store();

    std::unique_ptr<Sequencer> sequencer_;
    Keyboards keyboards_;
    std::optional<std::filesystem::path> file_;
    bool hasNote_ = false;                            // in the file
    std::map<std::string, std::vector<Noted>> noted_; // by keyboard; none without connections
    std::map<std::string, std::vector<PortAddress>> present_; // the ports of those that have them
};

// Of clock and active sensing, which come many times a second and tell nothing of a control.
[[nodiscard]] bool isFrequent(const MidiMessage& message);

// A client of the machine's sequencer under this name, to listen to these keyboards. The error is
// one sentence: of Keyboards::checkChosen() or openSequencer().
[[nodiscard]] Result<std::unique_ptr<Sequencer>> openListening(const Keyboards& keyboards,
                                                               const std::string& name);

// Listens to the ports that are there, and to those that come later: what both programs show of
// what the keyboard sends comes through here. One thread.
class KeyboardListener {
public:
    using Tell = std::function<void(const std::string& sentence)>;

    // `tell` gets a sentence for what a person should know besides. The sequencer must outlive the
    // object.
    KeyboardListener(Sequencer& sequencer, KeyboardConnections::Keyboards keyboards, Tell tell);

    // From here on. False when the port of a keyboard is there but refused, which is told last.
    bool start() { return listen(); }
    // What has come in since the last time, in order.
    [[nodiscard]] std::vector<MidiMessage> take();

private:
    bool listen();
    void tellPorts(const std::vector<std::string>& names);

    Sequencer& sequencer_;
    KeyboardConnections::Keyboards keyboards_;
    Tell tell_;
    std::string told_; // the last sentence about what it listens to
};

} // namespace scenewright
