#include "editor/ControlClipboard.h"

#include "model/FileAction.h"
#include "model/Setting.h"

#include <algorithm>

namespace scenewright {

namespace {

// Null when the scene does not have the control.
const ControlRange* rangeIn(const SceneValue& scene, std::int32_t control) {
    const ControlRange* range = controlRangeOf(control);
    if (range == nullptr)
        return nullptr;
    const bool isThere = range->kind == ControlKind::Common
                             ? scene.commonValue() != nullptr
                             : static_cast<std::size_t>(control) <= scene.buttonValueArray().size();
    return isThere ? range : nullptr;
}

} // namespace

bool ControlClipboard::copy(const SceneValue& scene, std::int32_t control) {
    const ControlRange* range = rangeIn(scene, control);
    if (range == nullptr)
        return false;
    kind_ = range->kind;
    values_.clear();
    for (const Setting& setting : settings())
        if (setting.kind() == range->kind)
            values_.push_back(setting.read(scene, control - range->start));
    return true;
}

bool ControlClipboard::canPaste(std::int32_t control) const {
    const ControlRange* range = controlRangeOf(control);
    return range != nullptr && kind_ == range->kind;
}

bool ControlClipboard::paste(const SceneValue& scene, std::int32_t control) const {
    const ControlRange* range = rangeIn(scene, control);
    if (range == nullptr || !canPaste(control))
        return false;
    auto value = values_.begin();
    for (const Setting& setting : settings())
        if (setting.kind() == range->kind)
            setting.write(scene, control - range->start, *value++);
    return true;
}

bool resetControl(const SceneValue& scene, std::int32_t control) {
    ControlClipboard defaults;
    return defaults.copy(*FileAction::GetSceneFromDefault(), control) &&
           defaults.paste(scene, control);
}

} // namespace scenewright
