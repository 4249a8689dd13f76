#include "editor/ControlDescription.h"

#include "editor/ControlCondition.h"
#include "editor/options/SettingOptions.h"
#include "model/Control.h"

#include <fmt/printf.h>

#include <algorithm>
#include <array>
#include <cctype>

namespace scenewright {

namespace {

// What is said of a kind's setting when the condition holds.
struct Phrase {
    ControlKind kind;
    ControlCondition when;
    const char* format;
    std::string_view field;
};

using enum ControlKind;
using enum ControlCondition;

constexpr auto kPhrases = std::to_array<Phrase>({
    {Common, Always, "global channel %s", "GlobalMIDICh"},
    {Common, Always, "keyboard channel %s", "PianoKeyCh"},
    {Common, Always, "pitch-bend speed %s", "PitchBendSpeed"},
    {Common, Always, "transposition %s", "KeyTranspose"},
    {Common, Always, "key velocity curve %s", "KeyVelocityCurve"},
    {Common, Always, "pad velocity curve %s", "PadVelocityCurve"},
    {Group, Always, "channel %s", "MIDIChannel"},
    {Knob, Disabled, "%s", "Enable"},
    {Knob, Enabled, "CC %s", "CCOrNoteNumber"},
    {Knob, Enabled, "left %s", "LowerOrLeftValue"},
    {Knob, Enabled, "right %s", "UpperOrRightValue"},
    {Slider, Disabled, "%s", "Enable"},
    {Slider, Enabled, "CC %s", "CCOrNoteNumber"},
    {Slider, Enabled, "lower %s", "LowerOrLeftValue"},
    {Slider, Enabled, "upper %s", "UpperOrRightValue"},
    {Pad, Unassigned, "%s", "AssignType"},
    {Pad, Controller, "CC %s", "CCOrNoteNumber"},
    {Pad, Note, "Note %s", "CCOrNoteNumber"},
    {Pad, Assigned, "channel %s", "MIDIChannel"},
    {Pad, Assigned, "behavior %s", "PadBehavior"},
    {Pad, Controller, "on %s", "OnValue"},
    {Pad, Controller, "off %s", "OffValue"},
    {Pad, Always, "red %s", "CR"},
    {Pad, Always, "green %s", "CG"},
    {Pad, Always, "blue %s", "CB"},
    {Key, Unassigned, "%s", "AssignType"},
    {Key, Controller, "CC %s", "CCOrNoteNumber"},
    {Key, Note, "Note %s", "CCOrNoteNumber"},
    {Key, Assigned, "behavior %s", "KeyBehavior"},
    {Key, Controller, "on %s", "OnValue"},
    {Key, Controller, "off %s", "OffValue"},
});

std::string capitalised(std::string_view word) {
    std::string text(word);
    text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
    return text;
}

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

std::string say(const Phrase& phrase, const PopUpValue& lists, const SceneValue& scene,
                std::int32_t member, Words words) {
    const Setting* setting = findSetting(phrase.kind, phrase.field);
    std::string title =
        setting == nullptr ? std::string(kNoTitle) : optionTitle(lists, *setting, scene, member);
    return fmt::sprintf(words(phrase.format), title == kNoTitle ? words("unknown") : title);
}

std::uint8_t scaledToFull(std::int32_t level) {
    constexpr std::int32_t kFullLevel = 127;
    constexpr std::int32_t kFullColour = 255;
    return static_cast<std::uint8_t>(std::clamp(level, 0, kFullLevel) * kFullColour / kFullLevel);
}

} // namespace

std::string controlName(std::int32_t index, Words words) {
    const ControlRange* range = controlRangeOf(index);
    if (range == nullptr)
        return fmt::sprintf(words("Control %d"), index);
    const std::string name = words(capitalised(range->name).c_str());
    return range->count == 1 ? name : fmt::sprintf("%s %d", name, index - range->start + 1);
}

std::string describeControl(const PopUpValue& lists, const SceneValue& scene, std::int32_t index,
                            Words words) {
    std::string text = controlName(index, words);
    const ControlRange* range = controlRangeOf(index);
    const ButtonValue* record = range == nullptr ? nullptr : recordOf(scene, index);
    if (record == nullptr)
        return text;
    const char* separator = ": ";
    for (const Phrase& phrase : kPhrases) {
        if (phrase.kind != range->kind || !holds(phrase.when, *record))
            continue;
        text += separator + say(phrase, lists, scene, index - range->start, words);
        separator = ", ";
    }
    return text;
}

Colour padColour(const ButtonValue& record) {
    return {scaledToFull(record.CR()), scaledToFull(record.CG()), scaledToFull(record.CB())};
}

} // namespace scenewright
