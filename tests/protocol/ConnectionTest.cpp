// What keeps a transaction from its device, and what is said then.
#include "protocol/Connection.h"

#include "model/MessageValue.h"
#include "platform/MainQueue.h"
#include "protocol/Transactions.h"
#include "tests/protocol/DeviceBench.h"
#include "tests/protocol/TestScenes.h"
#include "usb/Transport.h"

#include <string>
#include <vector>

namespace scenewright {
namespace {

using testing::Bytes;
using testing::Lines;

class ConnectionTest : public testing::DeviceBench {
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

class HandshakeTest : public testing::DeviceBench {
protected:
    // One handshake that the device answers with `reply`.
    bool answeredBy(const Bytes& reply) {
        connect();
        controller.handshakeReply = reply;
        return SceneAction::HandshakeOperation();
    }
    // The log without what the transfers owe it.
    [[nodiscard]] Lines spoken() const {
        Lines lines;
        for (const std::string& line : log)
            if (line.starts_with("version") || line.starts_with("handshake") ||
                line.starts_with("do ") || line == "开始握手协议")
                lines.push_back(line);
        return lines;
    }
};

TEST_F(HandshakeTest, ReplyIsTakenByItsFirstEightBytesAndNoLineIsSpentOnAnotherFirstOne) {
    struct Row {
        Bytes reply;
        bool isTaken;
        Lines spoken;
    };
    for (const Row& row :
         std::vector<Row>{{{0x09, 0x9C, 0x01, 0x02, 0x09, 0x9C, 0x01, 0x38, 0x0A, 0xBC, 0xFF, 0x77},
                           true,
                           {"version    09 9c 01 02 09 9c 01 38 0a bc ff", "handshake yes"}},
                          {{0x09, 0x9C, 0x01, 0x02, 0x09, 0x9C, 0x01, 0x39, 0x00, 0x00, 0x00, 0x00},
                           false,
                           {"version    09 9c 01 02 09 9c 01 39 00 00 00", "handshake no"}},
                          {{0x0B, 0x9C, 0x01, 0x02, 0x09, 0x9C, 0x01, 0x38, 0x00, 0x00, 0x00, 0x00},
                           false,
                           {}}}) {
        EXPECT_EQ(answeredBy(row.reply), row.isTaken);
        EXPECT_EQ(spoken(), row.spoken);
    }
    EXPECT_TRUE(log.back().starts_with("readversion  0b 9c "));
}

TEST_F(HandshakeTest, EachOfTheFirstEightBytesCountsAndNoneBehindThem) {
    for (std::size_t i = 1; i < 12; ++i) {
        Bytes reply{0x09, 0x9C, 0x01, 0x02, 0x09, 0x9C, 0x01, 0x38, 0x00, 0x00, 0x00, 0x00};
        ++reply[i];
        EXPECT_EQ(answeredBy(reply), i >= 8) << i;
        EXPECT_EQ(log.back(), i >= 8 ? "handshake yes" : "handshake no") << i;
    }
}

TEST_F(HandshakeTest, EmptyReplyLeavesTheBufferAsItIs) {
    const Bytes right{0x09, 0x9C, 0x01, 0x02, 0x09, 0x9C, 0x01, 0x38};
    EXPECT_TRUE(answeredBy(right));
    EXPECT_TRUE(answeredBy({})) << "the former reply is still there, and is taken";
    EXPECT_TRUE(answeredBy({0x09})) << "behind the byte that came";
    EXPECT_FALSE(answeredBy({0x0B}));
}

TEST_F(HandshakeTest, FailedWritesAreNotLookedAt) {
    connect();
    script->answer("write", {kResultStall});
    EXPECT_FALSE(SceneAction::HandshakeOperation());
    EXPECT_TRUE(console.starts_with("Unable to perform bulk write (5c57000a)\n")) << console;
    EXPECT_EQ(spoken(), Lines{});
}

TEST_F(HandshakeTest, IsRepeatedWithoutLimitClosingTheInterfaceInBetween) {
    connect();
    controller.wrongReplies.assign(
        50, {0x09, 0x9C, 0x01, 0x02, 0x09, 0x9C, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00});
    handshakeUntilAnswered();
    Lines expectedCalls;
    Lines expectedLog{"开始握手协议"};
    const Lines attempt{"open one/1", "write one/1 2 09 9c 01 02", "write one/1 2 09 9c 7e 7d",
                        "read one/1 1 63"};
    for (int i = 0; i < 50; ++i) {
        expectedCalls.insert(expectedCalls.end(), attempt.begin(), attempt.end());
        expectedCalls.push_back("close one/1");
        expectedLog.insert(expectedLog.end(), {"version    09 9c 01 02 09 9c 01 00 00 00 00",
                                               "handshake no", "do HandshakeOperation"});
    }
    expectedCalls.insert(expectedCalls.end(), attempt.begin(), attempt.end());
    expectedLog.insert(expectedLog.end(),
                       {"version    09 9c 01 02 09 9c 01 38 09 9c 02", "handshake yes"});
    EXPECT_EQ(script->calls, expectedCalls);
    EXPECT_EQ(spoken(), expectedLog);
    EXPECT_EQ(pauses.size(), 102U);
}

TEST_F(HandshakeTest, ReplyWithAnotherFirstByteIsRepeatedToo) {
    connect();
    controller.wrongReplies = {{0x00, 0x00, 0x00, 0x00}, {0x0B, 0x90, 0x00, 0x00}};
    handshakeUntilAnswered();
    EXPECT_EQ(spoken(), (Lines{"开始握手协议", "do HandshakeOperation", "do HandshakeOperation",
                               "version    09 9c 01 02 09 9c 01 38 09 9c 02", "handshake yes"}));
}

} // namespace
} // namespace scenewright
