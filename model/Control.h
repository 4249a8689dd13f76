// The controls of the keyboard: their kinds, how many there are, and how they are numbered.
//
// A control index names a control everywhere: 0 is the scene-wide settings, 1 to 45 the controls.
// Control index i > 0 is entry i - 1 of SceneValue::buttonValueArray.
#pragma once

#include "model/Property.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace scenewright {

enum class ControlKind : std::uint8_t { Common, Group, Knob, Slider, Pad, Key };

struct ControlRange {
    ControlKind kind;
    std::string_view name; // singular, lower case, as paths and messages write it
    std::int32_t start;    // control index of its first member
    std::int32_t count;

    [[nodiscard]] constexpr std::int32_t end() const { return start + count; }
};

inline constexpr std::array<ControlRange, 6> kControlRanges{{
    {ControlKind::Common, "common", 0, 1},
    {ControlKind::Group, "group", 1, 4},
    {ControlKind::Knob, "knob", 5, 4},
    {ControlKind::Slider, "slider", 9, 4},
    {ControlKind::Pad, "pad", 13, 8},
    {ControlKind::Key, "key", 21, 25},
}};

inline constexpr std::int32_t kControlIndexEnd = 46; // one past the last control index
inline constexpr std::int32_t kControlCount = 45;    // entries of buttonValueArray
inline constexpr std::int32_t kSceneCount = 4;       // scenes that the controller holds

[[nodiscard]] constexpr const ControlRange& controlRange(ControlKind kind) {
    return kControlRanges[static_cast<std::size_t>(kind)];
}

// The range that a control index falls into; null for one that is no control's.
[[nodiscard]] constexpr const ControlRange* controlRangeOf(std::int32_t control) {
    for (const ControlRange& range : kControlRanges)
        if (control >= range.start && control < range.end())
            return &range;
    return nullptr;
}

static_assert(kControlRanges.back().end() == kControlIndexEnd);

// Where each kind of control starts in the editor's control list. A plain record; the numbers that
// hold for this controller are those of kControlRanges.
class ButtonRange {
    SCENEWRIGHT_PROPERTY(std::int32_t, common_start, setCommon_start)
    SCENEWRIGHT_PROPERTY(std::int32_t, group_start, setGroup_start)
    SCENEWRIGHT_PROPERTY(std::int32_t, knob_start, setKnob_start)
    SCENEWRIGHT_PROPERTY(std::int32_t, slider_start, setSlider_start)
    SCENEWRIGHT_PROPERTY(std::int32_t, pad_start, setPad_start)
    SCENEWRIGHT_PROPERTY(std::int32_t, key_start, setKey_start)
    SCENEWRIGHT_PROPERTY(std::int32_t, all, setAll)
};

} // namespace scenewright
