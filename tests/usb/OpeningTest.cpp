#include "tests/usb/TransportFixture.h"

#include <cstdint>

namespace scenewright::testing {
namespace {

class Opening : public TransportFixture {
protected:
    void SetUp() override {
        TransportFixture::SetUp();
        ASSERT_TRUE(InterfaceAction::FindDevice());
        forget();
    }

    // What CreateInterface must do when it fails.
    void expectFailure(const std::string& text, ResultCode reason) {
        EXPECT_FALSE(InterfaceAction::CreateInterface());
        EXPECT_EQ(console, text);
        EXPECT_EQ(log, Texts{"无法找到设备接口"});
        EXPECT_EQ(Transport::instance().interface(), nullptr);
        EXPECT_EQ(Transport::instance().connectFailure, reason);
        EXPECT_EQ(script->claimed, Texts{});
    }

    static PipeProperties pipe(std::uint8_t direction, std::uint8_t type, std::uint16_t size) {
        return {.direction = direction,
                .number = 1,
                .transferType = type,
                .maxPacketSize = size,
                .interval = 0};
    }

    static constexpr auto kClassLine = "Interface class 1, subclass 3\n";
};

TEST_F(Opening, SecondInterfaceIsTakenOpenedAndListed) {
    EXPECT_TRUE(InterfaceAction::CreateInterface());
    EXPECT_EQ(console, "Interface class 1, subclass 3\n"
                       "Interface has 2 endpoints\n"
                       "PipeRef 1:direction in,transfer type bulk, maxPacketSize 64\n"
                       "PipeRef 2:direction out,transfer type bulk, maxPacketSize 64\n");
    EXPECT_EQ(log, Texts{});
    ASSERT_NE(Transport::instance().interface(), nullptr);
    EXPECT_FALSE(Transport::instance().interface()->isStale());
    EXPECT_EQ(Transport::instance().connectFailure, kResultSuccess);
}

TEST_F(Opening, StepsAreTakenInOrderWithTheirIdentifiers) {
    ASSERT_TRUE(InterfaceAction::CreateInterface());
    EXPECT_EQ(script->calls,
              (Texts{"interfaceIterator one ffff ffff ffff ffff", "nextService one/0",
                     "nextService one/1", "releaseService one/0", "releaseIterator one",
                     "makePlugIn one/1 interface 2d9786c69ef311d4ad51000a27052861 "
                     "c244e858109c11d491d40050e4c6426f",
                     "releaseService one/1",
                     "queryInterface one/1 8752663bc07b4bae958422032fab9c5a", "releasePlugIn one/1",
                     "interfaceClass one/1", "interfaceSubClass one/1", "open one/1",
                     "endpointCount one/1", "pipeProperties one/1 1", "pipeProperties one/1 2"}));
}

TEST_F(Opening, WithoutADeviceNothingIsSaid) {
    script->devices.clear();
    ASSERT_FALSE(InterfaceAction::FindDevice());
    forget();
    EXPECT_FALSE(InterfaceAction::CreateInterface());
    EXPECT_EQ(console, "");
    EXPECT_EQ(log, Texts{});
    EXPECT_EQ(script->calls, Texts{});
}

TEST_F(Opening, DeviceWithASingleInterfaceFails) {
    script->devices[0].interfaces.resize(1);
    ASSERT_TRUE(InterfaceAction::FindDevice());
    forget();
    expectFailure("Unable to create a plug-in (5c570006)\n", kResultNotFound);
}

TEST_F(Opening, DeviceWithoutInterfacesFails) {
    script->devices[0].interfaces.clear();
    ASSERT_TRUE(InterfaceAction::FindDevice());
    forget();
    expectFailure("Unable to create a plug-in (5c570006)\n", kResultNotFound);
}

TEST_F(Opening, ThirdInterfaceIsNotLookedAt) {
    script->devices[0].interfaces.resize(3);
    ASSERT_TRUE(InterfaceAction::FindDevice());
    forget();
    EXPECT_TRUE(InterfaceAction::CreateInterface());
    EXPECT_EQ(script->callsOf({"nextService", "open"}),
              (Texts{"nextService one/0", "nextService one/1", "open one/1"}));
}

TEST_F(Opening, InterfaceListThatFailsTellsTheUserWhy) {
    script->answer("interfaceIterator", {kResultNoDevice});
    expectFailure("Unable to create a plug-in (5c570006)\n", kResultNoDevice);
}

TEST_F(Opening, PlugInThatFails) {
    script->answer("makePlugIn", {kResultNoMemory});
    expectFailure("Unable to create a plug-in (5c57000c)\n", kResultNoMemory);
    EXPECT_EQ(script->callsOf({"releaseService"}),
              (Texts{"releaseService one/0", "releaseService one/1"}));
}

TEST_F(Opening, PlugInThatIsNull) {
    script->giveNothing("makePlugIn");
    expectFailure("Unable to create a plug-in (00000000)\n", kResultOther);
}

TEST_F(Opening, InterfaceHandleThatFails) {
    script->answer("queryInterface", {kResultNotSupported});
    expectFailure("Couldn\xE2\x80\x99t create a device interface for the interface(5c57000d)\n",
                  kResultNotSupported);
    EXPECT_EQ(script->callsOf({"releasePlugIn"}), Texts{"releasePlugIn one/1"});
}

TEST_F(Opening, InterfaceHandleThatIsNull) {
    script->giveNothing("queryInterface");
    expectFailure("Couldn\xE2\x80\x99t create a device interface for the interface(00000000)\n",
                  kResultOther);
}

TEST_F(Opening, InterfaceThatCannotBeOpenedIsReleasedWithoutClosing) {
    script->answer("open", {kResultBusy});
    expectFailure(std::string(kClassLine) + "Unable to open interface (5c570007)\n", kResultBusy);
    EXPECT_EQ(script->callsOf({"open", "close", "releaseInterface"}),
              (Texts{"open one/1", "releaseInterface one/1"}));
}

TEST_F(Opening, EndpointCountThatFailsClosesAndReleases) {
    script->answer("endpointCount", {kResultInputOutput});
    expectFailure(std::string(kClassLine) + "Unable to get number of endpoints (5c570002)\n",
                  kResultInputOutput);
    EXPECT_EQ(script->callsOf({"open", "close", "releaseInterface"}),
              (Texts{"open one/1", "close one/1", "releaseInterface one/1"}));
}

TEST_F(Opening, PipeThatTellsNothingLeavesTheInterfaceOpenUntilTheHandleIsOverwritten) {
    script->answer("pipeProperties", {kResultSuccess, kResultStall});
    EXPECT_EQ(InterfaceAction::FindInterfacesWithDevice(*Transport::instance().device()), nullptr);
    EXPECT_EQ(console, std::string(kClassLine) +
                           "Interface has 2 endpoints\n"
                           "PipeRef 1:direction in,transfer type bulk, maxPacketSize 64\n"
                           "Unable to get properties of pipe 2 (5c57000a)\n");
    EXPECT_EQ(script->claimed, Texts{"one/1"});
    EXPECT_EQ(script->callsOf({"close", "releaseInterface"}), Texts{});
}

TEST_F(Opening, PipeThatTellsNothingFails) {
    script->answer("pipeProperties", {kResultStall});
    expectFailure(std::string(kClassLine) + "Interface has 2 endpoints\n"
                                            "Unable to get properties of pipe 1 (5c57000a)\n",
                  kResultStall);
    EXPECT_TRUE(InterfaceAction::CreateInterface()) << "the next attempt finds it free";
}

TEST_F(Opening, NoEndpointsListsNoPipeAndSucceeds) {
    script->devices[0].interfaces[1].pipes.clear();
    ASSERT_TRUE(InterfaceAction::FindDevice());
    forget();
    EXPECT_TRUE(InterfaceAction::CreateInterface());
    EXPECT_EQ(console, std::string(kClassLine) + "Interface has 0 endpoints\n");
}

TEST_F(Opening, EveryDirectionAndTransferTypeHasItsText) {
    script->devices[0].interfaces[1].pipes = {
        pipe(0, 0, 8),    pipe(1, 1, 1023), pipe(2, 2, 64),     pipe(3, 3, 0),
        pipe(4, 255, 64), pipe(255, 4, 64), pipe(0, 254, 65535)};
    ASSERT_TRUE(InterfaceAction::FindDevice());
    forget();
    EXPECT_TRUE(InterfaceAction::CreateInterface());
    EXPECT_EQ(console, "Interface class 1, subclass 3\n"
                       "Interface has 7 endpoints\n"
                       "PipeRef 1:direction out,transfer type control, maxPacketSize 8\n"
                       "PipeRef 2:direction in,transfer type isoc, maxPacketSize 1023\n"
                       "PipeRef 3:direction none,transfer type bulk, maxPacketSize 64\n"
                       "PipeRef 4:direction any,transfer type interrupt, maxPacketSize 0\n"
                       "PipeRef 5:direction ???,transfer type any, maxPacketSize 64\n"
                       "PipeRef 6:direction ???,transfer type ???, maxPacketSize 64\n"
                       "PipeRef 7:direction out,transfer type ???, maxPacketSize 65535\n");
}

TEST_F(Opening, AsManyPipesAsACountCanHoldAreListed) {
    script->devices[0].interfaces[1].pipes.assign(255, pipe(1, 2, 64));
    ASSERT_TRUE(InterfaceAction::FindDevice());
    forget();
    EXPECT_TRUE(InterfaceAction::CreateInterface());
    EXPECT_EQ(script->callsOf({"pipeProperties"}).size(), 255U);
}

TEST_F(Opening, OpenAndCloseIgnoreTheirResultsAndKeepTheHandle) {
    ASSERT_TRUE(InterfaceAction::CreateInterface());
    forget();
    script->answer("open", {kResultBusy});
    script->answer("close", {kResultNoDevice});
    InterfaceAction::openInterface();
    InterfaceAction::closeInterface();
    InterfaceAction::openInterface();
    EXPECT_EQ(script->calls, (Texts{"open one/1", "close one/1", "open one/1"}));
    EXPECT_FALSE(Transport::instance().interface()->isStale());
    EXPECT_EQ(console, "");
    EXPECT_EQ(log, Texts{});
}

TEST_F(Opening, KillClosesAndReleasesOnceAndLeavesTheHandleStale) {
    ASSERT_TRUE(InterfaceAction::CreateInterface());
    forget();
    InterfaceAction::KillInterface();
    ASSERT_NE(Transport::instance().interface(), nullptr);
    EXPECT_TRUE(Transport::instance().interface()->isStale());
    InterfaceAction::KillInterface();
    InterfaceAction::openInterface();
    InterfaceAction::closeInterface();
    EXPECT_EQ(script->calls, (Texts{"close one/1", "releaseInterface one/1"}));
}

TEST_F(Opening, KillClosesAnInterfaceThatIsClosedAlready) {
    ASSERT_TRUE(InterfaceAction::CreateInterface());
    InterfaceAction::closeInterface();
    forget();
    InterfaceAction::KillInterface();
    EXPECT_EQ(script->calls, (Texts{"close one/1", "releaseInterface one/1"}));
}

TEST_F(Opening, ReleaseThatFailsIsLoggedAndDoneOnce) {
    ASSERT_TRUE(InterfaceAction::CreateInterface());
    forget();
    script->answer("releaseInterface", {kResultNoDevice});
    InterfaceAction::KillInterface();
    EXPECT_EQ(log, Texts{"Unable to release interface (5c570005)"});
    EXPECT_EQ(console, "");
    EXPECT_TRUE(Transport::instance().interface()->isStale());
}

TEST_F(Opening, OperationsWithoutAnInterfaceDoNothing) {
    InterfaceAction::openInterface();
    InterfaceAction::closeInterface();
    InterfaceAction::KillInterface();
    EXPECT_EQ(script->calls, Texts{});
}

TEST_F(Opening, SecondTakingGivesTheFirstUpBeforeItOpens) {
    ASSERT_TRUE(InterfaceAction::CreateInterface());
    const auto first = Transport::instance().interface();
    forget();
    EXPECT_TRUE(InterfaceAction::CreateInterface());
    EXPECT_TRUE(first->isStale());
    EXPECT_EQ(script->callsOf({"open", "close", "releaseInterface"}),
              (Texts{"close one/1", "releaseInterface one/1", "open one/1"}));
}

TEST_F(Opening, TransactionsInARowEachGetTheInterface) {
    for (int transaction = 0; transaction < 3; ++transaction) {
        ASSERT_TRUE(InterfaceAction::FindDevice());
        ASSERT_TRUE(InterfaceAction::CreateInterface()) << transaction;
    }
    EXPECT_EQ(script->claimed, Texts{"one/1"});
}

TEST_F(Opening, InterfaceOfAnotherProgramIsBusy) {
    script->claimed = {"one/1"};
    EXPECT_FALSE(InterfaceAction::CreateInterface());
    EXPECT_EQ(console, std::string(kClassLine) + "Unable to open interface (5c570007)\n");
    EXPECT_EQ(Transport::instance().connectFailure, kResultBusy);
    EXPECT_EQ(script->claimed, Texts{"one/1"});
}

} // namespace
} // namespace scenewright::testing
