#include "model/MessageValue.h"
#include "platform/MainQueue.h"
#include "protocol/SceneImage.h"
#include "protocol/Transactions.h"
#include "tests/protocol/DeviceBench.h"
#include "tests/protocol/TestScenes.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <future>
#include <new>
#include <pthread.h>
#include <string>
#include <thread>
#include <vector>

namespace scenewright {
namespace {

using testing::Bytes;
using testing::Lines;
using testing::zeroScene;

class SendTransactionTest : public testing::DeviceBench {
protected:
    void sendWhole(const SceneList& scenes) {
        sendScenes(scenes, Progress::record(), keepOutcome());
        SendJob::waitForEnd();
    }
    // For the end of a send; each is kept once.
    SendEnded keepOutcome() {
        return [this](const Outcome& outcome) { outcomes.push_back(outcome); };
    }

    std::vector<Outcome> outcomes;
};

SceneList fourScenes() {
    SceneList scenes;
    for (int i = 0; i < 4; ++i)
        scenes.push_back(zeroScene());
    return scenes;
}

TEST_F(SendTransactionTest, ScenesAreSentEndToEndAlsoMoreThanTheDeviceHolds) {
    SceneList scenes = fourScenes();
    scenes.push_back(zeroScene());
    for (std::size_t s = 0; s < 5; ++s) {
        scenes[s]->commonValue()->setSceneName("SCENE" + std::to_string(s + 1));
        scenes[s]->buttonValueArray()[19]->setCB(static_cast<std::int32_t>(s) + 100);
    }
    sendWhole(scenes);
    const Bytes& sent = controller.received();
    ASSERT_EQ(sent.size(), 1536U);
    for (std::size_t s = 0; s < 5; ++s) {
        EXPECT_EQ(sent[s * 253], 'S');
        EXPECT_EQ(sent[s * 253 + 5], '1' + s);
        EXPECT_EQ(sent[s * 253 + 252], 100 + s);
    }
    EXPECT_EQ(Bytes(sent.begin() + 1265, sent.end()), Bytes(271, 0xFF));
}

TEST_F(SendTransactionTest, ScenesThatNoThreadCouldSendAreToldAndTheInterfaceReleased) {
    const testing::NoMoreThreads none;
    sendScenes(fourScenes(), Progress::record(), keepOutcome());
    EXPECT_FALSE(SendJob::isRunning());
    EXPECT_EQ(script->claimed, Lines{});
    MainQueue::pump();
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(outcomes[0].end, Outcome::End::NotStarted);
    EXPECT_EQ(outcomes[0].cause, kResultNoThread);
    EXPECT_EQ(written(), (Lines{"09 9c 01 02", "09 9c 7e 7d"}));
    EXPECT_EQ(messages, Lines{});
}

TEST_F(SendTransactionTest, OutcomeCountsEveryTransferAndAMillisecondGoesBeforeEachPacket) {
    sendWhole(fourScenes());
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_TRUE(outcomes[0].isDone());
    EXPECT_EQ(outcomes[0].stats, (TransferStats{.writes = 2U + 2U + 1024U,
                                                .failedWrites = 0,
                                                .reads = 1U + 1U + 2U,
                                                .failedReads = 0,
                                                .versionReads = 1,
                                                .first = {}}));
    EXPECT_EQ(pauses,
              std::vector<std::chrono::nanoseconds>(2 + 2 + 1024, std::chrono::milliseconds(1)));
}

TEST_F(SendTransactionTest, ABankThatTheControllersFileCouldNotTakeIsToldAtTheEnd) {
    script->storageResult = failure("full");
    sendWhole(fourScenes());
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(outcomes[0].notKept, Lines{"full"});
    EXPECT_FALSE(outcomes[0].isDone());
}

TEST_F(SendTransactionTest, WhatIsSentIsWhatTheScenesHeldAtTheCall) {
    const SceneList scenes = fourScenes();
    scenes[0]->commonValue()->setSceneName("BEFORE");
    SceneAction::SendSceneToDevice(scenes);
    scenes[0]->commonValue()->setSceneName("AFTER!");
    SendJob::waitForEnd();
    EXPECT_EQ(controller.received()[0], 'B');
}

TEST_F(SendTransactionTest, ConnectsOnTheCallersThreadAndSendsOnOneNamedSendPro) {
    Lines names;
    onPause = [&] {
        std::array<char, 16> name{};
        pthread_getname_np(pthread_self(), name.data(), name.size());
        names.emplace_back(name.data());
    };
    std::array<char, 16> own{};
    pthread_getname_np(pthread_self(), own.data(), own.size());
    sendWhole(fourScenes());
    Lines expected(2, own.data());
    expected.insert(expected.end(), 2 + 1024, "sendPro");
    EXPECT_EQ(names, expected);
}

TEST_F(SendTransactionTest, MainQueueTasksRunInTheirOrderAndTheLastReleasesTheInterface) {
    SceneAction::SendSceneToDevice(fourScenes());
    SendJob::join();
    EXPECT_EQ(messages, Lines{}) << "left alone while the job runs";
    script->events.clear();
    EXPECT_TRUE(SendJob::isRunning());
    EXPECT_EQ(MainQueue::pump(), 4U);
    EXPECT_EQ(script->events,
              (Lines{"log ing", "log ing", "log 100", "message Send Scene Data Finish:100%:Success",
                     "log Finish", "close one/1", "release one/1"}));
    EXPECT_FALSE(SendJob::isRunning());
}

TEST_F(SendTransactionTest, FailedWriteGivesTheInterfaceUpAndTheJobRunsToItsEnd) {
    std::vector<ResultCode> results(10, kResultSuccess);
    results.push_back(kResultNoDevice);
    script->answer("write", results);
    sendWhole(fourScenes());
    EXPECT_EQ(script->callsOf({"write"}).size(), 11U);
    EXPECT_EQ(script->callsOf({"release"}).size(), 1U);
    EXPECT_EQ(pauses.size(), 1028U);
    EXPECT_EQ(messages, Lines{"Send Scene Data Finish:100%:Success"});
    EXPECT_FALSE(SendJob::isRunning());
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(outcomes[0].end, Outcome::End::Unreliable);
    EXPECT_EQ(outcomes[0].cause, kResultNoDevice);
    EXPECT_EQ(outcomes[0].stats.failedWrites, 1018U);
}

TEST_F(SendTransactionTest, DeviceThatAnswersNoBlockIsSentEverythingAllTheSame) {
    script->answer("read", {kResultSuccess, kResultTimeout, kResultStall, kResultTimeout});
    sendWhole(fourScenes());
    EXPECT_EQ(controller.received().size(), 1024U);
    EXPECT_EQ(messages, Lines{"Send Scene Data Finish:100%:Success"});
}

TEST_F(SendTransactionTest, AThrowBeforeTheJobIsToldAsWhyNoneWasStarted) {
    onPause = [] { throw std::bad_alloc(); };
    sendScenes(fourScenes(), Progress::record(), keepOutcome());
    onPause = {};
    EXPECT_FALSE(SendJob::isRunning());
    MainQueue::pump();
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(outcomes[0].end, Outcome::End::NotStarted);
    EXPECT_EQ(outcomes[0].cause, kResultNoMemory);
    EXPECT_EQ(messages, Lines{}) << "no success is told";
}

// The end of a send whose first copy finds no memory: posting it takes one.
struct EndCopiedLate {
    EndCopiedLate(std::vector<Outcome>& told, int& counted) : ends(&told), copies(&counted) {}
    EndCopiedLate(const EndCopiedLate& other) : ends(other.ends), copies(other.copies) {
        if (++*copies == 1)
            throw std::bad_alloc();
    }
    EndCopiedLate(EndCopiedLate&&) = default;
    EndCopiedLate& operator=(const EndCopiedLate&) = delete;
    EndCopiedLate& operator=(EndCopiedLate&&) = delete;
    ~EndCopiedLate() = default;
    void operator()(const Outcome& outcome) const { ends->push_back(outcome); }

