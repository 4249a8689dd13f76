#include "tests/support/RunProgram.h"
#include "tests/usb/FailingAllocation.h"
#include "tests/usb/FakeLibusb.h"
#include "usb/LibusbHost.h"
#include "usb/Shutdown.h"
#include "usb/Transport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <future>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

using testing::FailingAllocation;
using testing::fakeLibusb;
using testing::Holder;
using Bytes = std::vector<std::uint8_t>;
using Texts = std::vector<std::string>;

ResultCode codeOf(const UsbResult<void>& result) {
    return result ? kResultSuccess : result.error().code;
}

std::unique_ptr<UsbInterface> take() {
    return makeLibusbHost()->devices({}).value().at(0)->interface(1).value();
}

std::unique_ptr<UsbInterface> opened() {
    auto interface = take();
    EXPECT_TRUE(interface->open());
    fakeLibusb().calls.clear();
    return interface;
}

ResultCode write(UsbInterface& interface, const Bytes& bytes, std::uint8_t pipe = 2) {
    return codeOf(interface.write(pipe, bytes));
}

// {result, what was delivered}
std::pair<ResultCode, Bytes> read(UsbInterface& interface, std::uint8_t pipe = 1) {
    std::array<std::uint8_t, 63> room{};
    const UsbRead moved = interface.read(pipe, room);
    return {moved.code, Bytes(room.begin(), room.begin() + static_cast<int>(moved.delivered))};
}

using Moved = std::pair<ResultCode, Bytes>;

class LibusbInterfaceTest : public ::testing::Test {
protected:
    void SetUp() override { fakeLibusb().reset(); }
    void TearDown() override {
        EXPECT_TRUE(fakeLibusb().hasNothingOut());
        EXPECT_EQ(fakeLibusb().misuses, Texts{});
    }

    static bool driversAreBack() {
        return fakeLibusb().holders ==
               std::map<int, Holder>{{0, Holder::Driver}, {1, Holder::Driver}};
    }
};

TEST_F(LibusbInterfaceTest, OpeningDetachesTheUpperInterfaceFirstAndClaimsOnlyThat) {
    const auto interface = take();
    EXPECT_EQ(fakeLibusb().calls, Texts{});
    EXPECT_TRUE(interface->open());
    EXPECT_EQ(fakeLibusb().takeCalls(), (Texts{"open", "detach 1", "detach 0", "claim 1"}));
    EXPECT_TRUE(interface->open());
    EXPECT_EQ(fakeLibusb().calls, Texts{}) << "open already";
}

TEST_F(LibusbInterfaceTest, ReleasingOrDestroyingGivesClaimThenDriverThenDeviceBack) {
    for (const bool isReleased : {true, false}) {
        auto interface = opened();
        EXPECT_TRUE(!isReleased || interface->release());
        interface.reset();
        EXPECT_EQ(fakeLibusb().calls, (Texts{"release 1", "attach 0", "close"}));
        EXPECT_TRUE(driversAreBack());
    }
}

TEST_F(LibusbInterfaceTest, ClosingKeepsTheDriversAwayForTheNextOpening) {
    const auto interface = opened();
    EXPECT_TRUE(interface->close());
    EXPECT_EQ(interface->close().error(), (UsbError{UsbStep::Close, kResultNotOpen}));
    EXPECT_TRUE(interface->open());
    EXPECT_EQ(fakeLibusb().calls, (Texts{"release 1", "claim 1"}));
}

TEST_F(LibusbInterfaceTest, AnInterfaceOfTheSameProcessIsBusyUntilTheFirstIsClosed) {
    const auto first = opened();
    const auto second = take();
    EXPECT_EQ(second->open().error(), (UsbError{UsbStep::Open, kResultBusy}));
    first->close();
    EXPECT_TRUE(second->open());
}

// What fails while an interface is opened, whoever held both before, and what is called then.
struct OpenFailure {
    std::string call;
    int error;
    std::vector<Holder> holders;
    ResultCode code;
    Texts calls;
};

