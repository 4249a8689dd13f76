// Every setting of a scene as data, a row each: the kind of control that carries it, its field,
// which option list names its values, what a person calls it and is told when asking, what is said
// of it, and which other setting decides whether it has an effect.
//
// The 31 rows are the fields that the controller stores, in the order of the scene byte image.
// Byte image, option lists, printed tables, panes and descriptions are built on these rows.
#pragma once

#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/Text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace scenewright {

// Values of `AssignType`: what a pad or a key sends.
inline constexpr std::int32_t kAssignOff = 0;
inline constexpr std::int32_t kAssignController = 1;
inline constexpr std::int32_t kAssignNote = 2;

// What a control's record says about whether and how it works; rows of the tables that put a
// control into words are chosen by it.
enum class ControlCondition : std::uint8_t {
    Always,
    Disabled,   // `Enable` is 0
    Enabled,    // `Enable` is anything else
    Unassigned, // `AssignType` is 0
    Assigned,   // `AssignType` is anything else
    Controller, // `AssignType` is 1
    Note,       // `AssignType` is 2
};

[[nodiscard]] bool holds(ControlCondition condition, const ButtonValue& record);

// When a setting can be chosen, by the value of the setting that drives it.
enum class EnableWhen : std::uint8_t {
    Always,
    ConstantCurve, // a velocity curve of 3
    Enabled,       // an enable setting other than 0
    Assigned,      // an assign type of 1 or 2
    Controller,    // an assign type of 1
};

// What is said of a control's setting when the control's condition holds.
struct Phrase {
    std::int32_t place = 0; // among the phrases of the kind, from 1; 0 for none
    ControlCondition when = ControlCondition::Always;
    SourceText format{}; // with a place for the value's title
};

// What only some settings have.
struct SettingDetails {
    const OptionList* noteList = nullptr; // for the number of a control that sends a note
    std::string_view driver{};            // the field of the same kind that decides `enable`
    EnableWhen enable = EnableWhen::Always;
    std::array<Phrase, 2> said{};
};

class Setting {
public:
    consteval Setting(const IndexField<CommonValue>& field, const OptionList& list,
                      SourceText title, SourceText help, const SettingDetails& details = {})
        : kind_(ControlKind::Common), name_(field.name), common_(&field), list_(&list),
          title_(title), help_(help), details_(details) {}
    consteval Setting(ControlKind kind, const IndexField<ButtonValue>& field,
                      const OptionList& list, SourceText title, SourceText help,
                      const SettingDetails& details = {})
        : kind_(kind), name_(field.name), button_(&field), list_(&list), title_(title), help_(help),
          details_(details) {}

    [[nodiscard]] constexpr ControlKind kind() const { return kind_; }
    [[nodiscard]] constexpr std::string_view name() const { return name_; }
    // The field in the scene's common settings, or in a control's record; one is null.
    [[nodiscard]] constexpr const IndexField<CommonValue>* common() const { return common_; }
    [[nodiscard]] constexpr const IndexField<ButtonValue>* button() const { return button_; }
    [[nodiscard]] constexpr const OptionList& list() const { return *list_; }
    [[nodiscard]] constexpr SourceText title() const { return title_; }
    // What it does, in a sentence or two for the person who asks.
    [[nodiscard]] constexpr SourceText help() const { return help_; }
    [[nodiscard]] constexpr const SettingDetails& details() const { return details_; }
    [[nodiscard]] constexpr bool isDrivenBy(const Setting& other) const {
        return kind_ == other.kind_ && details_.driver == other.name();
    }

    // The value in member `member` (from 0) of the setting's kind; kFieldAbsent when the scene does
    // not hold that record, as one made of a default scene's file that lacks controls.
    [[nodiscard]] std::int32_t read(const SceneValue& scene, std::int32_t member) const;
    // Changes nothing when the scene does not hold that record.
    void write(const SceneValue& scene, std::int32_t member, std::int32_t value) const;

private:
    ControlKind kind_;
    std::string_view name_;
    const IndexField<CommonValue>* common_ = nullptr;
    const IndexField<ButtonValue>* button_ = nullptr;
    const OptionList* list_;
    SourceText title_;
    SourceText help_;
    SettingDetails details_;
};

