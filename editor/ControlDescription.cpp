#include "editor/ControlDescription.h"

#include "editor/ControlCondition.h"
#include "editor/options/SettingOptions.h"
#include "model/Control.h"
#include "platform/Words.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace scenewright {

namespace {

// What is said of a kind's setting when the condition holds.
struct Phrase {
    ControlKind kind;
    ControlCondition when;
    OwnText format;
    std::string_view field;
};

using enum ControlKind;
using enum ControlCondition;

constexpr auto kPhrases = std::to_array<Phrase>({
    {Common, Always, ownText("scenewright::Control", "global channel {}"), "GlobalMIDICh"},
    {Common, Always, ownText("scenewright::Control", "keyboard channel {}"), "PianoKeyCh"},
    {Common, Always, ownText("scenewright::Control", "pitch-bend speed {}"), "PitchBendSpeed"},
    {Common, Always, ownText("scenewright::Control", "transposition {}"), "KeyTranspose"},
    {Common, Always, ownText("scenewright::Control", "key velocity curve {}"), "KeyVelocityCurve"},
    {Common, Always, ownText("scenewright::Control", "pad velocity curve {}"), "PadVelocityCurve"},
    {Group, Always, ownText("scenewright::Control", "channel {}"), "MIDIChannel"},
    {Knob, Disabled, ownText("scenewright::Control", "{}"), "Enable"},
    {Knob, Enabled, ownText("scenewright::Control", "CC {}"), "CCOrNoteNumber"},
    {Knob, Enabled, ownText("scenewright::Control", "left {}"), "LowerOrLeftValue"},
    {Knob, Enabled, ownText("scenewright::Control", "right {}"), "UpperOrRightValue"},
    {Slider, Disabled, ownText("scenewright::Control", "{}"), "Enable"},
    {Slider, Enabled, ownText("scenewright::Control", "CC {}"), "CCOrNoteNumber"},
    {Slider, Enabled, ownText("scenewright::Control", "lower {}"), "LowerOrLeftValue"},
    {Slider, Enabled, ownText("scenewright::Control", "upper {}"), "UpperOrRightValue"},
    {Pad, Unassigned, ownText("scenewright::Control", "{}"), "AssignType"},
    {Pad, Controller, ownText("scenewright::Control", "CC {}"), "CCOrNoteNumber"},
    {Pad, Note, ownText("scenewright::Control", "Note {}"), "CCOrNoteNumber"},
    {Pad, Assigned, ownText("scenewright::Control", "channel {}"), "MIDIChannel"},
    {Pad, Assigned, ownText("scenewright::Control", "behavior {}"), "PadBehavior"},
    {Pad, Controller, ownText("scenewright::Control", "on {}"), "OnValue"},
    {Pad, Controller, ownText("scenewright::Control", "off {}"), "OffValue"},
    {Pad, Always, ownText("scenewright::Control", "red {}"), "CR"},
    {Pad, Always, ownText("scenewright::Control", "green {}"), "CG"},
    {Pad, Always, ownText("scenewright::Control", "blue {}"), "CB"},
    {Key, Unassigned, ownText("scenewright::Control", "{}"), "AssignType"},
    {Key, Controller, ownText("scenewright::Control", "CC {}"), "CCOrNoteNumber"},
    {Key, Note, ownText("scenewright::Control", "Note {}"), "CCOrNoteNumber"},
    {Key, Assigned, ownText("scenewright::Control", "behavior {}"), "KeyBehavior"},
    {Key, Controller, ownText("scenewright::Control", "on {}"), "OnValue"},
    {Key, Controller, ownText("scenewright::Control", "off {}"), "OffValue"},
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
        title = say(ownText("scenewright::Control", "unknown"));
    return say(phrase.format, title);
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
        return say(ownText("scenewright::Control", "Control {}"), index);
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
