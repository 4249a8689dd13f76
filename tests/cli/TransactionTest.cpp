#include "cli/Transaction.h"

#include "platform/Process.h"
#include "tests/support/NoMoreThreads.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <future>
#include <stdexcept>
#include <termios.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

using namespace std::chrono_literals;

// Standard error is another file until the end of the block.
class OtherStandardError {
public:
    explicit OtherStandardError(int other) { ::dup2(other, STDERR_FILENO); }
    ~OtherStandardError() { ::dup2(former_.get(), STDERR_FILENO); }
    OtherStandardError(const OtherStandardError&) = delete;
    OtherStandardError& operator=(const OtherStandardError&) = delete;

private:
    FileDescriptor former_{::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3)};
};

TEST(ProgressLine, TellsTheShareOfPacketsWritten) {
    ProgressLine line("Reading", 1016);
    EXPECT_EQ(line.next(0), "Reading: 0 %");
    EXPECT_EQ(line.next(508), "Reading: 50 %");
    EXPECT_EQ(line.next(1016), "Reading: 100 %");
    EXPECT_EQ(line.next(1017), "Reading: the controller does not accept the handshake, trying "
                               "again (Ctrl+C stops)");
}

TEST(ProgressLine, TellsThatTheControllerIsWaitedFor) {
    ProgressLine line("Reading", 1016);
    for (int period = 0; period < 30; ++period)
        EXPECT_EQ(line.next(12), "Reading: 1 %");
    for (int period = 0; period < 2; ++period)
        EXPECT_EQ(line.next(12),
                  "Reading: 12 of 1016 packets, waiting for the controller (Ctrl+C stops)");
    EXPECT_EQ(line.next(13), "Reading: 1 %");
}

struct Stall {
    const char* name;
    std::uint32_t writes; // made before each look
    std::uint32_t versionReads;
    ResultCode failure; // of the first transfer
    const char* notice;
};

constexpr const char* kNotAnswering =
    "scenewright-cli: The keyboard does not answer: unplug it, plug it in again and try again "
    "(Ctrl+C stops)\n";
constexpr const char* kUnplugged =
    "scenewright-cli: The keyboard was unplugged: plug it in and try again (Ctrl+C stops)\n";

TEST(StallNotice, TellsAfterTenSecondsWithoutProgressWhatMayBeWrong) {
    for (const Stall& row : {Stall{"packets", 1, 0, kResultSuccess, ""},
                             Stall{"silence", 0, 0, kResultTimeout, kNotAnswering},
                             Stall{"handshakes", 2, 1, kResultSuccess, kNotAnswering},
                             Stall{"unplugged", 0, 0, kResultNoDevice, kUnplugged}}) {
        SCOPED_TRACE(row.name);
        ::testing::internal::CaptureStderr();
        StallNotice notice;
        TransferStats stats;
        if (row.failure != kResultSuccess)
            stats.first = TransferStats::Failure{.code = row.failure};
        int looks = 0;
        bool goesOn = true;
        while (goesOn && looks < 60) {
            stats.writes += row.writes;
            stats.versionReads += row.versionReads;
            goesOn = notice.look(stats);
            ++looks;
        }
        EXPECT_EQ(::testing::internal::GetCapturedStderr(), row.notice);
        EXPECT_EQ(looks, *row.notice == '\0' ? 60 : 20);
    }
    EXPECT_EQ(StallNotice::kLooks * StallNotice::kPeriod, 10s);
}

TEST(StallNotice, WhatCannotBeToldHoldsNothingUp) {
    const FileDescriptor full(::open("/dev/full", O_WRONLY | O_CLOEXEC));
    const OtherStandardError other(full.get());
    StallNotice notice;
    for (int look = 1; look < StallNotice::kLooks; ++look)
        EXPECT_TRUE(notice.look({}));
    EXPECT_FALSE(notice.look({}));
}

TEST(WatchStats, LooksUntilItIsToldNotTo) {
    Transport::instance().use(nullptr);
    Transport::instance().countWrite(kResultSuccess);
    std::promise<std::vector<std::uint32_t>> seen;
    const std::jthread thread = watchStats(
        0ms, [&seen, writes = std::vector<std::uint32_t>()](const TransferStats& stats) mutable {
            writes.push_back(stats.writes);
            if (writes.size() < 3)
                return true;
            seen.set_value(writes);
            return false;
        });
    EXPECT_EQ(seen.get_future().get(), (std::vector<std::uint32_t>{1, 1, 1}));
}

TEST(WatchStats, EndsWithItsThreadWhateverThePeriod) {
    const std::jthread thread = watchStats(24h, [](const TransferStats&) { return true; });
}

TEST(WatchStats, FailureEndsTheWatchAlone) {
    std::promise<void> looked;
    const std::jthread thread = watchStats(0ms, [&looked](const TransferStats&) -> bool {
        looked.set_value();
        throw std::runtime_error("no memory");
    });
    looked.get_future().get();
}

TEST(WatchTransfer, GoesOnWithoutAThread) {
    const testing::NoMoreThreads none;
    bool isDone = false;
    watchTransfer("Sending", kSendPackets, [&isDone] { isDone = true; });
    EXPECT_TRUE(isDone);
}

// What is written to it waits for ever.
struct StoppedTerminal {
    FileDescriptor master{::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)};
    FileDescriptor terminal;

    StoppedTerminal() {
        std::array<char, 64> name{};
        EXPECT_EQ(::grantpt(master.get()), 0);
        EXPECT_EQ(::unlockpt(master.get()), 0);
        EXPECT_EQ(::ptsname_r(master.get(), name.data(), name.size()), 0);
        terminal = FileDescriptor(::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC));
        EXPECT_EQ(::tcflow(terminal.get(), TCOOFF), 0);
    }
};

TEST(WatchTransfer, TerminalThatIsStoppedOrGoneHoldsNothingUp) {
    for (const bool isGone : {false, true}) {
        StoppedTerminal stopped;
        const OtherStandardError other(stopped.terminal.get());
        ::alarm(60); // ends a test that is held up
        watchTransfer("Sending", 100, [&] {
            if (isGone)
                stopped.master = FileDescriptor();
        });
        ::alarm(0);
    }
}

} // namespace
} // namespace scenewright
