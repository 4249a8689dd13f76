#include "bank/SettingText.h"

#include "bank/NameText.h"
#include "model/Setting.h"
#include "model/ValueAction.h"

namespace scenewright {

std::int32_t storedIndex(const SceneValue& scene, const Setting& setting, std::int32_t control) {
    // The codec's byte is never above 127, so its sign says nothing.
    return static_cast<std::uint8_t>(
        ValueAction::GetFrom127WithIndex(setting.read(scene, control)));
}

SettingText settingText(const PopUpValue& lists, const SceneValue& scene,
                        const SettingPlace& place) {
    if (place.isName()) {
        const std::string& name = scene.commonValue()->SceneName();
        return {nameAsText(name).value_or(std::string(kBytesMark) + nameAsHex(name)), {}};
    }
    std::string title = optionTitle(lists, *place.setting, scene, place.control);
    if (title == kNoTitle)
        title.clear();
    return {std::to_string(storedIndex(scene, *place.setting, place.control)), std::move(title)};
}

} // namespace scenewright
