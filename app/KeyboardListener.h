// Listens to the MIDI ports of the keyboards that are plugged in, and to those that come later:
// what both programs show of what the keyboard sends comes through here. One thread.
#pragma once

#include "app/KeyboardConnections.h"
#include "model/MidiMessage.h"
#include "sequencer/Sequencer.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace scenewright {

// Of clock and active sensing, which come many times a second and tell nothing of a control.
[[nodiscard]] bool isFrequent(const MidiMessage& message);

// A client of the machine's sequencer under this name, to listen to these keyboards. The error is
// one sentence: of Keyboards::checkChosen() or openSequencer().
[[nodiscard]] Result<std::unique_ptr<Sequencer>> openListening(const Keyboards& keyboards,
                                                               const std::string& name);

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
