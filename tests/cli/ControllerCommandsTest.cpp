// read, send with its options and diff with device:, over the built program on the virtual
// controller.

#include "tests/cli/BankProgram.h"

#include <gtest/gtest.h>

#include <tuple>

namespace scenewright {

using testing::BankProgram;
using testing::expectDone;
using testing::ProgramRun;
using testing::randomBank;

namespace {

// A virtual controller that holds the random bank 1, and a default bank to send.
class ControllerCommands : public BankProgram {
protected:
    ControllerCommands() {
        put("held", randomBank(1));
        done("default a.json");
        done("default a.bank");
    }
    void holdDefaults(const std::string& assignments) const {
        done("default held");
        changed("set held " + assignments);
    }
};

} // namespace

TEST_F(ControllerCommands, ReadWritesEitherFormAndStandardOutputOfDefaultScenesToo) {
    done("--virtual=held read r.bank");
    EXPECT_EQ(bytes("r.bank"), randomBank(1));
    EXPECT_EQ(cli("--virtual=held read -").output, text("r.bank"));
    done("--virtual=held read r.json");
    done("convert r.json r");
    EXPECT_EQ(bytes("r"), randomBank(1));
    done("--virtual=new read out");
    EXPECT_EQ(bytes("out"), bytes("a.bank")) << "the default scenes";
    EXPECT_FALSE(exists("new"));
}

TEST_F(ControllerCommands, BothFormsAndStandardInputAreSentAndVerified) {
    for (const char* bank : {"a.bank", "a.json", "- <a.json"}) {
        put("held", randomBank(1));
        done(std::string("--virtual=held send ") + bank);
        EXPECT_EQ(bytes("held"), bytes("a.bank")) << bank;
    }
    put("held", randomBank(1));
    const ProgramRun sent = cli("--virtual=held send --verify a.bank");
    expectDone(sent);
    EXPECT_EQ(sent.output, "The controller holds what was sent.\n");
    EXPECT_EQ(bytes("held"), bytes("a.bank"));
}

TEST_F(ControllerCommands, StreamsAreOffUnlessNamed) {
    const ProgramRun quiet = cli("--virtual read out");
    expectDone(quiet);
    EXPECT_EQ(quiet.output, "");
    done("--virtual --console console --log log read out");
    // A line for each read and each write, and those of discovery.
    EXPECT_GT(std::ranges::count(text("console"), '\n'), 1016 + 1014);
    // Pause, sent packet and received transfer of each exchange.
    EXPECT_GT(std::ranges::count(text("log"), '\n'), 3000);
    const ProgramRun loud = cli("--virtual --log - read out");
    EXPECT_EQ(loud.exitCode, 0);
    EXPECT_NE(loud.errors.find("handshake yes\n"), std::string::npos);
    EXPECT_EQ(loud.output, "");
}

TEST_F(ControllerCommands, BadFileIsToldBeforeTheControllerIsAsked) {
    for (const char* command : {"diff device: none", "diff none device:", "read none/out"}) {
        put("log", std::string());
        refused(std::string("--virtual --log log ") + command, "none");
    }
}

TEST_F(ControllerCommands, ASendThatTheVirtualMemoryCannotKeepHasFailed) {
    done("convert held held.json");
    const auto before = files();
    for (const char* send : {"send --no-backup", "send --no-backup --verify"}) {
        // No file may have more than a kilobyte; the sentence has less.
        expectSentence(shell("trap '' XFSZ; ulimit -f 1; exec " + testing::kProgramInShell +
                             " --virtual=held.json " + send + " a.bank"),
                       1, "scenewright-cli: Cannot write held.json: ");
        EXPECT_EQ(files(), before);
    }
}

TEST_F(ControllerCommands, BackupIsWhatWasHeldBeforeTheSend) {
    for (const char* backup : {"b.bank", "b.json", "- >b"}) {
        put("held", randomBank(1));
        done(std::string("--virtual=held send a.bank --backup ") + backup);
        EXPECT_EQ(bytes("held"), bytes("a.bank")) << backup;
    }
    done("convert b.json c.bank");
    for (const char* backup : {"b.bank", "c.bank", "b"})
        EXPECT_EQ(bytes(backup), randomBank(1)) << backup;
}

TEST_F(ControllerCommands, ASendKeepsWhatWasHeldUnlessToldNotTo) {
    done("--virtual=held send --no-backup a.bank");
    EXPECT_EQ(cli("earlier list").output, "");
    put("held", randomBank(1));
    done("--virtual=held send a.bank");
    const std::string list = cli("earlier list").output;
    EXPECT_NE(list.find("on the keyboard before the send of a.bank\n"), std::string::npos) << list;
    EXPECT_EQ(std::ranges::count(list, '\n'), 2);
    done("earlier show 1 --json >kept.json");
    done("convert kept.json kept.bank");
    EXPECT_EQ(bytes("kept.bank"), randomBank(1));
    EXPECT_EQ(cli("--virtual=held earlier diff 1").output, cli("diff a.bank kept.bank").output);
    const std::string json = cli("earlier list --json").output;
    for (const char* part :
         {"\"number\": 1", "\"kept\": \"20", "\"keyboard\": \"Virtual controller\""})
        EXPECT_NE(json.find(part), std::string::npos) << json;
    done("--virtual=held earlier restore 1");
    EXPECT_EQ(bytes("held"), randomBank(1));
}

TEST_F(ControllerCommands, ACopyThatCannotBeKeptSendsNothing) {
    for (const char* command : {"send a.bank", "send a.bank --no-backup"}) {
        const bool isKept = std::string(command) == "send a.bank";
        put("held", randomBank(1));
        const ProgramRun sent = shell("XDG_STATE_HOME=$PWD/a.bank exec " +
                                      testing::kProgramInShell + " --virtual=held " + command);
        EXPECT_EQ(sent.exitCode, isKept ? 1 : 0) << sent.errors;
        EXPECT_EQ(sent.errors.ends_with("; nothing was sent; --no-backup sends without a copy\n"),
                  isKept)
            << sent.errors;
        EXPECT_EQ(bytes("held"), isKept ? randomBank(1) : bytes("a.bank"));
    }
}

TEST_F(ControllerCommands, WhatCannotBeDoneIsRefusedAndSendsNothing) {
    const std::string program = "scenewright-cli: ";
    for (const auto& [words, told] : std::initializer_list<std::pair<const char*, std::string>>{
             {"send --backup none/b a.bank", "none/b"},
             {"send --backup a.bank a.bank",
              program + "a.bank: the backup would overwrite the bank that is to be sent\n"},
             {"send --backup - --verify a.bank",
              program + "--backup - and --verify both write to standard output\n"},
             {"send --dry-run --verify a.bank", "--dry-run"},
             {"send --dry-run --backup b.bank a.bank", "--dry-run"},
             {"earlier show", "earlier show: N is missing"},
             {"earlier restore 1", "there is no number 1; earlier list gives 0"},
             {"earlier show 0", "N"}})
        refused(std::string("--virtual=held ") + words, told);
}

TEST_F(ControllerCommands, DryRunSaysWhatWouldChangeAndChangesNothing) {
    holdDefaults("scene1.pad1.CR=5 scene3.common.SceneName=STAGE");
    const auto before = files();
    const ProgramRun dry = cli("--virtual=held send --dry-run a.json");
    expectDone(dry);
    EXPECT_EQ(dry.output, "scene1.pad1.CR  Scene 1, Pad 1, Red: 5 -> 127\n"
                          "scene3.common.SceneName  Scene 3, Name: \"STAGE\" -> \"SCENE3\"\n");
    EXPECT_EQ(files(), before);
    holdDefaults("scene1.pad1.CR=127");
    EXPECT_EQ(cli("--virtual=held send --dry-run a.json").output, "Nothing would change.\n");
}

TEST_F(ControllerCommands, DiffReadsTheDeviceOnEitherSide) {
    holdDefaults("scene1.pad1.CR=5");
    const ProgramRun first = cli("--virtual=held diff device: a.json");
    EXPECT_EQ(first.exitCode, 1);
    EXPECT_EQ(first.output, "scene1.pad1.CR  Scene 1, Pad 1, Red: 5 -> 127\n");
    const ProgramRun second = cli("--virtual=held diff a.json device:");
    EXPECT_EQ(second.exitCode, 1);
    EXPECT_EQ(second.output, "scene1.pad1.CR  Scene 1, Pad 1, Red: 127 -> 5\n");
    done("--virtual=held diff device: device:");
}

// Bytes that no scene can hold are read as 0, and each command says how many there are.
TEST_F(ControllerCommands, ValuesAbove127AreToldByEachCommandThatReads) {
    auto stored = randomBank(1);
    stored[100] = 0;
    stored[1011] = 0;
    put("stored", stored);
    auto above = stored;
    above[100] = 0x80;
    above[1011] = 0xFF;
    const std::string line = "scenewright-cli: The keyboard holds values above 127, which scenes "
                             "cannot hold; read as 0 instead: 2\n";
    for (const auto& [command, output] : {std::pair{"read new", ""},
                                          {"diff device: stored", ""},
                                          {"diff stored device:", ""},
                                          {"send --dry-run stored", "Nothing would change.\n"},
                                          {"send --backup backup stored", ""}}) {
        put("held", above);
        const ProgramRun result = cli(std::string("--virtual=held ") + command);
        EXPECT_EQ(std::tuple(result.exitCode, result.output, result.errors),
                  std::tuple(0, output, line))
            << command;
    }
    EXPECT_EQ(bytes("new"), stored);
    EXPECT_EQ(bytes("backup"), stored);
    EXPECT_EQ(bytes("held"), stored) << "sent";
}

} // namespace scenewright
