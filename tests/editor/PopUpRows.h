// The 31 value popups once more, written out by hand: what the editor's own table is held against.
#pragma once

#include "editor/ViewController.h"

#include <array>
#include <cstdint>
#include <ostream>

namespace scenewright::testing {

// A field of the common settings or of a control's record; one pair is null.
struct FieldAccess {
    std::int32_t (CommonValue::*readCommon)() const = nullptr;
    void (CommonValue::*writeCommon)(std::int32_t) = nullptr;
    std::int32_t (ButtonValue::*readButton)() const = nullptr;
    void (ButtonValue::*writeButton)(std::int32_t) = nullptr;
};

consteval FieldAccess in(std::int32_t (CommonValue::*read)() const,
                         void (CommonValue::*write)(std::int32_t)) {
    return {read, write, nullptr, nullptr};
}
consteval FieldAccess in(std::int32_t (ButtonValue::*read)() const,
                         void (ButtonValue::*write)(std::int32_t)) {
    return {nullptr, nullptr, read, write};
}

struct PopUpRow {
    const char* name;
    PopUp* (ViewController::*outlet)() const;
    void (ViewController::*setOutlet)(PopUp*);
    void (ViewController::*action)(const PopUp&);
    FieldAccess field;
    std::int32_t control; // the index of the first control of its kind
    const char* key;      // of basic.plist
    std::size_t entries;  // of that list in the tests' basic.plist
};

// How the test runner names a row.
inline void PrintTo(const PopUpRow& row, std::ostream* stream) {
    *stream << row.name;
}

using V = ViewController;
using C = CommonValue;
using B = ButtonValue;

// clang-format off
inline constexpr std::array<PopUpRow, 31> kPopUpRows{{
    {"commonGlobalMIDICh", &V::commonGlobalMIDICh, &V::setCommonGlobalMIDICh, &V::changeCommonGlobalMIDIChAction, in(&C::GlobalMIDICh, &C::setGlobalMIDICh), 0, "common-globalMIDICh", 16},
    {"commonPianoKeyCh", &V::commonPianoKeyCh, &V::setCommonPianoKeyCh, &V::changeCommonPianoKeyChAction, in(&C::PianoKeyCh, &C::setPianoKeyCh), 0, "common-pianoKeyCh", 17},
    {"commonPitchBendSpeed", &V::commonPitchBendSpeed, &V::setCommonPitchBendSpeed, &V::changeCommonPitchBendSpeedAction, in(&C::PitchBendSpeed, &C::setPitchBendSpeed), 0, "common-PitchBendSpeed", 127},
    {"commonKeyTranspose", &V::commonKeyTranspose, &V::setCommonKeyTranspose, &V::changeCommonKeyTransposeAction, in(&C::KeyTranspose, &C::setKeyTranspose), 0, "common-keyTranspose", 9},
    {"commonKeyVelocityCurve", &V::commonKeyVelocityCurve, &V::setCommonKeyVelocityCurve, &V::changeCommonKeyVelocityCurveAction, in(&C::KeyVelocityCurve, &C::setKeyVelocityCurve), 0, "common-velocityCurve", 4},
    {"commonKeyConstVelocity", &V::commonKeyConstVelocity, &V::setCommonKeyConstVelocity, &V::changeCommonKeyConstVelocityAction, in(&C::KeyConstVelocity, &C::setKeyConstVelocity), 0, "select127", 128},
    {"commonPadVelocityCurve", &V::commonPadVelocityCurve, &V::setCommonPadVelocityCurve, &V::changeCommonPadVelocityCurveAction, in(&C::PadVelocityCurve, &C::setPadVelocityCurve), 0, "common-velocityCurve", 4},
    {"commonPadConstVelocity", &V::commonPadConstVelocity, &V::setCommonPadConstVelocity, &V::changeCommonPadConstVelocityAction, in(&C::PadConstVelocity, &C::setPadConstVelocity), 0, "select127", 128},
    {"groupMIDIChannel", &V::groupMIDIChannel, &V::setGroupMIDIChannel, &V::changeGroupMIDIChannelAction, in(&B::MIDIChannel, &B::setMIDIChannel), 1, "button-MIDICh", 17},
    {"knobEnable", &V::knobEnable, &V::setKnobEnable, &V::changeKnobEnableAction, in(&B::Enable, &B::setEnable), 5, "button-enable", 2},
    {"knobCCNumber", &V::knobCCNumber, &V::setKnobCCNumber, &V::changeKnobCCNumberAction, in(&B::CCOrNoteNumber, &B::setCCOrNoteNumber), 5, "select127", 128},
    {"knobUpperOrRightValue", &V::knobUpperOrRightValue, &V::setKnobUpperOrRightValue, &V::changeKnobUpperOrRightValueAction, in(&B::UpperOrRightValue, &B::setUpperOrRightValue), 5, "select127", 128},
    {"knobLowerOrLeftValue", &V::knobLowerOrLeftValue, &V::setKnobLowerOrLeftValue, &V::changeKnobLowerOrLeftValueAction, in(&B::LowerOrLeftValue, &B::setLowerOrLeftValue), 5, "select127", 128},
    {"sliderEnable", &V::sliderEnable, &V::setSliderEnable, &V::changeSliderEnableAction, in(&B::Enable, &B::setEnable), 9, "button-enable", 2},
    {"sliderCCNumber", &V::sliderCCNumber, &V::setSliderCCNumber, &V::changeSliderCCNumberAction, in(&B::CCOrNoteNumber, &B::setCCOrNoteNumber), 9, "select127", 128},
    {"sliderUpperOrRightValue", &V::sliderUpperOrRightValue, &V::setSliderUpperOrRightValue, &V::changeSliderUpperOrRightValueAction, in(&B::UpperOrRightValue, &B::setUpperOrRightValue), 9, "select127", 128},
    {"sliderLowerOrLeftValue", &V::sliderLowerOrLeftValue, &V::setSliderLowerOrLeftValue, &V::changeSliderLowerOrLeftValueAction, in(&B::LowerOrLeftValue, &B::setLowerOrLeftValue), 9, "select127", 128},
    {"padAssignType", &V::padAssignType, &V::setPadAssignType, &V::changePadAssignTypeAction, in(&B::AssignType, &B::setAssignType), 13, "button-assginType", 3},
    {"padCCOrNoteNumber", &V::padCCOrNoteNumber, &V::setPadCCOrNoteNumber, &V::changePadCCOrNoteNumberAction, in(&B::CCOrNoteNumber, &B::setCCOrNoteNumber), 13, "select127", 128},
    {"padOnValue", &V::padOnValue, &V::setPadOnValue, &V::changePadOnValueAction, in(&B::OnValue, &B::setOnValue), 13, "select127", 128},
    {"padOffValue", &V::padOffValue, &V::setPadOffValue, &V::changePadOffValueAction, in(&B::OffValue, &B::setOffValue), 13, "select127", 128},
    {"padPadBehavior", &V::padPadBehavior, &V::setPadPadBehavior, &V::changePadPadBehaviorAction, in(&B::PadBehavior, &B::setPadBehavior), 13, "button-behavior", 5},
    {"padMIDIChannel", &V::padMIDIChannel, &V::setPadMIDIChannel, &V::changePadMIDIChannelAction, in(&B::MIDIChannel, &B::setMIDIChannel), 13, "button-MIDICh", 17},
    {"padCR", &V::padCR, &V::setPadCR, &V::changePadCRAction, in(&B::CR, &B::setCR), 13, "select127", 128},
    {"padCG", &V::padCG, &V::setPadCG, &V::changePadCGAction, in(&B::CG, &B::setCG), 13, "select127", 128},
    {"padCB", &V::padCB, &V::setPadCB, &V::changePadCBAction, in(&B::CB, &B::setCB), 13, "select127", 128},
    {"keyAssignType", &V::keyAssignType, &V::setKeyAssignType, &V::changeKeyAssignTypeAction, in(&B::AssignType, &B::setAssignType), 21, "button-assginType", 3},
    {"keyCCOrNoteNumber", &V::keyCCOrNoteNumber, &V::setKeyCCOrNoteNumber, &V::changeKeyCCOrNoteNumberAction, in(&B::CCOrNoteNumber, &B::setCCOrNoteNumber), 21, "select127", 128},
    {"keyOnValue", &V::keyOnValue, &V::setKeyOnValue, &V::changeKeyOnValueAction, in(&B::OnValue, &B::setOnValue), 21, "select127", 128},
    {"keyOffValue", &V::keyOffValue, &V::setKeyOffValue, &V::changeKeyOffValueAction, in(&B::OffValue, &B::setOffValue), 21, "select127", 128},
    {"keyKeyBehavior", &V::keyKeyBehavior, &V::setKeyKeyBehavior, &V::changeKeyKeyBehaviorAction, in(&B::KeyBehavior, &B::setKeyBehavior), 21, "button-behavior", 5},
}};
// clang-format on

} // namespace scenewright::testing
