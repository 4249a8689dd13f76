// read, send with its options and diff with device:, over the built program on the virtual
// controller.
#include "model/MessageValue.h"
#include "protocol/Transactions.h"
#include "tests/cli/BankProgram.h"
#include "tests/support/NoMoreThreads.h"
#include "tests/support/TempFolder.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

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

// Commands on a controller that does not do as it is told, in this process.
namespace {

BankImage onesBank() {
    BankImage bank{};
    bank.fill(1);
    return bank;
}

class FaultyController : public ::testing::Test {
protected:
    void SetUp() override {
        Progress::forget();
        setenv("XDG_STATE_HOME", state.path().c_str(), 1);
        testing::writeBytes(folder.file("zeros"), BankImage{});
    }
    void TearDown() override {
        SendJob::join();
        Transport::instance().use(nullptr);
        Progress::forget();
    }

    ProgramRun run(const std::vector<std::string>& faults, const std::string& line) {
        FaultPlan plan;
        for (const std::string& fault : faults)
            plan.push_back(parseFault(fault).value());
        auto device = std::make_shared<VirtualController>(BankImage{}, plan);
        return runOn(makeVirtualHost(device), line);
    }
    ProgramRun runOn(std::shared_ptr<UsbHost> host, std::string line) {
        for (const auto& [word, name] : {std::pair{"ZEROS", "zeros"}, std::pair{"NEW", "new"}})
            if (const auto place = line.find(word); place != std::string::npos)
                line.replace(place, std::strlen(word), folder.file(name));
        Transport::instance().use(std::move(host), [](std::chrono::nanoseconds) {});
        ::testing::internal::CaptureStdout();
        ::testing::internal::CaptureStderr();
        ProgramRun outcome;
        outcome.exitCode = testing::runCommand(line);
        outcome.output = ::testing::internal::GetCapturedStdout();
        outcome.errors = ::testing::internal::GetCapturedStderr();
        return outcome;
    }

    testing::TempFolder folder;
    testing::TempFolder state; // what the commands keep
};

} // namespace

// Files are ZEROS, an image of zeros as the controller holds it, and NEW, which is not there.
struct Faulted {
    std::vector<std::string> faults;
    const char* command;
    int exitCode;
    const char* output;
    const char* errors; // its end
};

TEST_F(FaultyController, EachCommandTellsWhatItsTransfersDid) {
    for (const Faulted& row : {
             Faulted{{"nibble:20"},
                     "send --no-backup --verify ZEROS",
                     1,
                     "scene1.key1.AssignType  Scene 1, Key 1, Type: Off -> (16)\n",
                     "scenewright-cli: The controller does not hold what was sent; settings that "
                     "differ: 1\n"},
             Faulted{{"write:700"},
                     "send --no-backup --verify ZEROS",
                     1,
                     "",
                     "scenewright-cli: 329 of 1032 transfers failed, the first at packet 700 (the "
                     "USB transfer failed): the keyboard may hold half a bank, and sending again "
                     "repairs it. The keyboard does not answer: unplug it, plug it in again and "
                     "try again\n"},
             Faulted{{"short:7"},
                     "send --backup NEW ZEROS",
                     1,
                     "",
                     "scenewright-cli: 1 of 2030 transfers failed, the first at byte 7 of 1012 "
                     "(the answer was too short): there is no backup and nothing was sent\n"},
             Faulted{{"short:7"},
                     "send ZEROS",
                     1,
                     "",
                     "scenewright-cli: 1 of 2030 transfers failed, the first at byte 7 of 1012 "
                     "(the answer was too short): there is no backup and nothing was sent\n"},
             Faulted{{"short:7"},
                     "send --dry-run ZEROS",
                     1,
                     "",
                     ": it is not known what would change\n"},
             Faulted{{"short:7"}, "diff device: ZEROS", 2, "", ": nothing was compared\n"},
         }) {
        const ProgramRun result = run(row.faults, row.command);
        EXPECT_EQ(result.exitCode, row.exitCode) << row.command;
        EXPECT_EQ(result.output, row.output) << row.command;
        EXPECT_TRUE(result.errors.ends_with(row.errors)) << row.command << result.errors;
    }
    EXPECT_EQ(folder.names(), std::vector<std::string>{"zeros"});
}

