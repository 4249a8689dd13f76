// What the keyboard sends, in lines: the command monitor without its loop.
#pragma once

#include "app/KeyboardPorts.h"
#include "model/MidiMessage.h"
#include "model/SceneValue.h"
#include "sequencer/Sequencer.h"

#include <chrono>
#include <string>

namespace scenewright {

struct MonitorOptions {
    bool asJson = false;   // an object a line
    bool showsAll = false; // clock and active sensing too
    bool hasBank = false;
    SceneList bank{};   // whose controls are told with what they send
    Titles noteNames{}; // may be null
};

class Monitor {
public:
    using Clock = std::chrono::system_clock;

    // As a KeyboardListener is made.
    Monitor(Sequencer& sequencer, KeyboardConnections::Keyboards keyboards, MonitorOptions options,
            KeyboardListener::Tell tell);

    // Listens to each keyboard's ports, and to those that come later, from here on.
    // As KeyboardListener::start().
    bool start() { return listener_.start(); }
    // The lines for what has come in, in local time.
    [[nodiscard]] std::string take(Clock::time_point now);

private:
    [[nodiscard]] std::string line(const MidiMessage& message, Clock::time_point now) const;

    KeyboardListener listener_;
    MonitorOptions options_;
};

} // namespace scenewright
