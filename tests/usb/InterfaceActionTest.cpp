#include "usb/InterfaceAction.h"

#include "tests/usb/TransportFixture.h"

#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace scenewright::testing {
namespace {

using Texts = std::vector<std::string>;

Transport& transport() {
    return Transport::instance();
}

Texts joined(Texts texts, const Texts& more) {
    texts.insert(texts.end(), more.begin(), more.end());
    return texts;
}

using InterfaceActionTest = TransportFixture;

TEST_F(InterfaceActionTest, FindsAndOpensInOrder) {
    EXPECT_TRUE(InterfaceAction::FindDevice());
    EXPECT_EQ(script->events,
              (Texts{"canMatch 1209 0001", "devices any any", "prepare one", "vendor one",
                     "product one", "console Found device (vendor 4617, product 1)\n",
                     "console list index:0 (vendor 4617, product 1)\n", "console get it"}));
    ASSERT_NE(transport().device(), nullptr);
    forget();
    EXPECT_TRUE(InterfaceAction::CreateInterface());
    EXPECT_EQ(
        script->events,
        (Texts{"interface one 1", "interfaceClass one/1", "console Interface class 1, subclass 3\n",
               "open one/1", "endpointCount one/1", "console Interface has 2 endpoints\n",
               "pipeProperties one/1 1", "console PipeRef 1:", "console direction in,",
               "console transfer type bulk, maxPacketSize 64\n", "pipeProperties one/1 2",
               "console PipeRef 2:", "console direction out,",
               "console transfer type bulk, maxPacketSize 64\n"}));
    ASSERT_NE(transport().interface(), nullptr);
    EXPECT_FALSE(transport().interface()->isStale());
    EXPECT_EQ(transport().connectFailure, kResultSuccess);
}

// One step that fails, and all that happens from FindDevice or CreateInterface on.
struct Failure {
    UsbStep step;
    ResultCode code;
    Texts events;
};

using Failures = std::vector<Failure>;

const Failures& gateFailures() {
    static const Failures kRows{
        {UsbStep::MatchDevices,
         kResultOther,
         {"canMatch 1209 0001", "log NO FOUND IOService", "log 无法创建匹配字典"}},
        {UsbStep::MatchVendor,
         kResultInvalid,
         {"canMatch 1209 0001", "log NO FOUND idVendor", "log 无法创建匹配字典"}},
        {UsbStep::MatchProduct,
         kResultNoMemory,
         {"canMatch 1209 0001", "log NO FOUND idProduct", "log 无法创建匹配字典"}}};
    return kRows;
}

const Failures& searchFailures() {
    static const Failures kRows{
        {UsbStep::ListDevices,
         kResultNoMemory,
         {"canMatch 1209 0001", "devices any any", "log 无法找到匹配的设备"}},
        {UsbStep::DevicePlugIn,
         kResultAccess,
         {"canMatch 1209 0001", "devices any any", "prepare one",
          "console Unable to create a plug-in (5c570004)\n", "log 无法找到匹配的设备"}},
        {UsbStep::DeviceHandle,
         kResultNotSupported,
         {"canMatch 1209 0001", "devices any any", "prepare one",
          "console Unable to create a device interface (5c57000d)\n", "log 无法找到匹配的设备"}}};
    return kRows;
}

const Texts kUntilOpen{"interface one 1", "interfaceClass one/1",
                       "console Interface class 1, subclass 3\n", "open one/1"};

const Failures& interfaceFailures() {
    static const std::string kNone = "log 无法找到设备接口";
    static const Failures kRows{
        {UsbStep::InterfacePlugIn,
         kResultNoMemory,
         {"interface one 1", "console Unable to create a plug-in (5c57000c)\n", kNone}},
        {UsbStep::InterfaceHandle,
         kResultNotSupported,
         {"interface one 1",
          "console Couldn\xE2\x80\x99t create a device interface for the interface(5c57000d)\n",
          kNone}},
        {UsbStep::Open, kResultBusy,
         joined(kUntilOpen,
                {"console Unable to open interface (5c570007)\n", "release one/1", kNone})},
        {UsbStep::EndpointCount, kResultInputOutput,
         joined(kUntilOpen,
                {"endpointCount one/1", "console Unable to get number of endpoints (5c570002)\n",
                 "close one/1", "release one/1", kNone})},
        // The last message comes while it is open; it goes when the handle is overwritten.
        {UsbStep::PipeProperties, kResultStall,
         joined(kUntilOpen, {"endpointCount one/1", "console Interface has 2 endpoints\n",
                             "pipeProperties one/1 1",
                             "console Unable to get properties of pipe 1 (5c57000a)\n",
                             "close one/1", "release one/1", kNone})}};
    return kRows;
}

TEST_F(InterfaceActionTest, EachFailureOfTheSearchHasItsMessages) {
    for (const Failures* const table : {&gateFailures(), &searchFailures()})
        for (const Failure& row : *table) {
            forget();
            script->fail(row.step, row.code);
            EXPECT_FALSE(InterfaceAction::FindDevice());
            EXPECT_EQ(script->events, row.events);
            EXPECT_EQ(transport().connectFailure, row.code) << row.events.back();
        }
}

TEST_F(InterfaceActionTest, EachFailureOfTheInterfaceHasItsMessagesBeforeItIsGivenUp) {
    for (const Failure& row : interfaceFailures()) {
        ASSERT_TRUE(InterfaceAction::FindDevice());
        forget();
        script->fail(row.step, row.code);
        EXPECT_FALSE(InterfaceAction::CreateInterface());
        EXPECT_EQ(script->events, row.events);
        EXPECT_EQ(transport().interface(), nullptr) << row.events.back();
        EXPECT_EQ(transport().connectFailure, row.code) << row.events.back();
        EXPECT_EQ(script->claimed, Texts{}) << "the next attempt finds it free";
    }
}

TEST_F(InterfaceActionTest, FailuresWithADeviceBeforeKeepItAndItsInterfaceAtTheGateOnly) {
    connect();
    const auto device = transport().device();
    const auto interface = transport().interface();
    for (const Failure& row : gateFailures()) {
        script->fail(row.step, row.code);
        EXPECT_FALSE(InterfaceAction::FindDevice());
        EXPECT_EQ(transport().device(), device) << row.events[1];
    }
    for (const Failure& row : searchFailures()) {
        script->fail(row.step, row.code);
        transport().setDevice(device);
        EXPECT_FALSE(InterfaceAction::FindDevice());
        EXPECT_EQ(transport().device(), nullptr) << row.events.back();
    }
    EXPECT_EQ(transport().interface(), interface);
    EXPECT_EQ(script->callsOf({"close", "release"}), Texts{});
    EXPECT_EQ(script->claimed, Texts{"one/1"});
}

TEST_F(InterfaceActionTest, AListThatCannotBeReadIsWhyNoneWasFound) {
    listText("no list");
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(transport().connectFailure, kResultNoList);
}

TEST_F(InterfaceActionTest, MissingMemoryIsWhyNoneWasFound) {
    script->meanwhile["devices"] = [] { throw std::bad_alloc(); };
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(transport().connectFailure, kResultNoMemory);
}

TEST_F(InterfaceActionTest, AnExceptionAnywhereIsFalseWithoutAMessageAndKeepsTheFormerDevice) {
    connect();
    const auto device = transport().device();
    const auto interface = transport().interface();
    for (const char* const step : {"canMatch", "devices", "prepare", "vendor", "product"}) {
        forget();
        script->raise(step);
        EXPECT_FALSE(InterfaceAction::FindDevice()) << step;
        EXPECT_EQ(console, "") << step;
        EXPECT_EQ(log, Texts{}) << step;
        EXPECT_EQ(transport().device(), device) << step;
        EXPECT_EQ(transport().interface(), interface) << step;
        EXPECT_EQ(transport().connectFailure, kResultOther) << step;
        EXPECT_EQ(script->callsOf({"close", "release"}), Texts{}) << step;
    }
}

TEST_F(InterfaceActionTest, FormerInterfaceStaysUntilTheNewOneOverwritesItBeforeItOpens) {
    connect();
    const auto former = transport().interface();
    ASSERT_TRUE(InterfaceAction::FindDevice());
    EXPECT_EQ(transport().interface(), former);
    EXPECT_FALSE(former->isStale());
    forget();
    ASSERT_TRUE(InterfaceAction::CreateInterface());
    EXPECT_TRUE(former->isStale());
    EXPECT_NE(transport().interface(), former);
    EXPECT_EQ(script->callsOf({"interface", "open", "close", "release"}),
              (Texts{"interface one 1", "close one/1", "release one/1", "open one/1"}));
    EXPECT_EQ(script->claimed, Texts{"one/1"});
}

TEST_F(InterfaceActionTest, FormerInterfaceGoesWithoutANewOneToo) {
    connect();
    script->fail(UsbStep::InterfacePlugIn, kResultNoDevice);
    EXPECT_FALSE(InterfaceAction::CreateInterface());
    EXPECT_EQ(script->callsOf({"close", "release"}), (Texts{"close one/1", "release one/1"}));
    EXPECT_EQ(transport().interface(), nullptr);
}

TEST_F(InterfaceActionTest, NoDeviceAtAllIsNotFoundAndNothingIsOpened) {
    connect();
    script->devices.clear();
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "");
    EXPECT_EQ(log, Texts{"无法找到匹配的设备"});
    EXPECT_EQ(transport().device(), nullptr);
    EXPECT_EQ(transport().connectFailure, kResultNotPlugged);
    forget();
    EXPECT_FALSE(InterfaceAction::CreateInterface());
    EXPECT_EQ(script->events, Texts{});
}

