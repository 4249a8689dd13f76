// A control's settings, copied to another control of its kind or put back to their defaults.
//
// The values go straight into the scene's own records, as an edit does. A control is named by its
// index, 0 to 45; the scene-wide settings are a kind of their own, without the scene's name.
// Main thread only.
#pragma once

#include "model/Control.h"
#include "model/SceneValue.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace scenewright {

class ControlClipboard {
public:
    // Takes the values as they are now. False, with the former copy kept, when the scene has no
    // such control.
    bool copy(const SceneValue& scene, std::int32_t control);
    [[nodiscard]] bool canPaste(std::int32_t control) const;
    // False, and nothing changed, for a control of another kind or one that the scene does not
    // have.
    [[nodiscard]] bool paste(const SceneValue& scene, std::int32_t control) const;

private:
    std::optional<ControlKind> kind_;
    std::vector<std::int32_t> values_; // in the order of the kind's settings
};

// Gives the control the values of the same control of the default scene. False, and nothing
// changed, when either scene does not have it.
bool resetControl(const SceneValue& scene, std::int32_t control);

} // namespace scenewright
