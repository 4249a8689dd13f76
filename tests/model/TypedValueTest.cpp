#include "model/TypedValue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

using Strings = std::vector<std::string>;
using Position = std::optional<std::int32_t>;

std::vector<std::string> numbers(int first, int last) {
    Strings titles;
    for (int number = first; number <= last; ++number)
        titles.push_back(std::to_string(number));
    return titles;
}

// As basic.plist spells them.
const Strings& noteTitles() {
    static const Strings kTitles = [] {
        constexpr std::array kNames{"C",  "C#", "D",  "Eb", "E",  "F",
                                    "F#", "G",  "Ab", "A",  "Bb", "B"};
        Strings titles;
        for (std::size_t note = 0; note < 128; ++note)
            titles.push_back(kNames.at(note % 12) +
                             std::to_string(static_cast<int>(note / 12) - 1));
        return titles;
    }();
    return kTitles;
}

std::string inLowerCase(std::string text) {
    for (char& letter : text)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return text;
}

std::string inUpperCase(std::string text) {
    for (char& letter : text)
        letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    return text;
}

// Each of the twelve notes with all its spellings, and how far each one's octave is from the
// note's.
struct Spelling {
    const char* name;
    int octave;
};
const std::vector<std::vector<Spelling>>& spellings() {
    static const std::vector<std::vector<Spelling>> kSpellings{
        {{"C", 0}, {"B#", -1}, {"B\xE2\x99\xAF", -1}},
        {{"C#", 0}, {"Db", 0}, {"C\xE2\x99\xAF", 0}, {"D\xE2\x99\xAD", 0}},
        {{"D", 0}},
        {{"D#", 0}, {"Eb", 0}},
        {{"E", 0}, {"Fb", 0}},
        {{"F", 0}, {"E#", 0}},
        {{"F#", 0}, {"Gb", 0}},
        {{"G", 0}},
        {{"G#", 0}, {"Ab", 0}},
        {{"A", 0}},
        {{"A#", 0}, {"Bb", 0}},
        {{"B", 0}, {"Cb", 1}},
    };
    return kSpellings;
}

// None for an octave that the list does not have.
Strings formsOf(const Spelling& spelling, int octave) {
    Strings forms;
    if (octave < -1)
        return forms;
    for (const char* sign : {"", "+"}) {
        if (octave < 0 && *sign != '\0')
            continue;
        const std::string text = spelling.name + (sign + std::to_string(octave));
        for (const std::string& form :
             {text, inLowerCase(text), inUpperCase(text), " " + text + "\t"})
            forms.push_back(form);
    }
    return forms;
}

TEST(TypedValue, EveryNoteIsFoundInAllItsSpellings) {
    for (int note = 0; note < 128; ++note)
        for (const Spelling& spelling : spellings().at(static_cast<std::size_t>(note % 12)))
            for (const std::string& typed : formsOf(spelling, note / 12 - 1 + spelling.octave))
                EXPECT_EQ(typedPosition(typed, noteTitles()), note) << typed;
}

TEST(TypedValue, WhatIsTypedForANote) {
    for (const auto& [typed, expected] : std::initializer_list<std::pair<const char*, Position>>{
             {"Db2", 37},  {"eb2", 39},         {"D#2", 39},  {"A#2", 46},  {"Gb2", 42},
             {"Ab-1", 8},  {"g#-1", 8},         {"bb3", 58},  {"BB3", 58},  {"b3", 59},
             {"Cb4", 59},  {"B#3", 60},         {"C4", 60},   {"c+4", 60},  {"36", 36},
             {"0", 0},     {"127", 127},        {"+36", 36},  {"C-", 0},    {"G9", 127},
             {"G#9", {}},  {"Cb-1", {}},        {"128", {}},  {"-1", {}},   {"C10", {}},
             {"C--1", {}}, {"C+-1", {}},        {"C", {}},    {"Db", {}},   {"", {}},
             {" ", {}},    {"H2", {}},          {"C##2", {}}, {"Cbb2", {}}, {"C2x", {}},
             {"3 6", {}},  {"99999999999", {}},
         })
        EXPECT_EQ(typedPosition(typed, noteTitles()), expected) << '"' << typed << '"';
}

// A list may be put into other words: notes are found by what its own titles say.
TEST(TypedValue, NotesAreThoseOfTheListsOwnNames) {
    Strings titles;
    for (const std::string& title : noteTitles()) { // middle C is C3
        const std::size_t octave = title.find_first_of("-0123456789");
        titles.push_back(title.substr(0, octave) +
                         std::to_string(std::stoi(title.substr(octave)) - 1));
    }
    EXPECT_EQ(typedPosition("db3", titles), 61);
    EXPECT_EQ(typedPosition("C-2", titles), 0);
    EXPECT_EQ(typedPosition("60", titles), 60);
    EXPECT_EQ(typedPosition("g9", titles), Position{});
}

