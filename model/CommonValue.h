// The scene-wide settings of one scene. A plain record: no validation, no conversion.
#pragma once

#include "model/Property.h"

#include <cstdint>
#include <string>

namespace scenewright {

class CommonValue {
    // The bytes of the name. A scene that came from the controller holds all 12 bytes of the
    // image's name field as they were, trailing zeros included; displayName() makes text of them.
    SCENEWRIGHT_PROPERTY(std::string, SceneName, setSceneName)

    // Option indices: the position of the chosen entry in the field's option list, 0 to 127.
    SCENEWRIGHT_INDEX(CommonValue, GlobalMIDICh, setGlobalMIDICh)
    SCENEWRIGHT_INDEX(CommonValue, PianoKeyCh, setPianoKeyCh)
    SCENEWRIGHT_INDEX(CommonValue, PitchBendSpeed, setPitchBendSpeed)
    SCENEWRIGHT_INDEX(CommonValue, KeyTranspose, setKeyTranspose)
    SCENEWRIGHT_INDEX(CommonValue, KeyVelocityCurve, setKeyVelocityCurve)
    SCENEWRIGHT_INDEX(CommonValue, KeyConstVelocity, setKeyConstVelocity)
    SCENEWRIGHT_INDEX(CommonValue, PadVelocityCurve, setPadVelocityCurve)
    SCENEWRIGHT_INDEX(CommonValue, PadConstVelocity, setPadConstVelocity)
};

} // namespace scenewright