TEST_F(LibusbInterfaceTest, AnOpeningThatFailsGivesBackWhatItTook) {
    const std::vector<Holder> bound{Holder::Driver, Holder::Driver};
    const std::vector<OpenFailure> rows{
        {"open", -3, bound, kResultAccess, {"open"}},
        {"detach 1", -1, bound, kResultInputOutput, {"open", "detach 1", "close"}},
        {"detach 0",
         -1,
         bound,
         kResultInputOutput,
         {"open", "detach 1", "detach 0", "detach 0", "attach 1", "detach 0", "attach 1", "close"}},
        {"claim 1",
         -1,
         bound,
         kResultInputOutput,
         {"open", "detach 1", "detach 0", "claim 1", "attach 0", "close"}},
        {"", 0, {Holder::Nobody, Holder::OtherProgram}, kResultBusy, {"open", "claim 1", "close"}}};
    for (const OpenFailure& row : rows) {
        SCOPED_TRACE(row.call);
        fakeLibusb().reset();
        fakeLibusb().holders = {{0, row.holders[0]}, {1, row.holders[1]}};
        fakeLibusb().failures = {{row.call, row.error}};
        const auto interface = take();
        EXPECT_EQ(interface->open().error(), (UsbError{UsbStep::Open, row.code}));
        EXPECT_EQ(fakeLibusb().calls, row.calls);
        EXPECT_EQ(fakeLibusb().handles, 0);
        EXPECT_EQ(fakeLibusb().holders[0], row.holders[0]);
    }
}

TEST_F(LibusbInterfaceTest, DriversThatAKilledProgramLeftUnboundComeBackAtTheEnd) {
    for (const Holder lower : {Holder::Nobody, Holder::Driver}) {
        fakeLibusb().holders = {{0, lower}, {1, Holder::Nobody}};
        const auto interface = opened();
        EXPECT_TRUE(interface->release());
        EXPECT_EQ(fakeLibusb().calls, (Texts{"release 1", "attach 0", "close"}));
        EXPECT_TRUE(driversAreBack());
    }
}

TEST_F(LibusbInterfaceTest, ADriverThatCameBackMeanwhileLeavesOnceMore) {
    auto interface = opened();
    interface->close();
    fakeLibusb().holders[1] = Holder::Driver;
    EXPECT_TRUE(interface->open());
    EXPECT_EQ(fakeLibusb().takeCalls(), (Texts{"release 1", "detach 1", "claim 1"}));
    fakeLibusb().holders[0] = Holder::Driver; // probed while the upper one was claimed
    EXPECT_TRUE(interface->release());
    EXPECT_EQ(fakeLibusb().calls, (Texts{"release 1", "detach 0", "attach 0", "close"}));
    EXPECT_TRUE(driversAreBack());
}

TEST_F(LibusbInterfaceTest, OnlyAudioInterfacesAndTheOneThatIsTakenLoseTheirDrivers) {
    fakeLibusb().devices[0].interfaces.push_back({.number = 2, .interfaceClass = 3});
    fakeLibusb().holders[2] = Holder::Driver;
    const auto interface = opened();
    EXPECT_EQ(fakeLibusb().holders[2], Holder::Driver);
    interface->release();
    EXPECT_EQ(fakeLibusb().calls, (Texts{"release 1", "attach 0", "close"}));
}

TEST_F(LibusbInterfaceTest, AnInterfaceThatIsNotAudioAndHadNoDriverGetsNone) {
    for (auto& interface : fakeLibusb().devices[0].interfaces)
        interface.interfaceClass = 255;
    fakeLibusb().holders.clear();
    const auto interface = opened();
    EXPECT_TRUE(interface->release());
    EXPECT_EQ(fakeLibusb().calls, (Texts{"release 1", "close"}));
}

TEST_F(LibusbInterfaceTest, ADriverThatStaysAwayIsToldByTheRelease) {
    const auto interface = opened();
    fakeLibusb().failures = {{"attach 0", -5}, {"attach 1", -5}};
    EXPECT_EQ(interface->release().error(), (UsbError{UsbStep::Release, kResultNoDriver}));
    EXPECT_EQ(fakeLibusb().calls,
              (Texts{"release 1", "attach 0", "attach 1", "attach 0", "attach 1", "close"}))
        << "tried once more";
}

