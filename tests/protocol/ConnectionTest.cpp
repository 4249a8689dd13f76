// What keeps a transaction from its device, and what is said then.
#include "protocol/Connection.h"

#include "model/MessageValue.h"
#include "platform/MainQueue.h"
#include "protocol/Transactions.h"
#include "tests/protocol/ExpectedStreams.h"
#include "tests/protocol/TestScenes.h"
#include "usb/Transport.h"

#include <vector>

namespace scenewright {
namespace {

using testing::Bytes;
using testing::Lines;

class ConnectionTest : public testing::DeviceTest {
protected:
    void expectNothingSent() const {
        EXPECT_EQ(script->callsOf({"write", "read"}), Lines{});
        EXPECT_EQ(pauses.size(), 0U);
        EXPECT_FALSE(SendJob::isRunning());
        EXPECT_EQ(MainQueue::pump(), 0U);
    }
};

TEST_F(ConnectionTest, ReadWithoutADeviceGivesNoScenesAndSaysSo) {
    script->devices.clear();
    EXPECT_TRUE(SceneAction::GetSceneFromDevice().empty());
    EXPECT_EQ(events, (Lines{"log 无法找到匹配的设备", "message Could not connect to midi device",
                             "log 无法找到设备"}));
    expectNothingSent();
}

TEST_F(ConnectionTest, ReadWithoutAnInterfaceGivesNoScenesAndSaysSo) {
    script->devices[0].interfaces.resize(1);
    EXPECT_TRUE(SceneAction::GetSceneFromDevice().empty());
    EXPECT_EQ(events, (Lines{"log 无法找到设备接口", "message Could not connect to midi device",
                             "log Could not connect to midi device"}));
    expectNothingSent();
}

TEST_F(ConnectionTest, SendWithoutADeviceSendsNothingAndSaysSo) {
    script->devices.clear();
    SceneAction::SendSceneToDevice({testing::zeroScene()});
    EXPECT_EQ(events, (Lines{"log " + testing::dumpOf(Bytes(253, 0)), "log 无法找到匹配的设备",
                             "message Could not connect to midi device", "log 无法找到设备"}));
    expectNothingSent();
}

TEST_F(ConnectionTest, SendWithoutAnInterfaceSendsNothingAndSaysSo) {
    script->answer("open", {kResultBusy});
    SceneAction::SendSceneToDevice({testing::zeroScene()});
    EXPECT_EQ(events, (Lines{"log " + testing::dumpOf(Bytes(253, 0)), "log 无法找到设备接口",
                             "message Could not connect to midi device",
                             "log Could not connect to midi device"}));
    EXPECT_EQ(console.back(), "Unable to open interface (5c570007)\n");
    expectNothingSent();
}

TEST_F(ConnectionTest, OutcomeTellsWhyNothingWasReached) {
    script->answer("open", {kResultAccess});
    EXPECT_EQ(readScenes(*Progress::record()).outcome,
              (Outcome{.end = Outcome::End::NotConnected, .cause = kResultAccess}));
    script->devices.clear();
    EXPECT_EQ(readScenes(*Progress::record()).outcome,
              (Outcome{.end = Outcome::End::NotConnected, .cause = kResultNotPlugged}));
    std::vector<Outcome> sent;
    sendScenes({testing::zeroScene()}, Progress::record(),
               [&](const Outcome& outcome) { sent.push_back(outcome); });
    EXPECT_EQ(sent, std::vector<Outcome>{}) << "never before the call returns";
    EXPECT_FALSE(SendJob::isRunning());
    MainQueue::pump();
    EXPECT_EQ(sent, (std::vector<Outcome>{
                        {.end = Outcome::End::NotConnected, .cause = kResultNotPlugged}}));
}

TEST_F(ConnectionTest, AfterTheEndOfTheProgramTheOutcomeIsCancelled) {
    Transport::instance().shutDown();
    EXPECT_EQ(readScenes(*Progress::record()).outcome.end, Outcome::End::Cancelled);
}

TEST_F(ConnectionTest, DeviceThatIsNotListedIsNotConnectedTo) {
    script->devices[0].product = 2;
    EXPECT_TRUE(SceneAction::GetSceneFromDevice().empty());
    EXPECT_EQ(messages, (Lines{"Could not connect to midi device"}));
    expectNothingSent();
}

TEST_F(ConnectionTest, SuccessSetsNoMessage) {
    EXPECT_TRUE(connectToDevice(*Progress::record()));
    EXPECT_EQ(messages, Lines{});
    EXPECT_EQ(log.front(), "开始握手协议");
    EXPECT_EQ(log.back(), "handshake yes");
}

TEST_F(ConnectionTest, RecordIsMadeWhenNobodyHasAskedForIt) {
    Progress::forget();
    script->devices.clear();
    EXPECT_TRUE(SceneAction::GetSceneFromDevice().empty());
    ASSERT_NE(Progress::recordIfAny(), nullptr);
    EXPECT_EQ(Progress::recordIfAny()->Message(), "Could not connect to midi device");
}

TEST_F(ConnectionTest, TransactionAfterAFailedOneStartsOver) {
    script->devices.clear();
    EXPECT_TRUE(SceneAction::GetSceneFromDevice().empty());
    script->devices.resize(1);
    EXPECT_EQ(SceneAction::GetSceneFromDevice().size(), 4U);
}

} // namespace
} // namespace scenewright
