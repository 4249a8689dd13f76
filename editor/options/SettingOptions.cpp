#include "editor/options/SettingOptions.h"

#include "model/Control.h"

#include <algorithm>
#include <array>

namespace scenewright {

namespace {

using P = PopUpValue;

struct Row {
    ControlKind kind;
    std::string_view field;
    const OptionList* list;
    const OptionList* noteList; // for the number of a control that sends a note
    std::string_view title;
};

using enum ControlKind;

constexpr auto kRows = std::to_array<Row>({
    {Common, "GlobalMIDICh", &P::common_GlobalMIDICh_ArrayList, nullptr, "Global MIDI channel"},
    {Common, "PianoKeyCh", &P::common_PianoKeyCh_ArrayList, nullptr, "Keyboard MIDI channel"},
    {Common, "PitchBendSpeed", &P::common_PitchBendSpeed_ArrayList, nullptr, "Pitch-bend speed"},
    {Common, "KeyTranspose", &P::common_KeyTranspose_ArrayList, nullptr, "Octave transposition"},
    {Common, "KeyVelocityCurve", &P::common_KeyVelocityCurve_ArrayList, nullptr,
     "Key velocity curve"},
    {Common, "KeyConstVelocity", &P::common_KeyConstVelocity_ArrayList, nullptr,
     "Key constant velocity"},
    {Common, "PadVelocityCurve", &P::common_PadVelocityCurve_ArrayList, nullptr,
     "Pad velocity curve"},
    {Common, "PadConstVelocity", &P::common_PadConstVelocity_ArrayList, nullptr,
     "Pad constant velocity"},
    {Group, "MIDIChannel", &P::group_MIDIChannel_ArrayList, nullptr, "MIDI channel"},
    {Knob, "Enable", &P::knob_Enable_ArrayList, nullptr, "Enabled"},
    {Knob, "CCOrNoteNumber", &P::knob_CCNumber_ArrayList, nullptr, "CC number"},
    {Knob, "UpperOrRightValue", &P::knob_UpperOrRightValue_ArrayList, nullptr, "Right value"},
    {Knob, "LowerOrLeftValue", &P::knob_LowerOrLeftValue_ArrayList, nullptr, "Left value"},
    {Slider, "Enable", &P::slider_Enable_ArrayList, nullptr, "Enabled"},
    {Slider, "CCOrNoteNumber", &P::slider_CCNumber_ArrayList, nullptr, "CC number"},
    {Slider, "UpperOrRightValue", &P::slider_UpperOrRightValue_ArrayList, nullptr, "Upper value"},
    {Slider, "LowerOrLeftValue", &P::slider_LowerOrLeftValue_ArrayList, nullptr, "Lower value"},
    {Pad, "AssignType", &P::pad_AssignType_ArrayList, nullptr, "Type"},
    {Pad, "CCOrNoteNumber", &P::pad_CCNumber_ArrayList, &P::pad_NoteNumber_ArrayList,
     "CC or note number"},
    {Pad, "OnValue", &P::pad_OnValue_ArrayList, nullptr, "On value"},
    {Pad, "OffValue", &P::pad_OffValue_ArrayList, nullptr, "Off value"},
    {Pad, "PadBehavior", &P::pad_PadBehavior_ArrayList, nullptr, "Behavior"},
    {Pad, "MIDIChannel", &P::pad_MIDIChannel_ArrayList, nullptr, "MIDI channel"},
    {Pad, "CR", &P::pad_CR_ArrayList, nullptr, "Red"},
    {Pad, "CG", &P::pad_CG_ArrayList, nullptr, "Green"},
    {Pad, "CB", &P::pad_CB_ArrayList, nullptr, "Blue"},
    {Key, "AssignType", &P::key_AssignType_ArrayList, nullptr, "Type"},
    {Key, "CCOrNoteNumber", &P::key_CCNumber_ArrayList, &P::key_NoteNumber_ArrayList,
     "CC or note number"},
    {Key, "OnValue", &P::key_OnValue_ArrayList, nullptr, "On value"},
    {Key, "OffValue", &P::key_OffValue_ArrayList, nullptr, "Off value"},
    {Key, "KeyBehavior", &P::key_KeyBehavior_ArrayList, nullptr, "Behavior"},
});
static_assert(std::size(kRows) == kSettingCount);

// Null for a field that the kind does not carry.
const Row* rowOf(const Setting& setting) {
    const auto* row = std::ranges::find_if(kRows, [&](const Row& candidate) {
        return candidate.kind == setting.kind() && candidate.field == setting.name();
    });
    return row == kRows.end() ? nullptr : row;
}

std::int32_t assignTypeOf(const SceneValue& scene, const Row& row, std::int32_t member) {
    if (row.noteList == nullptr)
        return kAssignOff;
    const auto position = controlRange(row.kind).start + member - 1;
    return scene.buttonValueArray().at(static_cast<std::size_t>(position))->AssignType();
}

const Titles& listOf(const PopUpValue& lists, const Row& row, std::int32_t assignType) {
    const bool isNote = row.noteList != nullptr && assignType == kAssignNote;
    return (isNote ? row.noteList : row.list)->of(lists);
}

} // namespace

Titles optionList(const PopUpValue& lists, const Setting& setting, std::int32_t assignType) {
    const Row* row = rowOf(setting);
    return row == nullptr ? nullptr : listOf(lists, *row, assignType);
}

std::string optionTitle(const PopUpValue& lists, const Setting& setting, const SceneValue& scene,
                        std::int32_t member) {
    const Row* row = rowOf(setting);
    if (row == nullptr)
        return std::string(kNoTitle);
    const Titles& titles = listOf(lists, *row, assignTypeOf(scene, *row, member));
    const std::string* title = titleAt(titles, setting.read(scene, member));
    return title == nullptr ? std::string(kNoTitle) : *title;
}

std::string_view settingTitle(const Setting& setting) {
    const Row* row = rowOf(setting);
    return row == nullptr ? setting.name() : row->title;
}

} // namespace scenewright
