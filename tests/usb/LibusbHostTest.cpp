#include "usb/LibusbHost.h"

#include "tests/usb/ScriptedBus.h"
#include "usb/PlatformIds.h"

#include <gtest/gtest.h>

namespace scenewright {
namespace {

using testing::BusScript;
using Calls = std::vector<std::string>;

class LibusbHostTest : public ::testing::Test {
protected:
    // The devices that a dictionary with the given numbers lists.
    std::vector<std::unique_ptr<UsbService>>
    listed(const std::vector<std::pair<std::string, std::int32_t>>& numbers = {}) {
        auto dictionary = host->serviceMatching(ids::kDeviceClass).value();
        for (const auto& [key, number] : numbers)
            EXPECT_TRUE(host->addNumber(dictionary, key, number));
        std::unique_ptr<ServiceIterator> iterator;
        EXPECT_EQ(host->matchingServices(dictionary, iterator), kResultSuccess);
        return drained(*iterator);
    }
    static std::vector<std::unique_ptr<UsbService>> drained(ServiceIterator& iterator) {
        std::vector<std::unique_ptr<UsbService>> services;
        while (auto service = iterator.next())
            services.push_back(std::move(service));
        return services;
    }
    std::unique_ptr<UsbDevice> deviceOf(UsbService& service) {
        std::unique_ptr<UsbPlugIn> plugIn;
        EXPECT_EQ(
            host->makePlugIn(service, PlugInType::Device, ids::kIOCFPlugInInterfaceID, plugIn),
            kResultSuccess);
        std::unique_ptr<UsbDevice> device;
        EXPECT_EQ(plugIn->queryDevice(ids::kDeviceInterface, device), kResultSuccess);
        return device;
    }
    std::vector<std::unique_ptr<UsbService>> interfacesOf(const InterfaceRequest& request) {
        std::unique_ptr<ServiceIterator> iterator;
        EXPECT_EQ(deviceOf(*listed().at(0))->interfaceIterator(request, iterator), kResultSuccess);
        return drained(*iterator);
    }

    std::shared_ptr<BusScript> bus = std::make_shared<BusScript>();
    std::shared_ptr<UsbHost> host = makeLibusbHost(testing::makeScriptedBus(bus));
};

TEST_F(LibusbHostTest, ListsEveryDeviceWithoutOpeningOne) {
    bus->products = {0x0001, 0x0002};
    const auto services = listed();
    ASSERT_EQ(services.size(), 2U);
    EXPECT_EQ(services[0]->name(), "1209:0001 at 001/002");
    EXPECT_EQ(services[1]->name(), "1209:0002 at 001/003");
    EXPECT_EQ(deviceOf(*services[1])->product(), 0x0002);
    EXPECT_EQ(deviceOf(*services[1])->vendor(), 0x1209);
    EXPECT_EQ(interfacesOf({}).size(), 2U);
    EXPECT_EQ(bus->calls, Calls{});
}

TEST_F(LibusbHostTest, NumbersNarrowTheList) {
    bus->products = {0x0001, 0x0002};
    EXPECT_EQ(listed({{"idVendor", 0x1209}}).size(), 2U);
    EXPECT_EQ(listed({{"idVendor", 0x1209}, {"idProduct", 2}}).size(), 1U);
    EXPECT_EQ(listed({{"idVendor", 0x120A}}).size(), 0U);
}

TEST_F(LibusbHostTest, HasNoOtherClassOfService) {
    EXPECT_FALSE(host->serviceMatching("IONetworkInterface").has_value());
    std::unique_ptr<ServiceIterator> iterator;
    EXPECT_EQ(host->matchingServices({"IONetworkInterface", {}}, iterator), kResultNotFound);
}

TEST_F(LibusbHostTest, AListingThatFailsSaysWhy) {
    bus->failures["devices"] = kResultOther;
    std::unique_ptr<ServiceIterator> iterator;
    EXPECT_EQ(host->matchingServices({std::string(ids::kDeviceClass), {}}, iterator), kResultOther);
    EXPECT_EQ(iterator, nullptr);
}

TEST_F(LibusbHostTest, ADeviceThatHasGoneListsNoInterfaces) {
    const auto device = deviceOf(*listed().at(0));
    bus->isPlugged = false;
    std::unique_ptr<ServiceIterator> iterator;
    EXPECT_EQ(device->interfaceIterator({}, iterator), kResultNoDevice);
    EXPECT_EQ(iterator, nullptr);
}

TEST_F(LibusbHostTest, ARequestNarrowsTheInterfaces) {
    EXPECT_EQ(interfacesOf({.interfaceClass = 1}).size(), 2U);
    EXPECT_EQ(interfacesOf({.subClass = 3}).size(), 1U);
    EXPECT_EQ(interfacesOf({.protocol = 1}).size(), 0U);
    EXPECT_EQ(interfacesOf({.alternateSetting = 0}).size(), 2U);
}

TEST_F(LibusbHostTest, TheSecondInterfaceCanBeTakenAndClaimed) {
    const auto services = interfacesOf({});
    std::unique_ptr<UsbPlugIn> plugIn;
    ASSERT_EQ(host->makePlugIn(*services.at(1), PlugInType::Interface, ids::kIOCFPlugInInterfaceID,
                               plugIn),
              kResultSuccess);
    std::unique_ptr<UsbInterface> interface;
    ASSERT_EQ(plugIn->queryInterface(ids::kInterfaceInterface, interface), kResultSuccess);
    plugIn.reset();
    EXPECT_EQ(bus->calls, Calls{});
    EXPECT_EQ(interface->open(), kResultSuccess);
    EXPECT_EQ(bus->calls.back(), "claim 1");
}

TEST_F(LibusbHostTest, APlugInGivesOnlyWhatItIsFor) {
    const auto services = listed();
    std::unique_ptr<UsbPlugIn> plugIn;
    std::unique_ptr<UsbInterface> interface;
    std::unique_ptr<UsbDevice> device;
    host->makePlugIn(*services[0], PlugInType::Device, ids::kIOCFPlugInInterfaceID, plugIn);
    EXPECT_EQ(plugIn->queryInterface(ids::kInterfaceInterface, interface), kResultNotSupported);
    host->makePlugIn(*services[0], PlugInType::Interface, ids::kIOCFPlugInInterfaceID, plugIn);
    EXPECT_EQ(plugIn->queryDevice(ids::kDeviceInterface, device), kResultNotSupported);
    EXPECT_EQ(plugIn->queryInterface(ids::kInterfaceInterface, interface), kResultNotFound);
}

TEST_F(LibusbHostTest, AForeignServiceIsInvalid) {
    class Foreign : public UsbService {
        std::string name() const override { return "foreign"; }
    } foreign;
    std::unique_ptr<UsbPlugIn> plugIn;
    EXPECT_EQ(host->makePlugIn(foreign, PlugInType::Device, ids::kIOCFPlugInInterfaceID, plugIn),
              kResultInvalid);
}

TEST_F(LibusbHostTest, CancellingReachesTheBus) {
    host->cancelTransfers();
    EXPECT_EQ(bus->calls, Calls{"cancel"});
}

} // namespace
} // namespace scenewright
