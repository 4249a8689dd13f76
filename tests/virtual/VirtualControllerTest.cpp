#include "tests/virtual/ControllerDriver.h"

#include <algorithm>

namespace scenewright::testing {
namespace {

TEST(VirtualController, HandshakeIsAnsweredInOneTransferOfThreePackets) {
    ControllerDriver driver;
    EXPECT_EQ(driver.write({0x09, 0x9C, 0x01, 0x02}), WriteResult::Taken);
    EXPECT_EQ(driver.reply(), kNothing) << "the confirm is due first";
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x7E, 0x7D}), kHandshakeReply);
    EXPECT_EQ(driver.reply(), kNothing);
}

TEST(VirtualController, BothHandshakePacketsMayComeInOneTransfer) {
    ControllerDriver driver;
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x02, 0x09, 0x9C, 0x7E, 0x7D}), kHandshakeReply);
}

TEST(VirtualController, NothingIsAnsweredBeforeAHandshake) {
    ControllerDriver driver;
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x04}), kNothing);
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x06}), kNothing);
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x03}), kNothing);
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x00, 0x02}), kNothing);
    driver.sendBytes(0x11, 512);
    EXPECT_EQ(driver.reply(), kNothing);
    EXPECT_EQ(driver.controller.bank(), countingBank());
}

TEST(VirtualController, ReadNextGivesTheBankInNibbles) {
    BankImage bank = countingBank();
    bank[0] = 0xA7;
    bank[1] = 0x00;
    bank[2] = 0xFF;
    ControllerDriver driver({}, bank);
    driver.handshake();
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x04}).size(), 4U) << "read start";
    EXPECT_EQ(driver.readNext(), (Bytes{0x09, 0x90, 0x0A, 0x07}));
    EXPECT_EQ(driver.readNext(), (Bytes{0x09, 0x90, 0x00, 0x00}));
    EXPECT_EQ(driver.readNext(), (Bytes{0x09, 0x90, 0x0F, 0x0F}));
    EXPECT_EQ(driver.readNext(), (Bytes{0x09, 0x90, 0x00, 0x03}));
    for (unsigned index = 4; index < 1011; ++index)
        ASSERT_EQ(driver.readNext(), dataPacket(index % 128)) << index;
    EXPECT_EQ(driver.readNext(), (Bytes{0x09, 0x90, 0x07, 0x03})); // 1011 modulo 128
    EXPECT_EQ(driver.readNext(), (Bytes{0x09, 0x90, 0x0F, 0x0F})) << "past the end is fill";
}

TEST(VirtualController, ReadEndIsNotAnsweredAndAsksForANewHandshake) {
    ControllerDriver driver;
    driver.startReading();
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x05}), kNothing);
    EXPECT_EQ(driver.readNext(), kNothing);
    driver.startReading();
    EXPECT_EQ(driver.readNext(), dataPacket(0)) << "from the beginning again";
}

TEST(VirtualController, EachBlockIsAnsweredAndPutInMemoryAtItsEnd) {
    ControllerDriver driver;
    driver.handshake();
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x03}), kNothing) << "send start";
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x00, 0x02}).size(), 4U);
    driver.sendBytes(0x5A, 511);
    EXPECT_EQ(driver.reply(), kNothing);
    EXPECT_EQ(driver.controller.bank(), countingBank());
    driver.sendBytes(0x5A, 1);
    EXPECT_EQ(driver.reply().size(), 4U);
    EXPECT_EQ(driver.controller.blocksWritten(), 1U);
    EXPECT_EQ(driver.controller.bank()[0], 0x5A);
    EXPECT_EQ(driver.controller.bank()[511], 0x5A);
    EXPECT_EQ(driver.controller.bank()[512], 0x00) << "512 modulo 128: not written yet";

    driver.sendBytes(0x33, 500);
    driver.sendBytes(0xFF, 11);
    EXPECT_EQ(driver.controller.sendsEnded(), 0U);
    driver.sendBytes(0xFF, 1);
    EXPECT_EQ(driver.reply().size(), 4U);
    EXPECT_EQ(driver.controller.bank()[512], 0x33);
    EXPECT_EQ(driver.controller.bank()[1011], 0x33);
    EXPECT_EQ(driver.controller.blocksWritten(), 2U);
    EXPECT_EQ(driver.controller.sendsEnded(), 1U);
}

TEST(VirtualController, OneBlockLeavesTheRestOfTheBankAndNeedsANewHandshakeAfterIt) {
    ControllerDriver driver;
    driver.startSending(1);
    driver.sendBytes(0xFF, 512);
    EXPECT_EQ(driver.reply().size(), 4U);
    EXPECT_EQ(driver.controller.bank()[511], 0xFF);
    EXPECT_EQ(driver.controller.bank()[512], 0x00);
    EXPECT_EQ(driver.controller.sendsEnded(), 1U);
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x04}), kNothing);
}

