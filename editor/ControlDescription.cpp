#include "editor/ControlDescription.h"

#include "editor/ControlCondition.h"
#include "editor/options/SettingOptions.h"
#include "model/Control.h"
#include "platform/Translator.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace scenewright {

namespace {

// What is said of a kind's setting when the condition holds.
struct Phrase {
    ControlKind kind;
    ControlCondition when;
    SourceText format;
    std::string_view field;
};

using enum ControlKind;
using enum ControlCondition;

constexpr auto kPhrases = std::to_array<Phrase>({
    {Common, Always, sourceText("scenewright::Control", "global channel {}"), "GlobalMIDICh"},
    {Common, Always, sourceText("scenewright::Control", "keyboard channel {}"), "PianoKeyCh"},
    {Common, Always, sourceText("scenewright::Control", "pitch-bend speed {}"), "PitchBendSpeed"},
    {Common, Always, sourceText("scenewright::Control", "transposition {}"), "KeyTranspose"},
    {Common, Always, sourceText("scenewright::Control", "key velocity curve {}"),
     "KeyVelocityCurve"},
    {Common, Always, sourceText("scenewright::Control", "pad velocity curve {}"),
     "PadVelocityCurve"},
    {Group, Always, sourceText("scenewright::Control", "channel {}"), "MIDIChannel"},
    {Knob, Disabled, sourceText("scenewright::Control", "{}"), "Enable"},
    {Knob, Enabled, sourceText("scenewright::Control", "CC {}"), "CCOrNoteNumber"},
    {Knob, Enabled, sourceText("scenewright::Control", "left {}"), "LowerOrLeftValue"},
    {Knob, Enabled, sourceText("scenewright::Control", "right {}"), "UpperOrRightValue"},
    {Slider, Disabled, sourceText("scenewright::Control", "{}"), "Enable"},
    {Slider, Enabled, sourceText("scenewright::Control", "CC {}"), "CCOrNoteNumber"},
    {Slider, Enabled, sourceText("scenewright::Control", "lower {}"), "LowerOrLeftValue"},
    {Slider, Enabled, sourceText("scenewright::Control", "upper {}"), "UpperOrRightValue"},
    {Pad, Unassigned, sourceText("scenewright::Control", "{}"), "AssignType"},
    {Pad, Controller, sourceText("scenewright::Control", "CC {}"), "CCOrNoteNumber"},
    {Pad, Note, sourceText("scenewright::Control", "Note {}"), "CCOrNoteNumber"},
    {Pad, Assigned, sourceText("scenewright::Control", "channel {}"), "MIDIChannel"},
    {Pad, Assigned, sourceText("scenewright::Control", "behavior {}"), "PadBehavior"},
    {Pad, Controller, sourceText("scenewright::Control", "on {}"), "OnValue"},
    {Pad, Controller, sourceText("scenewright::Control", "off {}"), "OffValue"},
    {Pad, Always, sourceText("scenewright::Control", "red {}"), "CR"},
    {Pad, Always, sourceText("scenewright::Control", "green {}"), "CG"},
    {Pad, Always, sourceText("scenewright::Control", "blue {}"), "CB"},
    {Key, Unassigned, sourceText("scenewright::Control", "{}"), "AssignType"},
    {Key, Controller, sourceText("scenewright::Control", "CC {}"), "CCOrNoteNumber"},
    {Key, Note, sourceText("scenewright::Control", "Note {}"), "CCOrNoteNumber"},
    {Key, Assigned, sourceText("scenewright::Control", "behavior {}"), "KeyBehavior"},
    {Key, Controller, sourceText("scenewright::Control", "on {}"), "OnValue"},
    {Key, Controller, sourceText("scenewright::Control", "off {}"), "OffValue"},
});

// Null for a record that the scene does not hold. The common settings have no control's record, so
// an empty one stands for them; their phrases ask for none.
const ButtonValue* recordOf(const SceneValue& scene, std::int32_t index) {
    static const ButtonValue kNone;
    if (index == 0)
        return scene.commonValue() ? &kNone : nullptr;
    const auto& records = scene.buttonValueArray();
    const auto position = static_cast<std::size_t>(index) - 1;
    return position < records.size() ? records[position].get() : nullptr;
}

std::string phraseText(const Phrase& phrase, const PopUpValue& lists, const SceneValue& scene,
                       std::int32_t member) {
    const Setting* setting = findSetting(phrase.kind, phrase.field);
    std::string title =
        setting == nullptr ? std::string(kNoTitle) : optionTitle(lists, *setting, scene, member);
    if (title == kNoTitle)
        title = translated(sourceText("scenewright::Control", "unknown"));
    return translated(phrase.format, title);
}

std::uint8_t scaledToFull(std::int32_t level) {
    constexpr std::int32_t kFullLevel = 127;
    constexpr std::int32_t kFullColour = 255;
    return static_cast<std::uint8_t>(std::clamp(level, 0, kFullLevel) * kFullColour / kFullLevel);
}

} // namespace

std::string controlName(std::int32_t index) {
    const ControlRange* range = controlRangeOf(index);
    if (range == nullptr)
        return translated(sourceText("scenewright::Control", "Control {}"), index);
    std::string name = kindTitle(range->kind);
    return range->count == 1 ? name : fmt::format("{} {}", name, index - range->start + 1);
}

std::string describeControl(const PopUpValue& lists, const SceneValue& scene, std::int32_t index) {
    std::string text = controlName(index);
    const ControlRange* range = controlRangeOf(index);
    const ButtonValue* record = range == nullptr ? nullptr : recordOf(scene, index);
    if (record == nullptr)
        return text;
    const char* separator = ": ";
    for (const Phrase& phrase : kPhrases) {
        if (phrase.kind != range->kind || !holds(phrase.when, *record))
            continue;
        text += separator + phraseText(phrase, lists, scene, index - range->start);
        separator = ", ";
    }
    return text;
}

Colour padColour(const ButtonValue& record) {
    return {scaledToFull(record.CR()), scaledToFull(record.CG()), scaledToFull(record.CB())};
}

} // namespace scenewright
