// What a control sends when it is played: from a scene, a control and a gesture the MIDI messages.
//
// What the device's documents leave open is assumed here and nowhere else
// (docs/what-controls-send.md tells it to users):
//   - knob n and slider n send on the channel of group n; a group itself sends nothing;
//   - a toggle is on after the first press; a trigger sends its on value, or a note on and off, at
//     the press and nothing at the release; a release does the same at the release alone;
//   - a pad or key that sends a controller sends its on and off values whatever the velocity;
//   - the transposition is in octaves and moves the notes of keys alone; a note that it moves out
//     of range is not sent;
//   - a soft curve raises low velocities, a hard one lowers them, as a root and a square do;
//   - a note ends with a note off of velocity 0;
//   - a control that one of its options does not exist for (a channel of 90) sends nothing.
// So it serves to show and to play, not to judge a keyboard. Values; any thread.
#pragma once

#include "model/Midi.h"
#include "model/SceneValue.h"

#include <cstdint>
#include <optional>
#include <string>
#include <tl/expected.hpp>
#include <vector>

namespace scenewright {

struct Gesture {
    enum class Kind : std::uint8_t { Press, Release, Move };
    Kind kind = Kind::Press;
    // The velocity of a press, 1 to 127, or where a knob or slider has been moved to, 0 (left,
    // down) to 127. Not used by a release.
    std::uint8_t value = 0;
};

// Values of `PadBehavior` and `KeyBehavior`.
enum class Behavior : std::uint8_t { Momentary, Toggle, Trigger, Release };

// Values of the two velocity curves.
enum class VelocityCurve : std::uint8_t { Soft, Normal, Hard, Constant };

// Why a control sends nothing.
enum class Silence : std::uint8_t {
    Group,          // it sets a channel for others
    Off,            // its type is off, or it is not enabled
    NoteOutOfRange, // by the transposition
    UnknownOption,  // the scene has a value that its option list has not
    NoControl,      // there is no such control, or the scene does not hold it
};

// What a control sends, as far as gestures do not change it.
struct ControlOutput {
    bool isNote = false;       // else a controller
    bool isTransposed = false; // a note, and its number here is one
    std::uint8_t channel = 0;  // 0 to 15
    std::uint8_t number = 0;   // of the note, transposed, or the controller
    // Of a controller: the off and on values, or the values at the left or lower and at the right
    // or upper end of travel, of which either may be the higher one.
    std::uint8_t low = 0;
    std::uint8_t high = 0;
    bool isTravel = false; // a knob or slider, which is moved; pads and keys are pressed
    Behavior behavior = Behavior::Momentary;
    VelocityCurve curve = VelocityCurve::Normal;
    std::uint8_t constantVelocity = 0;

    friend bool operator==(const ControlOutput&, const ControlOutput&) = default;
};

// `control` is a control index, 1 to 45.
[[nodiscard]] tl::expected<ControlOutput, Silence> controlOutput(const SceneValue& scene,
                                                                 std::int32_t control);

// Whether some gesture on the control sends this message.
[[nodiscard]] bool canSend(const ControlOutput& output, const MidiMessage& message);
// How a message fits what a control should send.
enum class Fit : std::uint8_t {
    Whole,   // canSend()
    Assumed, // it differs in what is assumed alone: a group's channel, a transposed note, a value
    None,
};
[[nodiscard]] Fit fitOf(const ControlOutput& output, const MidiMessage& message);

// What a message of a control is called: "CC 74 Brightness", "MIDI 48 C3", and on the percussion
// channel "MIDI 36 C2, Bass Drum 1".
[[nodiscard]] std::string outputName(const PopUpValue& lists, const ControlOutput& output);

// The controls of the scene of which canSend() is true, in their order.
[[nodiscard]] std::vector<std::int32_t> controlsSending(const SceneValue& scene,
                                                        const MidiMessage& message);

// What the last gesture on a control has left: that a toggle is on, that a note sounds.
struct ControlState {
    std::optional<MidiMessage> ending; // what turns it off again; nothing while it is off
    std::uint8_t velocity = 0;         // of the last press, for what is sent at the release
};

// In the order in which they are sent. A gesture that does not fit the control (a press of a knob)
// sends nothing. What has been begun ends with the number and channel that it began with, whatever
// the scene has then.
[[nodiscard]] std::vector<MidiMessage> messagesOf(const SceneValue& scene, std::int32_t control,
                                                  Gesture gesture, ControlState& state);

} // namespace scenewright