// A value stands for an option of its setting; the controller stores it in seven bits of a byte.
inline constexpr std::int32_t kLargestSettingValue = 127;

namespace setting_rows {

using B = ButtonValue;
using C = CommonValue;
using P = PopUpValue;
using enum ControlCondition;

// Said of more than one setting.
inline constexpr SourceText kCurve = sourceText(
    "scenewright::Help",
    "How the strength of a stroke becomes a velocity: Soft gives more for a light stroke, Hard "
    "asks for a strong one, and with Constant every stroke gives the constant velocity.");
inline constexpr SourceText kConstant = sourceText(
    "scenewright::Help", "The velocity of every stroke while the velocity curve is Constant.");
inline constexpr SourceText kType = sourceText(
    "scenewright::Help", "What it sends: nothing (Off), a controller (CC) or a note (Note).");
inline constexpr SourceText kBehaviour = sourceText(
    "scenewright::Help", "Momentary: on while it is held. Toggle: on at a press, off at the next "
                         "one. Trigger: at the press alone. Release: when it is let go.");
inline constexpr SourceText kController = sourceText(
    "scenewright::Help", "The number of the controller that it sends, such as 7 for the volume.");
inline constexpr SourceText kNumber =
    sourceText("scenewright::Help", "The controller or the note that it sends. A note may be typed "
                                    "by its name or its number: Db2, C#2 or 37.");
inline constexpr SourceText kOn =
    sourceText("scenewright::Help", "The controller's value when it is switched on.");
inline constexpr SourceText kOff =
    sourceText("scenewright::Help", "The controller's value when it is switched off.");
inline constexpr SourceText kEnable =
    sourceText("scenewright::Help", "Off: it sends nothing when it is moved.");

inline constexpr std::array<Setting, 31> kRows{{
    Setting(C::GlobalMIDIChField, P::common_GlobalMIDICh_ArrayList,
            sourceText("scenewright::Setting", "Global MIDI channel"),
            sourceText("scenewright::Help",
                       "The channel of everything in this scene whose own channel is Global."),
            {.said = {{{1, Always, sourceText("scenewright::Control", "global channel {}")}}}}),
    Setting(
        C::PianoKeyChField, P::common_PianoKeyCh_ArrayList,
        sourceText("scenewright::Setting", "Keyboard MIDI channel"),
        sourceText("scenewright::Help",
                   "The channel that the keys send on. Global stands for the global MIDI channel."),
        {.said = {{{2, Always, sourceText("scenewright::Control", "keyboard channel {}")}}}}),
    Setting(
        C::PitchBendSpeedField, P::common_PitchBendSpeed_ArrayList,
        sourceText("scenewright::Setting", "Pitch-bend speed"),
        sourceText("scenewright::Help", "How fast pitch bend follows, as a number from 0 to 127."),
        {.said = {{{3, Always, sourceText("scenewright::Control", "pitch-bend speed {}")}}}}),
    Setting(
        C::KeyTransposeField, P::common_KeyTranspose_ArrayList,
        sourceText("scenewright::Setting", "Octave transposition"),
        sourceText("scenewright::Help", "Moves the notes of the keys up or down by whole octaves."),
        {.said = {{{4, Always, sourceText("scenewright::Control", "transposition {}")}}}}),
    Setting(C::KeyVelocityCurveField, P::common_KeyVelocityCurve_ArrayList,
            sourceText("scenewright::Setting", "Key velocity curve"), kCurve,
            {.said = {{{5, Always, sourceText("scenewright::Control", "key velocity curve {}")}}}}),
    Setting(C::KeyConstVelocityField, P::common_KeyConstVelocity_ArrayList,
            sourceText("scenewright::Setting", "Key constant velocity"), kConstant,
            {.driver = "KeyVelocityCurve", .enable = EnableWhen::ConstantCurve}),
    Setting(C::PadVelocityCurveField, P::common_PadVelocityCurve_ArrayList,
            sourceText("scenewright::Setting", "Pad velocity curve"), kCurve,
            {.said = {{{6, Always, sourceText("scenewright::Control", "pad velocity curve {}")}}}}),
    Setting(C::PadConstVelocityField, P::common_PadConstVelocity_ArrayList,
            sourceText("scenewright::Setting", "Pad constant velocity"), kConstant,
            {.driver = "PadVelocityCurve", .enable = EnableWhen::ConstantCurve}),
    Setting(ControlKind::Key, B::AssignTypeField, P::key_AssignType_ArrayList,
            sourceText("scenewright::Setting", "Type"), kType,
            {.said = {{{1, Unassigned, sourceText("scenewright::Control", "{}")}}}}),
    Setting(ControlKind::Key, B::KeyBehaviorField, P::key_KeyBehavior_ArrayList,
            sourceText("scenewright::Setting", "Behaviour"), kBehaviour,
            {.driver = "AssignType",
             .enable = EnableWhen::Assigned,
             .said = {{{4, Assigned, sourceText("scenewright::Control", "behaviour {}")}}}}),
    Setting(ControlKind::Key, B::CCOrNoteNumberField, P::key_CCNumber_ArrayList,
            sourceText("scenewright::Setting", "CC or note number"), kNumber,
            {.noteList = &P::key_NoteNumber_ArrayList,
             .driver = "AssignType",
             .enable = EnableWhen::Assigned,
             .said = {{{2, Controller, sourceText("scenewright::Control", "CC {}")},
                       {3, Note, sourceText("scenewright::Control", "Note {}")}}}}),
    Setting(ControlKind::Key, B::OnValueField, P::key_OnValue_ArrayList,
            sourceText("scenewright::Setting", "On value"), kOn,
            {.driver = "AssignType",
             .enable = EnableWhen::Controller,
             .said = {{{5, Controller, sourceText("scenewright::Control", "on {}")}}}}),
    Setting(ControlKind::Key, B::OffValueField, P::key_OffValue_ArrayList,
            sourceText("scenewright::Setting", "Off value"), kOff,
            {.driver = "AssignType",
             .enable = EnableWhen::Controller,
             .said = {{{6, Controller, sourceText("scenewright::Control", "off {}")}}}}),
    Setting(ControlKind::Group, B::MIDIChannelField, P::group_MIDIChannel_ArrayList,
            sourceText("scenewright::Setting", "MIDI channel"),
            sourceText("scenewright::Help", "The channel of the knob and the slider of this "
                                            "number. Global stands for the global MIDI channel."),
            {.said = {{{1, Always, sourceText("scenewright::Control", "channel {}")}}}}),
    Setting(ControlKind::Knob, B::EnableField, P::knob_Enable_ArrayList,
            sourceText("scenewright::Setting", "Enabled"), kEnable,
            {.said = {{{1, Disabled, sourceText("scenewright::Control", "{}")}}}}),
    Setting(ControlKind::Knob, B::CCOrNoteNumberField, P::knob_CCNumber_ArrayList,
            sourceText("scenewright::Setting", "CC number"), kController,
            {.driver = "Enable",
             .enable = EnableWhen::Enabled,
             .said = {{{2, Enabled, sourceText("scenewright::Control", "CC {}")}}}}),
    Setting(ControlKind::Knob, B::UpperOrRightValueField, P::knob_UpperOrRightValue_ArrayList,
            sourceText("scenewright::Setting", "Right value"),
            sourceText("scenewright::Help", "The value at the right end. With a smaller one here "
                                            "than on the left, the knob works backwards."),
            {.driver = "Enable",
             .enable = EnableWhen::Enabled,
             .said = {{{4, Enabled, sourceText("scenewright::Control", "right {}")}}}}),
    Setting(ControlKind::Knob, B::LowerOrLeftValueField, P::knob_LowerOrLeftValue_ArrayList,
            sourceText("scenewright::Setting", "Left value"),
            sourceText("scenewright::Help", "The value at the left end."),
            {.driver = "Enable",
             .enable = EnableWhen::Enabled,
             .said = {{{3, Enabled, sourceText("scenewright::Control", "left {}")}}}}),
    Setting(ControlKind::Slider, B::EnableField, P::slider_Enable_ArrayList,
            sourceText("scenewright::Setting", "Enabled"), kEnable,
            {.said = {{{1, Disabled, sourceText("scenewright::Control", "{}")}}}}),
    Setting(ControlKind::Slider, B::CCOrNoteNumberField, P::slider_CCNumber_ArrayList,
            sourceText("scenewright::Setting", "CC number"), kController,
            {.driver = "Enable",
             .enable = EnableWhen::Enabled,
             .said = {{{2, Enabled, sourceText("scenewright::Control", "CC {}")}}}}),
    Setting(ControlKind::Slider, B::UpperOrRightValueField, P::slider_UpperOrRightValue_ArrayList,
            sourceText("scenewright::Setting", "Upper value"),
            sourceText("scenewright::Help", "The value at the upper end. With a smaller one here "
                                            "than below, the slider works backwards."),
            {.driver = "Enable",
             .enable = EnableWhen::Enabled,
             .said = {{{4, Enabled, sourceText("scenewright::Control", "upper {}")}}}}),
    Setting(ControlKind::Slider, B::LowerOrLeftValueField, P::slider_LowerOrLeftValue_ArrayList,
            sourceText("scenewright::Setting", "Lower value"),
            sourceText("scenewright::Help", "The value at the lower end."),
            {.driver = "Enable",
             .enable = EnableWhen::Enabled,
             .said = {{{3, Enabled, sourceText("scenewright::Control", "lower {}")}}}}),
    Setting(ControlKind::Pad, B::AssignTypeField, P::pad_AssignType_ArrayList,
            sourceText("scenewright::Setting", "Type"), kType,
            {.said = {{{1, Unassigned, sourceText("scenewright::Control", "{}")}}}}),
    Setting(ControlKind::Pad, B::CCOrNoteNumberField, P::pad_CCNumber_ArrayList,
            sourceText("scenewright::Setting", "CC or note number"), kNumber,
            {.noteList = &P::pad_NoteNumber_ArrayList,
             .driver = "AssignType",
             .enable = EnableWhen::Assigned,
             .said = {{{2, Controller, sourceText("scenewright::Control", "CC {}")},
                       {3, Note, sourceText("scenewright::Control", "Note {}")}}}}),
    Setting(ControlKind::Pad, B::MIDIChannelField, P::pad_MIDIChannel_ArrayList,
            sourceText("scenewright::Setting", "MIDI channel"),
            sourceText("scenewright::Help",
                       "The channel that it sends on. Global stands for the global MIDI channel."),
            {.driver = "AssignType",
             .enable = EnableWhen::Assigned,
             .said = {{{4, Assigned, sourceText("scenewright::Control", "channel {}")}}}}),
    Setting(ControlKind::Pad, B::PadBehaviorField, P::pad_PadBehavior_ArrayList,
            sourceText("scenewright::Setting", "Behaviour"), kBehaviour,
            {.driver = "AssignType",
             .enable = EnableWhen::Assigned,
             .said = {{{5, Assigned, sourceText("scenewright::Control", "behaviour {}")}}}}),
    Setting(ControlKind::Pad, B::OnValueField, P::pad_OnValue_ArrayList,
            sourceText("scenewright::Setting", "On value"), kOn,
            {.driver = "AssignType",
             .enable = EnableWhen::Controller,
             .said = {{{6, Controller, sourceText("scenewright::Control", "on {}")}}}}),
    Setting(ControlKind::Pad, B::OffValueField, P::pad_OffValue_ArrayList,
            sourceText("scenewright::Setting", "Off value"), kOff,
            {.driver = "AssignType",
             .enable = EnableWhen::Controller,
             .said = {{{7, Controller, sourceText("scenewright::Control", "off {}")}}}}),
    Setting(ControlKind::Pad, B::CRField, P::pad_CR_ArrayList,
            sourceText("scenewright::Setting", "Red"),
            sourceText("scenewright::Help", "How much red is in the light, from 0 to 127."),
            {.said = {{{8, Always, sourceText("scenewright::Control", "red {}")}}}}),
    Setting(ControlKind::Pad, B::CGField, P::pad_CG_ArrayList,
            sourceText("scenewright::Setting", "Green"),
            sourceText("scenewright::Help", "How much green is in the light, from 0 to 127."),
            {.said = {{{9, Always, sourceText("scenewright::Control", "green {}")}}}}),
    Setting(ControlKind::Pad, B::CBField, P::pad_CB_ArrayList,
            sourceText("scenewright::Setting", "Blue"),
            sourceText("scenewright::Help", "How much blue is in the light, from 0 to 127."),
            {.said = {{{10, Always, sourceText("scenewright::Control", "blue {}")}}}}),
}};

} // namespace setting_rows

