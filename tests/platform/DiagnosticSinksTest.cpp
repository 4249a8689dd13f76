#include "platform/DiagnosticSinks.h"

#include "tests/platform/TextFile.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

namespace scenewright {
namespace {

class DiagnosticSinksTest : public ::testing::Test {
protected:
    void TearDown() override {
        Diagnostics::setConsole({});
        Diagnostics::setLog({});
    }

    testing::TempFolder folder_;
};

TEST_F(DiagnosticSinksTest, ConsoleTextIsWrittenAsItStandsAndAtOnce) {
    ASSERT_EQ(sendConsoleTo(folder_.path() / "console"), std::nullopt);
    Diagnostics::console("Wrote %d bytes ", 4);
    EXPECT_EQ(readText(folder_.path() / "console"), "Wrote 4 bytes ");
    Diagnostics::console("to bulk endpoint\n");
    EXPECT_EQ(readText(folder_.path() / "console"), "Wrote 4 bytes to bulk endpoint\n");
}

TEST_F(DiagnosticSinksTest, EachLogEventIsOneLine) {
    ASSERT_EQ(sendLogTo(folder_.path() / "log"), std::nullopt);
    Diagnostics::log("first");
    Diagnostics::log("%s", "sec\nond");
    Diagnostics::log("");
    EXPECT_EQ(readText(folder_.path() / "log"), "first\nsec\\nond\n\n");
}

TEST_F(DiagnosticSinksTest, AFormerFileIsEmptied) {
    writeText(folder_.path() / "log", "what an earlier run said\n");
    ASSERT_EQ(sendLogTo(folder_.path() / "log"), std::nullopt);
    Diagnostics::log("new");
    EXPECT_EQ(readText(folder_.path() / "log"), "new\n");
}

TEST_F(DiagnosticSinksTest, BothStreamsMayShareAFile) {
    ASSERT_EQ(sendConsoleTo(folder_.path() / "both"), std::nullopt);
    ASSERT_EQ(sendLogTo(folder_.path() / "both"), std::nullopt);
    Diagnostics::console("a console line\n");
    Diagnostics::log("a log line");
    Diagnostics::console("another\n");
    EXPECT_EQ(readText(folder_.path() / "both"), "a console line\na log line\nanother\n");
}

TEST_F(DiagnosticSinksTest, AFileThatCannotBeOpenedIsToldAndTheStreamStays) {
    ASSERT_EQ(sendLogTo(folder_.path() / "log"), std::nullopt);
    const std::string missing = folder_.path() / "none" / "log";
    EXPECT_EQ(sendLogTo(missing), "Cannot write " + missing + ": No such file or directory.");
    EXPECT_EQ(sendLogTo(folder_.path()),
              "Cannot write " + folder_.path().string() + ": Is a directory.");
    Diagnostics::log("still here");
    EXPECT_EQ(readText(folder_.path() / "log"), "still here\n");
}

TEST_F(DiagnosticSinksTest, ADashIsStandardError) {
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(sendConsoleTo("-"), std::nullopt);
    EXPECT_EQ(sendLogTo("-"), std::nullopt);
    Diagnostics::console("console\n");
    Diagnostics::log("log");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "console\nlog\n");
}

} // namespace
} // namespace scenewright
