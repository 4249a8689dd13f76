#include "app/Recovery.h"

#include "tests/support/RunProgram.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace scenewright {

namespace {

using testing::TempFolder;

EditedScenes scenesOf(std::uint8_t byte) {
    EditedScenes scenes{.file = "/home/a/live.bank", .keyboard = "Stage \"left\""};
    scenes.image.fill(byte);
    return scenes;
}

class RecoveryTest : public ::testing::Test {
protected:
    [[nodiscard]] std::unique_ptr<Recovery> start() const {
        return std::make_unique<Recovery>(folder.path() / "unsent");
    }
    // What a program that starts now finds, by the first byte of each.
    [[nodiscard]] std::vector<int> found() const {
        std::vector<int> bytes;
        const auto next = start();
        for (const Recovery::Left& left : next->left())
            bytes.push_back(left.scenes.image[0]);
        return bytes;
    }
    // A program of its own that keeps scenes and then ends as `end` does.
    void leave(std::uint8_t byte, const std::function<void()>& end) const {
        const testing::ProgramRun run = testing::runForked([&](int) -> int {
            const auto recovery = start();
            recovery->keep(scenesOf(byte));
            if (!recovery->flush())
                return 1;
            end();
            _exit(0);
        });
        EXPECT_TRUE(run.exitCode == 0 || run.exitCode > 128) << run.exitCode;
    }
    void setAge(int place, int seconds) const {
        const timespec time{.tv_sec = ::time(nullptr) - seconds, .tv_nsec = 0};
        const timespec times[2]{time, time};
        const std::string file =
            (folder.path() / "unsent" / (std::to_string(place) + ".scenes")).string();
        EXPECT_EQ(utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
    }

    TempFolder folder;
};

TEST_F(RecoveryTest, WhatIsKeptIsFoundAfterTheEndWhicheverItIsUntilItIsForgotten) {
    const std::function<void()> ends[] = {
        [] { _exit(0); },
        [] { kill(getpid(), SIGKILL); },
    };
    for (const auto& end : ends) {
        leave(7, end);
        EXPECT_EQ(found(), std::vector{7});
        const auto next = start();
        ASSERT_EQ(next->left().size(), 1U);
        EXPECT_EQ(next->left()[0].scenes, scenesOf(7));
        next->forget(next->left()[0].place);
        EXPECT_TRUE(next->left().empty());
    }
    EXPECT_TRUE(found().empty());
}

TEST_F(RecoveryTest, RunningProgramsDoNotTakeEachOthers) {
    leave(7, [] {});
    const auto first = start(); // holds what was left,
    first->keep(scenesOf(8));
    ASSERT_TRUE(first->flush());
    const auto second = start(); // and what it keeps itself
    EXPECT_TRUE(second->left().empty());
    second->keep(scenesOf(9));
    ASSERT_TRUE(second->flush());
    EXPECT_EQ(first->left().front().scenes, scenesOf(7));
    EXPECT_TRUE(found().empty());
}

TEST_F(RecoveryTest, TheNewestIsFirst) {
    auto first = start();
    auto second = start();
    first->keep(scenesOf(1));
    second->keep(scenesOf(2));
    ASSERT_TRUE(first->flush() && second->flush());
    first.reset();
    second.reset();
    for (const int older : {1, 2}) {
        setAge(older, 100);
        setAge(3 - older, 50);
        EXPECT_EQ(found(), (std::vector{3 - older, older}));
    }
}

TEST_F(RecoveryTest, NothingIsWrittenBeforeAFlushAndNothingTwice) {
    const auto recovery = start();
    const std::string file = folder.file("unsent/1.scenes");
    recovery->keep(scenesOf(1));
    EXPECT_FALSE(std::filesystem::exists(file));
    ASSERT_TRUE(recovery->flush());
    std::filesystem::remove(file);
    recovery->keep(scenesOf(1));
    ASSERT_TRUE(recovery->flush());
    EXPECT_FALSE(std::filesystem::exists(file));
    recovery->keep(scenesOf(2));
    ASSERT_TRUE(recovery->flush());
    EXPECT_EQ(parseEdited(testing::readBytes(file)), scenesOf(2));
    recovery->discard();
    EXPECT_TRUE(std::filesystem::exists(file));
    ASSERT_TRUE(recovery->flush());
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(RecoveryTest, WhatCannotBeKeptIsToldEachTimeUntilItCan) {
    testing::writeBytes(folder.file("unsent"), {});
    Recovery inTheWay(folder.path() / "unsent");
    Recovery homeless(std::nullopt);
    for (Recovery* recovery : {&inTheWay, &homeless}) {
        EXPECT_TRUE(recovery->flush()); // nothing is to be kept
        recovery->keep(scenesOf(1));
        EXPECT_FALSE(recovery->flush());
        EXPECT_EQ(recovery->flush().error().find("The edited scenes could not be kept: "), 0U);
        recovery->discard();
        EXPECT_TRUE(recovery->flush());
    }
}

TEST_F(RecoveryTest, AFileOfAnotherKindStaysAndIsNotFound) {
    std::filesystem::create_directories(folder.path() / "unsent");
    const std::vector<std::uint8_t> other{'x'};
    testing::writeBytes(folder.file("unsent/1.scenes"), other);
    const auto recovery = start();
    EXPECT_TRUE(recovery->left().empty());
    recovery->keep(scenesOf(3));
    ASSERT_TRUE(recovery->flush());
    EXPECT_EQ(testing::readBytes(folder.file("unsent/1.scenes")), other);
    EXPECT_TRUE(std::filesystem::exists(folder.file("unsent/2.scenes")));
}

TEST(EditedScenes, BytesAreALineTheImageAndTwoTexts) {
    EditedScenes scenes{.file = "f", .keyboard = "k"};
    scenes.image.fill(9);
    const auto bytes = editedBytes(scenes);
    const std::string text(bytes.begin(), bytes.end());
    EXPECT_EQ(text,
              "scenewright edited scenes 1\n" + std::string(1012, '\t') + std::string("f\0k\0", 4));
    EXPECT_EQ(parseEdited(bytes), scenes);
}

TEST(EditedScenes, PartsAndLongerFilesAreNone) {
    const auto bytes = editedBytes(scenesOf(1));
    for (std::size_t size = 0; size < bytes.size(); ++size)
        EXPECT_FALSE(parseEdited(std::span(bytes).first(size))) << size;
    auto longer = bytes;
    longer.push_back(0);
    EXPECT_FALSE(parseEdited(longer));
    auto other = bytes;
    other[26] = '2';
    EXPECT_FALSE(parseEdited(other));
}

} // namespace

} // namespace scenewright
