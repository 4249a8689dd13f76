// send with its options and diff with device:, over the built program on the virtual controller.

#include "tests/cli/BankProgram.h"

#include <gtest/gtest.h>

namespace scenewright {

using testing::BankProgram;
using testing::ProgramRun;
using testing::randomBank;
using testing::readBytes;
using testing::readText;
using testing::writeBytes;

namespace {

// A virtual controller that holds the random bank 1, and a default bank to send.
class ControllerCommands : public BankProgram {
protected:
    void SetUp() override {
        writeBytes(file("held"), randomBank(1));
        expectDone(run({"default", file("a.json")}));
        expectDone(run({"default", file("a.bank")}));
    }
    [[nodiscard]] ProgramRun runVirtual(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "--virtual=" + file("held"));
        return run(std::move(arguments));
    }
    void holdDefaults(const std::vector<std::string>& assignments) {
        expectDone(run({"default", file("held")}));
        std::vector<std::string> arguments{"set", file("held")};
        arguments.insert(arguments.end(), assignments.begin(), assignments.end());
        expectDone(run(arguments));
    }
};

} // namespace

TEST_F(ControllerCommands, BothFormsAreSent) {
    expectDone(runVirtual({"send", file("a.json")}));
    EXPECT_EQ(readBytes(file("held")), readBytes(file("a.bank")));
}

TEST_F(ControllerCommands, StandardInputIsSent) {
    const ProgramRun sent = shell("--virtual=" + file("held") + " send -", "a.json");
    expectDone(sent);
    EXPECT_EQ(readBytes(file("held")), readBytes(file("a.bank")));
}

TEST_F(ControllerCommands, ReadWritesJsonAndStandardOutput) {
    expectDone(runVirtual({"read", file("r.json")}));
    expectDone(run({"convert", file("r.json"), file("r.bank")}));
    EXPECT_EQ(readBytes(file("r.bank")), randomBank(1));
    EXPECT_EQ(runVirtual({"read", "-"}).output, readText(file("r.bank")));
}

TEST_F(ControllerCommands, VerifySaysThatTheControllerHoldsWhatWasSent) {
    const ProgramRun sent = runVirtual({"send", "--verify", file("a.bank")});
    expectDone(sent);
    EXPECT_EQ(sent.output, "The controller holds what was sent.\n");
    EXPECT_EQ(readBytes(file("held")), readBytes(file("a.bank")));
}

TEST_F(ControllerCommands, ASendThatTheVirtualMemoryCannotKeepHasFailed) {
    expectDone(run({"convert", file("held"), file("held.json")}));
    const auto held = readBytes(file("held.json"));
    for (const char* send : {" send ", " send --verify "}) {
        const ProgramRun sent = testing::runProgram(
            {"/bin/sh", "-c", // no file may have more than a kilobyte; the sentence has less
             "trap '' XFSZ; ulimit -f 1; exec " + testing::kProgram +
                 " --virtual=" + file("held.json") + send + file("a.bank")});
        expectSentence(sent, 1, "scenewright-cli: Cannot write " + file("held.json") + ": ");
        EXPECT_EQ(readBytes(file("held.json")), held);
    }
    EXPECT_EQ(names(), (std::vector<std::string>{"a.bank", "a.json", "held", "held.json"}));
}

TEST_F(ControllerCommands, BackupIsWhatWasHeldBeforeTheSend) {
    expectDone(runVirtual({"send", "--backup", file("before.bank"), file("a.bank")}));
    EXPECT_EQ(readBytes(file("before.bank")), randomBank(1));
    EXPECT_EQ(readBytes(file("held")), readBytes(file("a.bank")));
}

TEST_F(ControllerCommands, BackupGoesToJsonAndToStandardOutput) {
    expectDone(runVirtual({"send", "--backup", file("before.json"), file("a.bank")}));
    expectDone(run({"convert", file("before.json"), file("before.bank")}));
    EXPECT_EQ(readBytes(file("before.bank")), randomBank(1));
    const ProgramRun sent = runVirtual({"send", file("before.bank"), "--backup", "-"});
    EXPECT_EQ(sent.exitCode, 0);
    EXPECT_EQ(sent.output, readText(file("a.bank")));
    EXPECT_EQ(readBytes(file("held")), randomBank(1));
}

