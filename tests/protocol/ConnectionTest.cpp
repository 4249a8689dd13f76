// What keeps a transaction from its device, and what is said then.
#include "protocol/Connection.h"

#include "model/MessageValue.h"
#include "platform/MainQueue.h"
#include "protocol/Transactions.h"
#include "tests/protocol/ExpectedStreams.h"
#include "tests/protocol/TestScenes.h"
#include "usb/Transport.h"

#include <string>
#include <vector>

namespace scenewright {
namespace {

using testing::Bytes;
using testing::Lines;

class ConnectionTest : public testing::DeviceTest {
protected:
    // A read and a send move nothing, and say this.
    void expectRefused(Lines said) {
        script->answer("open", {kResultBusy, kResultBusy});
        script->events.clear();
        EXPECT_TRUE(SceneAction::GetSceneFromDevice().empty());
        EXPECT_EQ(told(), said);
        script->events.clear();
        SceneAction::SendSceneToDevice({testing::zeroScene()});
        said.insert(said.begin(), "log " + testing::dumpOf(Bytes(253, 0)));
        EXPECT_EQ(told(), said);
        EXPECT_FALSE(SendJob::isRunning());
        EXPECT_EQ(MainQueue::pump(), 0U);
    }
};

TEST_F(ConnectionTest, WithoutADeviceOrItsInterfaceNothingMovesUntilThereIsOne) {
    const std::string message = "message Could not connect to midi device";
    script->devices.clear();
    expectRefused({"log 无法找到匹配的设备", message, "log 无法找到设备"});
    script->devices.resize(1);
    expectRefused({"log 无法找到设备接口", message, "log Could not connect to midi device"});
    EXPECT_EQ(script->callsOf({"write", "read"}), Lines{});
    EXPECT_EQ(pauses.size(), 0U);
    EXPECT_EQ(SceneAction::GetSceneFromDevice().size(), 4U);
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

TEST_F(ConnectionTest, RecordIsMadeWhenNobodyHasAskedForIt) {
    Progress::forget();
    script->devices.clear();
    EXPECT_TRUE(SceneAction::GetSceneFromDevice().empty());
    ASSERT_NE(Progress::recordIfAny(), nullptr);
    EXPECT_EQ(Progress::recordIfAny()->Message(), "Could not connect to midi device");
}

} // namespace
} // namespace scenewright
