// What is done with banks and a MIDI port, over the built program, on a machine without one: play,
// try and monitor. The guest of tests/system has a port.

#include "tests/cli/BankProgram.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace scenewright {

using testing::BankProgram;
using testing::ProgramRun;

namespace {

// Pad 3 of scene 1 sends F#2, that of scene 2 the same, toggled; both on channel 10.
class PlayingBanks : public BankProgram {
protected:
    PlayingBanks() {
        done("default a.bank");
        changed("set a.bank 'scene*.pad3.AssignType=Note' 'scene*.pad3.CCOrNoteNumber=F#2' "
                "'scene*.pad3.MIDIChannel=ch:10' 'scene*.common.PadVelocityCurve=Normal' "
                "'scene1.pad3.PadBehavior=Momentary' 'scene2.pad3.PadBehavior=Toggle' "
                "'scene*.knob1.Enable=On' 'scene*.knob1.CCOrNoteNumber=20' "
                "'scene*.knob1.LowerOrLeftValue=0' 'scene*.knob1.UpperOrRightValue=127' "
                "'scene*.group1.MIDIChannel=ch:1'");
    }
    [[nodiscard]] ProgramRun play(const std::string& lines, const std::string& options = "") const {
        return shell("printf '" + lines + "' | " + testing::kProgramInShell +
                     " --virtual play a.bank " + options);
    }
};

const std::string kOn = "Note on F#2, ch 10, velocity 100\n";
const std::string kOff = "Note off F#2, ch 10\n";

} // namespace

TEST_F(PlayingBanks, OrdersAreCarriedOutAndAllNotesEnd) {
    struct Row {
        const char* lines;
        const char* options;
        std::string played;
    };
    const std::vector<Row> rows{
        {"press pad3 100\\nrelease pad3\\n", "", kOn + kOff},
        {"press pad3 100", "", kOn + kOff},
        {"press pad3 100\\nrelease pad3\\n", "--scene 2", kOn + kOff},
        {"press pad3 100\\nscene 3\\nturn knob1 64\\n", "", kOn + kOff + "CC 20, ch 1, value 64\n"},
        {"slide knob1 0 2 20ms\\n", "",
         "CC 20, ch 1, value 0\nCC 20, ch 1, value 1\nCC 20, ch 1, value 2\n"},
        {"", "", ""},
    };
    for (const Row& row : rows) {
        const ProgramRun result = play(row.lines, row.options);
        EXPECT_EQ(result.output, row.played) << row.lines;
        EXPECT_EQ(result.errors, "") << row.lines;
        EXPECT_EQ(result.exitCode, 0) << row.lines;
    }
}

TEST_F(PlayingBanks, SignalEndsAllNotes) {
    for (const char* signal : {"INT", "TERM", "HUP"}) {
        const ProgramRun result = shell(
            "mkfifo lines heard; env --default-signal=INT " + testing::kProgramInShell +
            " --virtual play a.bank <lines >heard & exec 3>lines 4<heard; "
            "echo press pad3 100 >&3; read -r first <&4; kill -" +
            signal + " $!; echo \"$first\"; cat <&4; wait $!; code=$?; rm lines heard; exit $code");
        EXPECT_EQ(result.output, kOn + kOff) << signal;
        EXPECT_EQ(result.errors, "") << signal;
        EXPECT_EQ(result.exitCode, 0) << signal;
    }
}

TEST_F(PlayingBanks, LineThatIsNoOrderIsToldAndTheOthersArePlayed) {
    const ProgramRun result = play("press pad3\\nstop\\npress pad3 100\\n");
    EXPECT_EQ(result.output, kOn + kOff);
    EXPECT_EQ(result.errors,
              "scenewright-cli: 'press pad3' is no order: it must be press, a pad or key and a "
              "velocity from 1 to 127, as in press pad3 100\n"
              "scenewright-cli: 'stop' is no order: those are scene, press, release, turn and "
              "slide\n");
    EXPECT_EQ(result.exitCode, 2);
}

TEST_F(PlayingBanks, OutputThatCannotBeWrittenIsTold) {
    for (const char* output : {">/dev/full", ">&-"}) {
        const ProgramRun result = play("press pad3 100\\n", output);
        EXPECT_EQ(result.exitCode, 1) << output;
        EXPECT_EQ(result.output, "") << output;
        EXPECT_EQ(result.errors, "scenewright-cli: standard output could not be written\n")
            << output;
    }
}

TEST_F(PlayingBanks, BankOfStandardInputLeavesNoOrders) {
    refused("play - <a.bank",
            "what is to be played comes from standard input, so that the bank cannot");
    refused("play none.bank", "none.bank");
    refused("try none.bank", "none.bank");
}

TEST_F(PlayingBanks, KeyboardThatIsNotThereIsToldBeforeThereIsAnythingToHear) {
    for (const char* command : {"monitor", "try a.bank"})
        refused(std::string("--device none-of-them ") + command,
                "There is no keyboard none-of-them", 1);
}

TEST_F(PlayingBanks, WithoutASequencerThereIsASentence) {
    if (std::filesystem::exists("/dev/snd/seq"))
        GTEST_SKIP() << "this machine has a sequencer";
    for (const char* command : {"play a.bank", "try a.bank", "monitor", "monitor --bank a.bank"})
        refused(command,
                "there is no sequencer of ALSA's on this system (/dev/snd/seq); as root, modprobe "
                "snd-seq loads it",
                1);
}

} // namespace scenewright
