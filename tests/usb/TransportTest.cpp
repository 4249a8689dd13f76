#include "tests/usb/TransportFixture.h"

#include <cstdint>
#include <future>

namespace scenewright::testing {
namespace {

class TransportState : public TransportFixture {
protected:
    static Transport& transport() { return Transport::instance(); }
    static void write(std::uint8_t byte) {
        InterfaceAction::WriteToDeviceWithChar_andSize(&byte, 1);
    }
};

TEST_F(TransportState, TallyIsCleanWhileEverythingSucceeds) {
    connect();
    script->replies.push_back({{1, 2, 3, 4}});
    write(1);
    InterfaceAction::ReadFromDevice();
    const TransferTally tally = transport().tally();
    EXPECT_TRUE(tally.isClean());
    EXPECT_EQ(tally.writes, 1U);
    EXPECT_EQ(tally.reads, 1U);
    EXPECT_EQ(tally.versionReads, 0U);
    EXPECT_FALSE(tally.first.has_value());
}

TEST_F(TransportState, FailedWriteAndAllThatFollowItAreCounted) {
    connect();
    script->answer("write", {kResultSuccess, kResultSuccess, kResultStall});
    for (std::uint8_t byte = 0; byte < 5; ++byte)
        write(byte);
    const TransferTally tally = transport().tally();
    EXPECT_EQ(tally.writes, 5U);
    EXPECT_EQ(tally.failedWrites, 3U);
    ASSERT_TRUE(tally.first.has_value());
    EXPECT_TRUE(tally.first->isWrite);
    EXPECT_EQ(tally.first->code, kResultStall);
    EXPECT_EQ(tally.first->transfer, 2U);
    EXPECT_FALSE(tally.isClean());
}

TEST_F(TransportState, ReadOfLessThanOnePacketCountsAsFailed) {
    connect();
    script->replies = {{{1, 2, 3, 4}}, {{1, 2, 3}}, {{}}};
    for (int read = 0; read < 3; ++read)
        InterfaceAction::ReadDataFromDevice();
    const TransferTally tally = transport().tally();
    EXPECT_EQ(tally.reads, 3U);
    EXPECT_EQ(tally.failedReads, 2U);
    ASSERT_TRUE(tally.first.has_value());
    EXPECT_FALSE(tally.first->isWrite);
    EXPECT_EQ(tally.first->code, kResultSuccess);
    EXPECT_EQ(tally.first->transfer, 1U);
}

TEST_F(TransportState, ReadThatErredCountsAsFailedWhateverItDelivered) {
    connect();
    script->replies = {{{1, 2, 3, 4}, kResultOverflow}};
    InterfaceAction::ReadDataFromDevice();
    ASSERT_TRUE(transport().tally().first.has_value());
    EXPECT_EQ(transport().tally().first->code, kResultOverflow);
}

TEST_F(TransportState, FirstFailureTellsHowManyVersionReadsCameBefore) {
    connect();
    script->replies = {{{1, 2, 3, 4}}, {{1, 2, 3, 4}}, {{1, 2, 3, 4}}, {{1}}, {{}}};
    InterfaceAction::ReadVersionFromDevice();
    InterfaceAction::ReadVersionFromDevice();
    for (int read = 0; read < 3; ++read)
        InterfaceAction::ReadDataFromDevice();
    InterfaceAction::ReadVersionFromDevice();
    const TransferTally tally = transport().tally();
    ASSERT_TRUE(tally.first.has_value());
    EXPECT_EQ(tally.first->transfer, 3U);
    EXPECT_EQ(tally.first->versionReads, 2U);
    EXPECT_EQ(tally.versionReads, 3U);
}

TEST_F(TransportState, FindDeviceStartsTheTallyOver) {
    connect();
    script->answer("write", {kResultStall});
    write(1);
    ASSERT_FALSE(transport().tally().isClean());
    ASSERT_TRUE(InterfaceAction::FindDevice());
    EXPECT_TRUE(transport().tally().isClean());
    EXPECT_EQ(transport().tally().writes, 0U);
    EXPECT_FALSE(transport().tally().first.has_value());
}

TEST_F(TransportState, FindDeviceForgetsWhyTheLastConnectionFailed) {
    script->answer("open", {kResultAccess});
    ASSERT_TRUE(InterfaceAction::FindDevice());
    ASSERT_FALSE(InterfaceAction::CreateInterface());
    EXPECT_EQ(transport().connectFailure, kResultAccess);
    ASSERT_TRUE(InterfaceAction::FindDevice());
    EXPECT_EQ(transport().connectFailure, kResultSuccess);
}

TEST_F(TransportState, ChoosingAHostGivesEverythingUpAndClearsTheBuffer) {
    connect();
    script->replies = {{{1, 2, 3, 4}}};
    InterfaceAction::ReadDataFromDevice();
    forget();
    transport().use(nullptr);
    EXPECT_EQ(script->calls, (Texts{"close one/1", "releaseInterface one/1", "releaseDevice one"}));
    EXPECT_EQ(transport().interface(), nullptr);
    EXPECT_EQ(transport().device(), nullptr);
    EXPECT_EQ(transport().buffer[0], 0);
    EXPECT_EQ(transport().tally().reads, 0U);
}

TEST_F(TransportState, ShutDownCancelsGivesUpAndRefusesEverythingAfter) {
    connect();
    transport().shutDown();
    EXPECT_EQ(script->calls, (Texts{"cancelTransfers", "close one/1", "releaseInterface one/1"}));
    forget();
    write(1);
    EXPECT_FALSE(InterfaceAction::CreateInterface());
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(script->callsOf({"open", "write", "serviceMatching"}), Texts{});
}

TEST_F(TransportState, ShutDownTwiceAndWithoutAnythingHeldIsHarmless) {
    transport().shutDown();
    transport().shutDown();
    EXPECT_EQ(script->calls, (Texts{"cancelTransfers", "cancelTransfers"}));
    transport().use(nullptr);
    transport().shutDown();
}

TEST_F(TransportState, HandleThatComesAfterTheEndIsGivenUpUnopened) {
    connect();
    const auto device = transport().device();
    transport().shutDown();
    forget();
    EXPECT_EQ(InterfaceAction::FindInterfacesWithDevice(*device), nullptr);
    EXPECT_EQ(script->callsOf({"open"}), Texts{});
}

TEST_F(TransportState, HandleThatIsMadeWhileTheEndComesIsGivenUpUnopened) {
    ASSERT_TRUE(InterfaceAction::FindDevice());
    script->meanwhile["queryInterface"] = [] { transport().shutDown(); };
    forget();
    EXPECT_EQ(InterfaceAction::FindInterfacesWithDevice(*transport().device()), nullptr);
    EXPECT_EQ(script->callsOf({"open", "releaseInterface"}), Texts{"releaseInterface one/1"});
    EXPECT_TRUE(transport().interface()->isStale());
}

TEST_F(TransportState, TheEndDuringASearchForDevicesEndsTheSearch) {
    script->meanwhile["nextService"] = [] { transport().shutDown(); };
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(script->callsOf({"makePlugIn"}), Texts{});
}

TEST_F(TransportState, ShutDownEndsAReadThatWaitsForEver) {
    connect();
    std::promise<void> isWaiting;
    std::promise<void> isCancelled;
    script->whenNoReply = [&] {
        isWaiting.set_value();
        isCancelled.get_future().wait();
        return kResultCancelled;
    };
    script->onCancel = [&] { isCancelled.set_value(); };
    auto read = std::async(std::launch::async, [] { InterfaceAction::ReadFromDevice(); });
    isWaiting.get_future().wait();
    transport().shutDown();
    read.get();
    EXPECT_TRUE(transport().interface()->isStale());
    ASSERT_TRUE(transport().tally().first.has_value());
    EXPECT_EQ(transport().tally().first->code, kResultCancelled);
}

} // namespace
} // namespace scenewright::testing
