#include "model/MessageValue.h"
#include "platform/MainQueue.h"
#include "protocol/Transactions.h"
#include "tests/protocol/DeviceTest.h"
#include "tests/protocol/TestScenes.h"

#include <algorithm>
#include <future>
#include <new>
#include <thread>
#include <vector>

namespace scenewright {
namespace {

using testing::Bytes;
using testing::Lines;

class SendJobTest : public testing::DeviceTest {
protected:
    // Starts a job on an interface that is already there, without a handshake.
    void start(const Bytes& image) {
        connect();
        ASSERT_EQ(SendJob::start(image, Progress::record(), keepOutcome()), kResultSuccess);
    }
    // For the end of a send; each is kept once.
    SendEnded keepOutcome() {
        return [this](const Outcome& outcome) { outcomes.push_back(outcome); };
    }
    void sendWhole(const Bytes& image) {
        start(image);
        SendJob::waitForEnd();
    }
    // From now on a pause of another thread than this ends only after release(): a job stands still
    // at its first packet.
    void holdAtNextPause() {
        onPause = [released = released_.get_future().share(), self = std::this_thread::get_id()] {
            if (std::this_thread::get_id() != self)
                released.wait();
        };
    }
    void release() { released_.set_value(); }

    std::vector<Outcome> outcomes;

private:
    std::promise<void> released_;
};

TEST_F(SendJobTest, BytesAreSentAsNibblesAndTheRestOfTheLastBlockIsFilled) {
    struct Row {
        Bytes image;
        const char* count; // of blocks
        Lines packets;     // before the fill packets
        std::size_t fill;
    };
    for (const Row& row :
         {Row{{0xA7, 0x00, 0xFF}, "01", {"09 90 0a 07", "09 90 00 00", "09 90 0f 0f"}, 509},
          Row{{}, "01", {}, 512}, Row{Bytes(511, 0x12), "01", Lines(511, "09 90 01 02"), 1},
          Row{Bytes(512, 0x12), "02", Lines(512, "09 90 01 02"), 512}}) {
        script->calls.clear();
        sendWhole(row.image);
        Lines expected{"09 9c 01 03", std::string("09 9c 00 ") + row.count};
        expected.insert(expected.end(), row.packets.begin(), row.packets.end());
        expected.insert(expected.end(), row.fill, "09 90 0f 0f");
        EXPECT_EQ(written(), expected) << row.image.size();
    }
}

TEST_F(SendJobTest, BlockCountIsSplitIntoNibbles) {
    sendWhole(Bytes(512 * 17, 0));
    EXPECT_EQ(written()[1], "09 9c 01 02");
    EXPECT_EQ(written().size(), 2U + 18U * 512U);
}

TEST_F(SendJobTest, ReadsAfterTheCountAndAfterEachBlock) {
    sendWhole(Bytes(1012, 0));
    const Lines transfers = script->callsOf({"write", "read"});
    ASSERT_EQ(transfers.size(), 2U + 1U + 1024U + 2U);
    std::vector<std::size_t> reads;
    for (std::size_t i = 0; i < transfers.size(); ++i)
        if (transfers[i] == "read one/1 1 63")
            reads.push_back(i);
    EXPECT_EQ(reads, (std::vector<std::size_t>{2, 2 + 513, 2 + 513 + 513}));
}

TEST_F(SendJobTest, IsRunningFromItsStartToItsLastTaskAndRefusesASecondStart) {
    EXPECT_FALSE(SendJob::isRunning());
    holdAtNextPause();
    start({1});
    EXPECT_TRUE(SendJob::isRunning());
    EXPECT_EQ(SendJob::start({2}, Progress::record(), {}), kResultBusy);
    release();
    SendJob::join();
    EXPECT_TRUE(SendJob::isRunning());
    EXPECT_EQ(SendJob::start({2}, Progress::record(), {}), kResultBusy);
    MainQueue::pump();
    EXPECT_FALSE(SendJob::isRunning());
    EXPECT_EQ(controller.received()[0], 1);
    EXPECT_EQ(controller.received().size(), 512U);
    sendWhole({3});
    EXPECT_EQ(controller.received()[0], 3);
}

TEST_F(SendJobTest, SendWhileAJobRunsIsToldBusyAndTouchesNothing) {
    holdAtNextPause();
    start({1});
    const auto before = told();
    sendScenes({testing::zeroScene()}, Progress::record(), keepOutcome());
    EXPECT_EQ(told(), before);
    EXPECT_EQ(outcomes, std::vector<Outcome>{}) << "never before the call returns";
    release();
    SendJob::join();
    MainQueue::pump();
    ASSERT_EQ(outcomes.size(), 2U);
    EXPECT_EQ(outcomes[0].end, Outcome::End::NotStarted);
    EXPECT_EQ(outcomes[0].cause, kResultBusy);
    EXPECT_EQ(outcomes[1].end, Outcome::End::Done);
    EXPECT_EQ(messages, Lines{"Send Scene Data Finish:100%:Success"});
    EXPECT_EQ(written().size(), 2U + 512U);
}

TEST_F(SendJobTest, WithoutAThreadNothingIsSentAndTheNextStartIsNotRefused) {
    connect();
    {
        const testing::NoMoreThreads none;
        EXPECT_EQ(SendJob::start({1}, Progress::record(), keepOutcome()), kResultNoThread);
    }
    EXPECT_FALSE(SendJob::isRunning());
    EXPECT_EQ(told(), Lines{});
    EXPECT_EQ(written(), Lines{});
    EXPECT_EQ(SendJob::start({1}, Progress::record(), {}), kResultSuccess);
    SendJob::waitForEnd();
    EXPECT_EQ(outcomes, std::vector<Outcome>{});
}

TEST_F(SendJobTest, WaitingWithoutAJobReturnsAtOnceAndRunsNoTask) {
    int ran = 0;
    SendJob::whenIdle([&] { ++ran; });
    EXPECT_EQ(ran, 1);
    SendJob::join();
    ran = 0;
    MainQueue::post([&] { ++ran; });
    SendJob::waitForEnd();
    EXPECT_EQ(ran, 0);
    MainQueue::pump();
    EXPECT_EQ(ran, 1);
}

TEST_F(SendJobTest, AThrowInTheJobEndsItWithTheInterfaceReleased) {
    connect();
    onPause = [this] {
        if (pauses.size() == 100)
            throw std::bad_alloc();
    };
    script->calls.clear();
    ASSERT_EQ(SendJob::start(Bytes(1012, 7), Progress::record(), keepOutcome()), kResultSuccess);
    SendJob::waitForEnd();
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(outcomes[0].end, Outcome::End::Unreliable);
    EXPECT_EQ(outcomes[0].cause, kResultNoMemory);
    EXPECT_EQ(messages, Lines{}) << "no success is told";
    EXPECT_EQ(script->callsOf({"close", "release"}), (Lines{"close one/1", "release one/1"}));
    EXPECT_EQ(script->claimed, Lines{});
    onPause = {};
}

TEST_F(SendJobTest, EachSceneIsToldUntilATransferFails) {
    using Counts = std::vector<std::size_t>;
    constexpr std::size_t kCommands = 2; // before the bytes
    // After so many bytes a write fails.
    for (const auto& [bytes, expected] : {std::pair{std::size_t{252}, Counts{}},
                                          {253, Counts{1}},
                                          {600, Counts{1, 2}},
                                          {1012, Counts{1, 2, 3, 4}}}) {
        Counts told;
        connect();
        std::vector<ResultCode> results(kCommands + bytes, kResultSuccess);
        results.push_back(kResultStall);
        script->answer("write", results);
        ASSERT_EQ(SendJob::start(Bytes(1012, 7), Progress::record(), {},
                                 [&told](std::size_t count) { told.push_back(count); }),
                  kResultSuccess);
        SendJob::waitForEnd();
        EXPECT_EQ(told, expected) << bytes;
    }
}

TEST_F(SendJobTest, OutcomeComesOnTheMainThreadAfterTheRelease) {
    connect();
    Lines released;
    std::thread::id thread;
    std::thread::id told; // the last message
    const auto observed = Progress::record()->addObserver(
        "Message", [&](auto, const auto&) { told = std::this_thread::get_id(); });
    ASSERT_EQ(SendJob::start({1}, Progress::record(),
                             [&](const Outcome&) {
                                 released = script->callsOf({"release"});
                                 thread = std::this_thread::get_id();
                                 EXPECT_FALSE(SendJob::isRunning());
                             }),
              kResultSuccess);
    SendJob::waitForEnd();
    EXPECT_EQ(released, Lines{"release one/1"});
    EXPECT_EQ(thread, std::this_thread::get_id());
    EXPECT_EQ(told, std::this_thread::get_id());
}

TEST_F(SendJobTest, WhenIdleRunsInOrderAfterTheOutcomeEachWhenNoJobRuns) {
    holdAtNextPause();
    connect();
    Lines order;
    ASSERT_EQ(SendJob::start({1}, Progress::record(),
                             [&](const Outcome&) { order.emplace_back("outcome"); }),
              kResultSuccess);
    SendJob::whenIdle([&] {
        order.emplace_back("first");
        sendScenes({}, Progress::record(),
                   [&](const Outcome&) { order.emplace_back("second outcome"); });
    });
    SendJob::whenIdle([&] { order.emplace_back("last"); });
    EXPECT_EQ(order, Lines{});
    release();
    SendJob::waitForEnd();
    EXPECT_EQ(order, (Lines{"outcome", "first", "second outcome", "last"}));
}

TEST_F(SendJobTest, KeepsImageAndRecordAliveToItsEnd) {
    std::weak_ptr<MessageValue> record = Progress::record();
    holdAtNextPause();
    start({0x21});
    Progress::forget();
    EXPECT_FALSE(record.expired());
    release();
    SendJob::waitForEnd();
    SendJob::join();
    EXPECT_TRUE(record.expired());
    EXPECT_EQ(messages, Lines{"Send Scene Data Finish:100%:Success"});
    EXPECT_EQ(controller.received()[0], 0x21);
}

} // namespace
} // namespace scenewright