TEST_F(InterfaceActionTest, WithoutAHostTheGateIsClosed) {
    transport().use(nullptr);
    forget();
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(script->events, (Texts{"log NO FOUND IOService", "log 无法创建匹配字典"}));
}

TEST_F(InterfaceActionTest, TheGateAsksForTheNumbersThatItIsGiven) {
    const auto match =
        InterfaceAction::MyCreateUSBMatchingDictionaryWithVendorID_andProductID(-5, 70000);
    ASSERT_TRUE(match.has_value());
    EXPECT_EQ(match->vendor, -5);
    EXPECT_EQ(match->product, 70000);
    EXPECT_EQ(script->events, Texts{"canMatch fffffffb 11170"});
}

TEST_F(InterfaceActionTest, TestSendNumberChangesNothing) {
    std::vector<Texts> events;
    for (const std::int32_t number : {0, -1, 7}) {
        forget();
        EXPECT_NE(InterfaceAction::MyFindMatchingDevicesWithTestSend(number), nullptr);
        events.push_back(script->events);
    }
    EXPECT_EQ(events[1], events[0]);
    EXPECT_EQ(events[2], events[0]);
    EXPECT_EQ(events[0].size(), 7U);
}

// What stands in the list, what is attached, what is printed of it and which device is found.
struct SearchCase {
    const char* name;
    std::vector<Listed> list;
    std::vector<ScriptedDevice> devices;
    std::string console;
    std::string found; // empty: none
};

