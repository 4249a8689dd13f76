#include "tests/usb/TransportFixture.h"

#include <cstdint>
#include <map>
#include <string_view>

namespace scenewright::testing {
namespace {

class Discovery : public TransportFixture {};

TEST_F(Discovery, FoundDevicePrintsItsNumbersTheListAndGetIt) {
    EXPECT_TRUE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "Found device (vendor 4617, product 1)\n"
                       "list index:0 (vendor 4617, product 1)\n"
                       "get it");
    EXPECT_EQ(log, Texts{});
    ASSERT_NE(Transport::instance().device(), nullptr);
}

TEST_F(Discovery, StepsAreTakenInOrderWithTheirIdentifiers) {
    ASSERT_TRUE(InterfaceAction::FindDevice());
    EXPECT_EQ(
        script->calls,
        (Texts{"serviceMatching IOUSBDevice", "addNumber idVendor=4617", "addNumber idProduct=1",
               "serviceMatching IOUSBDevice", "matchingServices IOUSBDevice", "nextService one",
               "makePlugIn one device 9dc7b7809ec011d4a54f000a27052861 "
               "c244e858109c11d491d40050e4c6426f",
               "releaseService one", "queryDevice one 56ad089d878d4beaa1f52c8dc43e8a98",
               "releasePlugIn one", "vendor one", "product one", "releaseIterator IOUSBDevice"}));
}

TEST_F(Discovery, NoDeviceAtAllIsNotFound) {
    script->devices.clear();
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "");
    EXPECT_EQ(log, Texts{"无法找到匹配的设备"});
    EXPECT_EQ(Transport::instance().device(), nullptr);
    EXPECT_EQ(Transport::instance().connectFailure, kResultSuccess);
}

TEST_F(Discovery, DeviceOutsideTheListIsSkippedEvenIfItCarriesTheCompiledInPair) {
    list({{"4660", "22136"}});
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "Found device (vendor 4617, product 1)\n"
                       "list index:0 (vendor 4660, product 22136)\n");
    EXPECT_EQ(log, Texts{"无法找到匹配的设备"});
}

TEST_F(Discovery, ListedDeviceIsFoundEvenIfItDoesNotCarryTheCompiledInPair) {
    list({{"4617", "2"}, {"65535", "40000"}});
    script->devices[0].vendor = 65535;
    script->devices[0].product = 40000;
    EXPECT_TRUE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "Found device (vendor 65535, product 40000)\n"
                       "list index:0 (vendor 4617, product 2)\n"
                       "list index:1 (vendor 65535, product 40000)\n"
                       "get it");
}

TEST_F(Discovery, VendorAndProductMustStandInTheSameElement) {
    list({{"4617", "2"}, {"4618", "1"}});
    EXPECT_FALSE(InterfaceAction::FindDevice());
}

TEST_F(Discovery, NegativeNumberInTheListMatchesNoDevice) {
    list({{"-60919", "1"}});
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "Found device (vendor 4617, product 1)\n"
                       "list index:0 (vendor -60919, product 1)\n");
}

TEST_F(Discovery, FirstMatchingElementEndsTheList) {
    list({{"4617", "1"}, {"4617", "1"}});
    EXPECT_TRUE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "Found device (vendor 4617, product 1)\n"
                       "list index:0 (vendor 4617, product 1)\n"
                       "get it");
}

TEST_F(Discovery, FirstOfTwoMatchingDevicesIsUsedAndTheSecondNotLookedAt) {
    script->devices.push_back({.name = "two"});
    EXPECT_TRUE(InterfaceAction::FindDevice());
    EXPECT_EQ(script->callsOf({"nextService", "vendor"}), (Texts{"nextService one", "vendor one"}));
}

TEST_F(Discovery, DeviceThatDoesNotMatchIsPassedOverForTheNext) {
    script->devices[0].product = 7;
    script->devices.push_back({.name = "two"});
    EXPECT_TRUE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "Found device (vendor 4617, product 7)\n"
                       "list index:0 (vendor 4617, product 1)\n"
                       "Found device (vendor 4617, product 1)\n"
                       "list index:0 (vendor 4617, product 1)\n"
                       "get it");
}

