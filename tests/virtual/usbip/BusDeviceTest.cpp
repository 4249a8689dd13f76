#include "virtual/usbip/BusDevice.h"

#include "tests/virtual/ControllerDriver.h"
#include "virtual/usbip/TraceLine.h"

#include <cstdint>
#include <optional>

namespace scenewright::usbip {
namespace {

using testing::countingBank;
using testing::dataPacket;
using testing::kHandshakeReply;

class BusDeviceTest : public ::testing::Test {
protected:
    void plugIn(FaultPlan faults = {}, VirtualIdentity identity = {}) {
        controller = VirtualController(countingBank(), std::move(faults));
        device.emplace(controller, keeper, identity);
    }
    void SetUp() override { plugIn(); }

    // The traces of what has ended.
    std::vector<std::string> ended() {
        std::vector<std::string> lines;
        for (const Completion& completion : device->takeCompletions())
            lines.push_back(traceLine(completion));
        return lines;
    }
    void in(std::uint32_t sequence, std::uint32_t room = 64) {
        ASSERT_TRUE(device->submit(
            {.sequence = sequence, .isIn = true, .endpoint = kInEndpoint, .length = room}, {}));
    }
    void out(std::uint32_t sequence, const Bytes& bytes) {
        ASSERT_TRUE(device->submit({.sequence = sequence,
                                    .endpoint = kOutEndpoint,
                                    .length = static_cast<std::uint32_t>(bytes.size())},
                                   bytes));
    }
    void handshake() {
        out(1, {0x09, 0x9C, 0x01, 0x02});
        out(2, {0x09, 0x9C, 0x7E, 0x7D});
        in(3);
        ended();
    }
    void startReading() {
        handshake();
        out(4, {0x09, 0x9C, 0x01, 0x04});
        in(5);
        ended();
    }

