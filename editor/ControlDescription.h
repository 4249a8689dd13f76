// A control as the device picture shows it: the short title on its button, all that it does in
// words for those who hear the picture, and its light.
#pragma once

#include "editor/Widgets.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"

#include <cstdint>
#include <string>

namespace scenewright {

// The short title that the device picture's button shows of a control, by display mode.
//
// Modes: 0 MIDI channel, 1 type, 2 CC or note number, 3 lower or left value, 4 upper or right
// value, 5 behaviour, 6 off value, 7 on value; a group shows its channel in every mode. "---" for
// another mode, for a control that is off, for a field that the kind does not carry, for an index
// outside its list, and for a list that the resource lacks. One or two lines.
[[nodiscard]] std::string displaySummary(const PopUpValue& lists, ControlKind kind,
                                         const ButtonValue& record, std::int32_t mode);

// "Common", "Pad 3"; "Control 46" for an index that no control has.
[[nodiscard]] std::string controlName(std::int32_t index);

// Everything that the control does, in one line: "Pad 3: Note C4, channel 10, behaviour Momentary,
// red 0, green 64, blue 127". The name alone for an index without a record; "unknown" for a value
// outside its list.
[[nodiscard]] std::string describeControl(const PopUpValue& lists, const SceneValue& scene,
                                          std::int32_t index);

// What the control sends, by MIDI's own names: "Sends CC 74 Brightness on channel 1", "Sends
// nothing". Empty for the scene's own settings, a group, and an index without a record.
[[nodiscard]] std::string describeOutput(const PopUpValue& lists, const SceneValue& scene,
                                         std::int32_t index);

// The light of a pad: its levels of 0 to 127 scaled to full; levels outside are taken as the
// nearest end.
[[nodiscard]] Colour padColour(const ButtonValue& record);

} // namespace scenewright
