#include "virtual/VirtualHost.h"

#include "platform/Diagnostics.h"
#include "platform/Resources.h"
#include "tests/support/TempFolder.h"
#include "tests/virtual/ControllerDriver.h"
#include "usb/InterfaceAction.h"

#include <chrono>
#include <fstream>
#include <future>

namespace scenewright::testing {
namespace {

class VirtualHostTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::ofstream(folder.file("project.plist"))
            << "<plist version=\"1.0\"><array><dict><key>VID</key><integer>4617</integer>"
               "<key>PID</key><integer>1</integer></dict></array></plist>";
        Resources::setFolder(folder.path());
    }
    void TearDown() override {
        Transport::instance().use(nullptr);
        Diagnostics::setConsole({});
        Diagnostics::setLog({});
        Resources::setFolder({});
    }

    void plugIn(FaultPlan faults = {}, VirtualIdentity identity = {},
                const std::string& bankFile = {}) {
        controller = std::make_shared<VirtualController>(countingBank(), std::move(faults));
        host = makeVirtualHost(controller, BankKeeper(bankFile), identity);
        Transport::instance().use(host, [](auto) {});
    }
    static bool connect() {
        return InterfaceAction::FindDevice() && InterfaceAction::CreateInterface();
    }
    static ResultCode write(const Bytes& bytes) {
        return InterfaceAction::WriteToDeviceWithChar_andSize(
            bytes.data(), static_cast<std::int32_t>(bytes.size()));
    }
    static std::string handshake() {
        write({0x09, 0x9C, 0x01, 0x02});
        write({0x09, 0x9C, 0x7E, 0x7D});
        std::string all;
        for (const std::string& text : InterfaceAction::ReadVersionFromDevice())
            all += text;
        return all;
    }
    static void startReading() {
        handshake();
        write({0x09, 0x9C, 0x01, 0x04});
        InterfaceAction::ReadDataFromDevice();
    }
    static void startSending() {
        handshake();
        write({0x09, 0x9C, 0x01, 0x03});
        write({0x09, 0x9C, 0x00, 0x01});
        InterfaceAction::ReadFromDevice();
    }
    static ResultCode firstFailure() {
        const auto tally = Transport::instance().tally();
        return tally.first ? tally.first->code : kResultSuccess;
    }

    TempFolder folder;
    std::shared_ptr<VirtualController> controller;
    std::shared_ptr<VirtualHost> host;
};

TEST_F(VirtualHostTest, IsFoundTakenAndListedAsAMidiKeyboard) {
    std::string console;
    Diagnostics::setConsole([&](std::string_view text) { console += text; });
    plugIn();
    ASSERT_TRUE(connect());
    EXPECT_EQ(console, "Found device (vendor 4617, product 1)\n"
                       "list index:0 (vendor 4617, product 1)\n"
                       "get itInterface class 1, subclass 3\n"
                       "Interface has 2 endpoints\n"
                       "PipeRef 1:direction in,transfer type bulk, maxPacketSize 64\n"
                       "PipeRef 2:direction out,transfer type bulk, maxPacketSize 64\n");
}

TEST_F(VirtualHostTest, ConversationRunsThroughTheSeam) {
    plugIn();
    ASSERT_TRUE(connect());
    EXPECT_EQ(handshake(), "099c010209"
                           "9c0138"
                           "099c00");
    write({0x09, 0x9C, 0x01, 0x04});
    InterfaceAction::ReadDataFromDevice();
    write({0x09, 0x9C, 0x01, 0x06});
    write({0x09, 0x9C, 0x01, 0x06});
    InterfaceAction::ReadDataFromDevice();
    EXPECT_EQ(InterfaceAction::ReadDataFromDevice()[3], 1);
    EXPECT_TRUE(Transport::instance().tally().isClean());
}

TEST_F(VirtualHostTest, OtherIdentityIsNotTaken) {
    plugIn({}, {.vendor = 0x1234, .product = 0x5678});
    EXPECT_FALSE(InterfaceAction::FindDevice());
    EXPECT_EQ(Transport::instance().connectFailure, kResultSuccess);
}

TEST_F(VirtualHostTest, DeviceOfOneInterfaceIsFoundButNotTaken) {
    plugIn({}, {.interfaces = 1});
    EXPECT_TRUE(InterfaceAction::FindDevice());
    EXPECT_FALSE(InterfaceAction::CreateInterface());
    EXPECT_EQ(Transport::instance().connectFailure, kResultNotFound);
}

TEST_F(VirtualHostTest, SecondHandleIsBusyWhileTheFirstIsOpen) {
    plugIn();
    ASSERT_TRUE(connect());
    std::unique_ptr<ServiceIterator> interfaces;
    std::unique_ptr<UsbPlugIn> made;
    std::unique_ptr<UsbInterface> second;
    Transport::instance().device()->interfaceIterator({}, interfaces);
    ASSERT_NE(interfaces->next(), nullptr);
    host->makePlugIn(*interfaces->next(), PlugInType::Interface, {}, made);
    made->queryInterface({}, second);
    EXPECT_EQ(second->open(), kResultBusy);
    EXPECT_EQ(Transport::instance().interface()->open(), kResultSuccess) << "the holder may";
    InterfaceAction::closeInterface();
    EXPECT_EQ(second->open(), kResultSuccess);
}

