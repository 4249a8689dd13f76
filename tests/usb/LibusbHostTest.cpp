#include "usb/LibusbHost.h"

#include "tests/usb/FakeLibusb.h"
#include "tests/usb/TransportFixture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {
namespace {

using testing::FakeDevice;
using testing::fakeLibusb;
using Texts = std::vector<std::string>;

// The library's published numbers.
const std::map<int, ResultCode> kErrors{
    {0, 0x00000000},   {-1, 0x5C570002},  {-2, 0x5C570003},  {-3, 0x5C570004},  {-4, 0x5C570005},
    {-5, 0x5C570006},  {-6, 0x5C570007},  {-7, 0x5C570008},  {-8, 0x5C570009},  {-9, 0x5C57000A},
    {-10, 0x5C57000B}, {-11, 0x5C57000C}, {-12, 0x5C57000D}, {-99, 0x5C570001},
};

TEST(LibusbResult, EveryErrorHasACodeOfItsOwn) {
    std::set<ResultCode> codes;
    for (const auto& [error, code] : kErrors) {
        EXPECT_EQ(resultOfLibusb(error), code) << error;
        codes.insert(code);
    }
    EXPECT_EQ(codes.size(), kErrors.size());
    for (const int unknown : {-13, -98, 1})
        EXPECT_EQ(resultOfLibusb(unknown), 0x5C570001U) << unknown;
}

TEST(LibusbResult, EveryTransferStatusHasItsCode) {
    const std::map<int, ResultCode> statuses{
        {0, kResultSuccess}, {1, kResultInputOutput}, {2, kResultTimeout},  {3, kResultCancelled},
        {4, kResultStall},   {5, kResultNoDevice},    {6, kResultOverflow}, {7, kResultOther}};
    for (const auto& [status, code] : statuses)
        EXPECT_EQ(resultOfLibusbTransfer(status), code) << status;
}

class LibusbHostTest : public ::testing::Test {
protected:
    void SetUp() override { fakeLibusb().reset(); }
    void TearDown() override {
        EXPECT_TRUE(fakeLibusb().hasNothingOut());
        EXPECT_EQ(fakeLibusb().misuses, Texts{});
    }

    Texts names(const DeviceMatch& match = {}) {
        Texts found;
        const auto devices = host->devices(match);
        for (const auto& device : devices.value())
            found.push_back(device->name());
        return found;
    }