TEST_F(Discovery, ListIsReadAgainForEveryDevice) {
    script->devices.clear();
    for (std::uint16_t product = 1; product <= 5; ++product)
        script->devices.push_back({.name = "some", .product = product});
    int examined = 0;
    std::string expected;
    Diagnostics::setConsole([&](std::string_view text) {
        console += text;
        if (!text.starts_with("Found device"))
            return;
        ++examined;
        relist({{"4617", std::to_string(examined == 5 ? 5 : examined + 4)}});
    });
    EXPECT_TRUE(InterfaceAction::FindDevice());
    for (int product = 1; product <= 5; ++product)
        expected += "Found device (vendor 4617, product " + std::to_string(product) +
                    ")\nlist index:0 (vendor 4617, product " +
                    std::to_string(product == 5 ? 5 : product + 4) + ")\n";
    EXPECT_EQ(console, expected + "get it");
}

TEST_F(Discovery, EmptyListMatchesNothing) {
    list({});
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "Found device (vendor 4617, product 1)\n");
}

TEST_F(Discovery, ListThatIsNoArrayMatchesNothing) {
    listText("<plist version=\"1.0\"><dict><key>VID</key><integer>4617</integer></dict></plist>");
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "Found device (vendor 4617, product 1)\n");
}

TEST_F(Discovery, NumbersWrittenAsTextCountAndMissingOnesAreZero) {
    listText("<plist version=\"1.0\"><array><string>x</string><dict/>"
             "<dict><key>VID</key><string>4617</string><key>PID</key><string>1</string></dict>"
             "</array></plist>");
    EXPECT_TRUE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "Found device (vendor 4617, product 1)\n"
                       "list index:0 (vendor 0, product 0)\n"
                       "list index:1 (vendor 0, product 0)\n"
                       "list index:2 (vendor 4617, product 1)\n"
                       "get it");
}

TEST_F(Discovery, MissingDictionaryClosesTheGate) {
    script->giveNothing("serviceMatching");
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(log, (Texts{"NO FOUND IOService", "无法创建匹配字典"}));
    EXPECT_EQ(console, "");
    EXPECT_EQ(script->calls, Texts{"serviceMatching IOUSBDevice"});
}

TEST_F(Discovery, MissingVendorNumberClosesTheGate) {
    script->giveNothing("addNumber");
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(log, (Texts{"NO FOUND idVendor", "无法创建匹配字典"}));
    EXPECT_EQ(script->calls, (Texts{"serviceMatching IOUSBDevice", "addNumber idVendor=4617"}));
}

TEST_F(Discovery, MissingProductNumberClosesTheGate) {
    script->refuseNumber("idProduct");
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(log, (Texts{"NO FOUND idProduct", "无法创建匹配字典"}));
}

TEST_F(Discovery, DictionaryHoldsBothNumbers) {
    const auto dictionary =
        InterfaceAction::MyCreateUSBMatchingDictionaryWithVendorID_andProductID(-5, 70000);
    ASSERT_TRUE(dictionary.has_value());
    EXPECT_EQ(dictionary->className, "IOUSBDevice");
    EXPECT_EQ(dictionary->numbers, (std::map<std::string, std::int32_t, std::less<>>{
                                       {"idProduct", 70000}, {"idVendor", -5}}));
}

TEST_F(Discovery, SearchIsMadeWithoutTheCompiledInNumbers) {
    ASSERT_TRUE(InterfaceAction::FindDevice());
    EXPECT_EQ(script->callsOf({"matchingServices"}), Texts{"matchingServices IOUSBDevice"});
}

TEST_F(Discovery, ListingThatFailsFindsNothing) {
    script->answer("matchingServices", {kResultNoMemory});
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(log, Texts{"无法找到匹配的设备"});
    EXPECT_EQ(console, "");
    EXPECT_EQ(Transport::instance().connectFailure, kResultNoMemory);
}

TEST_F(Discovery, PlugInThatFailsIsReportedAndTheNextDeviceTried) {
    script->devices.push_back({.name = "two"});
    script->answer("makePlugIn", {kResultAccess});
    EXPECT_TRUE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "Unable to create a plug-in (5c570004)\n"
                       "Found device (vendor 4617, product 1)\n"
                       "list index:0 (vendor 4617, product 1)\n"
                       "get it");
    EXPECT_EQ(Transport::instance().connectFailure, kResultSuccess);
}

TEST_F(Discovery, PlugInThatIsNullIsReportedWithItsResult) {
    script->giveNothing("makePlugIn");
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "Unable to create a plug-in (00000000)\n");
    EXPECT_EQ(Transport::instance().connectFailure, kResultOther);
}

TEST_F(Discovery, DeviceHandleThatFailsIsReportedAndItsPlugInGivenUp) {
    script->answer("queryDevice", {kResultNotSupported});
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "Unable to create a device interface (5c57000d)\n");
    EXPECT_EQ(script->callsOf({"releaseService", "releasePlugIn"}),
              (Texts{"releaseService one", "releasePlugIn one"}));
    EXPECT_EQ(Transport::instance().connectFailure, kResultNotSupported);
}

