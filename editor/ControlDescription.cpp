#include "editor/ControlDescription.h"

#include "model/ControlOutput.h"
#include "model/Midi.h"
#include "model/SceneValue.h"
#include "model/Setting.h"
#include "platform/Diagnostics.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace scenewright {

namespace {

// The kinds that a row holds for, as a set.
enum KindSet : std::uint8_t {
    kTravel = 1, // knobs and sliders
    kPads = 2,
    kKeys = 4,
    kGroups = 8,
    kAssigned = kPads | kKeys,
    kAllButGroups = kTravel | kAssigned,
};

constexpr std::uint8_t setOf(ControlKind kind) {
    switch (kind) {
    case ControlKind::Common:
        return 0;
    case ControlKind::Group:
        return kGroups;
    case ControlKind::Knob:
    case ControlKind::Slider:
        return kTravel;
    case ControlKind::Pad:
        return kPads;
    case ControlKind::Key:
        return kKeys;
    }
    return 0;
}

constexpr std::int32_t kAnyMode = -1;

// What a control shows in a mode when the condition holds. Without a field the format is the title.
struct Row {
    std::int32_t mode = kAnyMode;
    std::uint8_t kinds = 0;
    ControlCondition when = ControlCondition::Always;
    SourceText format{};
    const IndexField<ButtonValue>* field = nullptr;
    const OptionList* list = nullptr;
};

using B = ButtonValue;
using P = PopUpValue;
using enum ControlCondition;

constexpr SourceText kTitleAlone{"", "%s"}; // no words of ours

// Off values are looked up in the on values' list and the reverse; keys are asked for `Enable`, not
// for their assign type, in modes 3 and 4; knobs and sliders show `KeyBehavior` in mode 5. All
// three are what the editor has always shown.
// clang-format off
constexpr auto kSummaryRows = std::to_array<Row>({
    {kAnyMode, kGroups, Always, kTitleAlone, &B::MIDIChannelField, &P::display_MIDIChannel_ArrayList},
    {0, kPads, Assigned, kTitleAlone, &B::MIDIChannelField, &P::display_MIDIChannel_ArrayList},
    {0, kTravel | kKeys, Always, kTitleAlone, &B::MIDIChannelField, &P::display_MIDIChannel_ArrayList},
    {1, kTravel, Always, kTitleAlone, &B::EnableField, &P::display_Enable_ArrayList},
    {1, kAssigned, Controller, sourceText("scenewright::Picture", "CC")},
    {1, kAssigned, Note, sourceText("scenewright::Picture", "Note")},
    {2, kAssigned, Controller, sourceText("scenewright::Picture", "CC#\n%s"), &B::CCOrNoteNumberField, &P::display_CCNumber_ArrayList},
    {2, kAssigned, Note, sourceText("scenewright::Picture", "Note\n%s"), &B::CCOrNoteNumberField, &P::display_NoteNumber_ArrayList},
    {2, kTravel, Enabled, sourceText("scenewright::Picture", "CC#\n%s"), &B::CCOrNoteNumberField, &P::display_CCNumber_ArrayList},
    {3, kAllButGroups, Enabled, sourceText("scenewright::Picture", "L/L\n%s"), &B::LowerOrLeftValueField, &P::display_LowerOrLeftValue_ArrayList},
    {4, kAllButGroups, Enabled, sourceText("scenewright::Picture", "U/R\n%s"), &B::UpperOrRightValueField, &P::display_UpperOrRightValue_ArrayList},
    {5, kPads, Assigned, kTitleAlone, &B::PadBehaviorField, &P::display_PadBehavior_ArrayList},
    {5, kKeys, Assigned, kTitleAlone, &B::KeyBehaviorField, &P::display_KeyBehavior_ArrayList},
    {5, kTravel, Enabled, kTitleAlone, &B::KeyBehaviorField, &P::display_KeyBehavior_ArrayList},
    {6, kAssigned, Controller, sourceText("scenewright::Picture", "OFF\n%s"), &B::OffValueField, &P::display_OnValue_ArrayList},
    {6, kTravel, Enabled, sourceText("scenewright::Picture", "OFF\n%s"), &B::OffValueField, &P::display_OnValue_ArrayList},
    {7, kAssigned, Controller, sourceText("scenewright::Picture", "ON\n%s"), &B::OnValueField, &P::display_OffValue_ArrayList},
    {7, kTravel, Enabled, sourceText("scenewright::Picture", "ON\n%s"), &B::OnValueField, &P::display_OffValue_ArrayList},
});
// clang-format on

constexpr const char* kNothing = "---";

std::string summaryOf(const Row& row, const PopUpValue& lists, const ButtonValue& record) {
    std::string format = translated(row.format);
    if (row.field == nullptr)
        return format;
    const std::string* title = titleAt(row.list->of(lists), row.field->of(record));
    return title == nullptr ? kNothing : printfText(format, *title);
}

// What is said of a setting; the phrases of a kind follow each other by their place.
struct SettingPhrase {
    const Setting* setting = nullptr;
    const Phrase* phrase = nullptr;
};

consteval std::size_t countPhrases() {
    std::size_t count = 0;
    for (const Setting& setting : kSettings)
        for (const Phrase& phrase : setting.details().said)
            count += phrase.place != 0 ? 1 : 0;
    return count;
}

consteval auto phrasesInOrder() {
    std::array<SettingPhrase, countPhrases()> phrases{};
    std::size_t count = 0;
    for (const Setting& setting : kSettings)
        for (const Phrase& phrase : setting.details().said)
            if (phrase.place != 0)
                phrases.at(count++) = {&setting, &phrase};
    std::ranges::sort(phrases, {}, [](const SettingPhrase& said) { return said.phrase->place; });
    return phrases;
}
constexpr auto kPhrases = phrasesInOrder();

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

std::string phraseText(const SettingPhrase& said, const PopUpValue& lists, const SceneValue& scene,
                       std::int32_t member) {
    std::string title = optionTitle(lists, *said.setting, scene, member);
    if (title == kNoTitle)
        title = translated(sourceText("scenewright::Control", "unknown"));
    return translated(said.phrase->format, title);
}

std::uint8_t scaledToFull(std::int32_t level) {
    constexpr std::int32_t kFullLevel = 127;
    constexpr std::int32_t kFullColour = 255;
    return static_cast<std::uint8_t>(std::clamp(level, 0, kFullLevel) * kFullColour / kFullLevel);
}

} // namespace