const std::vector<SearchCase>& searches() {
    static const ScriptedDevice kOne{.name = "one"};
    static const ScriptedDevice kTwo{.name = "two"};
    static const std::string kFound = "Found device (vendor 4617, product 1)\n";
    static const std::string kFirst = "list index:0 (vendor 4617, product 1)\n";
    static const std::vector<SearchCase> kRows{
        {"carries the compiled-in pair but is not listed",
         {{"4660", "22136"}},
         {kOne},
         kFound + "list index:0 (vendor 4660, product 22136)\n",
         ""},
        {"is listed without the compiled-in pair",
         {{"4617", "2"}, {"65535", "40000"}},
         {{.name = "one", .vendor = 65535, .product = 40000}},
         "Found device (vendor 65535, product 40000)\nlist index:0 (vendor 4617, product 2)\n"
         "list index:1 (vendor 65535, product 40000)\nget it",
         "one"},
        {"vendor and product of two elements",
         {{"4617", "2"}, {"4618", "1"}},
         {kOne},
         kFound + "list index:0 (vendor 4617, product 2)\nlist index:1 (vendor 4618, product 1)\n",
         ""},
        {"a negative number with the same low bits",
         {{"-60919", "1"}},
         {kOne},
         kFound + "list index:0 (vendor -60919, product 1)\n",
         ""},
        {"the first matching element ends the list",
         {{"4617", "1"}, {"4617", "1"}},
         {kOne},
         kFound + kFirst + "get it",
         "one"},
        {"the first matching device ends the search",
         {{"4617", "1"}},
         {kOne, kTwo},
         kFound + kFirst + "get it",
         "one"},
        {"one that does not match is passed over",
         {{"4617", "1"}},
         {{.name = "one", .product = 7}, kTwo},
         "Found device (vendor 4617, product 7)\n" + kFirst + kFound + kFirst + "get it",
         "two"},
        {"an empty list", {}, {kOne}, kFound, ""}};
    return kRows;
}

