#include "platform/Diagnostics.h"
#include "platform/Process.h"
#include "tests/platform/TextFile.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <string>
#include <sys/stat.h>

namespace scenewright {
namespace {

class DiagnosticSinksTest : public ::testing::Test {
protected:
    void TearDown() override { static_cast<void>(endDiagnostics()); }

    testing::TempFolder folder_;
};

TEST_F(DiagnosticSinksTest, ConsoleTextIsWrittenAsItStandsAndAtOnce) {
    ASSERT_TRUE(sendConsoleTo(folder_.path() / "console"));
    Diagnostics::console("Wrote %d bytes ", 4);
    EXPECT_EQ(readText(folder_.path() / "console"), "Wrote 4 bytes ");
    Diagnostics::console("to bulk endpoint\n");
    EXPECT_EQ(readText(folder_.path() / "console"), "Wrote 4 bytes to bulk endpoint\n");
}

TEST_F(DiagnosticSinksTest, EachLogEventIsOneLine) {
    ASSERT_TRUE(sendLogTo(folder_.path() / "log"));
    Diagnostics::log("first");
    Diagnostics::log("%s", "sec\nond");
    Diagnostics::log("");
    EXPECT_EQ(readText(folder_.path() / "log"), "first\nsec\\nond\n\n");
}

TEST_F(DiagnosticSinksTest, AFormerFileIsEmptied) {
    writeText(folder_.path() / "log", "what an earlier run said\n");
    ASSERT_TRUE(sendLogTo(folder_.path() / "log"));
    Diagnostics::log("new");
    EXPECT_EQ(readText(folder_.path() / "log"), "new\n");
}

TEST_F(DiagnosticSinksTest, BothStreamsMayShareAFile) {
    ASSERT_TRUE(sendConsoleTo(folder_.path() / "both"));
    ASSERT_TRUE(sendLogTo(folder_.path() / "both"));
    Diagnostics::console("a console line\n");
    Diagnostics::log("a log line");
    Diagnostics::console("another\n");
    EXPECT_EQ(readText(folder_.path() / "both"), "a console line\na log line\nanother\n");
}

TEST_F(DiagnosticSinksTest, AFileThatCannotBeOpenedIsToldAndTheStreamStays) {
    ASSERT_TRUE(sendLogTo(folder_.path() / "log"));
    const std::string missing = folder_.path() / "none" / "log";
    EXPECT_EQ(sendLogTo(missing).error(),
              "Cannot write " + missing + ": No such file or directory.");
    EXPECT_EQ(sendLogTo(folder_.path()).error(),
              "Cannot write " + folder_.path().string() + ": Is a directory.");
    Diagnostics::log("still here");
    EXPECT_EQ(readText(folder_.path() / "log"), "still here\n");
}

TEST_F(DiagnosticSinksTest, ADashIsStandardError) {
    ::testing::internal::CaptureStderr();
    EXPECT_TRUE(sendConsoleTo("-"));
    EXPECT_TRUE(sendLogTo("-"));
    Diagnostics::console("console\n");
    Diagnostics::log("log");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "console\nlog\n");
}

TEST_F(DiagnosticSinksTest, PipeThatNobodyReadsIsRefused) {
    const std::string pipe = folder_.file("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(sendLogTo(pipe).error(), "Cannot write " + pipe + ": nobody reads this pipe.");
}

TEST_F(DiagnosticSinksTest, PipeIsNotWaitedForAndItsLossIsToldOnceAtTheEnd) {
    const std::string pipe = folder_.file("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const FileDescriptor reader(::open(pipe.c_str(), O_RDONLY | O_NONBLOCK));
    ASSERT_TRUE(sendLogTo(pipe));
    for (int i = 0; i < 100; ++i)
        Diagnostics::log("%s", std::string(3000, 'x'));
    EXPECT_EQ(endDiagnostics().error(), pipe + ": not all of it could be written");
    EXPECT_TRUE(endDiagnostics());
}

TEST_F(DiagnosticSinksTest, FullDiskIsToldAtTheEndAndAWholeFileIsNot) {
    ASSERT_TRUE(sendLogTo("/dev/full"));
    ASSERT_TRUE(sendConsoleTo(folder_.path() / "console"));
    Diagnostics::console("text");
    EXPECT_TRUE(endDiagnostics());
    ASSERT_TRUE(sendLogTo("/dev/full"));
    Diagnostics::log("line");
    EXPECT_EQ(endDiagnostics().error(), "/dev/full: not all of it could be written");
}

} // namespace
} // namespace scenewright
