// The short title that the device picture's button shows of a control, by display mode.
#pragma once

#include "editor/options/PopUpValue.h"
#include "model/ButtonValue.h"
#include "model/Control.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace scenewright {

// A stored index that its list does not have.
struct OutsideList {
    std::string_view field;
    std::int32_t value = 0;
    std::size_t entries = 0; // of the list
    friend bool operator==(const OutsideList&, const OutsideList&) = default;
};

struct DisplaySummary {
    std::string title = "---"; // one or two lines
    std::optional<OutsideList> outside;
    friend bool operator==(const DisplaySummary&, const DisplaySummary&) = default;
};

// Modes: 0 MIDI channel, 1 type, 2 CC or note number, 3 lower or left value, 4 upper or right
// value, 5 behaviour, 6 off value, 7 on value; a group shows its channel in every mode. "---" for
// another mode, for a control that is off, for a field that the kind does not carry, and for an
// index outside its list; the last is told in `outside`. A list that the resource lacks gives "---"
// too.
[[nodiscard]] DisplaySummary displaySummary(const PopUpValue& lists, ControlKind kind,
                                            const ButtonValue& record, std::int32_t mode);

// The entry of `titles` that the index names; nothing when there is none to be expected (no list,
// a field that does not apply) or when it is a title's position.
[[nodiscard]] std::optional<OutsideList> outsideList(const Titles& titles, std::string_view field,
                                                     std::int32_t value);

} // namespace scenewright
