#include "virtual/usbip/BusDevice.h"

#include "tests/virtual/ControllerDriver.h"
#include "virtual/usbip/Session.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace scenewright::usbip {
namespace {

using testing::ControllerDriver;
using testing::countingBank;
using testing::dataPacket;
using testing::kHandshakeReply;
using Pipe = VirtualController::Pipe;

class BusDeviceTest : public ::testing::Test {
protected:
    void plugIn(FaultPlan faults = {}, VirtualIdentity identity = {}) {
        controller = VirtualController(countingBank(), std::move(faults));
        device.emplace(controller, identity,
                       [this](const BankImage& bank) { sent.push_back(bank); });
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

    bool play(const Packet& packet) { return device->play({&packet, 1}); }

    using Lines = std::vector<std::string>;
    VirtualController controller{countingBank()};
    std::vector<BankImage> sent;
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

// What no IN transfer fetches waits in the controller.
TEST_F(BusDeviceTest, MoreUnreadRepliesThanThereIsRoomForAreRefused) {
    startReading();
    Bytes reads;
    for (int packet = 0; packet < 1024; ++packet)
        reads.insert(reads.end(), {0x09, 0x9C, 0x01, 0x06});
    out(6, reads);
    out(7, reads);
    const auto refused = device->submit({.sequence = 8, .endpoint = kOutEndpoint, .length = 4},
                                        Bytes{0x09, 0x9C, 0x01, 0x06});
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error(), "more unread replies than the device has room for");
}

constexpr Packet kPlayed{0x09, 0x99, 0x26, 0x64};
constexpr Packet kPlayedAfter{0x08, 0x89, 0x26, 0x00};
constexpr const char* kPlayedLine = " ep1 in ok 4: 09 99 26 64";

TEST_F(BusDeviceTest, WhatIsPlayedGoesToTheHostThatWaitsForIt) {
    in(1);
    EXPECT_TRUE(play(kPlayed));
    EXPECT_EQ(ended(), Lines{"1" + std::string(kPlayedLine)});
    EXPECT_TRUE(play(kPlayed)) << "its next transfer has not come yet";
    EXPECT_TRUE(play(kPlayedAfter));
    in(2);
    in(3);
    EXPECT_EQ(ended(), (Lines{"2" + std::string(kPlayedLine), "3 ep1 in ok 4: 08 89 26 00"}));
}

TEST_F(BusDeviceTest, OneTransferCarriesAsManyPacketsAsItHolds) {
    in(1);
    in(2);
    EXPECT_TRUE(device->play(std::vector<Packet>(17, kPlayed)));
    const auto lines = ended();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_TRUE(lines[0].starts_with("1 ep1 in ok 64: 09 99 26 64 09 99"));
    EXPECT_EQ(lines[1], "2" + std::string(kPlayedLine));
}

TEST_F(BusDeviceTest, WhatIsPlayedIsDroppedWhenNobodyListens) {
    EXPECT_FALSE(play(kPlayed));
    in(1);
    in(2);
    ended();
    ASSERT_TRUE(device->unlink(2));
    EXPECT_FALSE(play(kPlayed));
    EXPECT_EQ(ended(), Lines{});
    in(3);
    EXPECT_EQ(ended(), Lines{}) << "nothing has been kept";
}

TEST_F(BusDeviceTest, HostThatFallsBehindLosesWhatItHasNoRoomFor) {
    in(1);
    for (int transfer = 0; transfer < 257; ++transfer)
        ASSERT_TRUE(play(kPlayed));
    EXPECT_FALSE(play(kPlayed));
}

// Before each step of a read, between it and its answer, and when an answer never comes.
TEST_F(BusDeviceTest, WhatIsPlayedNeverComesIntoAConversation) {
    for (const bool isSilent : {false, true}) {
        plugIn(isSilent ? FaultPlan{{Fault::Kind::NoAnswer, 0}} : FaultPlan{});
        in(1);
        EXPECT_TRUE(play(kPlayed));
        EXPECT_TRUE(play(kPlayedAfter)) << "waits, and the read drops it";
        ended();
        std::uint32_t sequence = 10;
        for (const std::uint8_t step : std::to_array<std::uint8_t>({2, 0x7E, 4, 6, 5})) {
            out(sequence++,
                step == 0x7E ? Bytes{0x09, 0x9C, 0x7E, 0x7D} : Bytes{0x09, 0x9C, 0x01, step});
            EXPECT_FALSE(play(kPlayed)) << int{step};
            in(sequence++);
            EXPECT_EQ(play(kPlayed), !isSilent && step == 0x05) << int{step};
        }
        Lines played;
        for (const std::string& line : ended())
            if (line.ends_with(kPlayedLine))
                played.push_back(line);
        EXPECT_EQ(played.size(), isSilent ? 0U : 1U);
    }
}

TEST_F(BusDeviceTest, HostThatHasGivenAReadUpMayListenAgain) {
    startReading();
    in(6);
    EXPECT_FALSE(play(kPlayed));
    ASSERT_TRUE(device->unlink(6));
    EXPECT_FALSE(play(kPlayed));
    in(7);
    EXPECT_TRUE(play(kPlayed));
    EXPECT_EQ(ended(), Lines{"7" + std::string(kPlayedLine)});
    out(8, {0x09, 0x9C, 0x01, 0x06});
    EXPECT_FALSE(play(kPlayed)) << "the read goes on";
    in(9);
    ended();
    in(10);
    EXPECT_FALSE(play(kPlayed)) << "the read goes on";
    ASSERT_TRUE(device->submit({.endpoint = 0, .setup = {0x80, 6, 2, 3, 9, 4, 255, 0}}, {}));
    in(11);
    EXPECT_TRUE(play(kPlayed)) << "a driver has bound anew";
}

TEST_F(BusDeviceTest, EachSendIsToldOnceAtItsEndWithTheWholeBank) {
    for (unsigned byte = 5; byte < 7; ++byte) {
        handshake();
        out(4, {0x09, 0x9C, 0x01, 0x03});
        out(5, {0x09, 0x9C, 0x00, 0x01});
        for (std::uint32_t packet = 0; packet < 512; ++packet) {
            EXPECT_EQ(sent.size(), byte - 5);
            out(6 + packet, dataPacket(byte));
        }
        in(1000);
        in(1001);
        ended();
    }
    ASSERT_EQ(sent.size(), 2U);
    EXPECT_EQ(sent[0][511], 5);
    EXPECT_EQ(sent[1][0], 6);
    EXPECT_EQ(sent[1][512], 512 % 128) << "not sent";
}

TEST(UsbipTrace, TakenBackTransferHasALine) {
    EXPECT_EQ(unlinkTraceLine(15), "15 unlinked");
}

class Control : public ::testing::Test {
protected:
    std::optional<Bytes> ask(const usbip::Setup& setup) { return endpoint.answer(setup); }

