// The 31 value popups of the editor as data. Their outlets and actions, filling them, showing a
// record in them and writing a choice back all follow from these rows.
#pragma once

#include "editor/Widgets.h"
#include "model/SceneValue.h"
#include "model/Setting.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace scenewright {

class ViewController;

struct ValuePopUp {
    std::string_view name; // of the outlet
    const Setting* setting = nullptr;
    PopUp* (ViewController::*read)() const = nullptr;
    void (ViewController::*write)(PopUp*) = nullptr;
    void (ViewController::*action)(const PopUp& sender) = nullptr;

    [[nodiscard]] constexpr ControlKind pane() const { return setting->kind(); }
};

// In the order in which the popups are filled.
[[nodiscard]] std::span<const ValuePopUp> valuePopUps();

// The same rows in the order in which a pane selects its values.
[[nodiscard]] std::span<const ValuePopUp> valuePopUpsAsShown();

// The popup whose list depends on the value of this one, an assign type; null for any other.
[[nodiscard]] const ValuePopUp* numberPopUpOf(const ValuePopUp& driver);

// What comes with making a control send notes: a number beyond the list of notes becomes its last.
// Compared without a sign, so that the mark of an absent field counts as beyond; the number of
// entries itself is let through, as ever.
void clampNote(ButtonValue& record, const Titles& notes);

// Nothing where the value of the driver decides nothing: the popup stays as it is.
[[nodiscard]] std::optional<bool> isEnabled(EnableWhen when, std::int32_t value);

} // namespace scenewright

// The setting of each popup by kind and field, its outlet, the outlet's writer, and the action of a
// user's choice in it; in the order in which the popups are filled.
// clang-format off
#define SCENEWRIGHT_VALUE_POPUPS(Row) \
    Row(Common, GlobalMIDICh, commonGlobalMIDICh, setCommonGlobalMIDICh, changeCommonGlobalMIDIChAction) \
    Row(Common, PianoKeyCh, commonPianoKeyCh, setCommonPianoKeyCh, changeCommonPianoKeyChAction) \
    Row(Common, PitchBendSpeed, commonPitchBendSpeed, setCommonPitchBendSpeed, changeCommonPitchBendSpeedAction) \
    Row(Common, KeyTranspose, commonKeyTranspose, setCommonKeyTranspose, changeCommonKeyTransposeAction) \
    Row(Common, KeyVelocityCurve, commonKeyVelocityCurve, setCommonKeyVelocityCurve, changeCommonKeyVelocityCurveAction) \
    Row(Common, KeyConstVelocity, commonKeyConstVelocity, setCommonKeyConstVelocity, changeCommonKeyConstVelocityAction) \
    Row(Common, PadVelocityCurve, commonPadVelocityCurve, setCommonPadVelocityCurve, changeCommonPadVelocityCurveAction) \
    Row(Common, PadConstVelocity, commonPadConstVelocity, setCommonPadConstVelocity, changeCommonPadConstVelocityAction) \
    Row(Group, MIDIChannel, groupMIDIChannel, setGroupMIDIChannel, changeGroupMIDIChannelAction) \
    Row(Knob, Enable, knobEnable, setKnobEnable, changeKnobEnableAction) \
    Row(Knob, CCOrNoteNumber, knobCCNumber, setKnobCCNumber, changeKnobCCNumberAction) \
    Row(Knob, UpperOrRightValue, knobUpperOrRightValue, setKnobUpperOrRightValue, changeKnobUpperOrRightValueAction) \
    Row(Knob, LowerOrLeftValue, knobLowerOrLeftValue, setKnobLowerOrLeftValue, changeKnobLowerOrLeftValueAction) \
    Row(Slider, Enable, sliderEnable, setSliderEnable, changeSliderEnableAction) \
    Row(Slider, CCOrNoteNumber, sliderCCNumber, setSliderCCNumber, changeSliderCCNumberAction) \
    Row(Slider, UpperOrRightValue, sliderUpperOrRightValue, setSliderUpperOrRightValue, changeSliderUpperOrRightValueAction) \
    Row(Slider, LowerOrLeftValue, sliderLowerOrLeftValue, setSliderLowerOrLeftValue, changeSliderLowerOrLeftValueAction) \
    Row(Pad, AssignType, padAssignType, setPadAssignType, changePadAssignTypeAction) \
    Row(Pad, CCOrNoteNumber, padCCOrNoteNumber, setPadCCOrNoteNumber, changePadCCOrNoteNumberAction) \
    Row(Pad, OnValue, padOnValue, setPadOnValue, changePadOnValueAction) \
    Row(Pad, OffValue, padOffValue, setPadOffValue, changePadOffValueAction) \
    Row(Pad, PadBehavior, padPadBehavior, setPadPadBehavior, changePadPadBehaviorAction) \
    Row(Pad, MIDIChannel, padMIDIChannel, setPadMIDIChannel, changePadMIDIChannelAction) \
    Row(Pad, CR, padCR, setPadCR, changePadCRAction) \
    Row(Pad, CG, padCG, setPadCG, changePadCGAction) \
    Row(Pad, CB, padCB, setPadCB, changePadCBAction) \
    Row(Key, AssignType, keyAssignType, setKeyAssignType, changeKeyAssignTypeAction) \
    Row(Key, CCOrNoteNumber, keyCCOrNoteNumber, setKeyCCOrNoteNumber, changeKeyCCOrNoteNumberAction) \
    Row(Key, OnValue, keyOnValue, setKeyOnValue, changeKeyOnValueAction) \
    Row(Key, OffValue, keyOffValue, setKeyOffValue, changeKeyOffValueAction) \
    Row(Key, KeyBehavior, keyKeyBehavior, setKeyKeyBehavior, changeKeyKeyBehaviorAction)
// clang-format on

// The declaration of a row's popup in the view: an outlet property of type PopUp*, null until set;
// the action, to be called when the user has chosen an entry; and the row as a constant, padCRPopUp
// for padCR. It leaves the class in private access behind it.
// NOLINTBEGIN(bugprone-macro-parentheses): the arguments are names
#define SCENEWRIGHT_VALUE_POPUP(Kind, Field, Name, SetName, Action)                                \
    SCENEWRIGHT_PROPERTY(PopUp*, Name, SetName)                                                    \
public:                                                                                            \
    void Action(const PopUp& sender) {                                                             \
        changeValue(sender, Name##PopUp);                                                          \
    }                                                                                              \
    static constexpr ValuePopUp Name##PopUp{#Name, findSetting(ControlKind::Kind, #Field),         \
                                            &ViewController::Name, &ViewController::SetName,       \
                                            &ViewController::Action};                              \
                                                                                                   \
private:
// NOLINTEND(bugprone-macro-parentheses)