TEST(TypedValue, WhatIsTypedForATitle) {
    Strings channels = numbers(1, 16);
    channels.emplace_back("Global");
    const Strings octaves{"0", "+1", "+2", "+3", "+4", "-1", "-2", "-3", "-4"};
    const Strings behaviors{"Momentary", "Toggle", "Trigger", "Release"};
    const Strings twins{"On", "ON", "on"};
    const Strings ends{"Lower Value", "Upper Value", "Upper Limit"};
    struct Row {
        const Strings& titles;
        const char* typed = "";
        Position expected;
    };
    for (const Row& row : std::initializer_list<Row>{
             {channels, "10", 9},
             {channels, "1", 0},
             {channels, "16", 15},
             {channels, "17", {}},
             {channels, "0", {}},
             {channels, "010", 9},
             {channels, "global", 16},
             {channels, "gl", 16},
             {channels, "Globally", {}},
             {octaves, "1", 1},
             {octaves, "+1", 1},
             {octaves, "-1", 5},
             {octaves, "-0", 0},
             {octaves, "5", {}},
             {octaves, "+", {}},
             {octaves, "-", {}},
             {octaves, "- 1", {}},
             {octaves, "+-1", {}},
             {behaviors, "t", {}},
             {behaviors, "to", 1},
             {behaviors, "TRIGGER", 2},
             {behaviors, "rel", 3},
             {behaviors, "2", {}},
             {behaviors, "C2", {}},
             {twins, "on", 2},
             {twins, "oN", 0},
             {twins, "o", {}},
             {ends, "limit", 2},
             {ends, "li", {}},
             {ends, "value", {}},
             {numbers(0, 127), "12", 12},
             {numbers(0, 127), "127", 127},
             {numbers(0, 127), "128", {}},
             {{}, "0", {}},
         })
        EXPECT_EQ(typedPosition(row.typed, row.titles), row.expected) << '"' << row.typed << '"';
}

TEST(TypedValue, NameStandsForItsPosition) {
    const Strings titles = numbers(0, 4);
    constexpr std::array<std::string_view, 6> kNames{
        "Volume (formerly Main Volume)",
        "LSB for Control 0 (Volume)",
        "Pan",
        "",
        "Sound Variation/Depth (default: Pan-Pot Curve)",
        "Beyond"};
    for (const auto& [typed, expected] : std::initializer_list<std::pair<const char*, Position>>{
             {"pan", 2},
             {"Volume", 0},
             {"vol", 0},
             {"main", 0},
             {"LSB", 1},
             {"curve", 4},
             {"depth", 4},
             {"pot", 4},
             {"default", 4},
             {"control", 1},
             {"vo", {}},
             {"ound", {}},
             {"nothing", {}},
             {"beyond", {}},
             {"3", 3},
         })
        EXPECT_EQ(typedPosition(typed, titles, kNames), expected) << '"' << typed << '"';
    EXPECT_EQ(typedPosition("sno", Strings{"Off", "On"},
                            std::array<std::string_view, 2>{"Acoustic Snore", "Electric Snore"}),
              Position{});
}

TEST(TypedValue, NoteNumberCountsFromTheLowestC) {
    for (const auto& [name, expected] : std::initializer_list<std::pair<const char*, Position>>{
             {"C-1", 0},
             {"C4", 60},
             {"A4", 69},
             {"G9", 127},
             {"B9", 131},
             {"C-2", -12},
             {"C", {}},
             {"", {}},
             {"4", {}},
             {"C44", {}},
             {"C 4", {}},
             {"Note", {}},
         })
        EXPECT_EQ(noteNumber(name), expected) << name;
}

TEST(Colour, DigitsAreTheNearestStoredLevels) {
    for (const auto& [text, levels] :
         std::initializer_list<std::pair<const char*, PadColour>>{{"#000000", {0, 0, 0}},
                                                                  {"#ff8000", {127, 64, 0}},
                                                                  {"#FFFFFF", {127, 127, 127}},
                                                                  {"#010203", {0, 1, 1}},
                                                                  {"#7f80fe", {63, 64, 127}}})
        EXPECT_EQ(colourOf(text), levels) << text;
    for (const char* text : {"", "#", "ff8000", "0ff8000", "#ff800", "#ff80000", "#gg0000",
                             "#-10000", "#+10000", "#f f000", "#0x1234"})
        EXPECT_EQ(colourOf(text), std::nullopt) << text;
}

TEST(Colour, TextOfEveryLevelGivesThatLevel) {
    EXPECT_EQ(colourText({127, 64, 0}), "#ff8000");
    for (std::int32_t level = 0; level < 128; ++level)
        EXPECT_EQ(colourOf(colourText({level, 127 - level, level / 2})),
                  (PadColour{level, 127 - level, level / 2}));
}

// What is left of a colour where red and green look alike: how yellow and how blue it is.
TEST(Colour, SafePaletteIsToldApartWithRedAndGreenAlike) {
    const Palette& safe = *findPalette("safe");
    for (std::size_t i = 0; i < safe.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) {
            const auto yellow = [&](std::size_t at) {
                return (2 * safe[at][0] + 5 * safe[at][1]) / 7;
            };
            EXPECT_GE(std::max(std::abs(yellow(i) - yellow(j)), std::abs(safe[i][2] - safe[j][2])),
                      32)
                << i << ' ' << j;
        }
}

TEST(Colour, PalettesHoldDifferentColoursOfLevelsThatArePossible) {
    EXPECT_EQ(paletteNames(), "bright, safe");
    EXPECT_EQ(findPalette("bright")->size(), 16U);
    EXPECT_EQ(findPalette("Bright"), nullptr);
    for (const NamedPalette& palette : palettes()) {
        EXPECT_EQ(std::set(palette.colours.begin(), palette.colours.end()).size(),
                  palette.colours.size())
            << palette.name;
        for (const PadColour& colour : palette.colours) // text holds none that is not
            EXPECT_EQ(colourOf(colourText(colour)), colour) << palette.name;
    }
}

} // namespace

} // namespace scenewright
