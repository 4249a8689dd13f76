#include "usb/InterfaceHandle.h"

#include "platform/Diagnostics.h"
#include "tests/usb/ScriptedHost.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

namespace scenewright::testing {
namespace {

using Texts = std::vector<std::string>;

// An interface that a script stands behind, taken by the seam's own steps.
std::unique_ptr<UsbInterface> take(const std::shared_ptr<HostScript>& script) {
    const auto host = makeScriptedHost(script);
    std::unique_ptr<ServiceIterator> devices;
    std::unique_ptr<ServiceIterator> interfaces;
    std::unique_ptr<UsbPlugIn> plugIn;
    std::unique_ptr<UsbDevice> device;
    std::unique_ptr<UsbInterface> interface;
    host->matchingServices({}, devices);
    host->makePlugIn(*devices->next(), PlugInType::Device, {}, plugIn);
    plugIn->queryDevice({}, device);
    device->interfaceIterator({}, interfaces);
    host->makePlugIn(*interfaces->next(), PlugInType::Interface, {}, plugIn);
    plugIn->queryInterface({}, interface);
    plugIn.reset();
    interfaces.reset();
    script->calls.clear();
    return interface;
}

class HandleTest : public ::testing::Test {
protected:
    void SetUp() override {
        Diagnostics::setLog([this](std::string_view line) { log.emplace_back(line); });
    }
    void TearDown() override { Diagnostics::setLog({}); }

    std::shared_ptr<HostScript> script = std::make_shared<HostScript>();
    Texts log;
};

using InterfaceHandleTest = HandleTest;

TEST_F(InterfaceHandleTest, StaleHandleReturnsItsCodeFromEveryOperation) {
    InterfaceHandle handle(take(script));
    EXPECT_FALSE(handle.isStale());
    EXPECT_EQ(handle.release(), kResultSuccess);
    script->calls.clear();

    EXPECT_TRUE(handle.isStale());
    std::uint8_t count = 7;
    PipeProperties properties;
    std::array<std::uint8_t, 4> room{};
    std::size_t delivered = 9;
    EXPECT_EQ(handle.open(), kResultGivenUp);
    EXPECT_EQ(handle.close(), kResultGivenUp);
    EXPECT_EQ(handle.release(), kResultGivenUp);
    EXPECT_EQ(handle.endpointCount(count), kResultGivenUp);
    EXPECT_EQ(handle.pipeProperties(1, properties), kResultGivenUp);
    EXPECT_EQ(handle.writePipe(2, room), kResultGivenUp);
    EXPECT_EQ(handle.readPipe(1, room, delivered), kResultGivenUp);
    EXPECT_EQ(delivered, 0U);
    EXPECT_EQ(handle.interfaceClass(), 0);
    EXPECT_EQ(handle.interfaceSubClass(), 0);
    handle.giveUp();
    EXPECT_EQ(script->calls, Texts{});
}

TEST_F(InterfaceHandleTest, EndOfAnOpenHandleClosesAndReleases) {
    {
        InterfaceHandle handle(take(script));
        handle.open();
        script->calls.clear();
    }
    EXPECT_EQ(script->calls, (Texts{"close one/0", "releaseInterface one/0"}));
}

TEST_F(InterfaceHandleTest, EndOfAClosedHandleOnlyReleases) {
    {
        InterfaceHandle handle(take(script));
        handle.open();
        handle.close();
        script->calls.clear();
    }
    EXPECT_EQ(script->calls, Texts{"releaseInterface one/0"});
}

TEST_F(InterfaceHandleTest, EndOfAReleasedHandleDoesNothing) {
    {
        InterfaceHandle handle(take(script));
        handle.open();
        handle.release();
        script->calls.clear();
    }
    EXPECT_EQ(script->calls, Texts{});
}

TEST_F(InterfaceHandleTest, SecondOpeningThatFailsLeavesItOpen) {
    InterfaceHandle handle(take(script));
    script->answer("open", {kResultSuccess, kResultBusy});
    handle.open();
    EXPECT_EQ(handle.open(), kResultBusy);
    script->calls.clear();
    handle.giveUp();
    EXPECT_EQ(script->calls, (Texts{"close one/0", "releaseInterface one/0"}));
}

TEST_F(InterfaceHandleTest, FailuresOfGivingUpAreLoggedAndNothingElse) {
    InterfaceHandle handle(take(script));
    handle.open();
    script->answer("close", {kResultNoDevice});
    script->answer("releaseInterface", {kResultOther});
    handle.giveUp();
    EXPECT_TRUE(handle.isStale());
    EXPECT_EQ(log, (Texts{"Unable to close interface (5c570005)",
                          "Unable to release interface (5c570001)"}));
}

TEST_F(InterfaceHandleTest, ALogThatFailsDoesNotKeepTheInterface) {
    InterfaceHandle handle(take(script));
    handle.open();
    script->answer("close", {kResultNoDevice});
    Diagnostics::setLog([](std::string_view) { throw std::runtime_error("no room"); });
    handle.giveUp();
    EXPECT_TRUE(handle.isStale());
}

} // namespace
} // namespace scenewright::testing
