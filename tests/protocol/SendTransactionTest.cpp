#include "platform/MainQueue.h"
#include "protocol/Transactions.h"
#include "tests/protocol/DeviceTest.h"
#include "tests/protocol/TestScenes.h"

#include <array>
#include <pthread.h>

namespace scenewright {
namespace {

using testing::Bytes;
using testing::Lines;
using testing::zeroScene;

class SendTransactionTest : public testing::DeviceTest {
protected:
    void sendWhole(const SceneList& scenes) {
        sendScenes(scenes, Progress::record(),
                   [this](const Outcome& outcome) { outcomes.push_back(outcome); });
        SendJob::waitForEnd();
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
    sendScenes(fourScenes(), Progress::record(),
               [&](const Outcome& outcome) { outcomes.push_back(outcome); });
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

TEST_F(SendTransactionTest, SendsAndReadsFollowEachOtherInOneProcess) {
    controller.bank[12] = 9;
    sendWhole(SceneAction::GetSceneFromDevice());
    EXPECT_EQ(controller.received()[12], 9);
    sendWhole(SceneAction::GetSceneFromDevice());
    EXPECT_EQ(SceneAction::GetSceneFromDevice().size(), 4U);
    EXPECT_EQ(script->claimed, Lines{"one/1"});
}

} // namespace
} // namespace scenewright
