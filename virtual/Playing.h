// A keyboard as it is played: orders in, MIDI messages out, by the scenes of a bank. The clock is
// the caller's. One thread at a time.
#pragma once

#include "model/ControlOutput.h"
#include "model/Midi.h"
#include "model/SceneValue.h"
#include "platform/Text.h"
#include "protocol/SceneImage.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <list>
#include <optional>
#include <string_view>
#include <vector>

namespace scenewright {

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
