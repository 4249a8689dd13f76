#include "model/SceneValue.h"

#include "model/Setting.h"
#include "platform/Resources.h"

#include <string>
#include <utility>

namespace scenewright {

namespace {

// The file writes the keys of the common settings with a small initial, unlike those of its
// controls.
std::string commonKey(const Setting& setting) {
    std::string key(setting.name());
    key.front() = static_cast<char>(key.front() - 'A' + 'a');
    return key;
}

} // namespace

std::shared_ptr<ButtonValue> ButtonAction::GetButtonValueFromDic(const PropertyValue& dictionary) {
    auto button = std::make_shared<ButtonValue>();
    button->setButtonID(dictionary["BtnID"].integer());
    // Every other key is the name of its field.
    for (const IndexField<ButtonValue>& field : kButtonOptionFields)
        field.set(*button, dictionary[field.name].integer());
    return button;
}

std::shared_ptr<CommonValue> CommonAction::GetCommonValueFromDic(const PropertyValue& dictionary) {
    auto common = std::make_shared<CommonValue>();
    for (const Setting& setting : settings())
        if (setting.common() != nullptr)
            setting.common()->set(*common, dictionary[commonKey(setting)].integer());
    return common;
}

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
