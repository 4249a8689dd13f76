// Commands on a controller that does not do as it is told, in this process.

#include "cli/Command.h"
#include "model/Progress.h"
#include "protocol/SendJob.h"
#include "tests/support/TempFolder.h"
#include "usb/Transport.h"
#include "virtual/VirtualHost.h"

#include <CLI/CLI.hpp>
#include <gtest/gtest.h>

#include <string>

namespace scenewright {

namespace {

struct Outcome {
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

    static Outcome run(const std::vector<std::string>& faults, const std::string& line) {
        FaultPlan plan;
        std::string trouble;
        for (const std::string& fault : faults)
            plan.push_back(parseFault(fault, trouble).value());
        auto device = std::make_shared<VirtualController>(BankImage{}, plan);
        Transport::instance().use(makeVirtualHost(device), [](std::chrono::nanoseconds) {});
        CLI::App app;
        CommandChoice choice;
        addSendCommand(app, choice);
        addDiffCommand(app, choice);
        app.parse(line);
        ::testing::internal::CaptureStdout();
        ::testing::internal::CaptureStderr();
        Outcome outcome;
        outcome.exitCode = choice.run();
        outcome.output = ::testing::internal::GetCapturedStdout();
        outcome.errors = ::testing::internal::GetCapturedStderr();
        return outcome;
    }

    testing::TempFolder folder;
};

} // namespace

TEST_F(FaultyController, VerifyListsWhatTheControllerDoesNotHold) {
    const Outcome outcome = run({"nibble:20"}, "send --verify " + folder.file("zeros"));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, "scene1.key1.AssignType  Scene 1, Key 1, Type: Off -> (16)\n");
    EXPECT_EQ(outcome.errors,
              "scenewright-cli: the controller does not hold what was sent: 1 setting differs\n");
}

TEST_F(FaultyController, SendThatFailsIsNotVerified) {
    const Outcome outcome = run({"write:700"}, "send --verify " + folder.file("zeros"));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_NE(outcome.errors.find("the send failed at packet"), std::string::npos);
}

TEST_F(FaultyController, BackupThatWasNotReadWholeSendsNothing) {
    const Outcome outcome =
        run({"short:7"}, "send --backup " + folder.file("before") + " " + folder.file("zeros"));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(
        outcome.errors,
        "scenewright-cli: the read failed at byte 7 of 1012: the answer was too short (code "
        "00000000); 1 of 2030 transfers failed, so there is no backup and nothing was sent\n");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"zeros"});
}

TEST_F(FaultyController, DryRunAndDiffWithoutAWholeReadSayNothingOfDifferences) {
    Outcome outcome = run({"short:7"}, "send --dry-run " + folder.file("zeros"));
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_TRUE(outcome.errors.ends_with("so it is not known what would change\n"))
        << outcome.errors;
    outcome = run({"short:7"}, "diff device: " + folder.file("zeros"));
    EXPECT_EQ(outcome.exitCode, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_TRUE(outcome.errors.ends_with("so nothing was compared\n")) << outcome.errors;
}

TEST_F(FaultyController, AbsentControllerIsToldByDiffAsTrouble) {
    CLI::App app;
    CommandChoice choice;
    addDiffCommand(app, choice);
    app.parse("diff device: " + folder.file("zeros"));
    Transport::instance().use(nullptr);
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(choice.run(), 2);
    EXPECT_TRUE(::testing::internal::GetCapturedStderr().starts_with(
        "scenewright-cli: Could not connect to midi device\n"));
}

} // namespace scenewright
