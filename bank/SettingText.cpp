#include "bank/SettingText.h"

#include "bank/NameText.h"
#include "editor/options/SettingOptions.h"
#include "model/ValueAction.h"

namespace scenewright {

std::int32_t storedIndex(const SceneValue& scene, const SettingPlace& place) {
    return ValueAction::GetFrom127WithIndex(place.setting->read(scene, place.control));
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
    return {std::to_string(storedIndex(scene, place)), std::move(title)};
}

} // namespace scenewright
