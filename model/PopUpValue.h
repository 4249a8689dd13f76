// The option lists of the editor: which titles each popup offers, in the order of the stored index.
//
// A plain record of 47 lists. Lists are shared, read-only, and hold UTF-8 titles; several
// properties hold the same list object, because they are read from the same key. A property is null
// when the resource lacks its key. Main thread only; a list itself may be read by any thread.
#pragma once

#include "model/SceneValue.h"
#include "platform/Text.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scenewright {

class PopUpValue;

using Titles = std::shared_ptr<const std::vector<std::string>>;

// One list of PopUpValue as data: what it is called, and the key of basic.plist that fills it.
struct OptionList {
    std::string_view name;
    std::string_view key;
    const Titles& (PopUpValue::*read)() const;
    void (PopUpValue::*write)(Titles);

    [[nodiscard]] const Titles& of(const PopUpValue& lists) const { return (lists.*read)(); }
    void set(PopUpValue& lists, Titles titles) const { (lists.*write)(std::move(titles)); }
};

// Every list: its reader, its writer and its key.
// clang-format off
#define SCENEWRIGHT_OPTION_LISTS(LIST)                                                             \
    LIST(display_Select_Array, setDisplay_Select_Array, "displaySelect")                           \
    LIST(control_Array, setControl_Array, "control")                                               \
    LIST(display_MIDIChannel_Array, setDisplay_MIDIChannel_Array, "button-MIDICh")                 \
    LIST(display_AssignType_Array, setDisplay_AssignType_Array, "button-assginType")               \
    LIST(display_CCNumber_Array, setDisplay_CCNumber_Array, "select127")                           \
    LIST(display_NoteNumber_Array, setDisplay_NoteNumber_Array, "button-note")                     \
    LIST(display_UpperOrRightValue_Array, setDisplay_UpperOrRightValue_Array, "select127")         \
    LIST(display_LowerOrLeftValue_Array, setDisplay_LowerOrLeftValue_Array, "select127")           \
    LIST(display_PadBehavior_Array, setDisplay_PadBehavior_Array, "button-behavior")               \
    LIST(display_KeyBehavior_Array, setDisplay_KeyBehavior_Array, "button-behavior")               \
    LIST(display_OnValue_Array, setDisplay_OnValue_Array, "select127")                             \
    LIST(display_OffValue_Array, setDisplay_OffValue_Array, "select127")                           \
    LIST(display_Enable_Array, setDisplay_Enable_Array, "button-enable")                           \
    LIST(common_SceneName_Array, setCommon_SceneName_Array, "common-sceneName")                    \
    LIST(common_GlobalMIDICh_Array, setCommon_GlobalMIDICh_Array, "common-globalMIDICh")           \
    LIST(common_PianoKeyCh_Array, setCommon_PianoKeyCh_Array, "common-pianoKeyCh")                 \
    LIST(common_PitchBendSpeed_Array, setCommon_PitchBendSpeed_Array, "common-PitchBendSpeed")     \
    LIST(common_KeyTranspose_Array, setCommon_KeyTranspose_Array, "common-keyTranspose")           \
    LIST(common_KeyVelocityCurve_Array, setCommon_KeyVelocityCurve_Array, "common-velocityCurve")  \
    LIST(common_KeyConstVelocity_Array, setCommon_KeyConstVelocity_Array, "select127")             \
    LIST(common_PadVelocityCurve_Array, setCommon_PadVelocityCurve_Array, "common-velocityCurve")  \
    LIST(common_PadConstVelocity_Array, setCommon_PadConstVelocity_Array, "select127")             \
    LIST(group_MIDIChannel_Array, setGroup_MIDIChannel_Array, "button-MIDICh")                     \
    LIST(knob_Enable_Array, setKnob_Enable_Array, "button-enable")                                 \
    LIST(knob_CCNumber_Array, setKnob_CCNumber_Array, "select127")                                 \
    LIST(knob_UpperOrRightValue_Array, setKnob_UpperOrRightValue_Array, "select127")               \
    LIST(knob_LowerOrLeftValue_Array, setKnob_LowerOrLeftValue_Array, "select127")                 \
    LIST(slider_Enable_Array, setSlider_Enable_Array, "button-enable")                             \
    LIST(slider_CCNumber_Array, setSlider_CCNumber_Array, "select127")                             \
    LIST(slider_UpperOrRightValue_Array, setSlider_UpperOrRightValue_Array, "select127")           \
    LIST(slider_LowerOrLeftValue_Array, setSlider_LowerOrLeftValue_Array, "select127")             \
    LIST(pad_AssignType_Array, setPad_AssignType_Array, "button-assginType")                       \
    LIST(pad_CCNumber_Array, setPad_CCNumber_Array, "select127")                                   \
    LIST(pad_NoteNumber_Array, setPad_NoteNumber_Array, "button-note")                             \
    LIST(pad_OnValue_Array, setPad_OnValue_Array, "select127")                                     \
    LIST(pad_OffValue_Array, setPad_OffValue_Array, "select127")                                   \
    LIST(pad_PadBehavior_Array, setPad_PadBehavior_Array, "button-behavior")                       \
    LIST(pad_MIDIChannel_Array, setPad_MIDIChannel_Array, "button-MIDICh")                         \
    LIST(pad_CR_Array, setPad_CR_Array, "select127")                                               \
    LIST(pad_CG_Array, setPad_CG_Array, "select127")                                               \
    LIST(pad_CB_Array, setPad_CB_Array, "select127")                                               \
    LIST(key_AssignType_Array, setKey_AssignType_Array, "button-assginType")                       \
    LIST(key_CCNumber_Array, setKey_CCNumber_Array, "select127")                                   \
    LIST(key_NoteNumber_Array, setKey_NoteNumber_Array, "button-note")                             \
    LIST(key_OnValue_Array, setKey_OnValue_Array, "select127")                                     \
    LIST(key_OffValue_Array, setKey_OffValue_Array, "select127")                                   \
    LIST(key_KeyBehavior_Array, setKey_KeyBehavior_Array, "button-behavior")
