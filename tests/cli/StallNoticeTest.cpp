#include "cli/StallNotice.h"

#include "platform/FileDescriptor.h"
#include "usb/Transport.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <functional>
#include <string>
#include <thread>
#include <unistd.h>

namespace scenewright {
namespace {

using namespace std::chrono_literals;

constexpr auto kLimit = 200ms;
constexpr const char* kNotAnswering =
    "scenewright-cli: The keyboard does not answer: unplug it, plug it in again and try again "
    "(Ctrl+C stops)\n";

class StallNoticeTest : public ::testing::Test {
protected:
    void SetUp() override { Transport::instance().use(nullptr); }

    // What is said while `step` is made every few milliseconds for three limits.
    static std::string saidDuring(const std::function<void()>& step) {
        ::testing::internal::CaptureStderr();
        {
            const StallNotice patience(kLimit);
            for (int turn = 0; turn < 60; ++turn) {
                step();
                std::this_thread::sleep_for(kLimit / 20);
            }
        }
        return ::testing::internal::GetCapturedStderr();
    }
};

TEST_F(StallNoticeTest, SaysNothingWhilePacketsAreWritten) {
    EXPECT_EQ(saidDuring([] { Transport::instance().countWrite(kResultSuccess); }), "");
}

TEST_F(StallNoticeTest, SaysOnceThatTheKeyboardDoesNotAnswer) {
    EXPECT_EQ(saidDuring([] {}), kNotAnswering);
}

TEST_F(StallNoticeTest, RepeatedHandshakesAreNoProgress) {
    EXPECT_EQ(saidDuring([] {
                  Transport::instance().countWrite(kResultSuccess);
                  Transport::instance().countWrite(kResultSuccess);
                  Transport::instance().countRead({.delivered = 12}, true);
              }),
              kNotAnswering);
}

TEST_F(StallNoticeTest, AnUnpluggedKeyboardIsToldAsSuch) {
    Transport::instance().countWrite(kResultNoDevice);
    EXPECT_EQ(saidDuring([] {}),
              "scenewright-cli: The keyboard was unplugged: plug it in and try again "
              "(Ctrl+C stops)\n");
}

TEST_F(StallNoticeTest, WhatCannotBeSaidHoldsNothingUp) {
    const FileDescriptor former(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3));
    const FileDescriptor full(::open("/dev/full", O_WRONLY | O_CLOEXEC));
    ::dup2(full.get(), STDERR_FILENO);
    {
        const StallNotice patience(20ms);
        std::this_thread::sleep_for(100ms);
    }
    ::dup2(former.get(), STDERR_FILENO);
}

} // namespace
} // namespace scenewright
