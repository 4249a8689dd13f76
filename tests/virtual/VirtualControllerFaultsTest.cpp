#include "tests/virtual/ControllerDriver.h"

namespace scenewright::testing {
namespace {

using Kind = Fault::Kind;
TEST(VirtualControllerFaults, FirstHandshakeRepliesAreWrongInTurnThenRight) {
    ControllerDriver driver({{Kind::WrongHandshake, 3}});
    Bytes wrongArgument = kHandshakeReply;
    wrongArgument[7] = 0x39;
    Bytes wrongStart = kHandshakeReply;
    wrongStart[0] = 0x0B;
    EXPECT_EQ(driver.handshake(), wrongArgument);
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x04}), kNothing) << "no handshake, no read";
    EXPECT_EQ(driver.handshake(), wrongStart);
    EXPECT_EQ(driver.handshake(), wrongArgument);
    EXPECT_EQ(driver.handshake(), kHandshakeReply);
}

TEST(VirtualControllerFaults, SilenceFromTheBeginningOrAfterSomeReplies) {
    ControllerDriver silent({{Kind::NoAnswer, 0}});
    EXPECT_EQ(silent.handshake(), kNothing);
    ControllerDriver driver({{Kind::NoAnswer, 3}}); // handshake, read start, one byte
    driver.startReading();
    EXPECT_EQ(driver.readNext(), dataPacket(0));
    EXPECT_EQ(driver.readNext(), kNothing);
    EXPECT_EQ(driver.handshake(), kNothing);
    EXPECT_TRUE(driver.controller.isPresent());
    EXPECT_FALSE(driver.controller.isHalted(Pipe::In));
}

TEST(VirtualControllerFaults, OneReplyIsShortOrHasANibbleAboveFifteen) {
    ControllerDriver driver({{Kind::ShortTransfer, 1}, {Kind::WrongNibble, 5}});
    driver.startReading();
    for (unsigned index = 0; index < 8; ++index)
        EXPECT_EQ(driver.readNext(), index == 1   ? (Bytes{0x09, 0x90})
                                     : index == 5 ? (Bytes{0x09, 0x90, 0x00, 0x15})
                                                  : dataPacket(index))
            << index;
}

TEST(VirtualControllerFaults, WritesFailAfterSomePacketsAndDoNothing) {
    ControllerDriver driver({{Kind::FailedWrite, 2}});
    EXPECT_EQ(driver.handshake(), kHandshakeReply);
    EXPECT_EQ(driver.write({0x09, 0x9C, 0x01, 0x04}), WriteResult::Failed);
    EXPECT_EQ(driver.reply(), kNothing);
    EXPECT_EQ(driver.write({0x09, 0x9C, 0x01, 0x02}), WriteResult::Failed);
}

TEST(VirtualControllerFaults, UnplugInAReadTakesTheControllerAway) {
    ControllerDriver driver({{Kind::Unplug, 2}});
    driver.startReading();
    EXPECT_EQ(driver.readNext(), dataPacket(0));
    EXPECT_EQ(driver.readNext(), dataPacket(1));
    EXPECT_TRUE(driver.controller.isPresent());
    EXPECT_EQ(driver.readNext(), kNothing);
    EXPECT_FALSE(driver.controller.isPresent());
    EXPECT_EQ(driver.write({0x09, 0x9C, 0x01, 0x02}), WriteResult::Gone);
}

TEST(VirtualControllerFaults, UnplugInASendLeavesTheBlockUnwritten) {
    ControllerDriver driver({{Kind::Unplug, 600}});
    driver.startSending(2);
    driver.sendBytes(0x5A, 512);
    driver.reply();
    EXPECT_EQ(driver.sendBytes(0x5A, 88), WriteResult::Taken);
    driver.sendBytes(0x5A, 1);
    EXPECT_FALSE(driver.controller.isPresent());
    EXPECT_EQ(driver.controller.blocksWritten(), 1U);
    EXPECT_EQ(driver.controller.bank()[600], 600 % 128);
}

TEST(VirtualControllerFaults, EachUnplugHappensOnce) {
    ControllerDriver driver({{Kind::Unplug, 0}, {Kind::Unplug, 1}});
    driver.startReading();
    EXPECT_EQ(driver.readNext(), kNothing);
    ASSERT_FALSE(driver.controller.isPresent());
    driver.controller.reset();
    EXPECT_TRUE(driver.controller.isPresent());
    driver.startReading();
    EXPECT_EQ(driver.readNext(), dataPacket(0));
    EXPECT_EQ(driver.readNext(), kNothing);
    EXPECT_FALSE(driver.controller.isPresent());
    driver.controller.reset();
    driver.startReading();
    EXPECT_EQ(driver.readNext(), dataPacket(0));
}

TEST(VirtualControllerFaults, StallInAReadHaltsTheInPipeUntilCleared) {
    ControllerDriver driver({{Kind::Stall, 1}});
    driver.startReading();
    EXPECT_EQ(driver.readNext(), dataPacket(0));
    EXPECT_EQ(driver.readNext(), kNothing);
    EXPECT_TRUE(driver.controller.isHalted(Pipe::In));
    EXPECT_FALSE(driver.controller.isHalted(Pipe::Out));
    EXPECT_EQ(driver.handshake(), kNothing) << "halted";
    driver.controller.clearHalt(Pipe::In);
    EXPECT_EQ(driver.reply(), kHandshakeReply);
}

TEST(VirtualControllerFaults, StallInASendHaltsTheOutPipe) {
    ControllerDriver driver({{Kind::Stall, 3}});
    driver.startSending(1);
    EXPECT_EQ(driver.sendBytes(0x5A, 3), WriteResult::Taken);
    EXPECT_EQ(driver.sendBytes(0x5A, 1), WriteResult::Halted);
    EXPECT_TRUE(driver.controller.isHalted(Pipe::Out));
    EXPECT_FALSE(driver.controller.isHalted(Pipe::In));
    driver.controller.clearHalt(Pipe::Out);
    EXPECT_EQ(driver.sendBytes(0x5A, 1), WriteResult::Taken);
}

TEST(VirtualControllerFaults, OrderedFaultsTakeTheFormerOnesPlaceAndCountFromThere) {
    ControllerDriver driver({{Kind::ShortTransfer, 2}});
    driver.startReading();
    EXPECT_EQ(driver.readNext(), dataPacket(0));
    driver.controller.order({{Kind::ShortTransfer, 3}});
    for (unsigned index = 1; index < 4; ++index)
        EXPECT_EQ(driver.readNext(), dataPacket(index)) << index;
    EXPECT_EQ(driver.readNext().size(), 2U);
}

TEST(VirtualControllerFaults, ResetStartsTheCountsOver) {
    ControllerDriver driver({{Kind::WrongHandshake, 1}, {Kind::ShortTransfer, 0}});
    EXPECT_NE(driver.handshake(), kHandshakeReply);
    driver.startReading();
    EXPECT_EQ(driver.readNext().size(), 2U);
    driver.controller.reset();
    EXPECT_NE(driver.handshake(), kHandshakeReply);
    driver.startReading();
    EXPECT_EQ(driver.readNext().size(), 2U);
}

} // namespace
} // namespace scenewright::testing
