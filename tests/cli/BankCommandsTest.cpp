// What is done with banks without a controller, over the built program: convert, get, set, copy,
// diff, show --json, and standard input and output in place of files.

#include "tests/cli/BankProgram.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace scenewright {

using testing::BankProgram;
using testing::ProgramRun;
using testing::randomBank;
using testing::readBytes;
using testing::readText;
using testing::writeBytes;
using testing::writeText;

namespace {

class BankCommands : public BankProgram {};

} // namespace

TEST_F(BankCommands, ConvertGoesBothWaysWithoutLoss) {
    for (std::uint32_t seed = 0; seed < 5; ++seed) {
        writeBytes(file("a.bank"), randomBank(seed));
        expectDone(run({"convert", file("a.bank"), file("b.json")}));
        expectDone(run({"convert", file("b.json"), file("c.bank")}));
        EXPECT_EQ(readBytes(file("c.bank")), randomBank(seed));
        EXPECT_TRUE(readText(file("b.json")).starts_with("{\n  \"format\": \"scenewright-bank\""));
    }
}

TEST_F(BankCommands, ConvertsFormFollowsTheOptionThenTheName) {
    expectDone(run({"default", file("a.bank")}));
    expectDone(run({"convert", file("a.bank"), file("b.JSON")}));
    EXPECT_EQ(readText(file("b.JSON")).front(), '{');
    expectDone(run({"convert", "--to", "image", file("b.JSON"), file("c.json")}));
    EXPECT_EQ(readBytes(file("c.json")), readBytes(file("a.bank")));
    expectDone(run({"convert", "--to", "json", file("a.bank"), file("d")}));
    EXPECT_EQ(readText(file("d")), readText(file("b.JSON")));
    expectSentence(run({"convert", "--to", "xml", file("a.bank"), file("e")}), 2, "--to");
    EXPECT_FALSE(exists("e"));
}

TEST_F(BankCommands, ConvertToStandardOutputWritesTheOtherForm) {
    expectDone(run({"default", file("a.bank")}));
    const ProgramRun text = run({"convert", file("a.bank"), "-"});
    EXPECT_EQ(text.errors, "");
    writeText(file("a.json"), text.output);
    const ProgramRun image = shell("convert - -", "a.json");
    EXPECT_EQ(image.output.size(), 1012U);
    EXPECT_EQ(image.output, readText(file("a.bank")));
}

TEST_F(BankCommands, BadTextIsOneSentenceAndNothingIsWritten) {
    const std::string bad = file("a.json");
    expectDone(run({"default", bad}));
    std::string text = readText(bad);
    text.replace(text.find("\"CR\": "), 6, "\"CR\": 9");
    writeText(bad, text);
    for (const auto& arguments :
         std::vector<std::vector<std::string>>{{"convert", bad, file("out")},
                                               {"get", bad, "scene1"},
                                               {"set", bad, "scene1.pad1.CR=1"},
                                               {"copy", bad, "scene1", "scene2"},
                                               {"diff", bad, bad},
                                               {"show", bad},
                                               {"show", "--json", bad},
                                               {"--virtual=" + file("held"), "send", bad}})
        expectSentence(run(arguments), 2,
                       "scenewright-cli: " + bad +
                           ": scenes[0].pads[0].CR must be a whole number from 0 to 127, and is "
                           "9127\n");
    EXPECT_EQ(names(), std::vector<std::string>{"a.json"});
    EXPECT_EQ(readText(bad), text);
}

TEST_F(BankCommands, ImageWithAByteThatIsNoValueIsRefusedWithItsPlace) {
    auto bank = randomBank(7);
    bank[253 + 229 + 3] = 200;
    writeBytes(file("a.bank"), bank);
    expectSentence(run({"convert", file("a.bank"), file("out.json")}), 2,
                   "scenewright-cli: " + file("a.bank") +
                       ": scenes[1].pads[3].CR must be a whole number from 0 to 127, and is 200\n");
    EXPECT_EQ(names(), std::vector<std::string>{"a.bank"});
}

