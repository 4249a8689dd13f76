// What the keyboard sends, in lines: the commands monitor and try without their loops, and how
// these and play wait.
#pragma once

#include "app/KeyboardPorts.h"
#include "app/TryRun.h"
#include "model/Midi.h"
#include "model/SceneValue.h"
#include "platform/Process.h"
#include "platform/Text.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

// How a command waits that goes on until there is nothing more to do, or a signal ends it.
//
// While it lives SIGINT, SIGTERM and SIGHUP end no program: they are told here. One that was
// ignored at the start stays ignored. Made before any thread starts.
class Waiting {
public:
    Waiting();

    struct Come {
        bool hasInput = false;
        bool hasLines = false;
        bool isToEnd = false; // by a signal
    };
    // Until one of the descriptors can be read, of which -1 is none, or the time has come.
    [[nodiscard]] Come
    wait(int input, int lines = -1,
         std::optional<std::chrono::steady_clock::time_point> until = std::nullopt) const;

private:
    FileDescriptor signals_;
};

struct MonitorOptions {
    bool asJson = false;   // an object a line
    bool showsAll = false; // clock and active sensing too
    bool hasBank = false;
    SceneList bank{};   // whose controls are told with what they send
    Titles noteNames{}; // may be null
};

// All that comes, as the command monitor tells it.
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

// A bank tried by touch.
class Trial {
public:
    using Time = TryRun::Time;
    struct Options {
        bool asJson = false; // an object a line
        Titles noteNames{};  // may be null
    };

    // Scenes by their numbers, from 1; the bank has them.
    Trial(SceneList bank, std::vector<int> scenes, Options options);

    // What came from the keyboard, and what the player says: "skip", "again", "end". The error says
    // what those are.
    void take(const MidiMessage& message, Time now);
    Result<void> order(std::string_view line);

    [[nodiscard]] bool isDone() const { return place_ == scenes_.size(); }
    // Of the scenes that have ended.
    [[nodiscard]] bool hasWrong() const { return hasWrong_; }
    // The lines for what has been decided since the last time.
    [[nodiscard]] std::string results();
    // Sentences for the player, the next control among them; the same.
    [[nodiscard]] std::vector<std::string> words();

private:
    void begin();
    void follow();
    void tellDecided();
    [[nodiscard]] std::string line(const TryRun::Row& row) const;
    [[nodiscard]] std::string pathOf(const TryRun::Row& row) const;

    SceneList bank_;
    std::vector<int> scenes_;
    Options options_;
    std::size_t place_ = 0; // in scenes_
    TryRun run_;
    std::size_t told_ = 0; // rows of it
    bool hasWrong_ = false;
    std::string results_;
    std::vector<std::string> words_;
};

} // namespace scenewright