inline constexpr const auto& kSettings = setting_rows::kRows;
inline constexpr std::size_t kSettingCount = kSettings.size();

[[nodiscard]] constexpr const std::array<Setting, kSettingCount>& settings() {
    return kSettings;
}

// The values that a scene stores: each setting's, in each control of its kind. The controller has a
// byte for each of them.
inline constexpr std::size_t kStoredValues = [] {
    std::size_t count = 0;
    for (const Setting& setting : kSettings)
        count += static_cast<std::size_t>(controlRange(setting.kind()).count);
    return count;
}();
static_assert(kStoredValues == 241);

// The row of a kind's field; null when the kind does not carry a field of that name.
[[nodiscard]] constexpr const Setting* findSetting(ControlKind kind, std::string_view name) {
    for (const Setting& setting : kSettings)
        if (setting.kind() == kind && setting.name() == name)
            return &setting;
    return nullptr;
}

// Stands where there is no title: a value outside its list, or a field that does not apply.
inline constexpr std::string_view kNoTitle = "---";

// The list whose entry at the stored index is the value's title. For the number of a pad or key
// this is the note list when the control's `AssignType` is 2 (note), else the controller list;
// for every other setting `assignType` is not looked at. Null when the resource lacks the list.
[[nodiscard]] Titles optionList(const PopUpValue& lists, const Setting& setting,
                                std::int32_t assignType);

// What the options of the setting are called beside their titles, in a control of this
// `AssignType`: MIDI's names (Midi.h) for the number that a control sends, and for every other
// setting what writtenTitles() gives.
[[nodiscard]] std::span<const std::string_view> optionNames(const Setting& setting,
                                                            std::int32_t assignType);

// The title of the index stored in member `member` (from 0) of the setting's kind; "---" for a
// value outside its list, a field that does not apply and a record that the scene does not hold.
[[nodiscard]] std::string optionTitle(const PopUpValue& lists, const Setting& setting,
                                      const SceneValue& scene, std::int32_t member);

// How a person calls the setting, in their language: "MIDI channel" for MIDIChannel.
[[nodiscard]] std::string settingTitle(const Setting& setting);
// The same for a kind of control: "Pad".
[[nodiscard]] std::string kindTitle(ControlKind kind);
// "8 Pads", for several of them.
[[nodiscard]] std::string kindTitle(ControlKind kind, std::size_t count);

} // namespace scenewright
