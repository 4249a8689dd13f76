#include "model/FileAction.h"

#include "platform/Resources.h"

#include <array>
#include <string_view>
#include <utility>

namespace scenewright {

namespace {

struct Key {
    std::string_view text;
    const IndexField<CommonValue>& field;
};

// The file writes these keys with a small initial, unlike the keys of its controls.
constexpr std::array kKeys{
    Key{"globalMIDICh", CommonValue::GlobalMIDIChField},
    Key{"pianoKeyCh", CommonValue::PianoKeyChField},
    Key{"pitchBendSpeed", CommonValue::PitchBendSpeedField},
    Key{"keyTranspose", CommonValue::KeyTransposeField},
    Key{"keyVelocityCurve", CommonValue::KeyVelocityCurveField},
    Key{"keyConstVelocity", CommonValue::KeyConstVelocityField},
    Key{"padVelocityCurve", CommonValue::PadVelocityCurveField},
    Key{"padConstVelocity", CommonValue::PadConstVelocityField},
};

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
    for (const Key& key : kKeys)
        key.field.set(*common, dictionary[key.text].integer());
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
