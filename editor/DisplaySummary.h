// The short title that the device picture's button shows of a control, by display mode.
#pragma once

#include "editor/options/PopUpValue.h"
#include "model/ButtonValue.h"
#include "model/Control.h"

#include <cstdint>
#include <string>

namespace scenewright {

// Modes: 0 MIDI channel, 1 type, 2 CC or note number, 3 lower or left value, 4 upper or right
// value, 5 behaviour, 6 off value, 7 on value; a group shows its channel in every mode. "---" for
// another mode, for a control that is off, for a field that the kind does not carry, for an index
// outside its list, and for a list that the resource lacks. One or two lines.
[[nodiscard]] std::string displaySummary(const PopUpValue& lists, ControlKind kind,
                                         const ButtonValue& record, std::int32_t mode);

} // namespace scenewright