    std::shared_ptr<UsbHost> host = makeLibusbHost();
};

TEST_F(LibusbHostTest, NamesThePortAsTheKernelDoes) {
    for (const auto& [ports, name] : std::map<std::vector<std::uint8_t>, std::string>{
             {{4}, "3-4"},
             {{1, 12, 2}, "3-1.12.2"},
             {{}, ""},
             {{1, 2, 3, 4, 5, 6, 7}, "3-1.2.3.4.5.6.7"},
             {{1, 2, 3, 4, 5, 6, 7, 8}, ""}}) {
        fakeLibusb().devices = {{.bus = 3, .ports = ports}};
        EXPECT_EQ(host->devices({}).value().at(0)->port(), name);
    }
}

TEST_F(LibusbHostTest, ListsTheDevicesByBusAndAddressAndOpensNone) {
    fakeLibusb().devices = {
        {.bus = 2, .address = 1, .vendor = 0x1209, .product = 0x0003},
        {.bus = 1, .address = 19, .vendor = 0x1209, .product = 0x0002},
        {.bus = 1, .address = 4, .vendor = 0x120A, .product = 0x0001},
    };
    EXPECT_EQ(names(),
              (Texts{"120a:0001 at 001/004", "1209:0002 at 001/019", "1209:0003 at 002/001"}));
    const auto devices = host->devices({}).value();
    EXPECT_EQ(devices.at(1)->vendor(), 0x1209);
    EXPECT_EQ(devices.at(1)->product(), 0x0002);
    EXPECT_EQ(fakeLibusb().calls, Texts{});
}

TEST_F(LibusbHostTest, NumbersNarrowTheList) {
    fakeLibusb().devices = {{.product = 0x0001}, {.product = 0x0002}};
    EXPECT_TRUE(host->canMatch({.vendor = 0x1209, .product = 0x0002}));
    EXPECT_EQ(names({.vendor = 0x1209, .product = {}}).size(), 2U);
    EXPECT_EQ(names({.vendor = 0x1209, .product = 2}), Texts{"1209:0002 at 001/002"});
    EXPECT_EQ(names({.vendor = {}, .product = 2}), Texts{"1209:0002 at 001/002"});
    EXPECT_EQ(names({.vendor = 0x120A, .product = {}}), Texts{});
    EXPECT_EQ(names({.vendor = 0x11209, .product = {}}), Texts{});
    fakeLibusb().devices.clear();
    EXPECT_EQ(names(), Texts{}) << "an empty bus is no error";
}

TEST_F(LibusbHostTest, LeavesOutADeviceWithoutADescriptor) {
    fakeLibusb().devices = {{.product = 0x0001, .descriptorResult = -1}, {.product = 0x0002}};
    EXPECT_EQ(names(), Texts{"1209:0002 at 001/002"});
}

TEST_F(LibusbHostTest, WhatIsKeptKeepsItsContextAndNothingElseDoes) {
    fakeLibusb().devices.resize(2);
    auto kept = host->devices({}).value().at(1);
    EXPECT_EQ(fakeLibusb().contexts, 1);
    EXPECT_EQ(fakeLibusb().deviceReferences, 1);
    const auto other = host->devices({}).value();
    EXPECT_EQ(fakeLibusb().contexts, 2) << "each listing starts anew";
    auto interface = kept->interface(1).value();
    kept.reset();
    host.reset();
    EXPECT_TRUE(interface->open());
    EXPECT_EQ(fakeLibusb().contexts, 2);
}

TEST_F(LibusbHostTest, TellsWhyThereIsNoList) {
    for (const auto& [call, error] : std::map<std::string, int>{{"init", -99}, {"list", -11}}) {
        fakeLibusb().failures = {{call, error}};
        const auto devices = host->devices({});
        ASSERT_FALSE(devices.has_value()) << call;
        EXPECT_EQ(devices.error(), (UsbError{UsbStep::ListDevices, resultOfLibusb(error)}));
    }
}

TEST_F(LibusbHostTest, InterfacesAreThoseOfTheConfigurationThatHaveAltsettings) {
    fakeLibusb().devices = {{.interfaces = {
                                 {.number = 0, .hasAltsettings = false},
                                 {.number = 3, .interfaceClass = 1, .subClass = 1},
                                 {.number = 5, .interfaceClass = 254, .subClass = 255},
                             }}};
    const auto device = host->devices({}).value().at(0);
    const auto kind = [&](std::size_t place) {
        const InterfaceClass found = device->interface(place).value()->interfaceClass();
        return std::pair<int, int>(found.code, found.subClass);
    };
    EXPECT_EQ(kind(0), (std::pair<int, int>(1, 1)));
    EXPECT_EQ(kind(1), (std::pair<int, int>(254, 255)));
    EXPECT_EQ(device->interface(2).error(), (UsbError{UsbStep::InterfacePlugIn, kResultNotFound}));
    EXPECT_EQ(fakeLibusb().calls, Texts{});
}

TEST_F(LibusbHostTest, ADeviceWithoutAConfigurationOrThatHasGoneSaysSo) {
    fakeLibusb().devices = {{.configurationResult = -5}, {}};
    const auto devices = host->devices({}).value();
    fakeLibusb().isPlugged = false;
    EXPECT_EQ(devices.at(0)->interface(1).error(),
              (UsbError{UsbStep::InterfacePlugIn, kResultNotFound}));
    EXPECT_EQ(devices.at(1)->interface(1).error(),
              (UsbError{UsbStep::InterfacePlugIn, kResultNoDevice}));
}

} // namespace
} // namespace scenewright

namespace scenewright::testing {
namespace {

class ChosenHostTest : public TransportFixture {
protected:
    void SetUp() override {
        TransportFixture::SetUp();
        script->devices = {{.name = "one", .port = "1-1"}, {.name = "two", .port = "1-2"}};
        Transport::instance().use(offerChosen(makeScriptedHost(script), [this] { return port; }),
                                  [](std::chrono::nanoseconds) {});
    }

    // The name of the device that discovery finds; empty for none.
    [[nodiscard]] static std::string found() {
        return InterfaceAction::FindDevice() ? Transport::instance().device()->name() : "";
    }

    std::optional<std::string> port;
};

TEST_F(ChosenHostTest, DiscoveryFindsTheOneThatIsOfferedNow) {
    const std::vector<std::pair<std::optional<std::string>, std::string>> rows{
        {std::nullopt, "one"}, {"1-2", "two"}, {"1-1", "one"}, {"1-3", ""}};
    for (const auto& [offered, name] : rows) {
        port = offered;
        EXPECT_EQ(found(), name) << offered.value_or("any");
    }
}

TEST_F(ChosenHostTest, TheOthersAreNotEvenLookedAt) {
    port = "1-2";
    ASSERT_EQ(found(), "two");
    EXPECT_EQ(script->callsOf({"prepare", "vendor", "product"}),
              (Texts{"prepare two", "vendor two", "product two"}));
}

TEST_F(ChosenHostTest, WhatTheBusRefusesIsRefused) {
    script->fail(UsbStep::ListDevices, kResultAccess);
    EXPECT_EQ(found(), "");
    EXPECT_EQ(Transport::instance().connectFailure, kResultAccess);
    forget();
    script->fail(UsbStep::MatchVendor, kResultNotSupported);
    EXPECT_EQ(found(), "");
    EXPECT_EQ(log.front(), "NO FOUND idVendor");
    script->storageResult = failure("full");
    EXPECT_EQ(Transport::instance().host()->storageResult().error(), "full");
}

} // namespace
} // namespace scenewright::testing