TEST_F(LibusbInterfaceTest, AnUnpluggedDeviceIsReleasedWithoutAnError) {
    const auto interface = opened();
    fakeLibusb().isPlugged = false;
    EXPECT_EQ(write(*interface, {1}), kResultNoDevice);
    EXPECT_TRUE(interface->release());
    EXPECT_EQ(fakeLibusb().calls, (Texts{"write 02: 01, 0 ms", "release 1", "close"}));
}

TEST_F(LibusbInterfaceTest, PipesAreTheEndpointsInTheirOrder) {
    fakeLibusb().devices[0].interfaces[1].endpoints = {{0x81, 2, 64, 0}, {0x0F, 0x07, 0x1A00, 5}};
    const auto interface = take();
    EXPECT_EQ(interface->endpointCount().value(), 2);
    const auto properties = [&](std::uint8_t pipe) {
        const PipeProperties found = interface->pipeProperties(pipe).value();
        return std::array<int, 5>{found.direction, found.number, found.transferType,
                                  found.maxPacketSize, found.interval};
    };
    EXPECT_EQ(properties(1), (std::array<int, 5>{1, 1, 2, 64, 0}));
    EXPECT_EQ(properties(2), (std::array<int, 5>{0, 15, 3, 512, 5}));
    for (const std::uint8_t none : Bytes{0, 3})
        EXPECT_EQ(interface->pipeProperties(none).error(),
                  (UsbError{UsbStep::PipeProperties, kResultNotFound}));
}

TEST_F(LibusbInterfaceTest, ATransferGoesToItsEndpointWithoutATimeLimit) {
    const auto interface = opened();
    fakeLibusb().events = {{}, {.delivers = {7, 8, 9}}};
    EXPECT_EQ(write(*interface, {0x09, 0x9C, 0x01, 0x02}), kResultSuccess);
    EXPECT_EQ(read(*interface), (Moved{kResultSuccess, {7, 8, 9}}));
    EXPECT_EQ(fakeLibusb().calls, (Texts{"write 02: 09 9c 01 02, 0 ms", "events",
                                         "read 81: 63 bytes, 0 ms", "events"}));
}

TEST_F(LibusbInterfaceTest, TransfersThatCannotBeAreRefusedBeforeTheLibraryHasThem) {
    const auto closed = take();
    EXPECT_EQ(write(*closed, {1}), kResultNotOpen);
    EXPECT_EQ(read(*closed), (Moved{kResultNotOpen, {}}));
    const auto interface = opened();
    for (const std::uint8_t none : Bytes{0, 3}) {
        EXPECT_EQ(write(*interface, {1}, none), kResultNotFound);
        EXPECT_EQ(read(*interface, none), (Moved{kResultNotFound, {}}));
    }
    EXPECT_EQ(write(*interface, {1}, 1), kResultInvalid) << "the other direction";
    EXPECT_EQ(read(*interface, 2), (Moved{kResultInvalid, {}}));
    fakeLibusb().failures = {{"alloc", -11}};
    EXPECT_EQ(write(*interface, {1}), kResultNoMemory);
    EXPECT_EQ(fakeLibusb().calls, Texts{});
}

TEST_F(LibusbInterfaceTest, ATransferThatFailsTellsWhyAndHowFarItCame) {
    const auto interface = opened();
    fakeLibusb().events = {{.moved = 3},
                           {.status = 5, .moved = 2},
                           {.status = 6, .delivers = {1, 2}},
                           {.completes = false},
                           {.result = -10, .completes = false},
                           {.delivers = {5}}};
    EXPECT_EQ(write(*interface, {1, 2, 3, 4}), kResultShort);
    EXPECT_EQ(write(*interface, {1, 2, 3, 4}), kResultNoDevice);
    EXPECT_EQ(read(*interface), (Moved{kResultOverflow, {1, 2}}));
    EXPECT_EQ(read(*interface), (Moved{kResultSuccess, {5}})) << "after three rounds";
    fakeLibusb().failures = {{"submit", -4}};
    EXPECT_EQ(write(*interface, {1}), kResultNoDevice);
    EXPECT_EQ(std::ranges::count(fakeLibusb().calls, "cancel"), 0);
}

