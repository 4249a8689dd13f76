#include "model/Setting.h"

#include <algorithm>

namespace scenewright {

ButtonValue* Setting::button(const SceneValue& scene, std::int32_t member) const {
    const ControlRange& range = controlRange(kind_);
    const auto& buttons = scene.buttonValueArray();
    // Control 0 is the common settings, so the first element of the array is control 1.
    const std::int32_t element = range.start + member - 1;
    if (member < 0 || member >= range.count || static_cast<std::size_t>(element) >= buttons.size())
        return nullptr;
    return buttons[static_cast<std::size_t>(element)].get();
}

std::int32_t Setting::read(const SceneValue& scene, std::int32_t member) const {
    if (commonField_ != nullptr)
        return scene.commonValue() ? commonField_->of(*scene.commonValue()) : kFieldAbsent;
    const ButtonValue* const record = button(scene, member);
    return record != nullptr ? buttonField_->of(*record) : kFieldAbsent;
}

void Setting::write(const SceneValue& scene, std::int32_t member, std::int32_t value) const {
    if (commonField_ != nullptr) {
        if (scene.commonValue())
            commonField_->set(*scene.commonValue(), value);
    } else if (ButtonValue* const record = button(scene, member); record != nullptr) {
        buttonField_->set(*record, value);
    }
}

const Setting* findSetting(ControlKind kind, std::string_view name) {
    const auto* const found = std::ranges::find_if(kSettings, [&](const Setting& setting) {
        return setting.kind() == kind && setting.name() == name;
    });
    return found != kSettings.end() ? &*found : nullptr;
}

} // namespace scenewright
