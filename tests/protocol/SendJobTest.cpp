#include "protocol/SendJob.h"

#include "model/Progress.h"
#include "platform/MainQueue.h"
#include "protocol/SceneAction.h"
#include "tests/protocol/DeviceTest.h"
#include "tests/protocol/TestScenes.h"

#include <algorithm>
#include <future>
#include <thread>

namespace scenewright {
namespace {

using namespace std::chrono_literals;
using testing::Bytes;
using testing::Lines;

constexpr std::chrono::minutes kPatience{1};

class SendJobTest : public testing::DeviceTest {
protected:
    // Starts a job on an interface that is already there, without a handshake.
    void start(const Bytes& image) {
        takeInterface();
        ASSERT_TRUE(SendJob::start(image, Progress::record()));
    }
    void sendWhole(const Bytes& image) {
        start(image);
        EXPECT_TRUE(SendJob::waitForEnd(kPatience));
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

private:
    std::promise<void> released_;
};

TEST_F(SendJobTest, ByteIsSentAsItsNibblesAndTheRestOfTheBlockIsFilled) {
    sendWhole({0xA7, 0x00, 0xFF});
    Lines expected{"09 9c 01 03", "09 9c 00 01", "09 90 0a 07", "09 90 00 00", "09 90 0f 0f"};
    expected.insert(expected.end(), 509, "09 90 0f 0f");
    EXPECT_EQ(written(), expected);
}

TEST_F(SendJobTest, BlockThatIsExactlyFullIsFollowedByOneOfFillPackets) {
    sendWhole(Bytes(512, 0x12));
    Lines expected{"09 9c 01 03", "09 9c 00 02"};
    expected.insert(expected.end(), 512, "09 90 01 02");
    expected.insert(expected.end(), 512, "09 90 0f 0f");
    EXPECT_EQ(written(), expected);
}

TEST_F(SendJobTest, BlockShortOfOneByteIsTheOnlyOne) {
    sendWhole(Bytes(511, 0x12));
    Lines expected{"09 9c 01 03", "09 9c 00 01"};
    expected.insert(expected.end(), 511, "09 90 01 02");
    expected.emplace_back("09 90 0f 0f");
    EXPECT_EQ(written(), expected);
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

TEST_F(SendJobTest, IsRunningFromItsStartToItsLastTask) {
    EXPECT_FALSE(SendJob::isRunning());
    start({1});
    EXPECT_TRUE(SendJob::isRunning());
    SendJob::join();
    EXPECT_TRUE(SendJob::isRunning());
    MainQueue::pump();
    EXPECT_FALSE(SendJob::isRunning());
}

TEST_F(SendJobTest, SecondStartIsRefusedWhileOneRuns) {
    holdAtNextPause();
    start({1});
    EXPECT_FALSE(SendJob::start({2}, Progress::record()));
    release();
    EXPECT_TRUE(SendJob::waitForEnd(kPatience));
    EXPECT_EQ(controller.received()[0], 1);
    EXPECT_EQ(controller.received().size(), 512U);
}

TEST_F(SendJobTest, SecondStartIsRefusedUntilTheLastTaskHasRun) {
    start({1});
    SendJob::join();
    EXPECT_FALSE(SendJob::start({2}, Progress::record()));
    MainQueue::pump();
    sendWhole({3});
    EXPECT_EQ(controller.received()[0], 3);
}

TEST_F(SendJobTest, SendWhileAJobRunsIsRefusedWithOneLogLineAndTouchesNothing) {
    holdAtNextPause();
    start({1});
    SceneAction::SendSceneToDevice({testing::zeroScene()});
    release();
    SendJob::join();
    EXPECT_EQ(std::ranges::count(log, "The scenes are not sent: an earlier send is still running"),
              1);
    EXPECT_EQ(script->callsOf({"matchingServices"}), Lines{});
    EXPECT_EQ(messages, Lines{});
    MainQueue::pump();
    EXPECT_EQ(messages, Lines{"Send Scene Data Finish:100%:Success"});
    EXPECT_EQ(written().size(), 2U + 512U);
}

TEST_F(SendJobTest, WithoutAThreadNothingIsSentAndTheNextStartIsNotRefused) {
    takeInterface();
    {
        const testing::NoMoreThreads none;
        EXPECT_FALSE(SendJob::start({1}, Progress::record()));
    }
    EXPECT_FALSE(SendJob::isRunning());
    EXPECT_EQ(log.back(), "No thread to send on: Resource temporarily unavailable");
    EXPECT_EQ(written(), Lines{});
    EXPECT_TRUE(SendJob::start({1}, Progress::record()));
    EXPECT_TRUE(SendJob::waitForEnd(kPatience));
}

TEST_F(SendJobTest, WaitingGivesUpAtItsLimit) {
    holdAtNextPause();
    start({1});
    EXPECT_FALSE(SendJob::waitForEnd(5ms));
    EXPECT_FALSE(SendJob::waitForEnd(0ms));
    release();
    EXPECT_TRUE(SendJob::waitForEnd(kPatience));
}

TEST_F(SendJobTest, WaitingForTheLongestTimeThereIsEnds) {
    start({1});
    EXPECT_TRUE(SendJob::waitForEnd(std::chrono::milliseconds::max()));
}

TEST_F(SendJobTest, WaitingWithoutAJobReturnsAtOnceAndRunsNoTask) {
    int ran = 0;
    MainQueue::post([&] { ++ran; });
    EXPECT_TRUE(SendJob::waitForEnd(kPatience));
    EXPECT_EQ(ran, 0);
    MainQueue::pump();
    EXPECT_EQ(ran, 1);
}

TEST_F(SendJobTest, JoiningWithoutAJobReturnsAtOnce) {
    SendJob::join();
    SendJob::join();
    EXPECT_FALSE(SendJob::isRunning());
}

TEST_F(SendJobTest, KeepsImageAndRecordAliveToItsEnd) {
    std::weak_ptr<MessageValue> record = Progress::record();
    holdAtNextPause();
    start({0x21});
    Progress::forget();
    EXPECT_FALSE(record.expired());
    release();
    EXPECT_TRUE(SendJob::waitForEnd(kPatience));
    SendJob::join();
    EXPECT_TRUE(record.expired());
    EXPECT_EQ(messages, Lines{"Send Scene Data Finish:100%:Success"});
    EXPECT_EQ(controller.received()[0], 0x21);
}

TEST_F(SendJobTest, FinalMessageIsSetOnTheMainThread) {
    std::thread::id thread;
    const auto observed = Progress::record()->addObserver(
        "Message", [&](auto, const auto&) { thread = std::this_thread::get_id(); });
    sendWhole({1});
    EXPECT_EQ(thread, std::this_thread::get_id());
}

} // namespace
} // namespace scenewright