TEST_F(InterfaceActionTest, DevicesAreComparedWithTheList) {
    for (const SearchCase& row : searches()) {
        SCOPED_TRACE(row.name);
        list(row.list);
        script->devices = row.devices;
        forget();
        EXPECT_EQ(InterfaceAction::FindDevice(), !row.found.empty());
        EXPECT_EQ(console, row.console);
        const auto device = transport().device();
        EXPECT_EQ(device ? device->name() : "", row.found);
    }
}

TEST_F(InterfaceActionTest, ADeviceThatFailsIsPassedOverAndForgottenWhenTheNextMatches) {
    script->devices.push_back({.name = "two"});
    for (const UsbStep step : {UsbStep::DevicePlugIn, UsbStep::DeviceHandle}) {
        script->fail(step, kResultAccess);
        EXPECT_TRUE(InterfaceAction::FindDevice());
        EXPECT_EQ(transport().device()->name(), "two");
        EXPECT_EQ(transport().connectFailure, kResultSuccess);
    }
}

TEST_F(InterfaceActionTest, TheListIsReadAgainForEveryDevice) {
    script->devices = {{.name = "one", .product = 7}, {.name = "two", .product = 8}};
    list({{"4617", "1"}});
    script->meanwhile["product"] = [this] {
        if (script->callsOf({"product"}).size() == 2)
            list({{"4617", "8"}}); // as long as before, and as old
    };
    EXPECT_TRUE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "Found device (vendor 4617, product 7)\n"
                       "list index:0 (vendor 4617, product 1)\n"
                       "Found device (vendor 4617, product 8)\n"
                       "list index:0 (vendor 4617, product 8)\n"
                       "get it");
}

TEST_F(InterfaceActionTest, ListThatIsNoArrayMatchesNothing) {
    listText("<plist version=\"1.0\"><dict><key>VID</key><integer>4617</integer></dict></plist>");
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(console, "Found device (vendor 4617, product 1)\n");
}

