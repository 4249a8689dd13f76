// What players want of their banks, each told with the commands that they would type, and the bytes
// of the whole bank compared.

#include "tests/cli/BankProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace scenewright {

namespace {

using Bytes = std::vector<std::uint8_t>;
using Patches = std::map<std::size_t, Bytes>; // by offset in the bank

constexpr std::size_t kScene = 253; // bytes of a scene

struct Step {
    std::string words; // of a shell, behind the program's name
    int exitCode = 0;
};

struct Story {
    const char* name;
    std::vector<Step> steps;
    Patches patches; // to the bank of default scenes
};

Bytes letters(std::string text) {
    text.resize(12);
    return {text.begin(), text.end()};
}

// The same patch in all four scenes.
Patches inAll(const Patches& patches) {
    Patches all;
    for (std::size_t scene = 0; scene < 4; ++scene)
        for (const auto& [offset, bytes] : patches)
            all[scene * kScene + offset] = bytes;
    return all;
}

Patches with(Patches patches, const Patches& more) {
    patches.insert(more.begin(), more.end());
    return patches;
}

std::vector<Story> storiesOfNotes() {
    return {
        {"drums, chromatic from C1, red to yellow",
         {{"fill a.bank 'scene1.pad*' C1"},
          {"fill a.bank 'scene1.pad*.colour' '#ff0000..#ffff00'"}},
         {{189, {24, 25, 26, 27, 28, 29, 30, 31}},
          {229, Bytes(8, 127)},
          {237, {0, 18, 36, 54, 73, 91, 109, 127}},
          {245, Bytes(8, 0)}}},
        {"scenes 2 and 4 change places before the gig",
         {{"rename a.bank 2 'Synth&Bass'"}, {"set a.bank scene4.pad1.CR=5"}, {"swap a.bank 2 4"}},
         {{kScene, letters("SCENE4")}, {kScene + 229, {5}}, {3 * kScene, letters("Synth&Bass")}}},
        {"25 keys in D dorian",
         {{"fill a.bank 'scene1.key*' D3 --scale dorian"}},
         {{70, {50, 52, 53, 55, 57, 59, 60, 62, 64, 65, 67, 69, 71,
                72, 74, 76, 77, 79, 81, 83, 84, 86, 88, 89, 91}}}},
        {"one knob is the sustain pedal",
         {{"set a.bank scene1.knob1.CCOrNoteNumber=sustain"}},
         {{153, {64}}}},
        {"a conflict is found and mended",
         {{"set a.bank scene1.slider1.CCOrNoteNumber=brightness"},
          {"set a.bank scene1.pad2.CCOrNoteNumber=C2"},
          {"check a.bank >found", 1},
          {"set a.bank scene1.slider1.CCOrNoteNumber=11 scene1.slider2.CCOrNoteNumber=volume"},
          {"set a.bank scene1.pad2.CCOrNoteNumber=Eb2 scene1.pad4.CCOrNoteNumber=C#2"},
          {"check a.bank >found"}},
         {{169, {11, 7}}, {190, {39}}, {192, {37}}}},
    };
}

std::vector<Story> storiesOfSettings() {
    return {
        {"the pads go to channel 1 in every scene",
         {{"set a.bank 'scene*.pad*.MIDIChannel=ch:1'"}},
         inAll({{197, Bytes(8, 0)}})},
        {"a minor pentatonic for the solo",
         {{"fill a.bank 'scene2.pad*.CCOrNoteNumber' C3 --scale minor-pentatonic"}},
         {{kScene + 189, {48, 51, 53, 55, 58, 60, 63, 65}}}},
        {"a blues on the keys, an octave lower",
         {{"fill a.bank 'scene1.key*' A2 --scale blues"}, {"transpose a.bank 'scene1.key*' -12"}},
         {{70, {33, 36, 38, 39, 40, 43, 45, 48, 50, 51, 52, 55, 57,
                60, 62, 63, 64, 67, 69, 72, 74, 75, 76, 79, 81}}}},
        {"knobs and sliders send a row of controllers in every scene",
         {{"fill a.bank 'scene*.knob*' 20"}, {"fill a.bank 'scene*.slider*' 24"}},
         inAll({{153, {20, 21, 22, 23}}, {169, {24, 25, 26, 27}}})},
        {"the last pad is for panic",
         {{"set a.bank scene1.pad8.AssignType=cc 'scene1.pad8.CCOrNoteNumber=all notes off' "
           "scene1.pad8.OnValue=0 scene1.pad8.PadBehavior=trigger scene1.pad8.colour=#ffffff"}},
         {{188, {1}},
          {196, {123}},
          {212, {2}},
          {220, {0}},
          {236, {127}},
          {244, {127}},
          {252, {127}}}},
    };
}

std::vector<Story> storiesOfPads() {
    return {
        {"pads that stay on", {{"set a.bank 'scene1.pad*.PadBehavior=tog'"}}, {{205, Bytes(8, 1)}}},
        {"notes are typed with flats",
         {{"set a.bank scene1.pad3.CCOrNoteNumber=Db2 scene1.pad4.CCOrNoteNumber=bb2 "
           "scene1.key1.CCOrNoteNumber=D#3"}},
         {{191, {37, 46}}, {70, {51}}}},
        {"one scene's pads are good enough for all",
         {{"set a.bank scene1.pad1.CCOrNoteNumber='low tom' scene1.pad1.CR=1"},
          {"copy a.bank 'scene1.pad*' 'scene*.pad*'"}},
         inAll({{189, {45}}, {229, {1}}})},
        {"pad 1 and pad 8 change places for the left hand",
         {{"swap a.bank scene1.pad1 scene1.pad8"}},
         {{189, {43}}, {196, {36}}, {237, {127}}, {244, {0}}, {245, {127}}, {252, {0}}}},
    };
}

std::vector<Story> storiesOfScenes() {
    return {
        {"a scene that has been played with is as new",
         {{"fill a.bank 'scene3.key*' C-1"},
          {"fill a.bank 'scene3.pad*' safe"},
          {"rename a.bank scene3 Mess"},
          {"reset a.bank scene3"}},
         {}},
        {"drawbars are pulled down",
         {{"set a.bank 'scene1.slider*.UpperOrRightValue=0' "
           "'scene1.slider*.LowerOrLeftValue=127'"}},
         {{173, Bytes(4, 0)}, {177, Bytes(4, 127)}}},
        {"the pads are as loud as they can be",
         {{"set a.bank scene1.common.PadVelocityCurve=constant "
           "scene1.common.PadConstVelocity=127"}},
         {{18, {3, 127}}}},
        {"a transposition too far is found",
         {{"set a.bank scene1.common.KeyTranspose=+4 scene1.key25.CCOrNoteNumber=F5"},
          {"check a.bank >found"},
          {"transpose a.bank scene1.key25 +3"},
          {"check a.bank >found", 1},
          {"set a.bank scene1.common.KeyTranspose=+3"},
          {"check a.bank >found"}},
         {{15, {3}}, {94, {80}}}},
        {"a colour is written into the text of a bank",
         {{"convert a.bank a.json"},
          {"show a.json --json | sed '0,/\"CR\":/s/\"CR\":.*/\"colour\": \"#8000ff\"/;"
           "0,/\"CG\":/{/\"CG\":/d};0,/\"CB\":/{/\"CB\":/d}' >b.json"},
          {"convert b.json a.bank"}},
         {{229, {64}}, {237, {0}}, {245, {127}}}},
        {"four scenes for four songs",
         {{"rename a.bank 1 Intro"},
          {"rename a.bank 2 Verse"},
          {"rename a.bank 3 Chorus"},
          {"rename a.bank 4 'Fin é'"},
          {"fill a.bank 'scene*.pad*.colour' bright"}},
         with(inAll({{229, {127, 127, 127, 127, 127, 64, 0, 0}},
                     {237, {0, 32, 64, 96, 127, 127, 127, 127}},
                     {245, {0, 0, 0, 0, 0, 0, 0, 64}}}),
              {{0, letters("Intro")},
               {kScene, letters("Verse")},
               {2 * kScene, letters("Chorus")},
               {3 * kScene, letters("Fin \xC3\xA9")}})},
    };
}

class Stories : public testing::BankProgram {
protected:
    void expectStory(const Story& story) const {
        SCOPED_TRACE(story.name);
        put("a.bank", bytes("default.bank"));
        for (const Step& step : story.steps)
            EXPECT_EQ(cli(step.words).exitCode, step.exitCode) << step.words;
        Bytes expected = bytes("default.bank");
        for (const auto& [offset, patch] : story.patches)
            std::ranges::copy(patch, expected.begin() + static_cast<long>(offset));
        EXPECT_EQ(bytes("a.bank"), expected);
    }
};

} // namespace

TEST_F(Stories, EndWithTheBytesThatThePlayerWanted) {
    done("default default.bank");
    for (const auto& stories :
         {storiesOfNotes(), storiesOfSettings(), storiesOfPads(), storiesOfScenes()})
        for (const Story& story : stories)
            expectStory(story);
}

} // namespace scenewright
