#include "model/Midi.h"

#include "model/ControlOutput.h"
#include "model/Setting.h"
#include "model/TypedValue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

struct Row {
    MidiMessage message;
    const char* text;
};

constexpr auto kRows = std::to_array<Row>({
    {{0x99, 38, 100}, "Note on D2, ch 10, velocity 100"},
    {{0x90, 38, 0}, "Note on D2, ch 1, velocity 0"},
    {{0x8F, 38, 64}, "Note off D2, ch 16"},
    {{0xA0, 38, 5}, "Key pressure D2, ch 1, value 5"},
    {{0xB0, 74, 93}, "CC 74, ch 1, value 93"},
    {{0xC2, 5, 0}, "Program 5, ch 3"},
    {{0xD2, 127, 0}, "Pressure 127, ch 3"},
    {{0xE0, 0x00, 0x40}, "Pitch bend +0, ch 1"},
    {{0xE0, 0x7F, 0x7F}, "Pitch bend +8191, ch 1"},
    {{0xE0, 0x00, 0x00}, "Pitch bend -8192, ch 1"},
    {{0xF0, 0, 0}, "System exclusive"},
    {{0xF8, 0, 0}, "Clock"},
    {{0xFA, 0, 0}, "Start"},
    {{0xFB, 0, 0}, "Continue"},
    {{0xFC, 0, 0}, "Stop"},
    {{0xFE, 0, 0}, "Active sensing"},
    {{0xFF, 0, 0}, "Reset"},
    {{0xF1, 0, 0}, "f1"},
});

TEST(MidiMessage, EachIsSaidInItsWords) {
    std::vector<std::string> names(128, "no");
    names[38] = "D2";
    const auto titles = std::make_shared<const std::vector<std::string>>(names);
    for (const Row& row : kRows)
        EXPECT_EQ(messageText(row.message, titles), row.text);
}

TEST(MidiMessage, NoteWithoutANameIsItsNumber) {
    EXPECT_EQ(messageText({0x99, 38, 100}, nullptr), "Note on 38, ch 10, velocity 100");
}

std::ptrdiff_t named(std::span<const std::string_view> names) {
    return std::ranges::count_if(names, [](std::string_view name) { return !name.empty(); });
}

TEST(MidiNames, EachTableHoldsWhatItsDocumentDefines) {
    EXPECT_EQ(controllerNames().size(), 128U);
    EXPECT_EQ(percussionNames().size(), 128U);
    // 128 without 3, 9, 14, 15, 20 to 31, 85 to 87, 89, 90 and 102 to 119.
    EXPECT_EQ(named(controllerNames()), 128 - 2 - 2 - 12 - 3 - 2 - 18);
    EXPECT_EQ(named(percussionNames()), 47);
    EXPECT_EQ(percussionNames()[34], "");
    EXPECT_EQ(percussionNames()[35], "Acoustic Bass Drum");
    EXPECT_EQ(percussionNames()[81], "Open Triangle");
}

TEST(MidiNames, WordsOfAPlayerFindTheController) {
    std::vector<std::string> titles;
    titles.reserve(128);
    for (int number = 0; number < 128; ++number)
        titles.push_back(std::to_string(number));
    const Setting& knob = *findSetting(ControlKind::Knob, "CCOrNoteNumber");
    for (const auto& [typed, number] : std::initializer_list<std::pair<const char*, int>>{
             {"sustain", 64},
             {"Sustain pedal", 64},
             {"damper", 64},
             {"mod", 1},
             {"volume", 7},
             {"pan", 10},
             {"expression", 11},
             {"brightness", 74},
             {"reverb", 91},
             {"chorus", 93},
             {"attack", 73},
             {"release", 72},
             {"bank select", 0},
             {"sostenuto", 66},
             {"soft", 67},
             {"portamento t", 5},
             {"all notes off", 123},
             {"64", 64},
         }) {
        const auto found = typedPosition(typed, titles, optionNames(knob, kAssignOff));
        EXPECT_EQ(found, number) << typed;
    }
    EXPECT_FALSE(typedPosition("portamento", titles, controllerNames()));
}

TEST(MidiNames, SettingsNamesAreThoseOfWhatTheControlSends) {
    const Setting& pad = *findSetting(ControlKind::Pad, "CCOrNoteNumber");
    EXPECT_EQ(optionNames(pad, kAssignNote).data(), percussionNames().data());
    EXPECT_EQ(optionNames(pad, kAssignController).data(), controllerNames().data());
    const Setting& knob = *findSetting(ControlKind::Knob, "CCOrNoteNumber");
    EXPECT_EQ(optionNames(knob, kAssignNote).data(), controllerNames().data());
    EXPECT_TRUE(optionNames(*findSetting(ControlKind::Pad, "CR"), kAssignNote).empty());
}

TEST(MidiNames, OutputIsCalledByItsNumberAndName) {
    PopUpValue lists;
    std::vector<std::string> notes(128, "n");
    notes[36] = "C2";
    lists.setDisplay_NoteNumber_Array(std::make_shared<const std::vector<std::string>>(notes));
    for (const auto& [output, name] : std::initializer_list<std::pair<ControlOutput, const char*>>{
             {{.number = 74}, "CC 74 Brightness"},
             {{.number = 64}, "CC 64 Sustain Pedal"},
             {{.number = 39}, "CC 39 LSB for Control 7"},
             {{.number = 3}, "CC 3"},
             {{.isNote = true, .channel = 9, .number = 36}, "MIDI 36 C2, Bass Drum 1"},
             {{.isNote = true, .channel = 8, .number = 36}, "MIDI 36 C2"},
             {{.isNote = true, .channel = 9, .number = 0}, "MIDI 0 n"}})
        EXPECT_EQ(outputName(lists, output), name);
    EXPECT_EQ(outputName(PopUpValue(), {.isNote = true, .number = 36}), "MIDI 36");
}

} // namespace

} // namespace scenewright
