// The settings of one physical control. A plain record: no validation, no conversion.
#pragma once

#include "model/Property.h"

#include <array>
#include <cstdint>

namespace scenewright {

// Marks a field that a control's kind does not carry; the editor shows it as "---".
inline constexpr std::int32_t kFieldAbsent = -1;

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

} // namespace scenewright