TEST_F(VirtualHostTest, TransfersOnAClosedInterfaceFail) {
    plugIn();
    ASSERT_TRUE(connect());
    InterfaceAction::closeInterface();
    InterfaceAction::ReadFromDevice();
    EXPECT_EQ(firstFailure(), kResultNotOpen);
    EXPECT_EQ(write({0x01}), kResultNotOpen);
}

TEST_F(VirtualHostTest, ReadWaitsUntilCancelledAndEverythingAfterIsToo) {
    plugIn();
    ASSERT_TRUE(connect());
    auto read = std::async(std::launch::async, [] { InterfaceAction::ReadFromDevice(); });
    EXPECT_EQ(read.wait_for(std::chrono::milliseconds(20)), std::future_status::timeout);
    host->cancelTransfers();
    read.get();
    EXPECT_EQ(firstFailure(), kResultCancelled);
    EXPECT_EQ(write({0x01}), kResultCancelled);
}

TEST_F(VirtualHostTest, FailedWriteHasACode) {
    plugIn({{Fault::Kind::FailedWrite, 1}});
    ASSERT_TRUE(connect());
    EXPECT_EQ(write({0x09, 0x9C, 0x01, 0x02}), kResultSuccess);
    EXPECT_EQ(write({0x09, 0x9C, 0x7E, 0x7D}), kResultInputOutput);
    EXPECT_EQ(write({0x09, 0x9C, 0x7E, 0x7D}), kResultGivenUp);
}

TEST_F(VirtualHostTest, StallInAReadHasACodeAndEndsWhenTheInterfaceIsTakenAnew) {
    plugIn({{Fault::Kind::Stall, 0}});
    ASSERT_TRUE(connect());
    startReading();
    write({0x09, 0x9C, 0x01, 0x06});
    InterfaceAction::ReadDataFromDevice();
    EXPECT_EQ(firstFailure(), kResultStall);
    ASSERT_TRUE(connect());
    startReading();
    EXPECT_TRUE(Transport::instance().tally().isClean());
}

TEST_F(VirtualHostTest, StallInASendFailsTheWrite) {
    plugIn({{Fault::Kind::Stall, 1}});
    ASSERT_TRUE(connect());
    startSending();
    EXPECT_EQ(write(dataPacket(0x5A)), kResultSuccess);
    EXPECT_EQ(write(dataPacket(0x5A)), kResultStall);
}

TEST_F(VirtualHostTest, UnpluggedControllerIsGoneUntilItIsPluggedInAgain) {
    plugIn({{Fault::Kind::Unplug, 0}});
    ASSERT_TRUE(connect());
    startReading();
    write({0x09, 0x9C, 0x01, 0x06});
    InterfaceAction::ReadDataFromDevice();
    EXPECT_EQ(firstFailure(), kResultNoDevice);
    EXPECT_EQ(write({0x09, 0x9C, 0x01, 0x06}), kResultNoDevice);
    EXPECT_FALSE(InterfaceAction::FindDevice());
    controller->reset();
    EXPECT_TRUE(connect());
}

TEST_F(VirtualHostTest, ControllerUnpluggedBetweenFindingAndTakingIsNotTaken) {
    plugIn({{Fault::Kind::Unplug, 0}});
    ASSERT_TRUE(InterfaceAction::FindDevice());
    ControllerDriver aside({{Fault::Kind::Unplug, 0}});
    aside.startReading();
    aside.readNext();
    *controller = aside.controller;
    EXPECT_FALSE(InterfaceAction::CreateInterface());
    EXPECT_EQ(Transport::instance().connectFailure, kResultNoDevice);
}

TEST_F(VirtualHostTest, BankIsKeptInItsFileAfterACompletedSendOnly) {
    const std::string file = folder.file("bank");
    plugIn({}, {}, file);
    ASSERT_TRUE(connect());
    startSending();
    for (int packet = 0; packet < 511; ++packet)
        write(dataPacket(0x5A));
    EXPECT_FALSE(std::filesystem::exists(file));
    write(dataPacket(0x5A));
    const Bytes kept = readBytes(file);
    ASSERT_EQ(kept.size(), 1012U);
    EXPECT_EQ(kept[0], 0x5A);
    EXPECT_EQ(kept[511], 0x5A);
    EXPECT_EQ(kept[512], 0x00);
    EXPECT_EQ(host->bankTrouble(), std::nullopt);
}

TEST_F(VirtualHostTest, BankThatCannotBeKeptIsLoggedAndTold) {
    const std::string file = folder.file("missing/bank");
    plugIn({}, {}, file);
    ASSERT_TRUE(connect());
    startSending();
    for (int packet = 0; packet < 511; ++packet)
        write(dataPacket(0x5A));
    std::vector<std::string> log;
    Diagnostics::setLog([&](std::string_view line) { log.emplace_back(line); });
    EXPECT_EQ(write(dataPacket(0x5A)), kResultSuccess) << "the send itself went well";
    ASSERT_TRUE(host->bankTrouble().has_value());
    EXPECT_NE(host->bankTrouble()->find(file), std::string::npos) << *host->bankTrouble();
    ASSERT_GE(log.size(), 2U);
    EXPECT_EQ(log[1], *host->bankTrouble());
}

} // namespace
} // namespace scenewright::testing
