#include "model/CommonAction.h"

#include <array>
#include <string_view>

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

std::shared_ptr<CommonValue> CommonAction::GetCommonValueFromDic(const PropertyValue& dictionary) {
    auto common = std::make_shared<CommonValue>();
    for (const Key& key : kKeys)
        key.field.set(*common, dictionary[key.text].integer());
    return common;
}

} // namespace scenewright
