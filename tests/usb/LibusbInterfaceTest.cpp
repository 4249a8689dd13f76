#include "usb/LibusbInterface.h"

#include "platform/Diagnostics.h"
#include "tests/usb/ScriptedBus.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

namespace scenewright {
namespace {

using testing::BusScript;
using testing::Holder;
using Calls = std::vector<std::string>;

class LibusbInterfaceTest : public ::testing::Test {
protected:
    void TearDown() override { Diagnostics::setLog({}); }

    std::unique_ptr<LibusbInterface> take() {
        std::vector<std::shared_ptr<LibusbDevice>> devices;
        EXPECT_EQ(testing::makeScriptedBus(bus)->devices(devices), kResultSuccess);
        return std::make_unique<LibusbInterface>(devices.at(0), bus->interfaces, 1);
    }
    void keepLog() {
        Diagnostics::setLog([this](std::string_view line) { log.emplace_back(line); });
    }

    std::shared_ptr<BusScript> bus = std::make_shared<BusScript>();
    Calls log;
    const std::vector<Holder> bothBound{Holder::Driver, Holder::Driver};
};

TEST_F(LibusbInterfaceTest, TakingItOpensNoDevice) {
    const auto interface = take();
    EXPECT_EQ(interface->interfaceClass(), 1);
    EXPECT_EQ(interface->interfaceSubClass(), 3);
    EXPECT_EQ(bus->calls, Calls{});
}

TEST_F(LibusbInterfaceTest, OpeningDetachesTheUpperInterfaceFirstAndClaimsOnlyThat) {
    const auto interface = take();
    EXPECT_EQ(interface->open(), kResultSuccess);
    EXPECT_EQ(bus->calls, (Calls{"open", "detach 1", "detach 0", "claim 1"}));
}

TEST_F(LibusbInterfaceTest, OpeningWhatIsOpenDoesNothing) {
    const auto interface = take();
    interface->open();
    bus->calls.clear();
    EXPECT_EQ(interface->open(), kResultSuccess);
    EXPECT_EQ(bus->calls, Calls{});
}

TEST_F(LibusbInterfaceTest, ReleasingGivesClaimThenDriverThenDeviceBack) {
    const auto interface = take();
    interface->open();
    bus->calls.clear();
    EXPECT_EQ(interface->release(), kResultSuccess);
    EXPECT_EQ(bus->calls, (Calls{"release 1", "attach 0", "close"}));
    EXPECT_EQ(bus->holders, bothBound);
}

TEST_F(LibusbInterfaceTest, DestroyingItReleasesIt) {
    auto interface = take();
    interface->open();
    interface.reset();
    EXPECT_EQ(bus->calls.back(), "close");
    EXPECT_EQ(bus->holders, bothBound);
}

TEST_F(LibusbInterfaceTest, ClosingKeepsTheDriversAwayForTheNextOpening) {
    const auto interface = take();
    interface->open();
    bus->calls.clear();
    EXPECT_EQ(interface->close(), kResultSuccess);
    EXPECT_EQ(interface->open(), kResultSuccess);
    EXPECT_EQ(bus->calls, (Calls{"release 1", "claim 1"}));
}

TEST_F(LibusbInterfaceTest, ClosingWhatIsNotOpenIsAnError) {
    EXPECT_EQ(take()->close(), kResultNotOpen);
}

TEST_F(LibusbInterfaceTest, ADriverThatCameBackBetweenTwoOpeningsLeavesAgain) {
    const auto interface = take();
    interface->open();
    interface->close();
    bus->holders = bothBound;
    EXPECT_EQ(interface->open(), kResultSuccess);
    interface->release();
    EXPECT_EQ(bus->holders, bothBound);
}

TEST_F(LibusbInterfaceTest, AMissingPermissionIsSaidAndNothingElseIsTried) {
    bus->failures["open"] = kResultAccess;
    const auto interface = take();
    EXPECT_EQ(interface->open(), kResultAccess);
    EXPECT_EQ(bus->calls, Calls{"open"});
}

TEST_F(LibusbInterfaceTest, ADriverThatWouldNotLeaveBringsTheOtherBack) {
    bus->failures["detach 0"] = kResultInputOutput;
    const auto interface = take();
    EXPECT_EQ(interface->open(), kResultInputOutput);
    EXPECT_EQ(bus->calls.back(), "close");
    EXPECT_EQ(std::ranges::count(bus->calls, "claim 1"), 0);
}

TEST_F(LibusbInterfaceTest, AClaimThatFailsBringsTheDriversBack) {
    bus->failures["claim 1"] = kResultInputOutput;
    const auto interface = take();
    EXPECT_EQ(interface->open(), kResultInputOutput);
    EXPECT_EQ(bus->holders, bothBound);
    EXPECT_EQ(bus->calls.back(), "close");
}

TEST_F(LibusbInterfaceTest, AnotherProgramsClaimIsBusyAndLeftAlone) {
    bus->holders = {Holder::Nobody, Holder::OtherProgram};
    const auto interface = take();
    EXPECT_EQ(interface->open(), kResultBusy);
    EXPECT_EQ(bus->calls, (Calls{"open", "claim 1", "close"}));
}

TEST_F(LibusbInterfaceTest, DriversThatAKilledProgramLeftUnboundComeBackAtTheEnd) {
    bus->holders = {Holder::Nobody, Holder::Nobody};
    const auto interface = take();
    EXPECT_EQ(interface->open(), kResultSuccess);
    interface->release();
    EXPECT_EQ(bus->calls, (Calls{"open", "claim 1", "release 1", "attach 0", "close"}));
    EXPECT_EQ(bus->holders, bothBound);
}

TEST_F(LibusbInterfaceTest, ADriverThatWasBoundToTheLowerInterfaceAloneTakesTheUpperAlongAgain) {
    bus->holders = {Holder::Driver, Holder::Nobody};
    const auto interface = take();
    EXPECT_EQ(interface->open(), kResultSuccess);
    bus->holders[0] = Holder::Driver; // probed by somebody while the upper one is claimed
    interface->release();
    EXPECT_EQ(bus->holders, bothBound);
}

TEST_F(LibusbInterfaceTest, AnInterfaceThatIsNotAudioAndHadNoDriverGetsNone) {
    bus->interfaces[0].interfaceClass = 255;
    bus->interfaces[1].interfaceClass = 255;
    bus->holders = {Holder::Nobody, Holder::Nobody};
    const auto interface = take();
    interface->open();
    interface->release();
    EXPECT_EQ(bus->calls, (Calls{"open", "claim 1", "release 1", "close"}));
}

TEST_F(LibusbInterfaceTest, AnInterfaceBesideTheAudioOnesKeepsItsDriver) {
    bus->interfaces.push_back({.number = 2, .interfaceClass = 3});
    bus->holders.push_back(Holder::Driver);
    const auto interface = take();
    interface->open();
    EXPECT_EQ(bus->calls, (Calls{"open", "detach 1", "detach 0", "claim 1"}));
}

TEST_F(LibusbInterfaceTest, ADriverThatStaysAwayIsLogged) {
    keepLog();
    bus->failures["attach 0"] = kResultNotFound;
    const auto interface = take();
    interface->open();
    interface->release();
    EXPECT_EQ(log, (Calls{"Interface 0 has no kernel driver again",
                          "Interface 1 has no kernel driver again"}));
}

TEST_F(LibusbInterfaceTest, AnUnpluggedDeviceIsReleasedWithoutComplaint) {
    keepLog();
    const auto interface = take();
    interface->open();
    bus->isPlugged = false;
    interface->release();
    EXPECT_EQ(log, Calls{});
    EXPECT_EQ(bus->calls.back(), "close");
}

TEST_F(LibusbInterfaceTest, AReleaseThatFailsIsLogged) {
    keepLog();
    const auto interface = take();
    interface->open();
    bus->failures["release 1"] = kResultOther;
    interface->close();
    EXPECT_EQ(log, Calls{"Unable to release interface 1 (5c570001)"});
}

TEST_F(LibusbInterfaceTest, ALogThatFailsKeepsNothingFromBeingGivenBack) {
    Diagnostics::setLog([](std::string_view) { throw std::runtime_error("no room"); });
    const auto interface = take();
    interface->open();
    bus->failures["release 1"] = kResultOther;
    bus->failures["attach 0"] = kResultNotFound;
    interface->release();
    EXPECT_EQ(bus->calls.back(), "close");
}

TEST_F(LibusbInterfaceTest, PipesAreTheEndpointsInTheirOrder) {
    const auto interface = take();
    std::uint8_t count = 0;
    EXPECT_EQ(interface->endpointCount(count), kResultSuccess);
    EXPECT_EQ(count, 2);
    PipeProperties pipe;
    EXPECT_EQ(interface->pipeProperties(1, pipe), kResultSuccess);
    EXPECT_EQ(pipe.direction, 1);
    EXPECT_EQ(pipe.number, 1);
    EXPECT_EQ(pipe.transferType, 2);
    EXPECT_EQ(pipe.maxPacketSize, 64);
    EXPECT_EQ(interface->pipeProperties(2, pipe), kResultSuccess);
    EXPECT_EQ(pipe.direction, 0);
    EXPECT_EQ(pipe.number, 2);
}

TEST_F(LibusbInterfaceTest, APipeThatDoesNotExistIsNotFound) {
    const auto interface = take();
    PipeProperties pipe;
    EXPECT_EQ(interface->pipeProperties(0, pipe), kResultNotFound);
    EXPECT_EQ(interface->pipeProperties(3, pipe), kResultNotFound);
    interface->open();
    EXPECT_EQ(interface->writePipe(3, {}), kResultNotFound);
    EXPECT_EQ(interface->writePipe(0, {}), kResultNotFound);
}

TEST_F(LibusbInterfaceTest, AWriteMovesAllBytesToTheSecondEndpoint) {
    const auto interface = take();
    interface->open();
    constexpr std::array<std::uint8_t, 4> bytes{0x09, 0x9C, 0x01, 0x02};
    EXPECT_EQ(interface->writePipe(2, bytes), kResultSuccess);
    EXPECT_EQ(bus->calls.back(), "write 02 4");
}

TEST_F(LibusbInterfaceTest, AWriteThatMovedAPartIsShort) {
    const auto interface = take();
    interface->open();
    bus->writesShortBy = 1;
    constexpr std::array<std::uint8_t, 4> bytes{};
    EXPECT_EQ(interface->writePipe(2, bytes), kResultShort);
}

TEST_F(LibusbInterfaceTest, AFailedWriteSaysWhy) {
    const auto interface = take();
    interface->open();
    bus->failures["write 02 4"] = kResultStall;
    constexpr std::array<std::uint8_t, 4> bytes{};
    EXPECT_EQ(interface->writePipe(2, bytes), kResultStall);
}

TEST_F(LibusbInterfaceTest, AReadGivesWhatOneTransferDelivered) {
    const auto interface = take();
    interface->open();
    bus->replies.push_back({{0x09, 0x90, 0x0A, 0x07}, kResultSuccess});
    std::array<std::uint8_t, 63> room{};
    std::size_t delivered = 99;
    EXPECT_EQ(interface->readPipe(1, room, delivered), kResultSuccess);
    EXPECT_EQ(delivered, 4U);
    EXPECT_EQ(room[2], 0x0A);
    EXPECT_EQ(bus->calls.back(), "read 81 63");
}

TEST_F(LibusbInterfaceTest, AStalledEndpointIsClearedOnceBeforeTheClaimIsGivenUp) {
    const auto interface = take();
    interface->open();
    std::array<std::uint8_t, 63> room{};
    std::size_t delivered = 0;
    bus->failures["read 81 63"] = kResultStall;
    EXPECT_EQ(interface->readPipe(1, room, delivered), kResultStall);
    EXPECT_EQ(interface->readPipe(1, room, delivered), kResultStall);
    bus->calls.clear();
    interface->close();
    EXPECT_EQ(bus->calls, (Calls{"clear 81", "release 1"}));
    interface->open();
    bus->calls.clear();
    interface->release();
    EXPECT_EQ(bus->calls, (Calls{"release 1", "attach 0", "close"})) << "cleared already";
}

TEST_F(LibusbInterfaceTest, AHaltThatCannotBeClearedKeepsNothingElseFromBeingGivenUp) {
    const auto interface = take();
    interface->open();
    const std::array<std::uint8_t, 4> packet{0x09, 0x9C, 0x01, 0x02};
    bus->failures["write 02 4"] = kResultStall;
    EXPECT_EQ(interface->writePipe(2, packet), kResultStall);
    bus->failures["clear 02"] = kResultOther;
    bus->calls.clear();
    interface->release();
    EXPECT_EQ(bus->calls, (Calls{"clear 02", "release 1", "attach 0", "close"}));
    EXPECT_EQ(bus->holders, bothBound);
}

TEST_F(LibusbInterfaceTest, AnOverlongTransferIsAnOverflow) {
    const auto interface = take();
    interface->open();
    bus->replies.push_back({{}, kResultOverflow});
    std::array<std::uint8_t, 63> room{};
    std::size_t delivered = 99;
    EXPECT_EQ(interface->readPipe(1, room, delivered), kResultOverflow);
    EXPECT_EQ(delivered, 0U);
}

TEST_F(LibusbInterfaceTest, APipeOfTheOtherDirectionIsInvalid) {
    const auto interface = take();
    interface->open();
    bus->calls.clear();
    std::array<std::uint8_t, 4> bytes{};
    std::size_t delivered = 99;
    EXPECT_EQ(interface->writePipe(1, bytes), kResultInvalid);
    EXPECT_EQ(interface->readPipe(2, bytes, delivered), kResultInvalid);
    EXPECT_EQ(bus->calls, Calls{});
}

TEST_F(LibusbInterfaceTest, AClosedInterfaceMovesNothing) {
    const auto interface = take();
    std::array<std::uint8_t, 4> bytes{};
    std::size_t delivered = 99;
    EXPECT_EQ(interface->writePipe(2, bytes), kResultNotOpen);
    EXPECT_EQ(interface->readPipe(1, bytes, delivered), kResultNotOpen);
    EXPECT_EQ(delivered, 0U);
}

} // namespace
} // namespace scenewright
