#include "platform/MainQueue.h"
#include "tests/support/Limits.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <string>
#include <sys/prctl.h>
#include <thread>
#include <unistd.h>

namespace scenewright {
namespace {

// How much later than asked the kernel may wake a thread, in nanoseconds.
long slackOf(pid_t thread) {
    std::ifstream file("/proc/" + std::to_string(thread) + "/timerslack_ns");
    long slack = -1;
    file >> slack;
    return slack;
}

TEST(Clock, SleepsAtLeastAsLongAsAsked) {
    const auto start = std::chrono::steady_clock::now();
    sleepFor(std::chrono::milliseconds(1));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(1));
}

TEST(Clock, NoTimeReturnsAtOnce) {
    const auto start = std::chrono::steady_clock::now();
    sleepFor(std::chrono::nanoseconds(0));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500));
}

TEST(Clock, SleepsNoLongerThanItMustAndLeavesTheThreadAsItWas) {
    std::atomic<pid_t> id = 0;
    long after = 0;
    const int former = ::prctl(PR_GET_TIMERSLACK);
    std::atomic<bool> isSeen = false;
    std::thread sleeper([&] {
        id = ::gettid();
        while (!isSeen)
            sleepFor(std::chrono::milliseconds(10));
        after = ::prctl(PR_GET_TIMERSLACK);
    });
    const auto deadline = std::chrono::steady_clock::now() + testing::kLimit;
    bool isExact = false;
    while (!isExact && std::chrono::steady_clock::now() < deadline)
        isExact = id != 0 && slackOf(id) == 1;
    isSeen = true;
    sleeper.join();
    EXPECT_TRUE(isExact);
    EXPECT_EQ(after, former);
}

} // namespace
} // namespace scenewright
