// What the stored scenes would be with controls of one of them filled or transposed, by the rules
// of bank/Fill.h. The stored scenes stay as they are; copyInto() takes one over. Main thread only.
#pragma once

#include "bank/Fill.h"
#include "model/Control.h"

#include <cstdint>
#include <string_view>

namespace scenewright {

// `members` are the controls of the kind; `scene` is 0 to 3.
[[nodiscard]] FilledScenes filledScenes(const PopUpValue& lists, std::int32_t scene,
                                        ControlKind kind, Members members, std::string_view start,
                                        const FillSteps& steps);
[[nodiscard]] FilledScenes transposedScenes(const PopUpValue& lists, std::int32_t scene,
                                            ControlKind kind, Members members,
                                            std::int32_t semitones);

} // namespace scenewright
