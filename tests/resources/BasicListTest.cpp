#include "tests/resources/ResourceFile.h"

#include <set>

namespace scenewright {
namespace {

using Texts = std::vector<std::string>;

Texts list(const std::string& key) {
    return textsOf(resource("basic")[key]);
}

Texts numbers(int first, int last) {
    Texts texts;
    for (int i = first; i <= last; ++i)
        texts.push_back(std::to_string(i));
    return texts;
}

Texts channelsAndGlobal() {
    Texts texts = numbers(1, 16);
    texts.emplace_back("Global");
    return texts;
}

TEST(BasicList, HasTheFourteenKeys) {
    EXPECT_EQ(keysOf(resource("basic")),
              (Texts{"button-MIDICh", "button-assginType", "button-behavior", "button-enable",
                     "button-note", "common-PitchBendSpeed", "common-globalMIDICh",
                     "common-keyTranspose", "common-pianoKeyCh", "common-sceneName",
                     "common-velocityCurve", "control", "displaySelect", "select127"}));
}

TEST(BasicList, ControlsAreInTheOrderOfTheControlIndex) {
    Texts expected{"Common"};
    const auto add = [&expected](const std::string& kind, int count) {
        for (int i = 1; i <= count; ++i)
            expected.push_back(kind + " " + std::to_string(i));
    };
    add("Group", 4);
    add("Knob", 4);
    add("Slider", 4);
    add("Pad", 8);
    add("Key", 25);
    ASSERT_EQ(expected.size(), 46U);
    EXPECT_EQ(list("control"), expected);
}

TEST(BasicList, DisplayModesAreInTheirOrder) {
    EXPECT_EQ(list("displaySelect"),
              (Texts{"MIDI Channel", "Type", "CC/Note Number", "Lower/Left Value",
                     "Upper/Right Value", "Behavior", "Off Value", "On Value"}));
}

TEST(BasicList, ChannelsAreSixteenAndGlobalWhereAControlMayFollowIt) {
    EXPECT_EQ(list("button-MIDICh"), channelsAndGlobal());
    EXPECT_EQ(list("common-pianoKeyCh"), channelsAndGlobal());
    EXPECT_EQ(list("common-globalMIDICh"), numbers(1, 16));
}

TEST(BasicList, ValuesRunFromZeroTo127) {
    EXPECT_EQ(list("select127"), numbers(0, 127));
    EXPECT_EQ(list("common-PitchBendSpeed"), numbers(0, 127));
}

TEST(BasicList, NotesCountFromCMinus1WithMiddleCAsC4) {
    const Texts notes = list("button-note");
    ASSERT_EQ(notes.size(), 128U);
    EXPECT_EQ(Texts(notes.begin() + 60, notes.begin() + 72),
              (Texts{"C4", "C#4", "D4", "Eb4", "E4", "F4", "F#4", "G4", "Ab4", "A4", "Bb4", "B4"}));
    EXPECT_EQ(notes[0], "C-1");
    EXPECT_EQ(notes[11], "B-1");
    EXPECT_EQ(notes[48], "C3");
    EXPECT_EQ(notes[69], "A4");
    EXPECT_EQ(notes[127], "G9");
}

TEST(BasicList, EveryOctaveRepeatsTheTwelveNames) {
    const Texts notes = list("button-note");
    ASSERT_EQ(notes.size(), 128U);
    for (std::size_t i = 0; i < notes.size(); ++i) {
        const std::string& inMiddleOctave = notes[60 + i % 12];
        const std::string name = inMiddleOctave.substr(0, inMiddleOctave.size() - 1);
        EXPECT_EQ(notes[i], name + std::to_string(static_cast<int>(i / 12) - 1));
    }
    EXPECT_EQ(std::set<std::string>(notes.begin(), notes.end()).size(), 128U);
}

TEST(BasicList, ChoicesOfAControlAreInTheOrderOfItsCodes) {
    EXPECT_EQ(list("button-assginType"), (Texts{"Off", "CC", "Note"}));
    EXPECT_EQ(list("button-behavior"), (Texts{"Momentary", "Toggle", "Trigger", "Release"}));
    EXPECT_EQ(list("button-enable"), (Texts{"Off", "On"}));
}

TEST(BasicList, ChoicesOfASceneAreInTheOrderOfItsCodes) {
    EXPECT_EQ(list("common-keyTranspose"),
              (Texts{"0", "+1", "+2", "+3", "+4", "-1", "-2", "-3", "-4"}));
    EXPECT_EQ(list("common-velocityCurve"), (Texts{"Soft", "Normal", "Hard", "Constant"}));
}

TEST(BasicList, NameSuggestionsFitTheController) {
    const Texts names = list("common-sceneName");
    EXPECT_FALSE(names.empty());
    for (const std::string& name : names) {
        EXPECT_FALSE(name.empty());
        EXPECT_LE(name.size(), 12U) << name;
    }
}

} // namespace
} // namespace scenewright
