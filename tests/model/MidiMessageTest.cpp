#include "model/MidiMessage.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
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

} // namespace
} // namespace scenewright
