#include "model/Setting.h"

#include "platform/Translator.h"

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
    SourceText title;
};

using enum ControlKind;

constexpr auto kRows = std::to_array<Row>({
    {Common, "GlobalMIDICh", &P::common_GlobalMIDICh_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Global MIDI channel")},
    {Common, "PianoKeyCh", &P::common_PianoKeyCh_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Keyboard MIDI channel")},
    {Common, "PitchBendSpeed", &P::common_PitchBendSpeed_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Pitch-bend speed")},
    {Common, "KeyTranspose", &P::common_KeyTranspose_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Octave transposition")},
    {Common, "KeyVelocityCurve", &P::common_KeyVelocityCurve_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Key velocity curve")},
    {Common, "KeyConstVelocity", &P::common_KeyConstVelocity_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Key constant velocity")},
    {Common, "PadVelocityCurve", &P::common_PadVelocityCurve_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Pad velocity curve")},
    {Common, "PadConstVelocity", &P::common_PadConstVelocity_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Pad constant velocity")},
    {Group, "MIDIChannel", &P::group_MIDIChannel_ArrayList, nullptr,
     sourceText("scenewright::Setting", "MIDI channel")},
    {Knob, "Enable", &P::knob_Enable_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Enabled")},
    {Knob, "CCOrNoteNumber", &P::knob_CCNumber_ArrayList, nullptr,
     sourceText("scenewright::Setting", "CC number")},
    {Knob, "UpperOrRightValue", &P::knob_UpperOrRightValue_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Right value")},
    {Knob, "LowerOrLeftValue", &P::knob_LowerOrLeftValue_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Left value")},
    {Slider, "Enable", &P::slider_Enable_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Enabled")},
    {Slider, "CCOrNoteNumber", &P::slider_CCNumber_ArrayList, nullptr,
     sourceText("scenewright::Setting", "CC number")},
    {Slider, "UpperOrRightValue", &P::slider_UpperOrRightValue_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Upper value")},
    {Slider, "LowerOrLeftValue", &P::slider_LowerOrLeftValue_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Lower value")},
    {Pad, "AssignType", &P::pad_AssignType_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Type")},
    {Pad, "CCOrNoteNumber", &P::pad_CCNumber_ArrayList, &P::pad_NoteNumber_ArrayList,
     sourceText("scenewright::Setting", "CC or note number")},
    {Pad, "OnValue", &P::pad_OnValue_ArrayList, nullptr,
     sourceText("scenewright::Setting", "On value")},
    {Pad, "OffValue", &P::pad_OffValue_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Off value")},
    {Pad, "PadBehavior", &P::pad_PadBehavior_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Behavior")},
    {Pad, "MIDIChannel", &P::pad_MIDIChannel_ArrayList, nullptr,
     sourceText("scenewright::Setting", "MIDI channel")},
    {Pad, "CR", &P::pad_CR_ArrayList, nullptr, sourceText("scenewright::Setting", "Red")},
    {Pad, "CG", &P::pad_CG_ArrayList, nullptr, sourceText("scenewright::Setting", "Green")},
    {Pad, "CB", &P::pad_CB_ArrayList, nullptr, sourceText("scenewright::Setting", "Blue")},
    {Key, "AssignType", &P::key_AssignType_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Type")},
    {Key, "CCOrNoteNumber", &P::key_CCNumber_ArrayList, &P::key_NoteNumber_ArrayList,
     sourceText("scenewright::Setting", "CC or note number")},
    {Key, "OnValue", &P::key_OnValue_ArrayList, nullptr,
     sourceText("scenewright::Setting", "On value")},
    {Key, "OffValue", &P::key_OffValue_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Off value")},
    {Key, "KeyBehavior", &P::key_KeyBehavior_ArrayList, nullptr,
     sourceText("scenewright::Setting", "Behavior")},
});
static_assert(std::size(kRows) == kSettingCount);

// In the order of the kinds.
constexpr std::array kKindTitles{
    sourceText("scenewright::Control", "Common"), sourceText("scenewright::Control", "Group"),
    sourceText("scenewright::Control", "Knob"),   sourceText("scenewright::Control", "Slider"),
    sourceText("scenewright::Control", "Pad"),    sourceText("scenewright::Control", "Key"),
};
static_assert(kKindTitles.size() == std::size(kControlRanges));

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
    const auto position = static_cast<std::size_t>(controlRange(row.kind).start + member - 1);
    const auto& records = scene.buttonValueArray();
    return position < records.size() ? records[position]->AssignType() : kAssignOff;
}

const Titles& listOf(const PopUpValue& lists, const Row& row, std::int32_t assignType) {
    const bool isNote = row.noteList != nullptr && assignType == kAssignNote;
    return (isNote ? row.noteList : row.list)->of(lists);
}

} // namespace

ButtonValue* Setting::button(const SceneValue& scene, std::int32_t member) const {
    const ControlRange& range = controlRange(kind_);
    const auto& buttons = scene.buttonValueArray();
    // Control 0 is the common settings, so the first element of the array is control 1.
    const std::int32_t element = range.start + member - 1;
    if (member < 0 || member >= range.count || static_cast<std::size_t>(element) >= buttons.size())
        return nullptr;
    return buttons[static_cast<std::size_t>(element)].get();
}

std::int32_t Setting::read(const SceneValue& scene, std::int32_t member) const {
    if (commonField_ != nullptr)
        return scene.commonValue() ? commonField_->of(*scene.commonValue()) : kFieldAbsent;
    const ButtonValue* const record = button(scene, member);
    return record != nullptr ? buttonField_->of(*record) : kFieldAbsent;
}

void Setting::write(const SceneValue& scene, std::int32_t member, std::int32_t value) const {
    if (commonField_ != nullptr) {
        if (scene.commonValue())
            commonField_->set(*scene.commonValue(), value);
    } else if (ButtonValue* const record = button(scene, member); record != nullptr) {
        buttonField_->set(*record, value);
    }
}

const Setting* findSetting(ControlKind kind, std::string_view name) {
    const auto* const found = std::ranges::find_if(kSettings, [&](const Setting& setting) {
        return setting.kind() == kind && setting.name() == name;
    });
    return found != kSettings.end() ? &*found : nullptr;
}

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

std::string settingTitle(const Setting& setting) {
    const Row* row = rowOf(setting);
    return row == nullptr ? std::string(setting.name()) : translated(row->title);
}

std::string kindTitle(ControlKind kind) {
    return translated(kKindTitles.at(static_cast<std::size_t>(kind)));
}

} // namespace scenewright
