#include "editor/SettingHelp.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace scenewright {

namespace {

// Said of more than one setting.
constexpr SourceText kCurve =
    sourceText("scenewright::Help",
               "How the strength of a stroke becomes a velocity: Soft gives more for a light "
               "stroke, Hard asks "
               "for a strong one, and with Constant every stroke gives the constant velocity.");
constexpr SourceText kConstant = sourceText(
    "scenewright::Help", "The velocity of every stroke while the velocity curve is Constant.");
constexpr SourceText kBehaviour = sourceText(
    "scenewright::Help",
    "Momentary: on while it is held. Toggle: on at a press, off at the next one. Trigger: at the "
    "press alone. Release: when it is let go.");
constexpr SourceText kController = sourceText(
    "scenewright::Help", "The number of the controller that it sends, such as 7 for the volume.");

// A setting has the first row of its field that is for its kind or for any.
struct Help {
    std::string_view field;
    SourceText text;
    std::optional<ControlKind> kind = std::nullopt;
};

constexpr auto kHelps = std::to_array<Help>({
    {"GlobalMIDICh",
     sourceText("scenewright::Help",
                "The channel of everything in this scene whose own channel is Global.")},
    {"PianoKeyCh",
     sourceText("scenewright::Help",
                "The channel that the keys send on. Global stands for the global MIDI channel.")},
    {"PitchBendSpeed",
     sourceText("scenewright::Help", "How fast pitch bend follows, as a number from 0 to 127.")},
    {"KeyTranspose",
     sourceText("scenewright::Help", "Moves the notes of the keys up or down by whole octaves.")},
    {"KeyVelocityCurve", kCurve},
    {"PadVelocityCurve", kCurve},
    {"KeyConstVelocity", kConstant},
    {"PadConstVelocity", kConstant},
    {"AssignType", sourceText("scenewright::Help",
                              "What it sends: nothing (Off), a controller (CC) or a note (Note).")},
    {"CCOrNoteNumber", kController, ControlKind::Knob},
    {"CCOrNoteNumber", kController, ControlKind::Slider},
    {"CCOrNoteNumber", sourceText("scenewright::Help",
                                  "The controller or the note that it sends. A note may be typed "
                                  "by its name or its number: Db2, C#2 or 37.")},
    {"OnValue", sourceText("scenewright::Help", "The controller's value when it is switched on.")},
    {"OffValue",
     sourceText("scenewright::Help", "The controller's value when it is switched off.")},
    {"KeyBehavior", kBehaviour},
    {"PadBehavior", kBehaviour},
    {"MIDIChannel",
     sourceText("scenewright::Help",
                "The channel of the knob and the slider of this number. Global "
                "stands for the global MIDI channel."),
     ControlKind::Group},
    {"MIDIChannel",
     sourceText("scenewright::Help",
                "The channel that it sends on. Global stands for the global MIDI channel.")},
    {"Enable", sourceText("scenewright::Help", "Off: it sends nothing when it is moved.")},
    {"UpperOrRightValue",
     sourceText("scenewright::Help", "The value at the right end. With a smaller one here than on "
                                     "the left, the knob works backwards."),
     ControlKind::Knob},
    {"UpperOrRightValue",
     sourceText("scenewright::Help", "The value at the upper end. With a smaller one here than "
                                     "below, the slider works backwards.")},
    {"LowerOrLeftValue", sourceText("scenewright::Help", "The value at the left end."),
     ControlKind::Knob},
    {"LowerOrLeftValue", sourceText("scenewright::Help", "The value at the lower end.")},
    {"CR", sourceText("scenewright::Help", "How much red is in the light, from 0 to 127.")},
    {"CG", sourceText("scenewright::Help", "How much green is in the light, from 0 to 127.")},
    {"CB", sourceText("scenewright::Help", "How much blue is in the light, from 0 to 127.")},
});

constexpr const Help* helpOf(const Setting& setting) {
    return std::ranges::find_if(kHelps, [&](const Help& help) {
        return help.field == setting.name() && help.kind.value_or(setting.kind()) == setting.kind();
    });
}

static_assert(std::ranges::all_of(kSettings, [](const Setting& setting) {
    return helpOf(setting) != kHelps.end();
}));

} // namespace

std::string settingHelp(const Setting& setting) {
    return translated(helpOf(setting)->text);
}

} // namespace scenewright