std::string displaySummary(const PopUpValue& lists, ControlKind kind, const ButtonValue& record,
                           std::int32_t mode) {
    const auto* row = std::ranges::find_if(kSummaryRows, [&](const Row& candidate) {
        return (candidate.mode == mode || candidate.mode == kAnyMode) &&
               (candidate.kinds & setOf(kind)) != 0 && holds(candidate.when, record);
    });
    return row == kSummaryRows.end() ? kNothing : summaryOf(*row, lists, record);
}

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
    for (const SettingPhrase& said : kPhrases) {
        if (said.setting->kind() != range->kind || !holds(said.phrase->when, *record))
            continue;
        text += separator + phraseText(said, lists, scene, index - range->start);
        separator = ", ";
    }
    return text;
}

std::string describeOutput(const PopUpValue& lists, const SceneValue& scene, std::int32_t index) {
    const auto output = controlOutput(scene, index);
    if (output)
        return translated(sourceText("scenewright::Control", "Sends {0} on channel {1}"),
                          outputName(lists, *output), output->channel + 1);
    if (output.error() == Silence::Group || output.error() == Silence::NoControl)
        return {};
    return translated(sourceText("scenewright::Control", "Sends nothing"));
}

Colour padColour(const ButtonValue& record) {
    return {scaledToFull(record.CR()), scaledToFull(record.CG()), scaledToFull(record.CB())};
}

} // namespace scenewright