// clang-format on

// NOLINTBEGIN(bugprone-macro-parentheses): the arguments are names
// A list property with its reader and writer, and the constant by which a table names it:
// PopUpValue::pad_CR_ArrayList.
#define SCENEWRIGHT_OPTION_LIST(Name, SetName, Key)                                                \
    SCENEWRIGHT_PROPERTY(Titles, Name, SetName)                                                    \
public:                                                                                            \
    static constexpr OptionList Name##List{#Name, Key, &PopUpValue::Name, &PopUpValue::SetName};   \
                                                                                                   \
private:
// NOLINTEND(bugprone-macro-parentheses)

class PopUpValue {
    SCENEWRIGHT_OPTION_LISTS(SCENEWRIGHT_OPTION_LIST)
};

// Every list, in the order of declaration.
[[nodiscard]] std::span<const OptionList> optionLists();

// A new holder, filled from the resource basic.plist. A missing key, or one that holds no array,
// leaves its properties null; a missing resource leaves all of them null. An element that is no
// text keeps its position with an empty title.
[[nodiscard]] std::shared_ptr<PopUpValue> loadPopUpValue();

// The same in the words of the person's language, for what a window shows: a list that the file of
// the language has too, basic_de.plist for German, in the same length, has its titles. Where
// basic.plist is found in an earlier folder than that file, it is the user's, and stays as it is.
[[nodiscard]] std::shared_ptr<PopUpValue> loadShownPopUpValue();

// Whether the file of the language can be read, and has its lists in the length of basic.plist's;
// true without one. The error is one sentence that names the file, whose titles are left out then.
[[nodiscard]] Result<void> checkShownTitles();

// The titles of a list in basic.plist where the person's language has its own words for them; empty
// where what is shown is what is written. Read once; main thread.
[[nodiscard]] std::span<const std::string_view> writtenTitles(const OptionList& list);

// As loadPopUpValue(), or one sentence that names the file: it cannot be read, or one of its lists
// has fewer titles than the keyboard's settings need.
[[nodiscard]] Result<std::shared_ptr<PopUpValue>> readPopUpValue();

// The title at a position; null when the list is null or has no such position.
[[nodiscard]] const std::string* titleAt(const Titles& titles, std::int32_t position);

} // namespace scenewright
