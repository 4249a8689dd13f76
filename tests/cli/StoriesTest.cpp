// What players want of their banks, each told with the commands that they would type, and the bytes
// of the whole bank compared.

#include "tests/support/Stories.h"

#include "tests/cli/BankProgram.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright::testing {

namespace {

struct Step {
    std::string words; // of a shell, behind the program's name
    int exitCode = 0;
};

using Steps = std::map<std::string_view, std::vector<Step>>; // by the story's name

Steps stepsOfNotes() {
    return {
        {"drums, chromatic from C1, red to yellow",
         {{"fill a.bank 'scene1.pad*' C1"},
          {"fill a.bank 'scene1.pad*.colour' '#ff0000..#ffff00'"}}},
        {"scenes 2 and 4 change places before the gig",
         {{"rename a.bank 2 'Synth&Bass'"}, {"set a.bank scene4.pad1.CR=5"}, {"swap a.bank 2 4"}}},
        {"25 keys in D dorian", {{"fill a.bank 'scene1.key*' D3 --scale dorian"}}},
        {"one knob is the sustain pedal", {{"set a.bank scene1.knob1.CCOrNoteNumber=sustain"}}},
        {"a conflict is found and mended",
         {{"set a.bank scene1.slider1.CCOrNoteNumber=brightness"},
          {"set a.bank scene1.pad2.CCOrNoteNumber=C2"},
          {"check a.bank >found", 1},
          {"set a.bank scene1.slider1.CCOrNoteNumber=11 scene1.slider2.CCOrNoteNumber=volume"},
          {"set a.bank scene1.pad2.CCOrNoteNumber=Eb2 scene1.pad4.CCOrNoteNumber=C#2"},
          {"check a.bank >found"}}},
        {"the pads go to channel 1 in every scene",
         {{"set a.bank 'scene*.pad*.MIDIChannel=ch:1'"}}},
        {"a minor pentatonic for the solo",
         {{"fill a.bank 'scene2.pad*.CCOrNoteNumber' C3 --scale minor-pentatonic"}}},
        {"a blues on the keys, an octave lower",
         {{"fill a.bank 'scene1.key*' A2 --scale blues"}, {"transpose a.bank 'scene1.key*' -12"}}},
        {"notes are typed with flats",
         {{"set a.bank scene1.pad3.CCOrNoteNumber=Db2 scene1.pad4.CCOrNoteNumber=bb2 "
           "scene1.key1.CCOrNoteNumber=D#3"}}},
        {"a transposition too far is found",
         {{"set a.bank scene1.common.KeyTranspose=+4 scene1.key25.CCOrNoteNumber=F5"},
          {"check a.bank >found"},
          {"transpose a.bank scene1.key25 +3"},
          {"check a.bank >found", 1},
          {"set a.bank scene1.common.KeyTranspose=+3"},
          {"check a.bank >found"}}},
    };
}

Steps stepsOfSettings() {
    return {
        {"knobs and sliders send a row of controllers in every scene",
         {{"fill a.bank 'scene*.knob*' 20"}, {"fill a.bank 'scene*.slider*' 24"}}},
        {"the last pad is for panic",
         {{"set a.bank scene1.pad8.AssignType=cc 'scene1.pad8.CCOrNoteNumber=all notes off' "
           "scene1.pad8.OnValue=0 scene1.pad8.PadBehavior=trigger scene1.pad8.colour=#ffffff"}}},
        {"pads that stay on", {{"set a.bank 'scene1.pad*.PadBehavior=tog'"}}},
        {"one scene's pads are good enough for all",
         {{"set a.bank scene1.pad1.CCOrNoteNumber='low tom' scene1.pad1.CR=1"},
          {"copy a.bank 'scene1.pad*' 'scene*.pad*'"}}},
        {"pad 1 and pad 8 change places for the left hand",
         {{"swap a.bank scene1.pad1 scene1.pad8"}}},
        {"a scene that has been played with is as new",
         {{"fill a.bank 'scene3.key*' C-1"},
          {"fill a.bank 'scene3.pad*' safe"},
          {"rename a.bank scene3 Mess"},
          {"reset a.bank scene3"}}},
        {"drawbars are pulled down",
         {{"set a.bank 'scene1.slider*.UpperOrRightValue=0' "
           "'scene1.slider*.LowerOrLeftValue=127'"}}},
        {"the pads are as loud as they can be",
         {{"set a.bank scene1.common.PadVelocityCurve=constant "
           "scene1.common.PadConstVelocity=127"}}},
        {"a colour is written into the text of a bank",
         {{"convert a.bank a.json"},
          {"show a.json --json | sed '0,/\"CR\":/s/\"CR\":.*/\"colour\": \"#8000ff\"/;"
           "0,/\"CG\":/{/\"CG\":/d};0,/\"CB\":/{/\"CB\":/d}' >b.json"},
          {"convert b.json a.bank"}}},
        {"four scenes for four songs",
         {{"rename a.bank 1 Intro"},
          {"rename a.bank 2 Verse"},
          {"rename a.bank 3 Chorus"},
          {"rename a.bank 4 'Fin é'"},
          {"fill a.bank 'scene*.pad*.colour' bright"}}},
    };
}

class Stories : public BankProgram {};

} // namespace

TEST_F(Stories, EndWithTheBytesThatThePlayerWanted) {
    done("default default.bank");
    Steps steps = stepsOfNotes();
    steps.merge(stepsOfSettings());
    for (const Story& story : stories()) {
        SCOPED_TRACE(story.name);
        put("a.bank", bytes("default.bank"));
        for (const Step& step : steps.at(story.name))
            EXPECT_EQ(cli(step.words).exitCode, step.exitCode) << step.words;
        EXPECT_EQ(bytes("a.bank"), endOf(story, bytes("default.bank")));
    }
}

} // namespace scenewright::testing
