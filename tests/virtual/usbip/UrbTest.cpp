#include "virtual/usbip/Urb.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>

namespace scenewright::usbip {
namespace {

// A 12-byte IN transfer on endpoint 1, as the kernel sends it.
Bytes submitHeader() {
    return {0, 0, 0, 1,    0, 0, 1, 7, 0, 1, 0, 2, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 2, 0,
            0, 0, 0, 0x0C, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 8, 7, 6, 5, 4, 3, 2, 1};
}

Bytes unlinkHeader() {
    Bytes header(48, 0);
    header[3] = 2;
    header[6] = 0x01;
    header[7] = 0x08;
    header[9] = 1;
    header[11] = 2;
    header[22] = 0x01;
    header[23] = 0x07;
    return header;
}

TEST(UsbipUrb, SubmitIsRead) {
    const DecodedCommand decoded = decodeCommand(submitHeader());
    ASSERT_TRUE(decoded.command.has_value()) << decoded.trouble;
    EXPECT_EQ(std::get<SubmitCommand>(*decoded.command),
              (SubmitCommand{.sequence = 0x107,
                             .device = 0x10002,
                             .isIn = true,
                             .endpoint = 1,
                             .length = 12,
                             .setup = {8, 7, 6, 5, 4, 3, 2, 1}}));
}

TEST(UsbipUrb, UnlinkIsRead) {
    const DecodedCommand decoded = decodeCommand(unlinkHeader());
    ASSERT_TRUE(decoded.command.has_value()) << decoded.trouble;
    EXPECT_EQ(std::get<UnlinkCommand>(*decoded.command), (UnlinkCommand{0x108, 0x10002, 0x107}));
}

TEST(UsbipUrb, HeaderTruncatedAtEachLengthIsRefused) {
    for (const Bytes& whole : {submitHeader(), unlinkHeader()})
        for (std::size_t size = 0; size < whole.size(); ++size) {
            const DecodedCommand decoded = decodeCommand(ByteView(whole).first(size));
            EXPECT_FALSE(decoded.command.has_value());
            EXPECT_EQ(decoded.trouble, "a command of " + std::to_string(size) + " bytes");
        }
}

// The header with one number replaced.
Bytes with(std::size_t offset, std::uint32_t value) {
    Bytes header = submitHeader();
    for (unsigned byte = 0; byte < 4; ++byte)
        header[offset + byte] = static_cast<std::uint8_t>(value >> (24U - 8U * byte));
    return header;
}

TEST(UsbipUrb, EveryFieldOutOfRangeIsRefused) {
    EXPECT_EQ(decodeCommand(with(0, 0)).trouble, "an unknown command 0");
    EXPECT_EQ(decodeCommand(with(0, 3)).trouble, "an unknown command 3");
    EXPECT_EQ(decodeCommand(with(0, 0x01000000)).trouble, "an unknown command 16777216");
    EXPECT_EQ(decodeCommand(with(12, 2)).trouble, "a transfer with the direction 2");
    EXPECT_EQ(decodeCommand(with(16, 16)).trouble, "a transfer with the endpoint 16");
    EXPECT_EQ(decodeCommand(with(16, 0x101)).trouble, "a transfer with the endpoint 257");
    EXPECT_EQ(decodeCommand(with(24, 65537)).trouble, "a transfer with the length 65537");
    EXPECT_EQ(decodeCommand(with(24, 0xFFFFFFFF)).trouble, "a transfer with the length 4294967295");
    EXPECT_EQ(decodeCommand(with(32, 1)).trouble, "a transfer with the packet count 1");
}

TEST(UsbipUrb, FieldsAtTheEdgesOfTheirRangesAreTaken) {
    EXPECT_TRUE(decodeCommand(with(16, 15)).command.has_value());
    EXPECT_TRUE(decodeCommand(with(24, 65536)).command.has_value());
    EXPECT_TRUE(decodeCommand(with(24, 0)).command.has_value());
    EXPECT_TRUE(decodeCommand(with(32, 0xFFFFFFFF)).command.has_value());
}

TEST(UsbipUrb, SubmitReplyHoldsStatusLengthAndData) {
    EXPECT_EQ(
        encodeSubmitReply(0x107, UrbStatus::Ok, 4, Bytes{9, 0x90, 1, 2}),
        (Bytes{0, 0, 0, 3, 0, 0, 1, 7, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,    0, 0,
               0, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 9, 0x90, 1, 2}));
}

TEST(UsbipUrb, SubmitReplyOfAStallHoldsItsErrorNumber) {
    const Bytes reply = encodeSubmitReply(1, UrbStatus::Stall, 0, {});
    ASSERT_EQ(reply.size(), 48U);
    EXPECT_EQ(Bytes(reply.begin() + 20, reply.begin() + 28),
              (Bytes{0xFF, 0xFF, 0xFF, 0xE0, 0, 0, 0, 0}));
}

TEST(UsbipUrb, EveryStatusHasTheKernelsNumber) {
    EXPECT_EQ(static_cast<int>(UrbStatus::Ok), 0);
    EXPECT_EQ(static_cast<int>(UrbStatus::Stall), -EPIPE);
    EXPECT_EQ(static_cast<int>(UrbStatus::Failed), -EPROTO);
    EXPECT_EQ(static_cast<int>(UrbStatus::Overflow), -EOVERFLOW);
    EXPECT_EQ(static_cast<int>(UrbStatus::Unlinked), -ECONNRESET);
}

TEST(UsbipUrb, UnlinkReplyHoldsItsStatus) {
    const Bytes taken = encodeUnlinkReply(0x108, UrbStatus::Unlinked);
    ASSERT_EQ(taken.size(), 48U);
    EXPECT_EQ(Bytes(taken.begin(), taken.begin() + 24),
              (Bytes{0, 0, 0, 4, 0, 0, 1, 8, 0,    0,    0,    0,
                     0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0x98}));
    EXPECT_EQ(encodeUnlinkReply(0x108, UrbStatus::Ok)[23], 0);
}

} // namespace
} // namespace scenewright::usbip
