// The port that other programs connect to, to hear what is played here, and which those are. One
// thread.
#pragma once

#include "sequencer/Sequencer.h"

#include <memory>
#include <string>
#include <vector>

namespace scenewright {

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

} // namespace scenewright
