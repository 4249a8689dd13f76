#include "platform/MainQueue.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <utility>
#include <vector>

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

TEST_F(MainQueueTest, NothingRunsUntilThePump) {
    MainQueue::post(note(1));
    EXPECT_TRUE(ran_.empty());
    EXPECT_EQ(MainQueue::pump(), 1U);
    EXPECT_EQ(ran_, Order{1});
}

TEST_F(MainQueueTest, TasksRunInTheOrderOfTheirPosting) {
    for (int i = 0; i < 5; ++i)
        MainQueue::post(note(i));
    EXPECT_EQ(MainQueue::pump(), 5U);
    EXPECT_EQ(ran_, (Order{0, 1, 2, 3, 4}));
    EXPECT_EQ(MainQueue::pump(), 0U);
}

TEST_F(MainQueueTest, ThePumpRunsTasksPostedByTasks) {
    MainQueue::post([this] {
        ran_.push_back(1);
        MainQueue::post(note(3));
    });
    MainQueue::post(note(2));
    EXPECT_EQ(MainQueue::pump(), 3U);
    EXPECT_EQ(ran_, (Order{1, 2, 3}));
}

TEST_F(MainQueueTest, TasksOfAnotherThreadRunOnTheOneThatPumps) {
    std::thread::id ranOn;
    std::thread other([&] { MainQueue::post([&] { ranOn = std::this_thread::get_id(); }); });
    other.join();
    MainQueue::pump();
    EXPECT_EQ(ranOn, std::this_thread::get_id());
}

TEST_F(MainQueueTest, WaitingEndsWithTheFirstTask) {
    std::thread other([this] {
        std::this_thread::sleep_for(5ms);
        MainQueue::post(note(1));
    });
    EXPECT_EQ(MainQueue::waitAndPump(60s), 1U);
    other.join();
    EXPECT_EQ(ran_, Order{1});
}

TEST_F(MainQueueTest, WaitingEndsAtItsLimit) {
    EXPECT_EQ(MainQueue::waitAndPump(1ms), 0U);
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
}

TEST_F(MainQueueTest, AnEmptyPosterEndsTheAdoption) {
    MainQueue::adopt([](const MainQueue::Task&) { FAIL() << "no longer adopted"; });
    MainQueue::adopt({});
    MainQueue::post(note(1));
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

TEST_F(MainQueueTest, PostingFromSeveralThreadsLosesNothing) {
    const auto postMany = [this] {
        for (int i = 0; i < 200; ++i)
            MainQueue::post(note(i));
    };
    std::thread first(postMany);
    std::thread second(postMany);
    first.join();
    second.join();
    EXPECT_EQ(MainQueue::pump(), 400U);
}

} // namespace
} // namespace scenewright