TEST_F(ControllerCommands, BackupThatCannotBeWrittenSendsNothing) {
    expectSentence(runVirtual({"send", "--backup", file("none/b"), file("a.bank")}), 2,
                   file("none/b"));
    expectSentence(runVirtual({"send", "--backup", file("a.bank"), file("a.bank")}), 2,
                   "scenewright-cli: " + file("a.bank") +
                       ": the backup would overwrite the bank that is to be sent\n");
    expectSentence(runVirtual({"send", "--backup", "-", "--verify", file("a.bank")}), 2,
                   "scenewright-cli: --backup - and --verify both write to standard output\n");
    EXPECT_EQ(readBytes(file("held")), randomBank(1));
}

TEST_F(ControllerCommands, DryRunSaysWhatWouldChangeAndChangesNothing) {
    holdDefaults({"scene1.pad1.CR=5", "scene3.common.SceneName=STAGE"});
    const auto held = readBytes(file("held"));
    const ProgramRun dry = runVirtual({"send", "--dry-run", file("a.json")});
    expectDone(dry);
    EXPECT_EQ(dry.output, "scene1.pad1.CR  Scene 1, Pad 1, Red: 5 -> 127\n"
                          "scene3.common.SceneName  Scene 3, Name: \"STAGE\" -> \"SCENE3\"\n");
    EXPECT_EQ(readBytes(file("held")), held);
}

TEST_F(ControllerCommands, DryRunSaysThatNothingWouldChange) {
    holdDefaults({"scene1.pad1.CR=127"});
    EXPECT_EQ(runVirtual({"send", "--dry-run", file("a.json")}).output, "Nothing would change.\n");
}

TEST_F(ControllerCommands, DryRunGoesWithNeitherBackupNorVerify) {
    expectSentence(runVirtual({"send", "--dry-run", "--verify", file("a.bank")}), 2, "--dry-run");
    expectSentence(runVirtual({"send", "--dry-run", "--backup", file("b.bank"), file("a.bank")}), 2,
                   "--dry-run");
    EXPECT_FALSE(exists("b.bank"));
}

TEST_F(ControllerCommands, DiffReadsTheDeviceOnEitherSide) {
    holdDefaults({"scene1.pad1.CR=5"});
    const ProgramRun first = runVirtual({"diff", "device:", file("a.json")});
    EXPECT_EQ(first.exitCode, 1);
    EXPECT_EQ(first.output, "scene1.pad1.CR  Scene 1, Pad 1, Red: 5 -> 127\n");
    const ProgramRun second = runVirtual({"diff", file("a.json"), "device:"});
    EXPECT_EQ(second.exitCode, 1);
    EXPECT_EQ(second.output, "scene1.pad1.CR  Scene 1, Pad 1, Red: 127 -> 5\n");
    expectDone(runVirtual({"diff", "device:", "device:"}));
}

// Bytes that no scene can hold are read as 0, and each command says how many there are.
TEST_F(ControllerCommands, ValuesAbove127AreToldByEachCommandThatReads) {
    const std::string line = "scenewright-cli: The keyboard holds values above 127, which scenes "
                             "cannot hold; read as 0 instead: 2\n";
    auto stored = randomBank(1);
    stored[100] = 0;
    stored[1011] = 0;
    writeBytes(file("stored"), stored);
    auto above = stored;
    above[100] = 0x80;
    above[1011] = 0xFF;
    const std::vector<std::pair<std::vector<std::string>, std::string>> commands{
        {{"read", file("new")}, ""},
        {{"diff", "device:", file("stored")}, ""},
        {{"diff", file("stored"), "device:"}, ""},
        {{"send", "--dry-run", file("stored")}, "Nothing would change.\n"},
        {{"send", "--backup", file("new"), file("stored")}, ""},
    };
    for (const auto& [arguments, output] : commands) {
        writeBytes(file("held"), above);
        const ProgramRun result = runVirtual(arguments);
        EXPECT_EQ(result.exitCode, 0) << arguments[0];
        EXPECT_EQ(result.output, output) << arguments[0];
        EXPECT_EQ(result.errors, line) << arguments[0];
        if (exists("new")) {
            EXPECT_EQ(readBytes(file("new")), stored) << arguments[0];
        }
        std::filesystem::remove(file("new"));
    }
    EXPECT_EQ(readBytes(file("held")), stored) << "sent";
}

TEST_F(ControllerCommands, DiffsBadFileIsToldBeforeTheControllerIsAsked) {
    for (const auto& pair : {std::vector{std::string("device:"), file("none")},
                             std::vector{file("none"), std::string("device:")}}) {
        expectSentence(run({"--virtual", "--log", file("log"), "diff", pair[0], pair[1]}), 2,
                       file("none"));
        EXPECT_EQ(readText(file("log")), "");
    }
}

} // namespace scenewright
