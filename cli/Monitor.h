// What the keyboard sends, in lines: the command monitor without its loop.
#pragma once

#include "app/KeyboardConnections.h"
#include "model/MidiMessage.h"
#include "model/SceneValue.h"
#include "sequencer/Sequencer.h"

#include <chrono>
#include <functional>
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
    using Tell = std::function<void(const std::string& sentence)>;

    // `tell` gets a sentence for what a person should know besides. The sequencer must outlive the
    // object.
    Monitor(Sequencer& sequencer, KeyboardConnections::Keyboards keyboards, MonitorOptions options,
            Tell tell);

    // Listens to each keyboard's ports, and to those that come later, from here on.
    void start();
    // The lines for what has come in, in local time.
    [[nodiscard]] std::string take(Clock::time_point now);

private:
    void listen();
    [[nodiscard]] std::string line(const MidiMessage& message, Clock::time_point now) const;

    Sequencer& sequencer_;
    KeyboardConnections::Keyboards keyboards_;
    MonitorOptions options_;
    Tell tell_;
    std::string told_; // the last sentence about what it listens to
};

} // namespace scenewright
