#include "platform/Clock.h"

#include <gtest/gtest.h>

namespace scenewright {
namespace {

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

} // namespace
} // namespace scenewright
