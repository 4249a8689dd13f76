// A control in words and colour, for those who hear the picture and for its lights.
#pragma once

#include "editor/options/PopUpValue.h"
#include "editor/widgets/Widgets.h"
#include "model/ButtonValue.h"
#include "model/SceneValue.h"

#include <cstdint>
#include <string>

namespace scenewright {

// "Common", "Pad 3"; "Control 46" for an index that no control has.
[[nodiscard]] std::string controlName(std::int32_t index);

// Everything that the control does, in one line: "Pad 3: Note C4, channel 10, behavior Momentary,
// red 0, green 64, blue 127". The name alone for an index without a record; "unknown" for a value
// outside its list.
[[nodiscard]] std::string describeControl(const PopUpValue& lists, const SceneValue& scene,
                                          std::int32_t index);

// The light of a pad: its levels of 0 to 127 scaled to full; levels outside are taken as the
// nearest end.
[[nodiscard]] Colour padColour(const ButtonValue& record);

} // namespace scenewright