TEST_F(LibusbInterfaceTest, AStalledEndpointIsClearedOnceBeforeTheClaimIsGivenUp) {
    const auto interface = opened();
    fakeLibusb().events = {{.status = 4}, {.status = 4}, {.status = 4}};
    EXPECT_EQ(read(*interface).first, kResultStall);
    EXPECT_EQ(read(*interface).first, kResultStall);
    EXPECT_EQ(write(*interface, {1}), kResultStall);
    fakeLibusb().failures = {{"clear 81", -99}};
    fakeLibusb().calls.clear();
    interface->close();
    EXPECT_EQ(fakeLibusb().takeCalls(), (Texts{"clear 81", "clear 02", "release 1"}));
    interface->open();
    fakeLibusb().calls.clear();
    interface->release();
    EXPECT_EQ(fakeLibusb().calls, (Texts{"release 1", "attach 0", "close"})) << "cleared already";
}

TEST_F(LibusbInterfaceTest, EventsThatFailOnceCancelTheTransferAndNoLaterOne) {
    const auto interface = opened();
    fakeLibusb().events = {{.result = -1, .completes = false}, {.delivers = {5}}, {}};
    EXPECT_EQ(read(*interface), (Moved{kResultCancelled, {}}));
    EXPECT_EQ(write(*interface, {1}), kResultSuccess);
}

TEST_F(LibusbInterfaceTest, EventsThatFailForGoodEndTransfersWithTheirErrorAndGiveAllBack) {
    const auto interface = opened();
    fakeLibusb().eventsResult = -1;
    EXPECT_EQ(read(*interface), (Moved{kResultInputOutput, {}}));
    EXPECT_EQ(std::ranges::count(fakeLibusb().takeCalls(), "events"), 5);
    EXPECT_EQ(read(*interface), (Moved{kResultInputOutput, {}}));
    EXPECT_EQ(write(*interface, {1}), kResultInputOutput);
    EXPECT_EQ(fakeLibusb().calls, Texts{}) << "at once";
    EXPECT_EQ(fakeLibusb().transfers, 1) << "the library still has it";
    EXPECT_TRUE(interface->close());
    EXPECT_TRUE(interface->open());
    EXPECT_EQ(fakeLibusb().transfers, 1);
    EXPECT_TRUE(interface->release());
    EXPECT_EQ(fakeLibusb().transfers, 0);
    EXPECT_TRUE(driversAreBack());
}

TEST_F(LibusbInterfaceTest, ATransferThatCouldNotBeEndedOutlivesItsHandle) {
    auto interface = opened();
    fakeLibusb().eventsResult = -1;
    EXPECT_EQ(write(*interface, {1}), kResultInputOutput);
    interface.reset();
    EXPECT_TRUE(driversAreBack());
}

// In a process of its own, that a signal ends while its events fail and it goes on regardless: it
// tells what was called from the signal on through a pipe, a line each.
TEST_F(LibusbInterfaceTest, ASignalGivesAllBackWhileEventsFailForGood) {
    const testing::ProgramRun run = testing::runForked([](int output) -> int {
        const Shutdown shutdown;
        Transport::instance().use(nullptr);
        const auto handle = std::make_shared<InterfaceHandle>(take());
        handle->open();
        Transport::instance().setInterface(handle);
        fakeLibusb().eventsResult = -99;
        fakeLibusb().whenCalled = [&](const std::string& call) {
            const std::string line = call + "\n";
            static_cast<void>(!::write(output, line.data(), line.size()));
        };
        std::array<std::uint8_t, 63> room{};
        for (int reads = 0;; ++reads) {
            static_cast<void>(handle->read(1, room));
            if (reads == 10)
                kill(getpid(), SIGTERM);
        }
    });
    EXPECT_EQ(run.exitCode, 128 + SIGTERM);
    std::string wanted = "read 81: 63 bytes, 0 ms\n";
    for (int round = 0; round < 5; ++round)
        wanted += "events\ncancel\n";
    EXPECT_EQ(run.output, wanted + "release 1\nattach 0\nclose\n");
}