TEST_F(InterfaceActionTest, NumbersWrittenAsTextCountAndMissingOnesAreZero) {
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

TEST_F(InterfaceActionTest, TheSecondInterfaceIsTakenWhateverElseThereIs) {
    for (const std::size_t count : {0, 1, 2, 3}) {
        script->devices[0].interfaces.resize(count);
        ASSERT_TRUE(InterfaceAction::FindDevice());
        forget();
        EXPECT_EQ(InterfaceAction::CreateInterface(), count >= 2) << count;
        EXPECT_EQ(script->callsOf({"interface"}), Texts{"interface one 1"});
        if (count < 2) {
            EXPECT_EQ(console, "Unable to create a plug-in (5c570006)\n");
            EXPECT_EQ(transport().connectFailure, kResultNotFound);
        }
    }
}

TEST_F(InterfaceActionTest, APipeThatFailsLeavesTheInterfaceOpenUntilTheHandleIsOverwritten) {
    ASSERT_TRUE(InterfaceAction::FindDevice());
    script->answer("pipeProperties", {kResultSuccess, kResultStall});
    forget();
    EXPECT_EQ(InterfaceAction::FindInterfacesWithDevice(*transport().device()), nullptr);
    EXPECT_EQ(script->events.back(), "console Unable to get properties of pipe 2 (5c57000a)\n");
    EXPECT_EQ(script->claimed, Texts{"one/1"});
}

PipeProperties pipeOf(std::uint8_t direction, std::uint8_t type, std::uint16_t size) {
    return {.direction = direction,
            .number = 1,
            .transferType = type,
            .maxPacketSize = size,
            .interval = 0};
}

TEST_F(InterfaceActionTest, EveryDirectionAndTransferTypeHasItsText) {
    script->devices[0].interfaces[1] = {
        .kind = {.code = 255, .subClass = 254},
        .pipes = {pipeOf(0, 0, 8), pipeOf(1, 1, 1023), pipeOf(2, 2, 64), pipeOf(3, 3, 0),
                  pipeOf(4, 255, 64), pipeOf(255, 4, 64), pipeOf(0, 254, 65535)}};
    connect();
    EXPECT_TRUE(InterfaceAction::CreateInterface());
    EXPECT_EQ(console, "Interface class 255, subclass 254\n"
                       "Interface has 7 endpoints\n"
                       "PipeRef 1:direction out,transfer type control, maxPacketSize 8\n"
                       "PipeRef 2:direction in,transfer type isoc, maxPacketSize 1023\n"
                       "PipeRef 3:direction none,transfer type bulk, maxPacketSize 64\n"
                       "PipeRef 4:direction any,transfer type interrupt, maxPacketSize 0\n"
                       "PipeRef 5:direction ???,transfer type any, maxPacketSize 64\n"
                       "PipeRef 6:direction ???,transfer type ???, maxPacketSize 64\n"
                       "PipeRef 7:direction out,transfer type ???, maxPacketSize 65535\n");
}

TEST_F(InterfaceActionTest, NoPipesAndAsManyAsACountCanHoldAreListed) {
    for (const std::size_t count : {0, 255}) {
        script->devices[0].interfaces[1].pipes.assign(count, pipeOf(1, 2, 64));
        connect();
        EXPECT_TRUE(InterfaceAction::CreateInterface());
        EXPECT_EQ(script->callsOf({"pipeProperties"}).size(), count);
        EXPECT_TRUE(console.starts_with("Interface class 1, subclass 3\nInterface has " +
                                        std::to_string(count) + " endpoints\n"));
    }
}

TEST_F(InterfaceActionTest, OpenAndCloseIgnoreTheirResultsAndKeepTheHandle) {
    connect();
    script->answer("open", {kResultBusy});
    script->answer("close", {kResultNoDevice});
    InterfaceAction::openInterface();
    InterfaceAction::closeInterface();
    InterfaceAction::openInterface();
    EXPECT_EQ(script->events, (Texts{"open one/1", "close one/1", "open one/1"}));
    EXPECT_FALSE(transport().interface()->isStale());
}

TEST_F(InterfaceActionTest, KillClosesAndReleasesOnceAndLeavesTheHandleStale) {
    for (const bool isOpen : {true, false})
        for (const ResultCode code : {kResultSuccess, kResultNoDevice}) {
            connect();
            if (!isOpen)
                InterfaceAction::closeInterface();
            forget();
            script->answer("close", {code});
            script->answer("release", {code});
            InterfaceAction::KillInterface();
            InterfaceAction::KillInterface();
            InterfaceAction::openInterface();
            InterfaceAction::closeInterface();
            EXPECT_EQ(script->events, (Texts{"close one/1", "release one/1"}));
            ASSERT_NE(transport().interface(), nullptr);
            EXPECT_TRUE(transport().interface()->isStale());
            EXPECT_EQ(transport().interface()->releaseCode(), code);
        }
}

TEST_F(InterfaceActionTest, OperationsWithoutAnInterfaceDoNothing) {
    InterfaceAction::openInterface();
    InterfaceAction::closeInterface();
    InterfaceAction::KillInterface();
    EXPECT_EQ(script->events, Texts{});
}

TEST_F(InterfaceActionTest, InterfaceOfAnotherProgramIsBusyAndLeftAlone) {
    script->claimed = {"one/1"};
    ASSERT_TRUE(InterfaceAction::FindDevice());
    EXPECT_FALSE(InterfaceAction::CreateInterface());
    EXPECT_EQ(transport().connectFailure, kResultBusy);
    EXPECT_EQ(script->claimed, Texts{"one/1"});
}

TEST_F(InterfaceActionTest, TheOtherSearchNamesEveryDeviceThatMatchesAndGivesTheLast) {
    script->devices = {{.name = "one"}, {.name = "two"}, {.name = "three", .vendor = 7}};
    const auto device =
        InterfaceAction::MyFindMatchingDevicesWithDictionary({.vendor = 0x1209, .product = {}});
    ASSERT_NE(device, nullptr);
    EXPECT_EQ(device->name(), "two");
    EXPECT_EQ(script->events,
              (Texts{"devices 1209 any", "log Found device with name:one", "prepare one",
                     "log Found device with name:two", "prepare two"}));
}

TEST_F(InterfaceActionTest, TheOtherSearchGivesNothingWhenTheLastFailsOrThereIsNone) {
    script->devices.push_back({.name = "two"});
    script->answer("prepare", {kResultSuccess, kResultAccess});
    EXPECT_EQ(InterfaceAction::MyFindMatchingDevicesWithDictionary({}), nullptr);
    forget();
    script->answer("devices", {kResultOther});
    EXPECT_EQ(InterfaceAction::MyFindMatchingDevicesWithDictionary({}), nullptr);
    script->devices.clear();
    EXPECT_EQ(InterfaceAction::MyFindMatchingDevicesWithDictionary({}), nullptr);
    EXPECT_EQ(script->events, (Texts{"devices any any", "devices any any"}));
    transport().use(nullptr);
    EXPECT_EQ(InterfaceAction::MyFindMatchingDevicesWithDictionary({}), nullptr);
}

} // namespace
} // namespace scenewright::testing