    std::vector<Outcome>* ends;
    int* copies;
};

TEST_F(SendTransactionTest, AnEndThatCouldNotBePostedAtOnceIsToldAllTheSame) {
    script->devices.clear();
    int copies = 0;
    sendScenes(fourScenes(), Progress::record(), EndCopiedLate(outcomes, copies));
    MainQueue::pump();
    EXPECT_GE(copies, 2);
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(outcomes[0].end, Outcome::End::NotConnected);
}

TEST_F(SendTransactionTest, SendsAndReadsFollowEachOtherInOneProcess) {
    controller.bank[12] = 9;
    sendWhole(SceneAction::GetSceneFromDevice());
    EXPECT_EQ(controller.received()[12], 9);
    sendWhole(SceneAction::GetSceneFromDevice());
    EXPECT_EQ(SceneAction::GetSceneFromDevice().size(), 4U);
    EXPECT_EQ(script->claimed, Lines{"one/1"});
}

class SendJobTest : public SendTransactionTest {
protected:
    // Starts a job on an interface that is already there, without a handshake.
    void start(const Bytes& image) {
        connect();
        ASSERT_EQ(SendJob::start(image, Progress::record(), keepOutcome()), kResultSuccess);
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

class SendStreams : public testing::DeviceBench {
protected:
    // Sends `bank`, and runs the main queue's tasks only when the job's thread is through, so that
    // the order of the lines is one only.
    void sendBank(const Bytes& bank) {
        const SceneList scenes = parseScenes(bank);
        script->events.clear();
        SceneAction::SendSceneToDevice(scenes);
        SendJob::join();
        MainQueue::pump();
    }

    static std::string format(const char* format, unsigned position, unsigned byte, unsigned high,
                              unsigned low) {
        std::array<char, 64> text{};
        std::snprintf(text.data(), text.size(), format, position, byte, high, low);
        return text.data();
    }

    static void expectPosition(testing::ExpectedStreams& expected, const Bytes& bank,
                               std::size_t position) {
        const bool isData = position < bank.size();
        const unsigned byte = isData ? bank[position] : 0x00;
        const unsigned high = isData ? byte >> 4U : 0x0F;
        const unsigned low = isData ? byte & 0x0FU : 0x0F;
        expected.say(
            format("%u %02x    09,90,%02x,%02x", static_cast<unsigned>(position), byte, high, low));
        expected.write(
            {0x09, 0x90, static_cast<std::uint8_t>(high), static_cast<std::uint8_t>(low)});
    }

    void expectBlock(testing::ExpectedStreams& expected, const Bytes& bank,
                     std::size_t block) const {
        for (std::size_t i = 0; i < 512; ++i)
            expectPosition(expected, bank, block * 512 + i);
        const std::string time = "第" + std::to_string(block + 1) + "次读接口---->";
        expected.say(time + "开始");
        expected.read(controller.blockReply);
        expected.say(time + "结束");
    }

    [[nodiscard]] testing::ExpectedStreams expectedStreams(const Bytes& bank) const {
        testing::ExpectedStreams expected;
        expected.say(testing::dumpOf(bank));
        expected.connect();
        expected.handshake(controller.handshakeReply);
        expected.write({0x09, 0x9C, 0x01, 0x03});
        expected.say("发送次数---->2");
        expected.write({0x09, 0x9C, 0x00, 0x02});
        expected.say("writeTime：09,9c,00,02");
        expected.read(controller.countReply);
        expectBlock(expected, bank, 0);
        expectBlock(expected, bank, 1);
        for (const char* const line : {"ing", "ing", "100", "Finish"})
            expected.say(line);
        expected.events.insert(expected.events.end(), {"close one/1", "release one/1"});
        return expected;
    }
};

TEST_F(SendStreams, HoldEveryLineOfASendInOrder) {
    std::mt19937 random(5);
    const Bytes bank = testing::randomImages(random, 4);
    sendBank(bank);
    EXPECT_EQ(withoutMessages(), expectedStreams(bank).events);
}

} // namespace
} // namespace scenewright
