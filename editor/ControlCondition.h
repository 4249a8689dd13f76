// What a control's record says about whether and how it works; rows of the tables that put a
// control into words are chosen by it.
#pragma once

#include "model/ButtonValue.h"

#include <cstdint>

namespace scenewright {

enum class ControlCondition : std::uint8_t {
    Always,
    Disabled,   // `Enable` is 0
    Enabled,    // `Enable` is anything else
    Unassigned, // `AssignType` is 0
    Assigned,   // `AssignType` is anything else
    Controller, // `AssignType` is 1
    Note,       // `AssignType` is 2
};

[[nodiscard]] bool holds(ControlCondition condition, const ButtonValue& record);

} // namespace scenewright
