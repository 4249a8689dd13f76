#include "tests/usb/TransportFixture.h"

#include <cstdint>
#include <deque>
#include <future>
#include <utility>
#include <vector>

namespace scenewright::testing {
namespace {

class TransportState : public TransportFixture {
protected:
    static Transport& transport() { return Transport::instance(); }
    static void write(std::uint8_t byte) {
        InterfaceAction::WriteToDeviceWithChar_andSize(&byte, 1);
    }
};

using Failure = TransferStats::Failure;

struct Transfers {
    const char* name;
    std::vector<ResultCode> writes;
    std::deque<ScriptedReply> replies; // each is read
    TransferStats stats;
};

TEST_F(TransportState, WritesThatFailAndReadsOfLessThanAPacketAreCounted) {
    const std::vector<Transfers> rows{
        {"all succeed", {0}, {{{1, 2, 3, 4}}}, {.writes = 1, .reads = 1, .first = {}}},
        {"a write, and all that follow it",
         {0, 0, kResultStall, 0, 0},
         {},
         {.writes = 5, .failedWrites = 3, .first = Failure{true, kResultStall, 2, 0}}},
        {"less than a packet",
         {},
         {{{1, 2, 3, 4}}, {{1, 2, 3}}, {{}}},
         {.reads = 3, .failedReads = 2, .first = Failure{false, kResultSuccess, 1, 0}}},
        {"a packet with an error",
         {},
         {{{1, 2, 3, 4}, kResultOverflow}},
         {.reads = 1, .failedReads = 1, .first = Failure{false, kResultOverflow, 0, 0}}}};
    for (const Transfers& row : rows) {
        connect();
        script->answer("write", row.writes);
        script->replies = row.replies;
        for (std::size_t byte = 0; byte < row.writes.size(); ++byte)
            write(1);
        while (!script->replies.empty())
            InterfaceAction::ReadDataFromDevice();
        EXPECT_EQ(transport().stats(), row.stats) << row.name;
        EXPECT_EQ(transport().stats().isClean(), !row.stats.first) << row.name;
    }
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
    EXPECT_EQ(stats.first, (TransferStats::Failure{false, kResultSuccess, 3, 2}));
    EXPECT_EQ(stats.versionReads, 3U);
}

TEST_F(TransportState, FindDeviceStartsTheStatsOverAndForgetsWhyTheLastConnectionFailed) {
    connect();
    script->answer("write", {kResultStall});
    write(1);
    ASSERT_FALSE(transport().stats().isClean());
    ASSERT_TRUE(InterfaceAction::FindDevice());
    EXPECT_TRUE(transport().stats().isClean());
    EXPECT_EQ(transport().stats().writes, 0U);
    EXPECT_FALSE(transport().stats().first.has_value());
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

TEST_F(TransportState, ShutDownTwiceAndWithoutAnythingHeldIsHarmlessAndAHostUndoesIt) {
    transport().shutDown();
    transport().shutDown();
    transport().use(nullptr);
    transport().shutDown();
    EXPECT_EQ(script->calls, Texts{});
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
