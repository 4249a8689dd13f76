#include "platform/Diagnostics.h"

#include "platform/Process.h"
#include "tests/platform/TextFile.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace scenewright {
namespace {

class DiagnosticsTest : public ::testing::Test {
protected:
    void TearDown() override {
        Diagnostics::setConsole({});
        Diagnostics::setLog({});
    }

    [[nodiscard]] Diagnostics::Sink collect() {
        return [this](std::string_view text) { pieces_.emplace_back(text); };
    }

    std::vector<std::string> pieces_;
};

using Pieces = std::vector<std::string>;

// A text that counts how often it is asked for.
struct CountingText {
    int& asked;
    // NOLINTNEXTLINE(google-explicit-constructor,hicpp-explicit-conversions): as texts convert
    operator std::string_view() const {
        ++asked;
        return "text";
    }
};

// What a format's check accepts.
static_assert(formatFits<>(""));
static_assert(formatFits<>("100%%"));
static_assert(formatFits<int>("%d%%"));
static_assert(formatFits<std::uint32_t>("Unable to open interface (%08x)\n"));
static_assert(formatFits<std::uint8_t, std::size_t, std::int64_t>("%u %zu %lld"));
static_assert(formatFits<std::int32_t, unsigned long, long>("%ld %lu %lx"));
static_assert(formatFits<std::string, std::string_view, const char*>("%s%s %-3s"));

// And what it refuses: an argument too few or too many, a text for a number and the other way
// round, conversions that end early or that no line has.
static_assert(!formatFits<>("%d"));
static_assert(!formatFits<>("%"));
static_assert(!formatFits<int>(""));
static_assert(!formatFits<int>("%%d"));
static_assert(!formatFits<int, int>("%d"));
static_assert(!formatFits<int>("%d %d"));
static_assert(!formatFits<int>("%s"));
static_assert(!formatFits<std::string>("%d"));
static_assert(!formatFits<std::string>("%ls"));
static_assert(!formatFits<int>("%08"));
static_assert(!formatFits<int>("%l"));
static_assert(!formatFits<int>("%c"));
static_assert(!formatFits<int>("%hhd"));
static_assert(!formatFits<int>("%n"));
static_assert(!formatFits<int, int>("%*d"));
static_assert(!formatFits<int>("%.3d"));

TEST_F(DiagnosticsTest, StreamsAreApartAndOffWithoutASink) {
    EXPECT_FALSE(Diagnostics::consoleIsOn());
    Diagnostics::console("%d", 1);
    Diagnostics::setLog(collect());
    EXPECT_TRUE(Diagnostics::logIsOn());
    Diagnostics::console("console\n");
    Diagnostics::log("line %d of %s", 7, std::string("log"));
    Diagnostics::setLog({});
    EXPECT_FALSE(Diagnostics::logIsOn());
    Diagnostics::log("unheard");
    Diagnostics::setConsole(collect());
    Diagnostics::console("Unable to open interface (%08x)\n", 0xe00002c5U);
    Diagnostics::console("%s", "a piece");
    EXPECT_EQ(pieces_,
              (Pieces{"line 7 of log", "Unable to open interface (e00002c5)\n", "a piece"}));
}

TEST_F(DiagnosticsTest, FormatsCanStandInATable) {
    struct Row {
        Format<int> format;
        int number = 0;
    };
    static constexpr std::array<Row, 2> kRows{{{"first %d", 1}, {"%02x second", 255}}};
    Diagnostics::setLog(collect());
    for (const Row& row : kRows)
        Diagnostics::log(row.format, row.number);
    EXPECT_EQ(pieces_, (Pieces{"first 1", "ff second"}));
}

TEST_F(DiagnosticsTest, AStreamThatIsOffDoesNotFormat) {
    int asked = 0;
    const CountingText text{asked};
    Diagnostics::log("%s", text);
    Diagnostics::console("%s", text);
    EXPECT_EQ(asked, 0);
    Diagnostics::setLog(collect());
    Diagnostics::log("%s", text);
    EXPECT_EQ(asked, 1);
}

TEST_F(DiagnosticsTest, ASinkIsCalledByOneThreadAtATime) {
    int inside = 0;
    int most = 0;
    int calls = 0;
    Diagnostics::setLog([&](std::string_view) {
        most = std::max(most, ++inside);
        ++calls;
        std::this_thread::yield();
        --inside;
    });
    const auto write = [] {
        for (int i = 0; i < 500; ++i)
            Diagnostics::log("line %d", i);
    };
    std::thread first(write);
    std::thread second(write);
    first.join();
    second.join();
    EXPECT_EQ(calls, 1000);
    EXPECT_EQ(most, 1);
}

TEST(HexDump, TwoLowerCaseDigitsAndABlankEachByte) {
    EXPECT_EQ(hexDump(std::array<std::uint8_t, 4>{0x09, 0x90, 0xab, 0x0f}), "09 90 ab 0f ");
    EXPECT_EQ(hexDump({}), "");
}

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

TEST_F(DiagnosticSinksTest, EachLogEventIsOneLineOfAFileThatIsEmptiedFirst) {
    writeText(folder_.path() / "log", "what an earlier run said\n");
    ASSERT_TRUE(sendLogTo(folder_.path() / "log"));
    Diagnostics::log("first");
    Diagnostics::log("%s", "sec\nond");
    Diagnostics::log("");
    EXPECT_EQ(readText(folder_.path() / "log"), "first\nsec\\nond\n\n");
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

TEST_F(DiagnosticSinksTest, PipeIsNotWaitedForAndItsLossIsToldOnceAtTheEnd) {
    const std::string pipe = folder_.file("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(sendLogTo(pipe).error(), "Cannot write " + pipe + ": nobody reads this pipe.");
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
