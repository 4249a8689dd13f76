// Where each kind of control starts in the editor's control list. A plain record; the numbers that
// hold for this controller are those of kControlRanges (Control.h).
#pragma once

#include "model/Property.h"

#include <cstdint>

namespace scenewright {

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
