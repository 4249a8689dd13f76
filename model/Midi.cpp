#include "model/Midi.h"

#include "platform/Text.h"

#include <fmt/format.h>

#include <array>
#include <cstddef>

namespace scenewright {

namespace {

// How the first data byte is said.
enum class First : std::uint8_t { Number, Note, Bend };

struct Words {
    std::uint8_t status = 0; // a channel message's without its channel
    SourceText format{};     // with places for the first data byte, the channel and the second
    First first = First::Number;
};

constexpr std::array kWords{
    Words{kNoteOff, sourceText("scenewright::Message", "Note off {0}, ch {1}"), First::Note},
    Words{kNoteOn, sourceText("scenewright::Message", "Note on {0}, ch {1}, velocity {2}"),
          First::Note},
    Words{kKeyPressure, sourceText("scenewright::Message", "Key pressure {0}, ch {1}, value {2}"),
          First::Note},
    Words{kController, sourceText("scenewright::Message", "CC {0}, ch {1}, value {2}")},
    Words{kProgram, sourceText("scenewright::Message", "Program {0}, ch {1}")},
    Words{kChannelPressure, sourceText("scenewright::Message", "Pressure {0}, ch {1}")},
    Words{kPitchBend, sourceText("scenewright::Message", "Pitch bend {0}, ch {1}"), First::Bend},
    Words{kSystemExclusive, sourceText("scenewright::Message", "System exclusive")},
    Words{kClock, sourceText("scenewright::Message", "Clock")},
    Words{0xFA, sourceText("scenewright::Message", "Start")},
    Words{0xFB, sourceText("scenewright::Message", "Continue")},
    Words{0xFC, sourceText("scenewright::Message", "Stop")},
    Words{kActiveSensing, sourceText("scenewright::Message", "Active sensing")},
    Words{0xFF, sourceText("scenewright::Message", "Reset")},
};

std::string firstText(First kind, const MidiMessage& message, const Titles& noteNames) {
    constexpr int kBendMiddle = 0x2000; // of 14 bits, the low seven first
    if (kind == First::Bend)
        return fmt::format("{:+}", message.second * 128 + message.first - kBendMiddle);
    const std::string* const name =
        kind == First::Note ? titleAt(noteNames, message.first) : nullptr;
    return name != nullptr ? *name : fmt::format("{}", message.first);
}

} // namespace

std::string messageText(const MidiMessage& message, const Titles& noteNames) {
    const std::uint8_t status = message.kind() == kSystem ? message.status : message.kind();
    for (const Words& row : kWords)
        if (row.status == status)
            return translated(row.format, firstText(row.first, message, noteNames),
                              message.channel() + 1, message.second);
    return fmt::format("{:02x}", message.status);
}

namespace {

struct NumberName {
    std::size_t number;
    std::string_view name;
};

constexpr std::array<NumberName, 89> kControllerRows{{
    {0, "Bank Select"},
    {1, "Modulation Wheel"},
    {2, "Breath Controller"},
    {4, "Foot Controller"},
    {5, "Portamento Time"},
    {6, "Data Entry MSB"},
    {7, "Channel Volume"},
    {8, "Balance"},
    {10, "Pan"},
    {11, "Expression Controller"},
    {12, "Effect Control 1"},
    {13, "Effect Control 2"},
    {16, "General Purpose Controller 1"},
    {17, "General Purpose Controller 2"},
    {18, "General Purpose Controller 3"},
    {19, "General Purpose Controller 4"},
    {32, "LSB for Control 0 (Bank Select)"},
    {33, "LSB for Control 1 (Modulation Wheel)"},
    {34, "LSB for Control 2 (Breath Controller)"},
    {35, "LSB for Control 3"},
    {36, "LSB for Control 4 (Foot Controller)"},
    {37, "LSB for Control 5 (Portamento Time)"},
    {38, "LSB for Control 6 (Data Entry)"},
    {39, "LSB for Control 7 (Channel Volume)"},
    {40, "LSB for Control 8 (Balance)"},
    {41, "LSB for Control 9"},
    {42, "LSB for Control 10 (Pan)"},
    {43, "LSB for Control 11 (Expression Controller)"},
    {44, "LSB for Control 12 (Effect Control 1)"},
    {45, "LSB for Control 13 (Effect Control 2)"},
    {46, "LSB for Control 14"},
    {47, "LSB for Control 15"},
    {48, "LSB for Control 16 (General Purpose Controller 1)"},
    {49, "LSB for Control 17 (General Purpose Controller 2)"},
    {50, "LSB for Control 18 (General Purpose Controller 3)"},
    {51, "LSB for Control 19 (General Purpose Controller 4)"},
    {52, "LSB for Control 20"},
    {53, "LSB for Control 21"},
    {54, "LSB for Control 22"},
    {55, "LSB for Control 23"},
    {56, "LSB for Control 24"},
    {57, "LSB for Control 25"},
    {58, "LSB for Control 26"},
    {59, "LSB for Control 27"},
    {60, "LSB for Control 28"},
    {61, "LSB for Control 29"},
    {62, "LSB for Control 30"},
    {63, "LSB for Control 31"},
    {64, "Sustain Pedal (Damper)"},
    {65, "Portamento On/Off"},
    {66, "Sostenuto"},
    {67, "Soft Pedal"},
    {68, "Legato Footswitch"},
    {69, "Hold 2"},
    {70, "Sound Variation (Sound Controller 1)"},
    {71, "Timbre/Harmonic Intensity (Sound Controller 2)"},
    {72, "Release Time (Sound Controller 3)"},
    {73, "Attack Time (Sound Controller 4)"},
    {74, "Brightness (Sound Controller 5)"},
    {75, "Decay Time (Sound Controller 6)"},
    {76, "Vibrato Rate (Sound Controller 7)"},
    {77, "Vibrato Depth (Sound Controller 8)"},
    {78, "Vibrato Delay (Sound Controller 9)"},
    {79, "Sound Controller 10"},
    {80, "General Purpose Controller 5"},
    {81, "General Purpose Controller 6"},
    {82, "General Purpose Controller 7"},
    {83, "General Purpose Controller 8"},
    {84, "Portamento Control"},
    {88, "High Resolution Velocity Prefix"},
    {91, "Reverb Send Level (Effects 1 Depth)"},
    {92, "Tremolo Depth (Effects 2 Depth)"},
    {93, "Chorus Send Level (Effects 3 Depth)"},
    {94, "Celeste Depth (Effects 4 Depth)"},
    {95, "Phaser Depth (Effects 5 Depth)"},
    {96, "Data Increment"},
    {97, "Data Decrement"},
    {98, "Non-Registered Parameter Number LSB"},
    {99, "Non-Registered Parameter Number MSB"},
    {100, "Registered Parameter Number LSB"},
    {101, "Registered Parameter Number MSB"},
    {120, "All Sound Off"},
    {121, "Reset All Controllers"},
    {122, "Local Control On/Off"},
    {123, "All Notes Off"},
    {124, "Omni Mode Off"},
    {125, "Omni Mode On"},
    {126, "Mono Mode On"},
    {127, "Poly Mode On"},
}};

// Percussion Key Map, from note 35 on.
constexpr std::array<NumberName, 47> kPercussionRows{{
    {35, "Acoustic Bass Drum"},
    {36, "Bass Drum 1"},
    {37, "Side Stick"},
    {38, "Acoustic Snare"},
    {39, "Hand Clap"},
    {40, "Electric Snare"},
    {41, "Low Floor Tom"},
    {42, "Closed Hi-Hat"},
    {43, "High Floor Tom"},
    {44, "Pedal Hi-Hat"},
    {45, "Low Tom"},
    {46, "Open Hi-Hat"},
    {47, "Low-Mid Tom"},
    {48, "Hi-Mid Tom"},
    {49, "Crash Cymbal 1"},
    {50, "High Tom"},
    {51, "Ride Cymbal 1"},
    {52, "Chinese Cymbal"},
    {53, "Ride Bell"},
    {54, "Tambourine"},
    {55, "Splash Cymbal"},
    {56, "Cowbell"},
    {57, "Crash Cymbal 2"},
    {58, "Vibraslap"},
    {59, "Ride Cymbal 2"},
    {60, "Hi Bongo"},
    {61, "Low Bongo"},
    {62, "Mute Hi Conga"},
    {63, "Open Hi Conga"},
    {64, "Low Conga"},
    {65, "High Timbale"},
    {66, "Low Timbale"},
    {67, "High Agogo"},
    {68, "Low Agogo"},
    {69, "Cabasa"},
    {70, "Maracas"},
    {71, "Short Whistle"},
    {72, "Long Whistle"},
    {73, "Short Guiro"},
    {74, "Long Guiro"},
    {75, "Claves"},
    {76, "Hi Wood Block"},
    {77, "Low Wood Block"},
    {78, "Mute Cuica"},
    {79, "Open Cuica"},
    {80, "Mute Triangle"},
    {81, "Open Triangle"},
}};

template <std::size_t count>
consteval std::array<std::string_view, 128> byNumber(const std::array<NumberName, count>& rows) {
    std::array<std::string_view, 128> names{};
    for (const NumberName& row : rows)
        names.at(row.number) = row.name;
    return names;
}

constexpr std::array<std::string_view, 128> kControllers = byNumber(kControllerRows);
constexpr std::array<std::string_view, 128> kPercussion = byNumber(kPercussionRows);

} // namespace

std::span<const std::string_view> controllerNames() {
    return kControllers;
}

std::span<const std::string_view> percussionNames() {
    return kPercussion;
}

std::string_view shortName(std::string_view name) {
    return name.substr(0, name.find(" ("));
}

} // namespace scenewright
