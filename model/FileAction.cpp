#include "model/FileAction.h"

#include "model/ButtonAction.h"
#include "model/CommonAction.h"
#include "platform/Resources.h"

#include <utility>

namespace scenewright {

std::shared_ptr<SceneValue> FileAction::GetSceneFromDefault() {
    const PropertyValue file = Resources::load("default");
    std::vector<std::shared_ptr<ButtonValue>> buttons;
    for (const PropertyValue& dictionary : file["ButtonArray"].elements())
        buttons.push_back(ButtonAction::GetButtonValueFromDic(dictionary));

    auto scene = std::make_shared<SceneValue>();
    scene->setButtonValueArray(std::move(buttons));
    scene->setCommonValue(CommonAction::GetCommonValueFromDic(file["CommonValue"]));
    return scene;
}

} // namespace scenewright