    using Lines = std::vector<std::string>;
    VirtualController controller{countingBank()};
    BankKeeper keeper{{}};
    std::optional<BusDevice> device;
};

TEST_F(BusDeviceTest, InTransferWaitsUntilThereIsAReply) {
    in(7);
    EXPECT_EQ(ended(), Lines{});
    out(8, {0x09, 0x9C, 0x01, 0x02});
    EXPECT_EQ(ended(), Lines{"8 ep2 out ok 4: 09 9c 01 02"});
    out(9, {0x09, 0x9C, 0x7E, 0x7D});
    EXPECT_EQ(ended(), (Lines{"9 ep2 out ok 4: 09 9c 7e 7d",
                              "7 ep1 in ok 12: 09 9c 01 02 09 9c 01 38 09 9c 00 01"}));
}

TEST_F(BusDeviceTest, ReplyWaitsUntilThereIsAnInTransfer) {
    out(1, {0x09, 0x9C, 0x01, 0x02});
    out(2, {0x09, 0x9C, 0x7E, 0x7D});
    ended();
    in(3);
    EXPECT_EQ(ended(), Lines{"3 ep1 in ok 12: 09 9c 01 02 09 9c 01 38 09 9c 00 01"});
}

TEST_F(BusDeviceTest, WaitingTransfersAreServedOldestFirst) {
    startReading();
    in(6);
    in(7);
    out(8, {0x09, 0x9C, 0x01, 0x06});
    EXPECT_EQ(ended(), (Lines{"8 ep2 out ok 4: 09 9c 01 06", "6 ep1 in ok 4: 09 90 00 00"}));
    out(9, {0x09, 0x9C, 0x01, 0x06});
    EXPECT_EQ(ended(), (Lines{"9 ep2 out ok 4: 09 9c 01 06", "7 ep1 in ok 4: 09 90 00 01"}));
}

TEST_F(BusDeviceTest, UnlinkTakesAWaitingTransferBack) {
    in(7);
    in(8);
    EXPECT_TRUE(device->unlink(7));
    EXPECT_FALSE(device->unlink(7));
    EXPECT_FALSE(device->unlink(9));
    handshake();
    EXPECT_FALSE(device->unlink(8)) << "it has got the handshake's reply";
}

TEST_F(BusDeviceTest, ReplyLongerThanTheRoomOverflows) {
    out(1, {0x09, 0x9C, 0x01, 0x02});
    out(2, {0x09, 0x9C, 0x7E, 0x7D});
    ended();
    in(3, 11);
    EXPECT_EQ(ended(), Lines{"3 ep1 in overflow 0"});
    in(4, 12);
    EXPECT_EQ(ended(), Lines{}) << "the reply is lost";
}

TEST_F(BusDeviceTest, TransfersOnOtherEndpointsStall) {
    ASSERT_TRUE(device->submit({.sequence = 1, .isIn = true, .endpoint = 2, .length = 4}, {}));
    ASSERT_TRUE(device->submit({.sequence = 2, .endpoint = 1, .length = 1}, Bytes{9}));
    ASSERT_TRUE(device->submit({.sequence = 3, .isIn = true, .endpoint = 15, .length = 4}, {}));
    EXPECT_EQ(ended(), (Lines{"1 ep2 in stall 0", "2 ep1 out stall 0", "3 ep15 in stall 0"}));
}

TEST_F(BusDeviceTest, OneInterfaceDeviceHasNoPipes) {
    plugIn({}, {.interfaces = 1});
    in(1);
    out(2, {0x09, 0x9C, 0x01, 0x02});
    EXPECT_EQ(ended(), (Lines{"1 ep1 in stall 0", "2 ep2 out stall 0"}));
}

TEST_F(BusDeviceTest, ControlTransfersAnswerOrStall) {
    const auto control = [&](std::uint32_t sequence, bool isIn, std::uint32_t length,
                             const usbip::Setup& setup) {
        ASSERT_TRUE(device->submit(
            {.sequence = sequence, .isIn = isIn, .endpoint = 0, .length = length, .setup = setup},
            {}));
    };
    control(1, true, 4, {0x80, 6, 0, 3, 0, 0, 255, 0});
    control(2, false, 0, {0x00, 9, 1, 0, 0, 0, 0, 0});
    control(3, true, 10, {0x80, 6, 0, 6, 0, 0, 10, 0});
    control(4, true, 2, {0x80, 6, 0, 3, 0, 0, 255, 0});
    EXPECT_EQ(ended(), (Lines{"1 ep0 in ok 4 (80 06 00 03 00 00 ff 00): 04 03 09 04",
                              "2 ep0 out ok 0 (00 09 01 00 00 00 00 00)",
                              "3 ep0 in stall 0 (80 06 00 06 00 00 0a 00)",
                              "4 ep0 in ok 2 (80 06 00 03 00 00 ff 00): 04 03"}));
}

TEST_F(BusDeviceTest, HaltedInPipeStallsEveryTransferUntilCleared) {
    plugIn({{Fault::Kind::Stall, 0}});
    startReading();
    in(6);
    in(7);
    out(8, {0x09, 0x9C, 0x01, 0x06});
    EXPECT_EQ(ended(),
              (Lines{"8 ep2 out ok 4: 09 9c 01 06", "6 ep1 in stall 0", "7 ep1 in stall 0"}));
    in(9);
    EXPECT_EQ(ended(), Lines{"9 ep1 in stall 0"});
    ASSERT_TRUE(device->submit({.endpoint = 0, .setup = {0x02, 1, 0, 0, 0x81, 0, 0, 0}}, {}));
    ended();
    out(10, {0x09, 0x9C, 0x01, 0x06});
    in(11);
    EXPECT_EQ(ended(), (Lines{"10 ep2 out ok 4: 09 9c 01 06", "11 ep1 in ok 4: 09 90 00 00"}));
}

TEST_F(BusDeviceTest, HaltedOutPipeStalls) {
    plugIn({{Fault::Kind::Stall, 0}});
    handshake();
    out(4, {0x09, 0x9C, 0x01, 0x03});
    out(5, {0x09, 0x9C, 0x00, 0x01});
    ended();
    out(6, dataPacket(5));
    out(7, dataPacket(6));
    EXPECT_EQ(ended(), (Lines{"6 ep2 out stall 0", "7 ep2 out stall 0"}));
}

TEST_F(BusDeviceTest, FailedWriteFails) {
    plugIn({{Fault::Kind::FailedWrite, 1}});
    out(1, {0x09, 0x9C, 0x01, 0x02});
    out(2, {0x09, 0x9C, 0x7E, 0x7D});
    EXPECT_EQ(ended(), (Lines{"1 ep2 out ok 4: 09 9c 01 02", "2 ep2 out failed 0"}));
}

TEST_F(BusDeviceTest, UnpluggedDeviceCompletesTheWriteAndNothingMore) {
    plugIn({{Fault::Kind::Unplug, 0}});
    startReading();
    in(6);
    EXPECT_TRUE(device->isPresent());
    out(7, {0x09, 0x9C, 0x01, 0x06});
    EXPECT_EQ(ended(), Lines{"7 ep2 out ok 4: 09 9c 01 06"});
    EXPECT_FALSE(device->isPresent());
}

TEST_F(BusDeviceTest, MoreWaitingTransfersThanThereIsRoomForAreRefused) {
    for (std::uint32_t sequence = 0; sequence < 256; ++sequence)
        in(sequence);
    EXPECT_FALSE(device->submit({.isIn = true, .endpoint = kInEndpoint, .length = 64}, {}));
}

TEST(UsbipTrace, TakenBackTransferHasALine) {
    EXPECT_EQ(unlinkTraceLine(15), "15 unlinked");
}

} // namespace
} // namespace scenewright::usbip
