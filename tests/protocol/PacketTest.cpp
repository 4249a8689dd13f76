#include "protocol/Connection.h"
#include "tests/protocol/DeviceTest.h"

namespace scenewright {
namespace {

TEST(Packet, CommandsAreNoteOnsOfCableZeroOnChannelThirteen) {
    EXPECT_EQ(packets::kHandshakeRequest, (Packet{0x09, 0x9C, 0x01, 0x02}));
    EXPECT_EQ(packets::kHandshakeConfirm, (Packet{0x09, 0x9C, 0x7E, 0x7D}));
    EXPECT_EQ(packets::kHandshakeReply, (Packet{0x09, 0x9C, 0x01, 0x38}));
    EXPECT_EQ(packets::kSendStart, (Packet{0x09, 0x9C, 0x01, 0x03}));
    EXPECT_EQ(packets::kReadStart, (Packet{0x09, 0x9C, 0x01, 0x04}));
    EXPECT_EQ(packets::kReadEnd, (Packet{0x09, 0x9C, 0x01, 0x05}));
    EXPECT_EQ(packets::kReadNext, (Packet{0x09, 0x9C, 0x01, 0x06}));
    EXPECT_EQ(packets::kFill, (Packet{0x09, 0x90, 0x0F, 0x0F}));
}

TEST(Packet, DataByteTravelsAsTwoNibbles) {
    EXPECT_EQ(packets::data(0xA7), (Packet{0x09, 0x90, 0x0A, 0x07}));
    EXPECT_EQ(packets::data(0x7F), (Packet{0x09, 0x90, 0x07, 0x0F}));
}

TEST(Packet, ZeroByteDiffersFromTheFillPacket) {
    EXPECT_EQ(packets::data(0x00), (Packet{0x09, 0x90, 0x00, 0x00}));
    EXPECT_NE(packets::data(0x00), packets::kFill);
}

class PacketWriting : public testing::DeviceTest {};

TEST_F(PacketWriting, PacketIsOneTransferOfFourBytesOnPipeTwo) {
    takeInterface();
    writePacket(packets::data(0xA7));
    EXPECT_EQ(script->calls, (testing::Lines{"write one/1 2 09 90 0a 07"}));
}

} // namespace
} // namespace scenewright
