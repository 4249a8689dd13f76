// One scene: the complete set of settings that the controller applies to its controls.
//
// Scenes and their parts are shared by reference: whoever takes `commonValue` or an element of
// `buttonValueArray` holds the scene's own record, and a change in it is seen by everyone who holds
// the scene. Assigning an array copies the array, not its elements. Main thread only.
#pragma once

#include "model/ButtonValue.h"
#include "model/CommonValue.h"
#include "model/Property.h"

#include <memory>
#include <vector>

namespace scenewright {

class SceneValue {
    using ButtonList = std::vector<std::shared_ptr<ButtonValue>>;

    SCENEWRIGHT_PROPERTY(std::shared_ptr<CommonValue>, commonValue, setCommonValue)
    // Reserved for the scene's display selections; nothing fills or reads it.
    SCENEWRIGHT_PROPERTY(ButtonList, displayValue, setDisplayValue)
    // The 45 controls, in the order of Control.h: groups, knobs, sliders, pads, keys.
    SCENEWRIGHT_PROPERTY(ButtonList, buttonValueArray, setButtonValueArray)
};

// A program's list of scenes, in the controller's order.
using SceneList = std::vector<std::shared_ptr<SceneValue>>;

} // namespace scenewright
