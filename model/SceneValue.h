// The records of a scene: its common settings, its controls, and the two together. Plain records:
// no validation, no conversion. Main thread only.
#pragma once

#include "model/Property.h"
#include "platform/Text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

// The scene-wide settings of one scene.
class CommonValue {
    // The bytes of the name. A scene that came from the controller holds all 12 bytes of the
    // image's name field as they were, trailing zeros included; displayName() makes text of them.
    SCENEWRIGHT_PROPERTY(std::string, SceneName, setSceneName)

    // Option indices: the position of the chosen entry in the field's option list, 0 to 127.
    SCENEWRIGHT_INDEX(CommonValue, GlobalMIDICh, setGlobalMIDICh)
    SCENEWRIGHT_INDEX(CommonValue, PianoKeyCh, setPianoKeyCh)
    SCENEWRIGHT_INDEX(CommonValue, PitchBendSpeed, setPitchBendSpeed)
    SCENEWRIGHT_INDEX(CommonValue, KeyTranspose, setKeyTranspose)
    SCENEWRIGHT_INDEX(CommonValue, KeyVelocityCurve, setKeyVelocityCurve)
    SCENEWRIGHT_INDEX(CommonValue, KeyConstVelocity, setKeyConstVelocity)
    SCENEWRIGHT_INDEX(CommonValue, PadVelocityCurve, setPadVelocityCurve)
    SCENEWRIGHT_INDEX(CommonValue, PadConstVelocity, setPadConstVelocity)
};

// Marks a field that a control's kind does not carry; the editor shows it as "---".
inline constexpr std::int32_t kFieldAbsent = -1;

// The settings of one physical control.
class ButtonValue {
    // Which control this is, as the default scene's file numbers them; read by nothing.
    SCENEWRIGHT_INDEX(ButtonValue, ButtonID, setButtonID)

    // Option indices, 0 to 127, or kFieldAbsent.
    SCENEWRIGHT_INDEX(ButtonValue, MIDIChannel, setMIDIChannel)
    SCENEWRIGHT_INDEX(ButtonValue, AssignType, setAssignType)
    SCENEWRIGHT_INDEX(ButtonValue, CCOrNoteNumber, setCCOrNoteNumber)
    SCENEWRIGHT_INDEX(ButtonValue, UpperOrRightValue, setUpperOrRightValue)
    SCENEWRIGHT_INDEX(ButtonValue, LowerOrLeftValue, setLowerOrLeftValue)
    SCENEWRIGHT_INDEX(ButtonValue, PadBehavior, setPadBehavior)
    SCENEWRIGHT_INDEX(ButtonValue, KeyBehavior, setKeyBehavior)
    SCENEWRIGHT_INDEX(ButtonValue, OnValue, setOnValue)
    SCENEWRIGHT_INDEX(ButtonValue, OffValue, setOffValue)
    SCENEWRIGHT_INDEX(ButtonValue, Enable, setEnable)
    SCENEWRIGHT_INDEX(ButtonValue, CR, setCR)
    SCENEWRIGHT_INDEX(ButtonValue, CG, setCG)
    SCENEWRIGHT_INDEX(ButtonValue, CB, setCB)
};

// The thirteen option indices: every field but the identifier.
inline constexpr std::array kButtonOptionFields{
    ButtonValue::MIDIChannelField,
    ButtonValue::AssignTypeField,
    ButtonValue::CCOrNoteNumberField,
    ButtonValue::UpperOrRightValueField,
    ButtonValue::LowerOrLeftValueField,
    ButtonValue::PadBehaviorField,
    ButtonValue::KeyBehaviorField,
    ButtonValue::OnValueField,
    ButtonValue::OffValueField,
    ButtonValue::EnableField,
    ButtonValue::CRField,
    ButtonValue::CGField,
    ButtonValue::CBField,
};

// One scene: the complete set of settings that the controller applies to its controls.
//
// Scenes and their parts are shared by reference: whoever takes `commonValue` or an element of
// `buttonValueArray` holds the scene's own record, and a change in it is seen by everyone who holds
// the scene. Assigning an array copies the array, not its elements.
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

// The name without the zero bytes at its end, as valid UTF-8: bytes that are no UTF-8 and control
// characters show as U+FFFD. For showing only; the record keeps the bytes.
[[nodiscard]] inline std::string displayName(std::string_view sceneName) {
    const std::size_t last = sceneName.find_last_not_of('\0');
    return readableText(last == std::string_view::npos ? "" : sceneName.substr(0, last + 1));
}

} // namespace scenewright
