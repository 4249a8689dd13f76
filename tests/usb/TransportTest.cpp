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

TEST_F(TransportState, StatsIsCleanWhileEverythingSucceeds) {
    connect();
    script->replies.push_back({{1, 2, 3, 4}});
    write(1);
    InterfaceAction::ReadFromDevice();
    const TransferStats stats = transport().stats();
    EXPECT_TRUE(stats.isClean());
    EXPECT_EQ(stats.writes, 1U);
    EXPECT_EQ(stats.reads, 1U);
    EXPECT_EQ(stats.versionReads, 0U);
    EXPECT_FALSE(stats.first.has_value());
}

TEST_F(TransportState, FailedWriteAndAllThatFollowItAreCounted) {
    connect();
    script->answer("write", {kResultSuccess, kResultSuccess, kResultStall});
    for (std::uint8_t byte = 0; byte < 5; ++byte)
        write(byte);
    const TransferStats stats = transport().stats();
    EXPECT_EQ(stats.writes, 5U);
    EXPECT_EQ(stats.failedWrites, 3U);
    ASSERT_TRUE(stats.first.has_value());
    EXPECT_TRUE(stats.first->isWrite);
    EXPECT_EQ(stats.first->code, kResultStall);
    EXPECT_EQ(stats.first->transfer, 2U);
    EXPECT_FALSE(stats.isClean());
}

TEST_F(TransportState, ReadOfLessThanOnePacketCountsAsFailed) {
    connect();
    script->replies = {{{1, 2, 3, 4}}, {{1, 2, 3}}, {{}}};
    for (int read = 0; read < 3; ++read)
        InterfaceAction::ReadDataFromDevice();
    const TransferStats stats = transport().stats();
    EXPECT_EQ(stats.reads, 3U);
    EXPECT_EQ(stats.failedReads, 2U);
    ASSERT_TRUE(stats.first.has_value());
    EXPECT_FALSE(stats.first->isWrite);
    EXPECT_EQ(stats.first->code, kResultSuccess);
    EXPECT_EQ(stats.first->transfer, 1U);
}

TEST_F(TransportState, ReadThatErredCountsAsFailedWhateverItDelivered) {
    connect();
    script->replies = {{{1, 2, 3, 4}, kResultOverflow}};
    InterfaceAction::ReadDataFromDevice();
    ASSERT_TRUE(transport().stats().first.has_value());
    EXPECT_EQ(transport().stats().first->code, kResultOverflow);
}

TEST_F(TransportState, FirstFailureTellsHowManyVersionReadsCameBefore) {
    connect();
    script->replies = {{{1, 2, 3, 4}}, {{1, 2, 3, 4}}, {{1, 2, 3, 4}}, {{1}}, {{}}};
    InterfaceAction::ReadVersionFromDevice();
    InterfaceAction::ReadVersionFromDevice();
    for (int read = 0; read < 3; ++read)
        InterfaceAction::ReadDataFromDevice();
    InterfaceAction::ReadVersionFromDevice();
    const TransferStats stats = transport().stats();
    ASSERT_TRUE(stats.first.has_value());
    EXPECT_EQ(stats.first->transfer, 3U);
    EXPECT_EQ(stats.first->versionReads, 2U);
    EXPECT_EQ(stats.versionReads, 3U);
}

TEST_F(TransportState, FindDeviceStartsTheStatsOver) {
    connect();
    script->answer("write", {kResultStall});
    write(1);
    ASSERT_FALSE(transport().stats().isClean());
    ASSERT_TRUE(InterfaceAction::FindDevice());
    EXPECT_TRUE(transport().stats().isClean());
    EXPECT_EQ(transport().stats().writes, 0U);
    EXPECT_FALSE(transport().stats().first.has_value());
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
    EXPECT_EQ(script->calls, (Texts{"close one/1", "release one/1"}));
    EXPECT_EQ(transport().interface(), nullptr);
    EXPECT_EQ(transport().device(), nullptr);
    EXPECT_EQ(transport().buffer[0], 0);
    EXPECT_EQ(transport().stats().reads, 0U);
}

TEST_F(TransportState, ShutDownGivesUpAndRefusesEverythingAfter) {
    connect();
    transport().shutDown();
    EXPECT_TRUE(transport().isShutDown());
    EXPECT_EQ(script->calls, (Texts{"close one/1", "release one/1"}));
    forget();
    write(1);
    EXPECT_FALSE(InterfaceAction::CreateInterface());
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(script->callsOf({"open", "write", "canMatch", "devices"}), Texts{});
}

TEST_F(TransportState, ShutDownTwiceAndWithoutAnythingHeldIsHarmless) {
    transport().shutDown();
    transport().shutDown();
    transport().use(nullptr);
    transport().shutDown();
    EXPECT_EQ(script->calls, Texts{});
}

TEST_F(TransportState, ChoosingAHostUndoesTheEnd) {
    transport().shutDown();
    transport().use(makeScriptedHost(script), [](auto) {});
    connect();
    EXPECT_EQ(script->claimed, Texts{"one/1"});
}

TEST_F(TransportState, HandleThatIsMadeWhileTheEndComesIsGivenUpUnopened) {
    ASSERT_TRUE(InterfaceAction::FindDevice());
    script->meanwhile["interface"] = [] { transport().shutDown(); };
    forget();
    EXPECT_EQ(InterfaceAction::FindInterfacesWithDevice(*transport().device()), nullptr);
    EXPECT_EQ(script->callsOf({"open", "release"}), Texts{"release one/1"});
    EXPECT_TRUE(transport().interface()->isStale());
}

TEST_F(TransportState, ShutDownEndsAReadThatWaitsForEver) {
    connect();
    std::promise<void> isWaiting;
    script->readsWait = true;
    script->meanwhile["read"] = [&] { isWaiting.set_value(); };
    auto read = std::async(std::launch::async, [] { InterfaceAction::ReadFromDevice(); });
    isWaiting.get_future().wait();
    transport().shutDown();
    read.get();
    EXPECT_TRUE(transport().interface()->isStale());
    EXPECT_EQ(script->calls.front(), "read one/1 1 63");
    EXPECT_EQ(script->calls.back(), "release one/1");
    ASSERT_TRUE(transport().stats().first.has_value());
    EXPECT_EQ(transport().stats().first->code, kResultCancelled);
}

} // namespace
} // namespace scenewright::testing
