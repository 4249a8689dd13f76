// What is done with banks without a controller, over the built program: default, show, convert,
// get, set, copy and diff, and standard input and output in place of files.

#include "tests/cli/BankProgram.h"

#include <gtest/gtest.h>

namespace scenewright {

using testing::BankProgram;
using testing::expectDone;
using testing::ProgramRun;
using testing::randomBank;

namespace {

class BankCommands : public BankProgram {
protected:
    BankCommands() { done("default a.bank"); }
};

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

} // namespace

TEST_F(BankCommands, DefaultWritesFourNamedScenesInEitherForm) {
    ASSERT_EQ(bytes("a.bank").size(), 1012U);
    for (std::size_t scene = 0; scene < 4; ++scene) {
        const std::string name = "SCENE" + std::to_string(scene + 1) + std::string(6, '\0');
        EXPECT_EQ(text("a.bank").substr(scene * 253, 12), name);
    }
    done("default a.json");
    EXPECT_EQ(cli("default -").output, text("a.bank"));
    EXPECT_EQ(cli("show --json a.bank").output, text("a.json"));
    EXPECT_EQ(names(), (std::vector<std::string>{"a.bank", "a.json"}));
}

TEST_F(BankCommands, ConvertGoesBothWaysWithoutLoss) {
    for (std::uint32_t seed = 0; seed < 5; ++seed) {
        put("a.bank", randomBank(seed));
        done("convert a.bank b.json");
        done("convert b.json c.bank");
        EXPECT_EQ(bytes("c.bank"), randomBank(seed));
        EXPECT_TRUE(text("b.json").starts_with("{\n  \"format\": \"scenewright-bank\""));
    }
}

TEST_F(BankCommands, ConvertsFormFollowsTheOptionThenTheNameThenTheOther) {
    done("convert a.bank b.JSON");
    EXPECT_EQ(text("b.JSON").front(), '{');
    done("convert --to image b.JSON c.json");
    EXPECT_EQ(bytes("c.json"), bytes("a.bank"));
    done("convert --to json a.bank d");
    EXPECT_EQ(text("d"), text("b.JSON"));
    EXPECT_EQ(cli("convert a.bank -").output, text("d"));
    EXPECT_EQ(cli("convert - - <d").output, text("a.bank"));
}

TEST_F(BankCommands, GetPrintsIndexAndTitle) {
    done("default a.json");
    const ProgramRun result = cli("get a.json scene1.pad3.CR 'scene2.group*' "
                                  "'scene*.common.SceneName' scene1.key1.CCOrNoteNumber");
    expectDone(result);
    EXPECT_EQ(result.output, "scene1.pad3.CR=127\t127\n"
                             "scene2.group1.MIDIChannel=16\tGlobal\n"
                             "scene2.group2.MIDIChannel=16\tGlobal\n"
                             "scene2.group3.MIDIChannel=16\tGlobal\n"
                             "scene2.group4.MIDIChannel=16\tGlobal\n"
                             "scene1.common.SceneName=SCENE1\n"
                             "scene2.common.SceneName=SCENE2\n"
                             "scene3.common.SceneName=SCENE3\n"
                             "scene4.common.SceneName=SCENE4\n"
                             "scene1.key1.CCOrNoteNumber=48\tC3\n");
}

// The titles of a pad's number are those of what it sends.
TEST_F(BankCommands, GetPrintsTheOptionsOfASetting) {
    done("default a.json");
    changed("set a.json scene1.pad1.AssignType=Note scene1.pad2.AssignType=CC");
    const ProgramRun result = cli("get a.json scene1.pad3.PadBehavior scene1.common.SceneName "
                                  "'scene1.pad*.CCOrNoteNumber' --options");
    expectDone(result);
    const auto lines = linesOf(result.output);
    ASSERT_EQ(lines.size(), 4U + 8 * 128);
    EXPECT_EQ(std::vector(lines.begin(), lines.begin() + 4),
              (std::vector<std::string>{
                  "scene1.pad3.PadBehavior=0\tMomentary", "scene1.pad3.PadBehavior=1\tToggle",
                  "scene1.pad3.PadBehavior=2\tTrigger", "scene1.pad3.PadBehavior=3\tRelease"}));
    EXPECT_EQ(lines[4 + 60], "scene1.pad1.CCOrNoteNumber=60\tC4");
    EXPECT_EQ(lines[4 + 128 + 60], "scene1.pad2.CCOrNoteNumber=60\t60");
}

TEST_F(BankCommands, GetOfAllIsASetOfAll) {
    put("b.bank", randomBank(11));
    std::vector<std::string> command{testing::kProgram, "set", file("a.bank")};
    for (const std::string& line : linesOf(cli("get b.bank 'scene*'").output))
        command.push_back(line.substr(0, line.find('\t')));
    EXPECT_EQ(command.size(), 3U + 968U);
    EXPECT_EQ(testing::runProgram(command).exitCode, 0);
    EXPECT_EQ(bytes("a.bank"), randomBank(11));
}

TEST_F(BankCommands, SetKeepsTheForm) {
    done("default a.json");
    for (const std::string name : {"a.bank", "a.json"}) {
        const char first = text(name).front();
        changed("set " + name +
                " scene1.pad3.AssignType=Note scene1.pad3.CCOrNoteNumber=C4 "
                "scene1.common.KeyTranspose=-1");
        EXPECT_EQ(text(name).front(), first);
        EXPECT_EQ(
            cli("get " + name + " scene1.pad3.CCOrNoteNumber scene1.common.KeyTranspose").output,
            "scene1.pad3.CCOrNoteNumber=60\tC4\nscene1.common.KeyTranspose=5\t-1\n");
    }
}

TEST_F(BankCommands, SetAndCopyPassABankThrough) {
    const ProgramRun set = cli("set - scene1.pad1.CR=5 <a.bank");
    EXPECT_EQ(set.errors, "scene1.pad1.CR: 127 -> 5\n");
    EXPECT_EQ(set.output.size(), 1012U);
    EXPECT_EQ(set.output[229], 5);
    put("b.bank", set.output);
    const ProgramRun copied = cli("copy - scene1.pad1 'scene4.pad*' <b.bank");
    EXPECT_EQ(copied.output.substr(759 + 229, 8), std::string(8, '\5'));
}

TEST_F(BankCommands, CopyChangesTheFile) {
    put("a.bank", randomBank(3));
    done("copy a.bank raw:scene2 scene3");
    auto expected = randomBank(3);
    std::copy_n(expected.begin() + 253, 253, expected.begin() + 506);
    EXPECT_EQ(bytes("a.bank"), expected);
}

TEST_F(BankCommands, CopyTakesControlsOutOfAnotherBank) {
    put("b.bank", randomBank(1));
    refused("copy --from b.bank a.bank 'scene*' 'scene*'", "; raw:scene* is copied all the same\n");
    done("copy --from b.bank a.bank 'raw:scene*' 'scene*'");
    EXPECT_EQ(bytes("a.bank"), randomBank(1));
    EXPECT_EQ(bytes("b.bank"), randomBank(1));
}

TEST_F(BankCommands, ASceneOnItsOwnIsShownAndCopiedIntoABank) {
    put("b.bank", randomBank(1));
    const ProgramRun scene = cli("show --json --scene 3 b.bank");
    EXPECT_TRUE(scene.output.starts_with("{\n  \"format\": \"scenewright-scene\""));
    put("scene.json", scene.output);
    EXPECT_EQ(cli("show --json scene.json").output, scene.output);
    EXPECT_TRUE(cli("show scene.json").output.starts_with("Scene 1: "));
    auto expected = bytes("a.bank");
    std::copy_n(randomBank(1).begin() + 506, 253, expected.begin() + 253);
    done("copy a.bank raw:scene1 scene2 --from scene.json");
    EXPECT_EQ(bytes("a.bank"), expected);
}

TEST_F(BankCommands, ScenesAreRenamedSwappedAndReset) {
    const std::string fresh = text("a.bank");
    const ProgramRun renamed = cli("rename a.bank 2 'Synth&Bass'");
    EXPECT_EQ(renamed.exitCode, 0);
    EXPECT_EQ(renamed.errors, "scene2.common.SceneName: \"SCENE2\" -> \"Synth&Bass\"\n");
    std::string expected = fresh;
    expected.replace(253, 12, std::string("Synth&Bass\0\0", 12));
    EXPECT_EQ(text("a.bank"), expected);
    done("swap a.bank 2 scene4");
    EXPECT_EQ(text("a.bank").substr(759), expected.substr(253, 253));
    EXPECT_EQ(text("a.bank").substr(253, 253), expected.substr(759));
    changed("set a.bank scene1.pad1.CR=raw:3 scene1.common.PianoKeyCh=raw:99");
    changed("reset a.bank 'scene*'");
    EXPECT_EQ(text("a.bank"), fresh);
    changed("set a.bank 'scene*.pad*.colour=#010203'");
    EXPECT_EQ(cli("reset a.bank scene1.pad1.colour").errors,
              "scene1.pad1.CR: 0 -> 127\nscene1.pad1.CG: 1 -> 0\nscene1.pad1.CB: 1 -> 0\n");
}

TEST_F(BankCommands, NotesAreFilledAndTransposed) {
    const ProgramRun filled = cli("fill a.bank 'scene1.pad*' C1 --scale fifths");
    EXPECT_EQ(filled.exitCode, 0);
    EXPECT_TRUE(
        filled.errors.starts_with("scene1.pad1.CCOrNoteNumber: C2 -> C1 (index 36 -> 24)\n"
                                  "scene1.pad2.CCOrNoteNumber: C#2 -> G1 (index 37 -> 31)\n"))
        << filled.errors;
    EXPECT_EQ(text("a.bank").substr(189, 8), "\x18\x1f\x26\x2d\x34\x3b\x42\x49");
    for (const char* semitones : {"-12", "+7"})
        changed("transpose a.bank 'scene1.pad*' " + std::string(semitones));
    EXPECT_EQ(text("a.bank").substr(189, 8), "\x13\x1a\x21\x28\x2f\x36\x3d\x44");
    changed("fill a.bank 'scene1.pad*' G4 --step -1");
    EXPECT_EQ(text("a.bank").substr(189, 8), "\x43\x42\x41\x40\x3f\x3e\x3d\x3c");
    changed("fill a.bank 'scene1.knob*' sustain --intervals 1,2");
    EXPECT_EQ(text("a.bank").substr(153, 4), "\x40\x41\x43\x44");
}

TEST_F(BankCommands, DiffTellsWhatDiffersAcrossForms) {
    done("default b.json");
    const ProgramRun equal = cli("diff a.bank b.json");
    expectDone(equal);
    EXPECT_EQ(equal.output, "");
    EXPECT_EQ(cli("diff --json a.bank b.json").output, "[]\n");
    changed("set b.json scene2.pad1.AssignType=CC scene4.knob1.Enable=0");
    const ProgramRun different = cli("diff a.bank b.json");
    EXPECT_EQ(different.exitCode, 1);
    EXPECT_EQ(different.errors, "");
    EXPECT_EQ(different.output, "scene2.pad1.AssignType  Scene 2, Pad 1, Type: Note -> CC\n"
                                "scene4.knob1.Enable  Scene 4, Knob 1, Enabled: On -> Off\n");
    const ProgramRun json = cli("diff --json - a.bank <b.json");
    EXPECT_EQ(json.exitCode, 1);
    EXPECT_EQ(json.output,
              "[\n"
              "  {\"path\": \"scene2.pad1.AssignType\", \"words\": \"Scene 2, Pad 1, Type\", "
              "\"first\": {\"value\": 1, \"title\": \"CC\"}, "
              "\"second\": {\"value\": 2, \"title\": \"Note\"}},\n"
              "  {\"path\": \"scene4.knob1.Enable\", \"words\": \"Scene 4, Knob 1, Enabled\", "
              "\"first\": {\"value\": 0, \"title\": \"Off\"}, "
              "\"second\": {\"value\": 1, \"title\": \"On\"}}\n"
              "]\n");
}

TEST_F(BankCommands, ShowPrintsEverySceneWithin80Columns) {
    const ProgramRun shown = cli("show a.bank");
    expectDone(shown);
    for (const std::string& line : linesOf(shown.output))
        EXPECT_LE(std::ranges::count_if(line, [](char c) { return (c & 0xC0) != 0x80; }), 80)
            << line;
    for (const char* heading : {"Scene 1: SCENE1\n", "Scene 4: SCENE4\n"})
        EXPECT_NE(shown.output.find(heading), std::string::npos);
    const ProgramRun third = cli("show a.bank --scene 3");
    expectDone(third);
    EXPECT_TRUE(third.output.starts_with("Scene 3: SCENE3\n")) << third.output;
    EXPECT_EQ(third.output.find("SCENE4"), std::string::npos);
}

TEST_F(BankCommands, ShowIsTheSameOfBothFormsAndItsJsonIsWhatConvertWrites) {
    put("b.bank", randomBank(5));
    done("convert b.bank b.json");
    for (const char* bank : {"b.bank", "b.json", "- <b.json"}) {
        EXPECT_EQ(cli(std::string("show --json ") + bank).output, text("b.json")) << bank;
        EXPECT_EQ(cli(std::string("show ") + bank).output, cli("show b.bank").output) << bank;
    }
}

TEST_F(BankCommands, ShowTellsWhatControlsSend) {
    const ProgramRun shown = cli("show a.bank --scene 1 --names");
    expectDone(shown);
    for (const char* name :
         {"  CC 74 Brightness\n", "  MIDI 36 C2, Bass Drum 1\n", "  MIDI 48 C3\n"})
        EXPECT_NE(shown.output.find(name), std::string::npos) << shown.output;
}

TEST_F(BankCommands, CheckEndsWithOneWhenItFindsSomething) {
    done("check a.bank");
    EXPECT_EQ(cli("check --json - <a.bank").output, "[]\n");
    changed("set a.bank scene2.pad2.CCOrNoteNumber=C2");
    const ProgramRun found = cli("check a.bank");
    EXPECT_EQ(found.exitCode, 1);
    EXPECT_EQ(found.errors, "");
    EXPECT_EQ(found.output, "scene2.pad1, scene2.pad2  Scene 2, Pad 1, Pad 2: all send MIDI 36 C2, "
                            "Bass Drum 1 on channel 10\n");
    EXPECT_TRUE(cli("check a.bank --json").output.starts_with("[\n  {\"kind\": \"same-message\""));
    put("scene.json", cli("show --json --scene 2 a.bank").output);
    EXPECT_EQ(cli("check scene.json").exitCode, 1);
    refused("check none", "none");
    refused("check a.bank >/dev/full", "standard output could not be written", 2);
}

TEST_F(BankCommands, HelpHasExamplesAndLinesThatFit) {
    for (const std::string command :
         {"check", "convert", "copy", "default", "diff", "fill", "get", "transpose", "read",
          "rename", "reset", "send", "set", "show", "swap"}) {
        const ProgramRun told = cli(command + " --help");
        expectDone(told);
        EXPECT_NE(told.output.find("Examples:\n  scenewright-cli " + command), std::string::npos)
            << told.output;
        EXPECT_LE(std::ranges::max(linesOf(told.output), {}, &std::string::size).size(), 100U);
    }
}

TEST_F(BankCommands, HelpAndVersionGoToStandardOutput) {
    const ProgramRun help = cli("--help");
    expectDone(help);
    for (const char* part : {"read", "send", "show", "default", "--virtual", "Exit code"})
        EXPECT_NE(help.output.find(part), std::string::npos) << part;
    EXPECT_TRUE(cli("--version").output.starts_with("scenewright-cli 0."));
}

TEST_F(BankCommands, WhatIsBadIsToldInOneSentenceAndNothingIsTouched) {
    auto image = randomBank(7);
    image[253 + 229 + 3] = 200;
    put("bad.bank", image);
    done("convert a.bank bank.json");
    std::string json = text("bank.json");
    json.replace(json.find("\"CR\": "), 6, "\"CR\": 9");
    put("bad.json", json);
    put("three", std::string("xyz"));
    put("scene.json", cli("show --json --scene 1 a.bank").output);
    put("default.plist", std::string("<plist><dict><key>open"));
    std::filesystem::create_directory(file("folder"));

    const std::string value = ".CR must be a whole number from 0 to 127, and is ";
    const std::string badJson = "scenewright-cli: bad.json: scenes[0].pads[0]" + value + "9127\n";
    for (const char* words :
         {"convert bad.json out", "get bad.json scene1", "set bad.json scene1.pad1.CR=1",
          "copy bad.json scene1 scene2", "diff bad.json bad.json", "show bad.json",
          "show --json bad.json", "--virtual=held send bad.json"})
        refused(words, badJson);
    const std::vector<std::pair<std::string, std::string>> rows{
        {"convert bad.bank out", "scenewright-cli: bad.bank: scenes[1].pads[3]" + value + "200\n"},
        {"get a.bank scene1 scene1.pad9",
         "scenewright-cli: scene1.pad9: at character 11, a pad's number from 1 to 8 or * was "
         "expected\n"},
        {"set a.bank scene1.pad1.CR=5 scene1.pad1.AssignType=notes",
         "scenewright-cli: scene1.pad1.AssignType has no option \"notes\": its options are Off, "
         "CC, "
         "Note\n"},
        {"set a.bank scene1.pad1.MIDIChannel=127",
         "scene1.pad1.MIDIChannel has no option of index 127"},
        {"copy a.bank scene2 scene3.pad1",
         "scenewright-cli: scene2 cannot be copied to scene3.pad1: both must name scenes, controls "
         "of one kind, or one and the same setting\n"},
        {"copy a.bank scene2 scene2 --from scene.json", "the file has one scene, scene1"},
        {"copy a.bank 'scene*' 'scene*' --from scene.json", "the file has one scene, scene1"},
        {"copy a.bank scene2.pad1 scene2.pad1 --from scene.json", "the file has one scene, scene1"},
        {"copy - scene1 scene2 --from -", "not both"},
        {"diff a.bank none", "none"},
        {"diff none a.bank", "none"},
        {"diff - - <a.bank",
         "scenewright-cli: standard input can be one of the two banks, not both\n"},
        {"show --scene 2 scene.json", "scene.json: it is a file of one scene"},
        {"--virtual send scene.json",
         "format must be \"scenewright-bank\", and is \"scenewright-scene\""},
        {"show - <three", "scenewright-cli: standard input: not a bank: it holds 3 bytes, and a "
                          "bank holds 1012 or is JSON\n"},
        {"get - scene1", "standard input: not a bank: it holds 0 bytes"},
        {"show none", "none"},
        {"--virtual send none", "none"},
        {"--virtual send three", "three: not a bank"},
        {"show folder", "folder"},
        {"default folder", "folder"},
        {"--virtual read folder", "folder"},
        {"convert a.bank none/out.json", "none/out.json"},
        {"--virtual=three read out", "three"},
        {"--resources . default out", "./default.plist"},
        {"dance", "dance"},
        {"--resources none default out", "none"},
        {"--log none/log default out", "none/log"},
    };
    for (const auto& [words, sentence] : rows)
        refused(words, sentence);
    refused("convert a.bank - >/dev/full",
            "scenewright-cli: standard output could not be written\n", 1);
}

TEST_F(BankCommands, ChangeThatCannotBeMadeIsToldAndNotBegun) {
    const std::vector<std::pair<std::string, std::string>> rows{
        {"rename a.bank scene1 'THIRTEEN BYTE'",
         "scenewright-cli: a scene's name has at most 12 bytes, and \"THIRTEEN BYTE\" has 13\n"},
        {"rename a.bank 5 X", "scenewright-cli: 5: at character 1, \"scene\" was expected\n"},
        {"swap a.bank 1 scene2.pad1", "scene1 cannot be swapped with scene2.pad1: both must name"},
        {"reset a.bank scene1.pad9", "scene1.pad9: at character 11"},
        {"fill a.bank 'scene1.key*' C9", "scene1.key9.CCOrNoteNumber would be 128"},
        {"fill a.bank 'scene1.key*' C2 --intervals 2,", "--intervals: whole numbers with commas"},
        {"fill a.bank 'scene1.key*' C2 --scale dur", "--scale"},
        {"fill a.bank 'scene1.key*' C2 --scale major --step 2", "--scale excludes --step"},
        {"transpose a.bank scene1 12x",
         "scenewright-cli: SEMITONES must be a whole number from -127 to 127, as in +12\n"},
        {"transpose a.bank scene1 +-1", "SEMITONES must be"},
        {"transpose a.bank scene1 128", "SEMITONES must be"},
        {"transpose a.bank 'scene1.knob*' 1", "scene1.knob*: nothing there sends notes"},
    };
    for (const auto& [words, sentence] : rows)
        refused(words, sentence);
}

// Each command with the lists that it works with; every other one may be bad.
TEST_F(BankCommands, BadListEndsTheCommandsThatNeedItAndNoOthers) {
    const std::vector<std::pair<std::string, std::string>> rows{
        {"show a.bank", "basic"},
        {"get a.bank scene1.pad1", "basic"},
        {"set a.bank scene1.pad1.CR=1", "basic"},
        {"copy a.bank scene1 scene2", "basic"},
        {"swap a.bank scene1 scene2", ""},
        {"rename a.bank scene1 SCENE1", "basic"},
        {"check a.bank", "basic"},
        {"fill a.bank 'scene1.pad*' C2", "basic"},
        {"transpose a.bank scene1 1", "basic"},
        {"reset a.bank scene1.pad1", "basic default"},
        {"diff a.bank a.bank", "basic"},
        {"convert a.bank out.bank", ""},
        {"convert a.bank out.json", "basic"},
        {"default out.bank", "default"},
        {"default out.json", "default basic"},
        {"udev-rules", "project"},
        {"devices", "project"},
        {"--virtual read out.bank", "project default"},
        {"--virtual read out.json", "project basic default"},
        {"--virtual send a.bank", "project default"},
        {"--virtual send a.bank --verify", "project basic default"},
    };
    for (const std::string list : {"basic", "default", "project"}) {
        std::filesystem::remove_all(file("lists"));
        std::filesystem::create_directory(file("lists"));
        put("lists/" + list + ".plist", std::string("<plist><dict><key>open"));
        for (const auto& [words, needed] : rows) {
            const std::string whole = "--resources lists " + words;
            if (needed.find(list) != std::string::npos)
                refused(whole, "lists/" + list + ".plist");
            else
                changed(whole);
            std::filesystem::remove(file("out.bank"));
            std::filesystem::remove(file("out.json"));
        }
    }
}

} // namespace scenewright
