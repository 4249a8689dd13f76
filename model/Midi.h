// A message of MIDI 1.0 as it passes a port, and how a person reads it; what the documents of MIDI
// call a controller's number, and General MIDI a note on its percussion channel. Values; any
// thread.
//
// Sources of the names, all of the MIDI Manufacturers Association: the table of Control Change
// messages of MIDI 1.0; RP-021 (sound controllers 70 to 79), RP-023 (effect depths 91 and 93) and
// CA-031 (controller 88); General MIDI System Level 1, Percussion Key Map. Where a recommended
// practice names a controller anew, its name comes first and the former one follows in parentheses.
// The names are theirs and are not translated.
#pragma once

#include "model/PopUpValue.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace scenewright {

// The high four bits of a channel message's status byte; the low four are the channel.
inline constexpr std::uint8_t kNoteOff = 0x80;
inline constexpr std::uint8_t kNoteOn = 0x90;
inline constexpr std::uint8_t kKeyPressure = 0xA0;
inline constexpr std::uint8_t kController = 0xB0;
inline constexpr std::uint8_t kProgram = 0xC0;
inline constexpr std::uint8_t kChannelPressure = 0xD0;
inline constexpr std::uint8_t kPitchBend = 0xE0;
inline constexpr std::uint8_t kSystem = 0xF0; // no channel: the low four bits tell which message

inline constexpr std::uint8_t kSystemExclusive = 0xF0; // its data bytes are not held here
inline constexpr std::uint8_t kClock = 0xF8;
inline constexpr std::uint8_t kActiveSensing = 0xFE;

inline constexpr std::int32_t kLargestDataByte = 127;

struct MidiMessage {
    std::uint8_t status = 0;
    std::uint8_t first = 0; // data bytes, 0 to 127; 0 where the message has none
    std::uint8_t second = 0;

    // kNoteOff to kSystem.
    [[nodiscard]] constexpr std::uint8_t kind() const { return status & 0xF0U; }
    // 0 to 15; of a channel message.
    [[nodiscard]] constexpr std::uint8_t channel() const { return status & 0x0FU; }
    friend bool operator==(const MidiMessage&, const MidiMessage&) = default;
};

// "Note on D2, ch 10, velocity 100", in the person's language. The names of notes are those of the
// option list for them; without it a note is its number.
[[nodiscard]] std::string messageText(const MidiMessage& message, const Titles& noteNames);

// General MIDI's percussion channel, as an index of a channel list.
inline constexpr std::int32_t kPercussionChannel = 9;

// By number, 128 of them; empty where a number is undefined.
[[nodiscard]] std::span<const std::string_view> controllerNames();
// The same by note; the map goes from 35 to 81.
[[nodiscard]] std::span<const std::string_view> percussionNames();

// A name without what stands in parentheses behind it.
[[nodiscard]] std::string_view shortName(std::string_view name);

} // namespace scenewright