TEST_F(FaultyController, ResumeMakesABrokenSendGood) {
    const BankImage ones = onesBank();
    testing::writeBytes(folder.file("ones"), ones);
    for (const auto& [line, bank] :
         {std::pair{"resume", ones}, std::pair{"resume --before", BankImage{}}}) {
        SCOPED_TRACE(line);
        const auto device = std::make_shared<VirtualController>(
            BankImage{}, FaultPlan{{Fault::Kind::Unplug, 1012 + 600}});
        EXPECT_EQ(runOn(makeVirtualHost(device), "send " + folder.file("ones")).exitCode, 1);
        device->reset(); // plugged in again
        const ProgramRun told = runOn(makeVirtualHost(device), "read NEW");
        EXPECT_EQ(told.exitCode, 0);
        EXPECT_TRUE(told.errors.ends_with(
            "did not end: 2 of 4 scenes were sent, and the keyboard may hold a part of each bank. "
            "'scenewright-cli resume' sends it again, 'scenewright-cli resume --before' what was "
            "there before\n"))
            << told.errors;
        const ProgramRun resumed = runOn(makeVirtualHost(device), line);
        EXPECT_EQ(resumed.exitCode, 0);
        EXPECT_EQ(resumed.errors, "");
        EXPECT_EQ(device->bank(), bank);
        EXPECT_EQ(runOn(makeVirtualHost(device), "read NEW").errors, "");
        EXPECT_EQ(runOn(makeVirtualHost(device), "resume").output, "No send is unfinished.\n");
    }
}

TEST_F(FaultyController, ABrokenSendIsForgottenOnDemand) {
    const auto device = std::make_shared<VirtualController>(
        onesBank(), FaultPlan{{Fault::Kind::Unplug, 1012 + 600}});
    EXPECT_EQ(runOn(makeVirtualHost(device), "send ZEROS").exitCode, 1);
    device->reset();
    EXPECT_EQ(runOn(makeVirtualHost(device), "resume --forget").exitCode, 0);
    EXPECT_EQ(runOn(makeVirtualHost(device), "read NEW").errors, "");
    EXPECT_EQ(device->sendsEnded(), 0U);
}

TEST_F(FaultyController, SendWithoutAThreadSendsNothingAndSaysSo) {
    const testing::NoMoreThreads none;
    const ProgramRun result = run({}, "send --verify ZEROS");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors,
              "scenewright-cli: The transfer could not be started: nothing was sent. The system is "
              "short of memory or threads: close other programs and try again\n");
}

TEST_F(FaultyController, EachCommandTellsThatThereIsNoController) {
    const std::vector<std::pair<std::string, std::string>> rows{
        {"read NEW", "no file was written"},
        {"send ZEROS", "nothing was sent"},
        {"send --verify ZEROS", "nothing was sent"},
        {"send --backup NEW ZEROS", "there is no backup and nothing was sent"},
        {"send --dry-run ZEROS", "it is not known what would change"},
        {"diff device: ZEROS", "nothing was compared"},
        {"diff ZEROS device:", "nothing was compared"},
    };
    for (const auto& [line, consequence] : rows) {
        SCOPED_TRACE(line);
        const ProgramRun result =
            runOn(makeVirtualHost(std::make_shared<VirtualController>(BankImage{}),
                                  BankFileStore({}), {.vendor = 1}),
                  line);
        EXPECT_EQ(result.exitCode, line.starts_with("diff") ? 2 : 1);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors,
                  "scenewright-cli: The keyboard could not be reached: " + consequence +
                      ". No keyboard of the device list is plugged in: plug it in, or see what "
                      "'scenewright-cli devices' says about yours\n");
    }
    EXPECT_EQ(folder.names(), std::vector<std::string>{"zeros"});
}

} // namespace scenewright
