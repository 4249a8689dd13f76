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
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

BankImage onesBank() {
    BankImage bank{};
    bank.fill(1);
    return bank;
}

struct CommandRun {
    int exitCode = 0;
    std::string output;
    std::string errors;
};

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

    CommandRun run(const std::vector<std::string>& faults, const std::string& line) {
        FaultPlan plan;
        for (const std::string& fault : faults)
            plan.push_back(parseFault(fault).value());
        auto device = std::make_shared<VirtualController>(BankImage{}, plan);
        return runOn(makeVirtualHost(device), line);
    }
    CommandRun runOn(std::shared_ptr<UsbHost> host, std::string line) {
        for (const auto& [word, name] : {std::pair{"ZEROS", "zeros"}, std::pair{"NEW", "new"}})
            if (const auto place = line.find(word); place != std::string::npos)
                line.replace(place, std::strlen(word), folder.file(name));
        Transport::instance().use(std::move(host), [](std::chrono::nanoseconds) {});
        ::testing::internal::CaptureStdout();
        ::testing::internal::CaptureStderr();
        CommandRun outcome;
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
        const CommandRun result = run(row.faults, row.command);
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
        const CommandRun told = runOn(makeVirtualHost(device), "read NEW");
        EXPECT_EQ(told.exitCode, 0);
        EXPECT_TRUE(told.errors.ends_with(
            "did not end: 2 of 4 scenes were sent, and the keyboard may hold a part of each bank. "
            "'scenewright-cli resume' sends it again, 'scenewright-cli resume --before' what was "
            "there before\n"))
            << told.errors;
        const CommandRun resumed = runOn(makeVirtualHost(device), line);
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
    const CommandRun result = run({}, "send --verify ZEROS");
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
        const CommandRun result =
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