    ControllerDriver driver{{{Fault::Kind::Stall, 0}}};
    ControlEndpoint endpoint{driver.controller, {}};

    void haltIn() {
        driver.startReading();
        driver.readNext();
        ASSERT_TRUE(driver.controller.isHalted(Pipe::In));
    }
};

TEST_F(Control, RequestsAreAnsweredOrStalled) {
    const struct {
        usbip::Setup setup;
        std::optional<Bytes> answer;
    } requests[] = {
        // Descriptors, cut to the requested length.
        {{0x80, 6, 0, 1, 0, 0, 64, 0}, deviceDescriptor({})},
        {{0x80, 6, 0, 1, 0, 0, 8, 0}, Bytes{18, 1, 0x10, 0x01, 0, 0, 0, 64}},
        {{0x80, 6, 0, 1, 0, 0, 0, 0}, Bytes{}},
        {{0x80, 6, 0, 2, 0, 0, 0xFF, 0xFF}, configurationDescriptor({})},
        {{0x80, 6, 1, 2, 0, 0, 9, 0}, std::nullopt}, // there is one configuration
        {{0x80, 6, 0, 3, 0, 0, 255, 0}, Bytes{4, 3, 9, 4}},
        {{0x80, 6, 3, 3, 9, 4, 255, 0}, stringDescriptor(3)},
        {{0x80, 6, 4, 3, 9, 4, 255, 0}, std::nullopt},
        {{0x80, 6, 0, 6, 0, 0, 10, 0}, std::nullopt}, // device qualifier
        {{0x80, 6, 0, 7, 0, 0, 10, 0}, std::nullopt},
        {{0x80, 6, 0, 0, 0, 0, 10, 0}, std::nullopt},
        {{0x81, 6, 0, 0x22, 0, 0, 10, 0}, std::nullopt}, // a report
        // The configuration is set and told.
        {{0x80, 8, 0, 0, 0, 0, 1, 0}, Bytes{0}},
        {{0x00, 9, 1, 0, 0, 0, 0, 0}, Bytes{}},
        {{0x80, 8, 0, 0, 0, 0, 1, 0}, Bytes{1}},
        {{0x00, 9, 2, 0, 0, 0, 0, 0}, std::nullopt},
        {{0x00, 9, 0, 1, 0, 0, 0, 0}, std::nullopt}, // 256 is not 0
        {{0x80, 8, 0, 0, 0, 0, 1, 0}, Bytes{1}},
        {{0x00, 9, 0, 0, 0, 0, 0, 0}, Bytes{}},
        {{0x80, 8, 0, 0, 0, 0, 1, 0}, Bytes{0}},
        // Interfaces have their first setting alone.
        {{0x81, 10, 0, 0, 1, 0, 1, 0}, Bytes{0}},
        {{0x81, 10, 0, 0, 2, 0, 1, 0}, std::nullopt},
        {{0x01, 11, 0, 0, 1, 0, 0, 0}, Bytes{}},
        {{0x01, 11, 1, 0, 1, 0, 0, 0}, std::nullopt},
        {{0x01, 11, 0, 0, 2, 0, 0, 0}, std::nullopt},
        {{0x00, 5, 7, 0, 0, 0, 0, 0}, Bytes{}}, // an address
        // What is unknown, of a class or of a vendor.
        {{0x21, 1, 0, 1, 0, 0, 2, 0}, std::nullopt}, // audio class
        {{0xC0, 0, 0, 0, 0, 0, 2, 0}, std::nullopt},
        {{0x00, 3, 1, 0, 0, 0, 0, 0}, std::nullopt},  // set feature
        {{0x00, 7, 0, 1, 0, 0, 18, 0}, std::nullopt}, // set descriptor
        {{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, std::nullopt},
    };
    for (const auto& [setup, answer] : requests)
        EXPECT_EQ(ask(setup), answer) << ::testing::PrintToString(setup);
    ControlEndpoint one(driver.controller, {.interfaces = 1});
    EXPECT_EQ(one.answer({0x01, 11, 0, 0, 0, 0, 0, 0}), Bytes{});
    EXPECT_EQ(one.answer({0x01, 11, 0, 0, 1, 0, 0, 0}), std::nullopt) << "there is no second";
}

TEST_F(Control, StatusTellsOfHalts) {
    EXPECT_EQ(ask({0x80, 0, 0, 0, 0, 0, 2, 0}), (Bytes{0, 0}));
    EXPECT_EQ(ask({0x81, 0, 0, 0, 1, 0, 2, 0}), (Bytes{0, 0}));
    EXPECT_EQ(ask({0x82, 0, 0, 0, 0x81, 0, 2, 0}), (Bytes{0, 0}));
    haltIn();
    EXPECT_EQ(ask({0x82, 0, 0, 0, 0x81, 0, 2, 0}), (Bytes{1, 0}));
    EXPECT_EQ(ask({0x82, 0, 0, 0, 0x02, 0, 2, 0}), (Bytes{0, 0}));
    EXPECT_EQ(ask({0x82, 0, 0, 0, 0x00, 0, 2, 0}), (Bytes{0, 0}));
    EXPECT_EQ(ask({0x82, 0, 0, 0, 0x80, 0, 2, 0}), (Bytes{0, 0}));
    EXPECT_EQ(ask({0x82, 0, 0, 0, 0x83, 0, 2, 0}), std::nullopt);
    EXPECT_EQ(ask({0x82, 0, 0, 0, 0x01, 0, 2, 0}), std::nullopt);
}

TEST_F(Control, HaltIsClearedOnItsOwnEndpointAlone) {
    haltIn();
    EXPECT_EQ(ask({0x02, 1, 0, 0, 0x02, 0, 0, 0}), Bytes{});
    EXPECT_TRUE(driver.controller.isHalted(Pipe::In));
    EXPECT_EQ(ask({0x02, 1, 1, 0, 0x81, 0, 0, 0}), std::nullopt) << "another feature";
    EXPECT_EQ(ask({0x02, 1, 0, 0, 0x82, 0, 0, 0}), std::nullopt);
    EXPECT_TRUE(driver.controller.isHalted(Pipe::In));
    EXPECT_EQ(ask({0x02, 1, 0, 0, 0x81, 0, 0, 0}), Bytes{});
    EXPECT_FALSE(driver.controller.isHalted(Pipe::In));
}

TEST_F(Control, SettingConfigurationOrInterfaceClearsHalts) {
    haltIn();
    EXPECT_EQ(ask({0x01, 11, 0, 0, 0, 0, 0, 0}), Bytes{});
    EXPECT_TRUE(driver.controller.isHalted(Pipe::In)) << "interface 0 has no pipes";
    EXPECT_EQ(ask({0x01, 11, 0, 0, 1, 0, 0, 0}), Bytes{});
    EXPECT_FALSE(driver.controller.isHalted(Pipe::In));
    driver.controller.reset();
    haltIn();
    ask({0x00, 9, 1, 0, 0, 0, 0, 0});
    EXPECT_FALSE(driver.controller.isHalted(Pipe::In));
}

TEST(UsbDescriptors, DeviceIsAFullSpeedOneOfItsIdentity) {
    EXPECT_EQ(deviceDescriptor({}), (Bytes{18, 1, 0x10, 0x01, 0, 0, 0, 64, 0x09, 0x12, 0x01, 0x00,
                                           0x00, 0x01, 1, 2, 3, 1}));
    const Bytes other = deviceDescriptor({.vendor = 0xFFFE, .product = 0x8001});
    EXPECT_EQ(Bytes(other.begin() + 8, other.begin() + 12), (Bytes{0xFE, 0xFF, 0x01, 0x80}));
}

TEST(UsbDescriptors, ConfigurationIsAudioControlThenMidiStreaming) {
    const Bytes expected{
        9, 2,    101,  0,    2,    1,  0, 0x80, 50, // configuration
        9, 4,    0,    0,    0,    1,  1, 0,    0,  // interface 0, audio control
        9, 0x24, 1,    0x00, 0x01, 9,  0, 1,    1,  // its header: interface 1 streams
        9, 4,    1,    0,    2,    1,  3, 0,    0,  // interface 1, MIDI streaming, two endpoints
        7, 0x24, 1,    0x00, 0x01, 37, 0,           // its header with the jacks: 37 bytes
        6, 0x24, 2,    1,    1,    0,               // IN jack 1, embedded
        6, 0x24, 2,    2,    2,    0,               // IN jack 2, external
        9, 0x24, 3,    1,    3,    1,  2, 1,    0,  // OUT jack 3, embedded, from jack 2
        9, 0x24, 3,    2,    4,    1,  1, 1,    0,  // OUT jack 4, external, from jack 1
        9, 5,    0x81, 2,    64,   0,  0, 0,    0,  // bulk IN 1
        5, 0x25, 1,    1,    3,                     // from jack 3
        9, 5,    0x02, 2,    64,   0,  0, 0,    0,  // bulk OUT 2
        5, 0x25, 1,    1,    1,                     // to jack 1
    };
    EXPECT_EQ(configurationDescriptor({}), expected);
    EXPECT_EQ(expected.size(), 101U);
}

TEST(UsbDescriptors, ConfigurationOfOneInterfaceHasNoPipes) {
    EXPECT_EQ(configurationDescriptor({.interfaces = 1}),
              (Bytes{9, 2, 26, 0, 1, 1, 0,    0x80, 50,   9,    4, 0, 0,
                     0, 1, 1,  0, 0, 8, 0x24, 1,    0x00, 0x01, 8, 0, 0}));
}

TEST(UsbDescriptors, StringsAreUtf16) {
    EXPECT_EQ(stringDescriptor(0), (Bytes{4, 3, 0x09, 0x04}));
    EXPECT_EQ(stringDescriptor(1), (Bytes{24,  3, 'S', 0, 'c', 0, 'e', 0, 'n', 0, 'e', 0,
                                          'w', 0, 'r', 0, 'i', 0, 'g', 0, 'h', 0, 't', 0}));
    EXPECT_EQ(stringDescriptor(3), (Bytes{10, 3, '0', 0, '0', 0, '0', 0, '1', 0}));
    ASSERT_TRUE(stringDescriptor(2).has_value());
    EXPECT_EQ(stringDescriptor(2)->size(), 38U);
    EXPECT_EQ(stringDescriptor(4), std::nullopt);
    EXPECT_EQ(stringDescriptor(0xEE), std::nullopt);
}

} // namespace
} // namespace scenewright::usbip