TEST(VirtualController, BlocksPastTheMemoryAreAnsweredAndDropped) {
    ControllerDriver driver;
    driver.startSending(17);
    for (unsigned block = 0; block < 17; ++block) {
        driver.sendBytes(block, 512);
        ASSERT_EQ(driver.reply().size(), 4U) << block;
    }
    EXPECT_EQ(driver.controller.blocksWritten(), 2U);
    EXPECT_EQ(driver.controller.bank()[0], 0);
    EXPECT_EQ(driver.controller.bank()[1011], 1);
    EXPECT_EQ(driver.controller.sendsEnded(), 1U);
}

// A count of 18 blocks has the bytes of a handshake request. The memory holds 2.
TEST(VirtualController, HandshakeRequestInPlaceOfABlockCountStartsOver) {
    ControllerDriver driver;
    driver.handshake();
    driver.write({0x09, 0x9C, 0x01, 0x03});
    EXPECT_EQ(driver.handshake(), kHandshakeReply);
}

TEST(VirtualController, SendOfNoBlocksEndsAtOnce) {
    ControllerDriver driver;
    EXPECT_EQ(driver.startSending(0).size(), 4U);
    driver.sendBytes(0x11, 512);
    EXPECT_EQ(driver.reply(), kNothing);
    EXPECT_EQ(driver.controller.bank(), countingBank());
}

TEST(VirtualController, HandshakeRequestStartsOverInTheMiddleOfARead) {
    ControllerDriver driver;
    driver.startReading();
    driver.readNext();
    driver.write({0x09, 0x9C, 0x01, 0x06}); // a reply that nobody fetches
    EXPECT_EQ(driver.handshake(), kHandshakeReply);
    EXPECT_EQ(driver.reply(), kNothing);
    driver.ask({0x09, 0x9C, 0x01, 0x04});
    EXPECT_EQ(driver.readNext(), dataPacket(0));
}

TEST(VirtualController, HandshakeRequestStartsOverInTheMiddleOfABlock) {
    ControllerDriver driver;
    driver.startSending(2);
    driver.sendBytes(0x77, 100);
    EXPECT_EQ(driver.startSending(1).size(), 4U);
    driver.sendBytes(0x66, 511);
    EXPECT_EQ(driver.controller.bank(), countingBank()) << "the 100 do not count";
    driver.sendBytes(0x66, 1);
    EXPECT_EQ(driver.controller.bank()[0], 0x66);
}

TEST(VirtualController, PacketsOutOfPlaceAreIgnored) {
    ControllerDriver driver;
    driver.startReading();
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x03}), kNothing) << "send start while reading";
    EXPECT_EQ(driver.ask(dataPacket(5)), kNothing);
    EXPECT_EQ(driver.ask({0x0B, 0xB0, 0x01, 0x06}), kNothing);
    EXPECT_EQ(driver.ask({0x19, 0x9C, 0x01, 0x06}), kNothing) << "another cable";
    EXPECT_EQ(driver.readNext(), dataPacket(0));
    driver.startSending(1);
    driver.sendBytes(0x21, 256);
    EXPECT_EQ(driver.ask({0x09, 0x9C, 0x01, 0x06}), kNothing) << "read next while sending";
    driver.sendBytes(0x21, 256);
    EXPECT_EQ(driver.reply().size(), 4U);
}

TEST(VirtualController, TransfersOfBrokenPacketsAreTakenAndIgnored) {
    ControllerDriver driver;
    for (const Bytes& bytes : {Bytes{}, Bytes{0x09}, Bytes{0x09, 0x9C}, Bytes{0x09, 0x9C, 0x01},
                               Bytes{0x09, 0x9C, 0x01, 0x02, 0x09}}) {
        EXPECT_EQ(driver.write(bytes), WriteResult::Taken);
        EXPECT_EQ(driver.ask({0x09, 0x9C, 0x7E, 0x7D}), kNothing) << bytes.size();
    }
}

TEST(VirtualController, ResetKeepsTheBankAndForgetsTheConversation) {
    ControllerDriver driver;
    driver.startSending(2);
    driver.sendBytes(0x5A, 512);
    driver.controller.reset();
    EXPECT_EQ(driver.reply(), kNothing);
    EXPECT_EQ(driver.controller.bank()[0], 0x5A);
    driver.startReading();
    EXPECT_EQ(driver.readNext(), dataPacket(0x5A));
}

} // namespace
} // namespace scenewright::testing
