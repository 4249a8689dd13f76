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

// Those from `first` to `last`, nothing between the bars for a number without a name.
std::string joined(std::span<const std::string_view> names, std::size_t first, std::size_t last) {
    std::string text;
    for (std::size_t number = first; number <= last; ++number)
        text.append(number == first ? "" : "|").append(names[number]);
    return text;
}

TEST(MidiNames, AreThoseOfTheDocuments) {
    EXPECT_EQ(joined(controllerNames(), 0, 31),
              "Bank Select|Modulation Wheel|Breath Controller||Foot Controller|Portamento Time|"
              "Data Entry MSB|Channel Volume|Balance||Pan|Expression Controller|Effect Control 1|"
              "Effect Control 2|||General Purpose Controller 1|General Purpose Controller 2|"
              "General Purpose Controller 3|General Purpose Controller 4||||||||||||");
    EXPECT_EQ(joined(controllerNames(), 64, 95),
              "Sustain Pedal (Damper)|Portamento On/Off|Sostenuto|Soft Pedal|Legato Footswitch|"
              "Hold 2|Sound Variation (Sound Controller 1)|"
              "Timbre/Harmonic Intensity (Sound Controller 2)|Release Time (Sound Controller 3)|"
              "Attack Time (Sound Controller 4)|Brightness (Sound Controller 5)|"
              "Decay Time (Sound Controller 6)|Vibrato Rate (Sound Controller 7)|"
              "Vibrato Depth (Sound Controller 8)|Vibrato Delay (Sound Controller 9)|"
              "Sound Controller 10|General Purpose Controller 5|General Purpose Controller 6|"
              "General Purpose Controller 7|General Purpose Controller 8|Portamento Control||||"
              "High Resolution Velocity Prefix|||Reverb Send Level (Effects 1 Depth)|"
              "Tremolo Depth (Effects 2 Depth)|Chorus Send Level (Effects 3 Depth)|"
              "Celeste Depth (Effects 4 Depth)|Phaser Depth (Effects 5 Depth)");
    EXPECT_EQ(joined(controllerNames(), 96, 101),
              "Data Increment|Data Decrement|Non-Registered Parameter Number LSB|"
              "Non-Registered Parameter Number MSB|Registered Parameter Number LSB|"
              "Registered Parameter Number MSB");
    EXPECT_EQ(joined(controllerNames(), 120, 127),
              "All Sound Off|Reset All Controllers|Local Control On/Off|All Notes Off|"
              "Omni Mode Off|Omni Mode On|Mono Mode On|Poly Mode On");
    EXPECT_EQ(joined(percussionNames(), 35, 81),
              "Acoustic Bass Drum|Bass Drum 1|Side Stick|Acoustic Snare|Hand Clap|Electric Snare|"
              "Low Floor Tom|Closed Hi-Hat|High Floor Tom|Pedal Hi-Hat|Low Tom|Open Hi-Hat|"
              "Low-Mid Tom|Hi-Mid Tom|Crash Cymbal 1|High Tom|Ride Cymbal 1|Chinese Cymbal|"
              "Ride Bell|Tambourine|Splash Cymbal|Cowbell|Crash Cymbal 2|Vibraslap|Ride Cymbal 2|"
              "Hi Bongo|Low Bongo|Mute Hi Conga|Open Hi Conga|Low Conga|High Timbale|Low Timbale|"
              "High Agogo|Low Agogo|Cabasa|Maracas|Short Whistle|Long Whistle|Short Guiro|"
              "Long Guiro|Claves|Hi Wood Block|Low Wood Block|Mute Cuica|Open Cuica|"
              "Mute Triangle|Open Triangle");
}

TEST(MidiNames, ControllersFrom32OnAreTheLowPartOfThose32Below) {
    for (std::size_t number = 0; number < 32; ++number) {
        std::string whole(controllerNames()[number]);
        if (whole.ends_with(" MSB"))
            whole.resize(whole.size() - 4);
        EXPECT_EQ(controllerNames()[number + 32], "LSB for Control " + std::to_string(number) +
                                                      (whole.empty() ? "" : " (" + whole + ")"));
    }
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
