#include "usb/Transport.h"

#include "tests/usb/ScriptedHost.h"
#include "tests/usb/TransportFixture.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <deque>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
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

using Texts = std::vector<std::string>;

class InterfaceHandleTest : public ::testing::Test {
protected:
    // An interface that the script stands behind.
    std::unique_ptr<UsbInterface> take() {
        auto taken = makeScriptedHost(script)->devices({})->at(0)->interface(0);
        script->calls.clear();
        return std::move(taken).value();
    }
    std::unique_ptr<InterfaceHandle> opened() {
        auto handle = std::make_unique<InterfaceHandle>(take());
        EXPECT_TRUE(handle->open());
        script->calls.clear();
        return handle;
    }
    // A read in a thread of its own, which waits when this returns.
    std::future<UsbRead> waitingRead(InterfaceHandle& handle) {
        script->readsWait = true;
        std::promise<void> isWaiting;
        script->meanwhile["read"] = [&] { isWaiting.set_value(); };
        auto read = std::async(std::launch::async, [&handle] {
            std::array<std::uint8_t, 4> room{};
            return handle.read(1, room);
        });
        isWaiting.get_future().wait();
        return read;
    }

    std::shared_ptr<HostScript> script = std::make_shared<HostScript>();
};

TEST_F(InterfaceHandleTest, StaleHandleGivesItsCodeFromEveryOperation) {
    InterfaceHandle handle(take());
    EXPECT_FALSE(handle.isStale());
    EXPECT_TRUE(handle.release());
    script->calls.clear();

    EXPECT_TRUE(handle.isStale());
    std::array<std::uint8_t, 4> room{};
    EXPECT_EQ(handle.open().error(), (UsbError{UsbStep::Open, kResultGivenUp}));
    EXPECT_EQ(handle.close().error(), (UsbError{UsbStep::Close, kResultGivenUp}));
    EXPECT_EQ(handle.release().error(), (UsbError{UsbStep::Release, kResultGivenUp}));
    EXPECT_EQ(handle.endpointCount().error(), (UsbError{UsbStep::EndpointCount, kResultGivenUp}));
    EXPECT_EQ(handle.pipeProperties(1).error(),
              (UsbError{UsbStep::PipeProperties, kResultGivenUp}));
    EXPECT_EQ(handle.write(2, room).error(), (UsbError{UsbStep::Write, kResultGivenUp}));
    EXPECT_EQ(handle.read(1, room).code, kResultGivenUp);
    EXPECT_EQ(handle.read(1, room).delivered, 0U);
    EXPECT_EQ(handle.interfaceClass().code, 0);
    EXPECT_EQ(handle.interfaceClass().subClass, 0);
    handle.closeAndRelease();
    EXPECT_EQ(script->calls, Texts{});
}

TEST_F(InterfaceHandleTest, ItsEndGivesBackWhatItHolds) {
    using Use = std::pair<void (*)(InterfaceHandle&), Texts>;
    const std::vector<Use> uses{
        {[](InterfaceHandle&) {}, {"close one/0", "release one/0"}},
        {[](InterfaceHandle& handle) { handle.close(); }, {"close one/0", "release one/0"}},
        {[](InterfaceHandle& handle) { handle.release(); }, {"release one/0"}}};
    for (const auto& [use, calls] : uses) {
        use(*opened());
        EXPECT_EQ(script->calls, calls);
        EXPECT_EQ(script->claimed, Texts{});
    }
    static_cast<void>(InterfaceHandle(take()));
    EXPECT_EQ(script->calls, Texts{"release one/0"}) << "never open, so nothing to close";
}

TEST_F(InterfaceHandleTest, SecondOpeningThatFailsLeavesItOpen) {
    const auto handle = opened();
    script->answer("open", {kResultBusy});
    EXPECT_EQ(handle->open().error().code, kResultBusy);
    script->calls.clear();
    handle->closeAndRelease();
    EXPECT_EQ(script->calls, (Texts{"close one/0", "release one/0"}));
}

TEST_F(InterfaceHandleTest, FailuresOfGivingUpLeaveAStaleHandleWithTheReleasesCode) {
    const auto handle = opened();
    EXPECT_EQ(handle->releaseCode(), kResultSuccess);
    script->answer("close", {kResultNoDevice});
    script->answer("release", {kResultNoDriver});
    handle->closeAndRelease();
    EXPECT_TRUE(handle->isStale());
    EXPECT_EQ(handle->releaseCode(), kResultNoDriver);
}

TEST_F(InterfaceHandleTest, AStepThatThrowsLeavesAHandleThatCanBeGivenUp) {
    const auto handle = opened();
    script->raise("write");
    EXPECT_THROW(static_cast<void>(handle->write(2, {})), std::runtime_error);
    script->raise("close");
    script->raise("release");
    handle->closeAndRelease();
    handle->closeAndRelease();
    EXPECT_TRUE(handle->isStale());
    EXPECT_EQ(script->claimed, Texts{});
}

TEST_F(InterfaceHandleTest, CloseReleaseAndGivingUpEndAReadThatWaits) {
    using ProgramEnd = std::pair<void (*)(InterfaceHandle&), Texts>;
    const std::vector<ProgramEnd> endings{
        {[](InterfaceHandle& handle) { handle.close(); }, {"read one/0 1 4", "close one/0"}},
        {[](InterfaceHandle& handle) { handle.release(); },
         {"read one/0 1 4", "close one/0", "release one/0"}},
        {[](InterfaceHandle& handle) { handle.closeAndRelease(); },
         {"read one/0 1 4", "close one/0", "release one/0"}}};
    for (const auto& [end, calls] : endings) {
        const auto handle = opened();
        auto read = waitingRead(*handle);
        end(*handle);
        EXPECT_EQ(read.get().code, kResultCancelled);
        EXPECT_EQ(script->calls, calls);
    }
}

// Whoever ends the program releases too, and ends it once that returns.
TEST_F(InterfaceHandleTest, ASecondReleaseWaitsForTheFirstToEnd) {
    InterfaceHandle handle(take());
    std::promise<void> isReleasing;
    std::promise<void> mayEnd;
    script->meanwhile["release"] = [&] {
        isReleasing.set_value();
        mayEnd.get_future().wait();
    };
    auto first = std::async(std::launch::async, [&] { return handle.release(); });
    isReleasing.get_future().wait();
    auto second = std::async(std::launch::async, [&] { handle.closeAndRelease(); });
    EXPECT_EQ(second.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    mayEnd.set_value();
    EXPECT_TRUE(first.get());
    second.get();
    EXPECT_EQ(script->calls, Texts{"release one/0"});
}

TEST_F(InterfaceHandleTest, AWriteDoesNotWaitForAReadThatWaits) {
    const auto handle = opened();
    auto read = waitingRead(*handle);
    EXPECT_TRUE(handle->write(2, {}));
    EXPECT_EQ(script->calls, (Texts{"read one/0 1 4", "write one/0 2"}));
    handle->close();
    EXPECT_EQ(read.get().code, kResultCancelled);
}

} // namespace
} // namespace scenewright::testing
