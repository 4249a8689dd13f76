#include "model/MidiMessage.h"

#include "platform/Text.h"

#include <fmt/format.h>

#include <array>

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

} // namespace scenewright
