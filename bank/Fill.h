// Many controls at once, in one musical order: notes by a scale, controllers in a row, one channel,
// colours from one to another. As in Edit.h, the scenes that go in are never changed, and a change
// that cannot be done whole is not done.
#pragma once

#include "bank/SettingText.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "model/TypedValue.h"
#include "platform/Text.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

// Steps from each control to the next one, taken in turn again and again: in semitones, or in
// whatever the setting counts.
using Intervals = std::vector<std::int32_t>;

// A scale by its name on the command line, and the intervals of one turn in semitones.
struct Scale {
    std::string_view name;
    std::string_view intervals; // for intervalsOf()
};
[[nodiscard]] std::span<const Scale> scales();
[[nodiscard]] const Scale* findScale(std::string_view name);
// "2,2,3"; nothing for anything else.
[[nodiscard]] std::optional<Intervals> intervalsOf(std::string_view text);

// The colours of so many controls: "#ff0000..#ffff00" goes evenly from one to the other and may
// have more stations, "#ff0000,#00ff00" and a palette's name take one after the other in turn,
// "#ff0000" is for all. Nothing for anything else.
[[nodiscard]] std::optional<std::vector<PadColour>> coloursFor(std::string_view text,
                                                               std::size_t count);

// How far apart the values are: nothing for what the setting suggests, which is 1 for the numbers
// of notes and controllers and 0 for everything else.
struct FillSteps {
    std::optional<Intervals> intervals{};
    bool isScale = false; // so that controls that send no note are refused
};

[[nodiscard]] FillSteps stepsOf(const Scale& scale);

// Those of a path's controls that are meant, counted from 0 within their kind; empty for all.
using Members = std::span<const std::int32_t>;

// Why nothing was filled: one phrase that names the path, and the cause for who has other words.
struct FillError {
    enum class Cause : std::uint8_t {
        Usage,     // the path, or what does not go with it
        Start,     // no value of the first control
        TooLow,    // `place` would be below `end` of its list
        TooHigh,   // or above it
        NoNote,    // a scale needs notes, and a control sends none
        NoneNotes, // none of the controls sends a note
    };
    std::string text;
    Cause cause = Cause::Usage;
    SettingPlace place{};
    std::string end{};
};
using FilledScenes = Result<SceneList, FillError>;

// Gives the controls of a path their values, beginning anew in each scene. `start` is the first
// one's, as setValues() takes it, or for a pad's colour as coloursFor() does. Where the path names
// controls instead of a setting, `start` tells which setting is meant:
//
//   colours             the pads' colours
//   ch:10               the MIDI channel
//   cc:20               the number, and the control is made to send controllers
//   C2, 36, sustain     the number, and a pad or key is made to send notes
[[nodiscard]] FilledScenes fillValues(const PopUpValue& lists, const SceneList& scenes,
                                      std::string_view path, std::string_view start,
                                      const FillSteps& steps = {}, Members members = {});

// Moves those notes of a path that are sent as notes.
[[nodiscard]] FilledScenes transposeNotes(const PopUpValue& lists, const SceneList& scenes,
                                          std::string_view path, std::int32_t semitones,
                                          Members members = {});

} // namespace scenewright