TEST_F(Discovery, DeviceHandleThatIsNullIsReported) {
    script->devices.push_back({.name = "two"});
    script->giveNothing("queryDevice");
    EXPECT_TRUE(InterfaceAction::FindDevice());
    EXPECT_EQ(console.substr(0, console.find('\n')),
              "Unable to create a device interface (00000000)");
}

TEST_F(Discovery, ExceptionAnywhereIsFalseWithoutAMessage) {
    for (const char* step : {"serviceMatching", "addNumber", "matchingServices", "nextService",
                             "makePlugIn", "queryDevice", "vendor", "product"}) {
        forget();
        script->raise(step);
        EXPECT_FALSE(InterfaceAction::FindDevice()) << step;
        EXPECT_EQ(log, Texts{}) << step;
        EXPECT_EQ(console, "") << step;
        EXPECT_EQ(Transport::instance().device(), nullptr) << step;
    }
}

TEST_F(Discovery, NothingMatchingClearsAFormerDevice) {
    ASSERT_TRUE(InterfaceAction::FindDevice());
    script->devices.clear();
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(Transport::instance().device(), nullptr);
}

TEST_F(Discovery, FormerInterfaceAndDeviceAreGivenUpBeforeTheSearch) {
    connect();
    ASSERT_TRUE(InterfaceAction::FindDevice());
    ASSERT_GE(script->calls.size(), 4U);
    EXPECT_EQ(Texts(script->calls.begin(), script->calls.begin() + 4),
              (Texts{"close one/1", "releaseInterface one/1", "releaseDevice one",
                     "serviceMatching IOUSBDevice"}));
    ASSERT_NE(Transport::instance().interface(), nullptr);
    EXPECT_TRUE(Transport::instance().interface()->isStale());
}

TEST_F(Discovery, TestSendNumberIsIgnored) {
    EXPECT_NE(InterfaceAction::MyFindMatchingDevicesWithTestSend(0), nullptr);
    EXPECT_NE(InterfaceAction::MyFindMatchingDevicesWithTestSend(-1), nullptr);
}

TEST_F(Discovery, WithoutAHostNothingIsFound) {
    Transport::instance().use(nullptr);
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(log, (Texts{"NO FOUND IOService", "无法创建匹配字典"}));
}

class AlternativeSearch : public TransportFixture {};

TEST_F(AlternativeSearch, NamesEveryDeviceAndGivesTheLast) {
    script->devices.push_back({.name = "two", .vendor = 7, .product = 8});
    const auto device = InterfaceAction::MyFindMatchingDevicesWithDictionary({"IOUSBDevice", {}});
    ASSERT_NE(device, nullptr);
    EXPECT_EQ(device->vendor(), 7);
    EXPECT_EQ(log, (Texts{"Found device with name:one", "Found device with name:two"}));
    EXPECT_EQ(script->callsOf({"queryDevice"}),
              (Texts{"queryDevice one 396104f7943d489390f169bd6cf5c2eb",
                     "queryDevice two 396104f7943d489390f169bd6cf5c2eb"}));
    EXPECT_EQ(console, "");
}

TEST_F(AlternativeSearch, ResultIsTheLastDevicesEvenIfItFailed) {
    script->devices.push_back({.name = "two"});
    script->answer("makePlugIn", {kResultSuccess, kResultAccess});
    EXPECT_EQ(InterfaceAction::MyFindMatchingDevicesWithDictionary({"IOUSBDevice", {}}), nullptr);
}

TEST_F(AlternativeSearch, NoServiceOrAFailedListingGivesNull) {
    script->answer("matchingServices", {kResultOther});
    EXPECT_EQ(InterfaceAction::MyFindMatchingDevicesWithDictionary({"IOUSBDevice", {}}), nullptr);
    script->devices.clear();
    EXPECT_EQ(InterfaceAction::MyFindMatchingDevicesWithDictionary({"IOUSBDevice", {}}), nullptr);
    EXPECT_EQ(log, Texts{});
}

TEST_F(AlternativeSearch, ADeviceHandleThatFailsGivesNullAndThePlugInUp) {
    script->answer("queryDevice", {kResultAccess});
    EXPECT_EQ(InterfaceAction::MyFindMatchingDevicesWithDictionary({"IOUSBDevice", {}}), nullptr);
    EXPECT_EQ(script->callsOf({"releasePlugIn"}), Texts{"releasePlugIn one"});
}

} // namespace
} // namespace scenewright::testing
