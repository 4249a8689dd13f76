#include "platform/MainQueue.h"

#include "tests/support/Limits.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <latch>
#include <mutex>
#include <new>
#include <stdexcept>
#include <string>
#include <sys/prctl.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

thread_local bool isWithoutMemory = false;

} // namespace

// Replaces the allocation of this whole program, so that one thread can be without memory.
void* operator new(std::size_t size) {
    void* const memory = isWithoutMemory ? nullptr : std::malloc(size);
    return memory == nullptr ? throw std::bad_alloc() : memory;
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return std::malloc(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

namespace scenewright {
namespace {

using namespace std::chrono_literals;

class MainQueueTest : public ::testing::Test {
protected:
    void TearDown() override {
        MainQueue::adopt({});
        MainQueue::pump();
    }

    [[nodiscard]] MainQueue::Task note(int number) {
        return [this, number] { ran_.push_back(number); };
    }

    std::vector<int> ran_;
};

using Order = std::vector<int>;

TEST_F(MainQueueTest, ThePumpRunsTasksInTheOrderOfTheirPostingThoseOfTasksToo) {
    MainQueue::post([this] {
        ran_.push_back(1);
        MainQueue::post(note(4));
    });
    MainQueue::post(note(2));
    MainQueue::post(note(3));
    EXPECT_TRUE(ran_.empty());
    EXPECT_EQ(MainQueue::pump(), 4U);
    EXPECT_EQ(ran_, (Order{1, 2, 3, 4}));
    EXPECT_EQ(MainQueue::pump(), 0U);
}

TEST_F(MainQueueTest, TasksOfAnotherThreadRunOnTheOneThatPumps) {
    std::thread::id ranOn;
    std::thread other([&] { MainQueue::post([&] { ranOn = std::this_thread::get_id(); }); });
    other.join();
    MainQueue::pump();
    EXPECT_EQ(ranOn, std::this_thread::get_id());
}

TEST_F(MainQueueTest, PumpingEndsWithTheTaskThatIsWaitedFor) {
    std::thread other([this] { MainQueue::post(note(1)); });
    MainQueue::pumpUntil([this] { return !ran_.empty(); });
    other.join();
    EXPECT_EQ(ran_, Order{1});
}

TEST_F(MainQueueTest, AdoptionHandsOverWhatWaitsAndWhatComes) {
    std::vector<MainQueue::Task> loop;
    MainQueue::post(note(1));
    MainQueue::adopt([&loop](MainQueue::Task task) { loop.push_back(std::move(task)); });
    MainQueue::post(note(2));
    EXPECT_EQ(MainQueue::pump(), 0U);
    ASSERT_EQ(loop.size(), 2U);
    for (const MainQueue::Task& task : loop)
        task();
    EXPECT_EQ(ran_, (Order{1, 2}));
    MainQueue::adopt({}); // ends it
    MainQueue::post(note(3));
    EXPECT_EQ(loop.size(), 2U);
    EXPECT_EQ(MainQueue::pump(), 1U);
}

TEST_F(MainQueueTest, APosterThatRunsAtOnceMayMeetPostingTasks) {
    MainQueue::adopt([](const MainQueue::Task& task) { task(); });
    MainQueue::post([this] {
        MainQueue::post(note(2));
        ran_.push_back(1);
    });
    EXPECT_EQ(ran_, (Order{1, 2}));
}

TEST_F(MainQueueTest, APosterThatThrowsLosesNoTaskAndRunsNoneTwice) {
    std::vector<MainQueue::Task> loop;
    bool throws = true;
    MainQueue::adopt([&](MainQueue::Task task) {
        loop.push_back(std::move(task));
        if (throws)
            throw std::runtime_error("no room");
    });
    MainQueue::post(note(1)); // reaches the loop, and is handed over again
    MainQueue::post(note(2));
    throws = false;
    MainQueue::post(note(3));
    for (const MainQueue::Task& task : loop)
        task();
    EXPECT_EQ(ran_, (Order{1, 2, 3}));
}

TEST_F(MainQueueTest, ATaskWhosePosterThrewAfterRunningItIsDone) {
    MainQueue::adopt([](const MainQueue::Task& task) {
        task();
        throw std::runtime_error("afterwards");
    });
    MainQueue::post(note(1));
    MainQueue::post(note(2));
    MainQueue::adopt({});
    EXPECT_EQ(MainQueue::pump(), 0U);
    EXPECT_EQ(ran_, (Order{1, 2}));
}

TEST_F(MainQueueTest, WhatAPosterDidNotTakeIsPumpedAfterTheAdoption) {
    MainQueue::adopt([](const MainQueue::Task&) { throw std::runtime_error("never"); });
    MainQueue::post(note(1));
    MainQueue::post(note(2));
    MainQueue::adopt({});
    EXPECT_EQ(MainQueue::pump(), 2U);
    EXPECT_EQ(ran_, (Order{1, 2}));
}

TEST_F(MainQueueTest, PostingWithoutMemoryLeavesTheQueueAsItWas) {
    MainQueue::post(note(1));
    MainQueue::Task task = note(2);
    isWithoutMemory = true;
    bool threw = false;
    try {
        MainQueue::post(std::move(task));
    } catch (const std::bad_alloc&) {
        threw = true;
    }
    isWithoutMemory = false;
    EXPECT_TRUE(threw);
    MainQueue::post(note(3));
    EXPECT_EQ(MainQueue::pump(), 2U);
    EXPECT_EQ(ran_, (Order{1, 3}));
}

TEST_F(MainQueueTest, TheEndOfAnAdoptionWaitsForAPosterOnAnotherThread) {
    std::latch isCalled(1);
    std::latch mayReturn(1);
    std::atomic<bool> hasReturned = false;
    std::atomic<bool> isEnded = false;
    MainQueue::adopt([&](const MainQueue::Task&) {
        isCalled.count_down();
        mayReturn.wait();
        hasReturned = true;
    });
    std::jthread posting([&] { MainQueue::post(note(1)); });
    isCalled.wait();
    std::jthread ending([&] {
        MainQueue::adopt({});
        EXPECT_TRUE(hasReturned);
        isEnded = true;
    });
    for (int i = 0; i < 100 && !isEnded; ++i)
        std::this_thread::yield();
    EXPECT_FALSE(isEnded);
    mayReturn.count_down();
    ending.join();
    MainQueue::post(note(2));
    EXPECT_EQ(MainQueue::pump(), 1U);
    EXPECT_EQ(ran_, Order{2});
}

TEST_F(MainQueueTest, APosterMayEndItsOwnAdoption) {
    MainQueue::adopt([](const MainQueue::Task& task) {
        MainQueue::adopt({});
        task();
    });
    MainQueue::post(note(1));
    EXPECT_EQ(ran_, Order{1});
    MainQueue::post(note(2));
    EXPECT_EQ(MainQueue::pump(), 1U);
    EXPECT_EQ(ran_, (Order{1, 2}));
}

TEST_F(MainQueueTest, APosterThatLeavesItsTaskToTheNextOneMayThrow) {
    MainQueue::adopt([](const MainQueue::Task&) {
        MainQueue::adopt([](const MainQueue::Task& task) { task(); });
        throw std::runtime_error("no longer");
    });
    MainQueue::post(note(1));
    EXPECT_EQ(ran_, Order{1});
}

TEST_F(MainQueueTest, AdoptionsThatEndBesidePostingThreadsLoseNothing) {
    constexpr int kTasks = 500;
    std::mutex mutex;
    std::vector<MainQueue::Task> loop;
    std::atomic<bool> isAdopted = false;
    const auto postMany = [this] {
        for (int i = 0; i < kTasks; ++i)
            MainQueue::post(note(i));
    };
    std::jthread first(postMany);
    std::jthread second(postMany);
    for (int round = 0; round < 200; ++round) {
        isAdopted = true;
        MainQueue::adopt([&](MainQueue::Task task) {
            EXPECT_TRUE(isAdopted);
            const std::lock_guard lock(mutex);
            if (loop.size() % 7 == 6)
                loop.emplace_back(); // stands for the one that failed
            else
                loop.push_back(std::move(task));
            if (!loop.back())
                throw std::runtime_error("no room");
        });
        MainQueue::adopt({});
        isAdopted = false;
    }
    first.join();
    second.join();
    for (const MainQueue::Task& task : loop)
        if (task)
            task();
    MainQueue::pump();
    EXPECT_EQ(ran_.size(), 2U * kTasks);
}

// How much later than asked the kernel may wake a thread, in nanoseconds.
long slackOf(pid_t thread) {
    std::ifstream file("/proc/" + std::to_string(thread) + "/timerslack_ns");
    long slack = -1;
    file >> slack;
    return slack;
}

TEST(Sleep, SleepsAsLongAsAskedAndNoLongerThanItMustAndLeavesTheThreadAsItWas) {
    std::atomic<pid_t> id = 0;
    long after = 0;
    const int former = ::prctl(PR_GET_TIMERSLACK);
    std::atomic<bool> isSeen = false;
    std::thread sleeper([&] {
        id = ::gettid();
        while (!isSeen) {
            const auto start = std::chrono::steady_clock::now();
            sleepFor(std::chrono::milliseconds(10));
            EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(10));
        }
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