TEST_F(BankCommands, GetPrintsIndexAndTitle) {
    expectDone(run({"default", file("a.json")}));
    const ProgramRun result = run({"get", file("a.json"), "scene1.pad3.CR", "scene2.group*",
                                   "scene*.common.SceneName", "scene1.key1.CCOrNoteNumber"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
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

TEST_F(BankCommands, GetOfAllIsASetOfAll) {
    writeBytes(file("a.bank"), randomBank(11));
    expectDone(run({"default", file("b.bank")}));
    std::istringstream lines(run({"get", file("a.bank"), "scene*"}).output);
    std::vector<std::string> arguments{"set", file("b.bank")};
    for (std::string line; std::getline(lines, line);)
        arguments.push_back(line.substr(0, line.find('\t')));
    EXPECT_EQ(arguments.size(), 2U + 968U);
    expectDone(run(arguments));
    EXPECT_EQ(readBytes(file("b.bank")), randomBank(11));
}

TEST_F(BankCommands, GetRefusesABadPath) {
    expectDone(run({"default", file("a.bank")}));
    expectSentence(run({"get", file("a.bank"), "scene1", "scene1.pad9"}), 2,
                   "scenewright-cli: scene1.pad9: at character 11, a pad's number from 1 to 8 or * "
                   "was expected\n");
}

TEST_F(BankCommands, SetKeepsTheForm) {
    for (const std::string name : {"a.bank", "a.json"}) {
        expectDone(run({"default", file(name)}));
        const char first = readText(file(name)).front();
        expectDone(run({"set", file(name), "scene1.pad3.AssignType=Note",
                        "scene1.pad3.CCOrNoteNumber=C4", "scene1.common.KeyTranspose=-1"}));
        EXPECT_EQ(readText(file(name)).front(), first);
        EXPECT_EQ(run({"get", file(name), "scene1.pad3.CCOrNoteNumber"}).output,
                  "scene1.pad3.CCOrNoteNumber=60\tC4\n");
        EXPECT_EQ(run({"get", file(name), "scene1.common.KeyTranspose"}).output,
                  "scene1.common.KeyTranspose=5\t-1\n");
    }
}

TEST_F(BankCommands, SetDoesAllOrNothing) {
    expectDone(run({"default", file("a.bank")}));
    const auto before = readBytes(file("a.bank"));
    expectSentence(run({"set", file("a.bank"), "scene1.pad1.CR=5", "scene1.pad1.AssignType=note"}),
                   2,
                   "scenewright-cli: scene1.pad1.AssignType has no option \"note\": its options "
                   "are Off, CC, Note\n");
    EXPECT_EQ(readBytes(file("a.bank")), before);
}

TEST_F(BankCommands, SetAndCopyPassABankThrough) {
    expectDone(run({"default", file("a.bank")}));
    const ProgramRun changed = shell("set - scene1.pad1.CR=5", "a.bank");
    EXPECT_EQ(changed.errors, "");
    EXPECT_EQ(changed.output.size(), 1012U);
    EXPECT_EQ(changed.output[229], 5);
    writeText(file("b.bank"), changed.output);
    const ProgramRun copied = shell("copy - scene1.pad1 'scene4.pad*'", "b.bank");
    EXPECT_EQ(copied.output.substr(759 + 229, 8), std::string(8, '\5'));
}

TEST_F(BankCommands, CopyChangesTheFile) {
    writeBytes(file("a.bank"), randomBank(3));
    expectDone(run({"copy", file("a.bank"), "scene2", "scene3"}));
    const auto bank = readBytes(file("a.bank"));
    EXPECT_TRUE(std::equal(bank.begin() + 253, bank.begin() + 506, bank.begin() + 506));
    expectSentence(run({"copy", file("a.bank"), "scene2", "scene3.pad1"}), 2,
                   "scenewright-cli: scene2 cannot be copied to scene3.pad1: both must name "
                   "scenes, controls of one kind, or one and the same setting\n");
    EXPECT_EQ(readBytes(file("a.bank")), bank);
}

TEST_F(BankCommands, DiffTellsWhatDiffersAcrossForms) {
    expectDone(run({"default", file("a.bank")}));
    expectDone(run({"default", file("b.json")}));
    ProgramRun equal = run({"diff", file("a.bank"), file("b.json")});
    expectDone(equal);
    EXPECT_EQ(equal.output, "");
    EXPECT_EQ(run({"diff", "--json", file("a.bank"), file("b.json")}).output, "[]\n");
    expectDone(run({"set", file("b.json"), "scene2.pad1.AssignType=CC", "scene4.knob1.Enable=0"}));
    const ProgramRun different = run({"diff", file("a.bank"), file("b.json")});
    EXPECT_EQ(different.exitCode, 1);
    EXPECT_EQ(different.errors, "");
    EXPECT_EQ(different.output, "scene2.pad1.AssignType  Scene 2, Pad 1, Type: Note -> CC\n"
                                "scene4.knob1.Enable  Scene 4, Knob 1, Enabled: On -> Off\n");
    const ProgramRun json = shell("diff --json - " + file("a.bank"), "b.json");
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

TEST_F(BankCommands, DiffsTroubleIsExitCodeTwo) {
    expectDone(run({"default", file("a.bank")}));
    expectSentence(run({"diff", file("a.bank"), file("none")}), 2, file("none"));
    expectSentence(run({"diff", file("none"), file("a.bank")}), 2, file("none"));
    expectSentence(shell("diff - -", "a.bank"), 2,
                   "scenewright-cli: standard input can be one of the two banks, not both\n");
}

TEST_F(BankCommands, ShowJsonIsTheTextThatConvertWrites) {
    writeBytes(file("a.bank"), randomBank(5));
    expectDone(run({"convert", file("a.bank"), file("a.json")}));
    EXPECT_EQ(run({"show", "--json", file("a.bank")}).output, readText(file("a.json")));
    EXPECT_EQ(run({"show", "--json", file("a.json")}).output, readText(file("a.json")));
    const ProgramRun scene = run({"show", "--json", "--scene", "3", file("a.json")});
    EXPECT_TRUE(scene.output.starts_with("{\n  \"format\": \"scenewright-scene\""));
}

TEST_F(BankCommands, ShowOfATextIsShowOfItsImage) {
    writeBytes(file("a.bank"), randomBank(5));
    expectDone(run({"convert", file("a.bank"), file("a.json")}));
    EXPECT_EQ(run({"show", file("a.json")}).output, run({"show", file("a.bank")}).output);
    EXPECT_EQ(shell("show -", "a.json").output, run({"show", file("a.bank")}).output);
}

TEST_F(BankCommands, StandardInputIsNamedInItsTrouble) {
    writeText(file("bad"), "xyz");
    expectSentence(
        shell("show -", "bad"), 2,
        "scenewright-cli: standard input: not a bank: it holds 3 bytes, and a bank holds "
        "1012 or is JSON\n");
    expectSentence(run({"get", "-", "scene1"}), 2, "standard input: not a bank: it holds 0 bytes");
}

TEST_F(BankCommands, DefaultWritesJsonAndStandardOutput) {
    expectDone(run({"default", file("a.bank")}));
    expectDone(run({"default", file("a.json")}));
    EXPECT_EQ(run({"default", "-"}).output, readText(file("a.bank")));
    EXPECT_EQ(run({"show", "--json", file("a.bank")}).output, readText(file("a.json")));
}

TEST_F(BankCommands, UnwritableOutputIsNamed) {
    expectDone(run({"default", file("a.bank")}));
    expectSentence(run({"convert", file("a.bank"), file("none/out.json")}), 2,
                   file("none/out.json"));
    const ProgramRun full = testing::runProgram(
        {"/bin/sh", "-c", testing::kProgram + " convert " + file("a.bank") + " - >/dev/full"});
    EXPECT_EQ(full.exitCode, 1);
    EXPECT_EQ(full.errors, "scenewright-cli: standard output could not be written\n");
}

TEST_F(BankCommands, EachCommandExplainsItself) {
    for (const std::string command :
         {"convert", "copy", "default", "diff", "get", "read", "send", "set", "show"}) {
        const ProgramRun help = run({command, "--help"});
        EXPECT_EQ(help.exitCode, 0);
        EXPECT_NE(help.output.find("Examples:\n  scenewright-cli " + command), std::string::npos)
            << help.output;
        std::istringstream lines(help.output);
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(line.size(), 100U) << line;
    }
}

TEST_F(BankCommands, ASceneOnItsOwnIsShownAndCopiedIntoABank) {
    writeBytes(file("a.bank"), randomBank(1));
    writeBytes(file("b.bank"), randomBank(2));
    const ProgramRun scene = run({"show", "--json", "--scene", "3", file("a.bank")});
    writeText(file("scene.json"), scene.output);
    EXPECT_EQ(run({"show", "--json", file("scene.json")}).output, scene.output);
    EXPECT_TRUE(run({"show", file("scene.json")}).output.starts_with("Scene 1: "));
    expectDone(run({"copy", file("b.bank"), "scene1", "scene2", "--from", file("scene.json")}));
    auto expected = randomBank(2);
    const auto whole = randomBank(1);
    std::copy_n(whole.begin() + 2 * 253, 253, expected.begin() + 253);
    EXPECT_EQ(readBytes(file("b.bank")), expected);
}

TEST_F(BankCommands, CopyTakesControlsOutOfAnotherBank) {
    writeBytes(file("a.bank"), randomBank(1));
    writeBytes(file("b.bank"), randomBank(2));
    expectDone(run({"copy", "--from", file("a.bank"), file("b.bank"), "scene*", "scene*"}));
    EXPECT_EQ(readBytes(file("b.bank")), randomBank(1));
    EXPECT_EQ(readBytes(file("a.bank")), randomBank(1));
}

TEST_F(BankCommands, AFileOfOneSceneHasNoSecondAndIsNoBank) {
    writeText(file("scene.json"), run({"default", "-"}).output);
    expectDone(run({"convert", file("scene.json"), file("a.json"), "--to", "json"}));
    writeText(file("scene.json"), run({"show", "--json", "--scene", "1", file("a.json")}).output);
    const std::string before = readText(file("a.json"));
    for (const char* from : {"scene2", "scene*", "scene2.pad1"})
        expectSentence(run({"copy", file("a.json"), from, from, "--from", file("scene.json")}), 2,
                       "the file has one scene, scene1");
    expectSentence(run({"show", "--scene", "2", file("scene.json")}), 2,
                   file("scene.json") + ": it is a file of one scene");
    expectSentence(run({"--virtual", "send", file("scene.json")}), 2,
                   "format must be \"scenewright-bank\", and is \"scenewright-scene\"");
    expectSentence(run({"copy", "-", "scene1", "scene2", "--from", "-"}), 2, "not both");
    EXPECT_EQ(readText(file("a.json")), before);
}

} // namespace scenewright
