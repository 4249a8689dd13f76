// Commands on a controller that does not do as it is told, in this process.

#include "model/MessageValue.h"
#include "protocol/Transactions.h"
#include "tests/cli/ChosenCommand.h"
#include "tests/support/NoMoreThreads.h"
#include "tests/support/TempFolder.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

struct CommandRun {
    int exitCode = 0;
    std::string output;
    std::string errors;
};

class FaultyController : public ::testing::Test {
protected:
    void SetUp() override {
        Progress::forget();
        testing::writeBytes(folder.file("zeros"), BankImage{});
    }
    void TearDown() override {
        SendJob::join();
        Transport::instance().use(nullptr);
        Progress::forget();
    }

    static CommandRun run(const std::vector<std::string>& faults, const std::string& line) {
        FaultPlan plan;
        for (const std::string& fault : faults)
            plan.push_back(parseFault(fault).value());
        auto device = std::make_shared<VirtualController>(BankImage{}, plan);
        return runOn(makeVirtualHost(device), line);
    }
    static CommandRun runOn(std::shared_ptr<UsbHost> host, const std::string& line) {
        Transport::instance().use(std::move(host), [](std::chrono::nanoseconds) {});
        const CommandChoice choice = testing::chosenCommand(line);
        ::testing::internal::CaptureStdout();
        ::testing::internal::CaptureStderr();
        CommandRun outcome;
        outcome.exitCode = choice.run();
        outcome.output = ::testing::internal::GetCapturedStdout();
        outcome.errors = ::testing::internal::GetCapturedStderr();
        return outcome;
    }

    testing::TempFolder folder;
};

} // namespace

TEST_F(FaultyController, VerifyListsWhatTheControllerDoesNotHold) {
    const CommandRun outcome = run({"nibble:20"}, "send --verify " + folder.file("zeros"));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, "scene1.key1.AssignType  Scene 1, Key 1, Type: Off -> (16)\n");
    EXPECT_EQ(
        outcome.errors,
        "scenewright-cli: The controller does not hold what was sent; settings that differ: 1\n");
}

TEST_F(FaultyController, SendThatFailsIsNotVerified) {
    const CommandRun outcome = run({"write:700"}, "send --verify " + folder.file("zeros"));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(
        outcome.errors,
        "scenewright-cli: 329 of 1032 transfers failed, the first at packet 700 (the USB transfer "
        "failed): the keyboard may hold half a bank, and sending again repairs it. "
        "The keyboard does not answer: unplug it, plug it in again and try "
        "again\n");
}

TEST_F(FaultyController, SendWithoutAThreadSendsNothingAndSaysSo) {
    const testing::NoMoreThreads none;
    const CommandRun outcome = run({}, "send --verify " + folder.file("zeros"));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors,
              "scenewright-cli: The transfer could not be started: nothing was sent. "
              "The system is short of memory or threads: close other programs and "
              "try again\n");
}

TEST_F(FaultyController, BackupThatWasNotReadWholeSendsNothing) {
    const CommandRun outcome =
        run({"short:7"}, "send --backup " + folder.file("before") + " " + folder.file("zeros"));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(
        outcome.errors,
        "scenewright-cli: 1 of 2030 transfers failed, the first at byte 7 of 1012 (the answer was "
        "too short): there is no backup and nothing was sent\n");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"zeros"});
}

TEST_F(FaultyController, DryRunAndDiffWithoutAWholeReadSayNothingOfDifferences) {
    CommandRun outcome = run({"short:7"}, "send --dry-run " + folder.file("zeros"));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_TRUE(outcome.errors.ends_with(": it is not known what would change\n"))
        << outcome.errors;
    outcome = run({"short:7"}, "diff device: " + folder.file("zeros"));
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_TRUE(outcome.errors.ends_with(": nothing was compared\n")) << outcome.errors;
}

struct Absence {
    const char* command; // with ZEROS and NEW for files
    int exitCode;
    const char* consequence;
};

TEST_F(FaultyController, EachCommandTellsThatThereIsNoController) {
    for (const Absence& row :
         {Absence{"read NEW", 1, "no file was written"},
          Absence{"send ZEROS", 1, "nothing was sent"},
          Absence{"send --verify ZEROS", 1, "nothing was sent"},
          Absence{"send --backup NEW ZEROS", 1, "there is no backup and nothing was sent"},
          Absence{"send --dry-run ZEROS", 1, "it is not known what would change"},
          Absence{"diff device: ZEROS", 2, "nothing was compared"},
          Absence{"diff ZEROS device:", 2, "nothing was compared"}}) {
        std::string line = row.command;
        for (const auto& [word, file] : {std::pair{"ZEROS", "zeros"}, std::pair{"NEW", "new"}})
            if (const auto place = line.find(word); place != std::string::npos)
                line.replace(place, std::string(word).size(), folder.file(file));
        const CommandRun outcome =
            runOn(makeVirtualHost(std::make_shared<VirtualController>(BankImage{}),
                                  BankFileStore({}), {.vendor = 1}),
                  line);
        EXPECT_EQ(outcome.exitCode, row.exitCode) << line;
        EXPECT_EQ(outcome.output, "") << line;
        EXPECT_EQ(outcome.errors,
                  std::string("scenewright-cli: The keyboard could not be reached: ") +
                      row.consequence +
                      ". No keyboard of the device list is plugged in: plug it in, "
                      "or see what 'scenewright-cli devices' says about yours\n")
            << line;
    }
    EXPECT_EQ(folder.names(), std::vector<std::string>{"zeros"});
}

} // namespace scenewright
