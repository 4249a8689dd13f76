#include "platform/Process.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <new>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace scenewright {
namespace {

using ::testing::ExitedWithCode;

void runWhereNoneMayPass(void (*run)()) noexcept {
    run();
}

TEST(ProgramMain, AnErrorOfTheSystemIsSaidInWords) {
    EXPECT_EQ(sentenceOf(std::bad_alloc()), "the system has no memory left");
    EXPECT_EQ(sentenceOf(std::system_error(EAGAIN, std::generic_category())),
              "the system has no thread left");
    EXPECT_EQ(sentenceOf(std::runtime_error("the reason")), "the reason");
}

TEST(ProgramMain, TheProgramsOwnExitCodeIsGiven) {
    EXPECT_EQ(runProgram(
                  "program", [](int count, char**) { return count; }, 7, nullptr),
              7);
}

TEST(ProgramMain, AnExceptionThatNobodyCaughtIsOneSentence) {
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(runProgram(
                  "program", [](int, char**) -> int { throw std::bad_alloc(); }, 0, nullptr),
              kExitUnexpected);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "program: the system has no memory left\n");
}

TEST(ProgramMainDeathTest, NoExceptionEndsAProgramByASignal) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::thread([] { throw std::bad_alloc(); }).join(), ExitedWithCode(kExitUnexpected),
                "^platform-tests: the system has no memory left\n$");
    EXPECT_EXIT(runWhereNoneMayPass([] { throw std::runtime_error("the reason\x1b"); }),
                ExitedWithCode(kExitUnexpected), "^platform-tests: the reason\\?\n$");
    EXPECT_EXIT(std::terminate(), ExitedWithCode(kExitUnexpected),
                "^platform-tests: something went wrong that was not expected\n$");
}

} // namespace
} // namespace scenewright