// A close, a release of another thread, and a write beside a read that waits.
class WaitingRead : public LibusbInterfaceTest {
protected:
    // Returns when it waits.
    static std::future<Moved> start(UsbInterface& interface) {
        std::promise<void> waits;
        fakeLibusb().readsWait = true;
        fakeLibusb().whenReadWaits = [&] { waits.set_value(); };
        auto result = std::async(std::launch::async, [&] { return read(interface); });
        waits.get_future().wait();
        return result;
    }
};

TEST_F(WaitingRead, IsCancelledByACloseAndAnythingAfterIsRefusedUntilTheNextOpening) {
    const auto interface = opened();
    auto waiting = start(*interface);
    EXPECT_TRUE(interface->close());
    EXPECT_EQ(fakeLibusb().calls,
              (Texts{"read 81: 63 bytes, 0 ms", "events", "cancel", "release 1"}))
        << "the read has ended when the close returns";
    EXPECT_EQ(write(*interface, {1}), kResultNotOpen);
    EXPECT_EQ(waiting.get(), (Moved{kResultCancelled, {}}));
    EXPECT_TRUE(interface->open());
    EXPECT_EQ(write(*interface, {1}), kResultSuccess);
}

TEST_F(WaitingRead, AnOpeningBesideTheCloseThatEndsItClaimsOnceThatHasReleased) {
    const auto interface = opened();
    std::promise<void> waits;
    std::promise<void> isCancelled;
    std::future<UsbResult<void>> again;
    fakeLibusb().whenCalled = [&](const std::string& call) {
        if (call == "cancel")
            isCancelled.set_value();
    };
    fakeLibusb().events.push_back({.status = 3, .delivers = {}, .meanwhile = [&] { // cancelled
                                       waits.set_value();
                                       isCancelled.get_future().wait();
                                       again = std::async(std::launch::async,
                                                          [&] { return interface->open(); });
                                       again.wait_for(std::chrono::milliseconds(20)); // it waits
                                   }});
    auto waiting = std::async(std::launch::async, [&] { return read(*interface); });
    waits.get_future().wait();
    EXPECT_TRUE(interface->close());
    EXPECT_EQ(waiting.get(), (Moved{kResultCancelled, {}}));
    EXPECT_TRUE(again.get());
    EXPECT_EQ(fakeLibusb().calls,
              (Texts{"read 81: 63 bytes, 0 ms", "events", "cancel", "release 1", "claim 1"}));
    EXPECT_TRUE(interface->release());
    EXPECT_TRUE(driversAreBack());
}

TEST_F(WaitingRead, IsNotWaitedForByAWrite) {
    const auto interface = opened();
    auto waiting = start(*interface);
    EXPECT_EQ(write(*interface, {1}), kResultSuccess);
    EXPECT_TRUE(interface->close());
    EXPECT_EQ(waiting.get(), (Moved{kResultCancelled, {}}));
}

// All that can be done with an interface; the events fail for good at the end if they are to.
void useAll(bool eventsFail) {
    const auto interface = take();
    if (!interface->open())
        return;
    write(*interface, {1, 2, 3, 4});
    read(*interface);
    interface->close();
    if (!interface->open())
        return;
    fakeLibusb().eventsResult = eventsFail ? -1 : 0;
    read(*interface);
    write(*interface, {1});
    interface->release();
}

TEST_F(LibusbInterfaceTest, WithoutMemoryAtAnyPointEverythingIsGivenBack) {
    for (const bool eventsFail : {false, true}) {
        int number = 0;
        for (bool hasFailed = true; hasFailed; ++number) {
            SCOPED_TRACE(number);
            fakeLibusb().reset();
            {
                const FailingAllocation failing(number);
                try {
                    useAll(eventsFail);
                } catch (const std::bad_alloc&) {
                    SUCCEED();
                }
                hasFailed = FailingAllocation::hasFailed();
            }
            ASSERT_TRUE(fakeLibusb().hasNothingOut());
            ASSERT_EQ(fakeLibusb().misuses, Texts{});
            ASSERT_TRUE(driversAreBack());
        }
        EXPECT_GT(number, 20);
    }
}

} // namespace
} // namespace scenewright
