#include "virtual/usbip/Protocol.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <span>

namespace scenewright::usbip {
namespace {

DeviceRecord keyboard() {
    return {.path = "/a/b",
            .busId = "1-1",
            .busNumber = 1,
            .deviceNumber = 2,
            .speed = 2,
            .vendor = 0x1209,
            .product = 0xABCD,
            .release = 0x0100,
            .classes = {0xE0, 0xE1, 0xE2},
            .configurationValue = 1,
            .configurations = 3,
            .interfaces = {{1, 1, 0}, {1, 3, 7}}};
}

// What stands at an offset, to be compared with literal bytes.
Bytes slice(const Bytes& bytes, std::size_t from, std::size_t size) {
    const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(from);
    return {begin, begin + static_cast<std::ptrdiff_t>(size)};
}

// The 24 bytes of a device record behind its path and bus id.
const Bytes kNumbers{0,    0,    0,    1,    0, 0, 0,    2,    0,    0, 0, 2,
                     0x12, 0x09, 0xAB, 0xCD, 1, 0, 0xE0, 0xE1, 0xE2, 1, 3, 2};

TEST(UsbipOperations, RequestIsReadOrRefusedWithWhatIsWrong) {
    const struct {
        Bytes request;
        Result<OperationCode> read;
    } cases[] = {
        {{0x01, 0x11, 0x80, 0x05, 0, 0, 0, 0}, OperationCode::RequestDevices},
        {{0x01, 0x11, 0x80, 0x03, 0, 0, 0, 0, 0x31}, OperationCode::RequestImport},
        {{0x01, 0x10, 0x80, 0x05, 0, 0, 0, 0}, failure("version 0110 of the protocol")},
        {{0x01, 0x11, 0x80, 0x04, 0, 0, 0, 0}, failure("an unknown operation 8004")},
        {{0x01, 0x11, 0x00, 0x05, 0, 0, 0, 0}, failure("an unknown operation 0005")},
        {{0x01, 0x11, 0x80, 0x05, 0, 0, 0, 1}, failure("a request with the status 1")},
    };
    for (const auto& [request, read] : cases)
        EXPECT_EQ(decodeOperation(request), read) << ::testing::PrintToString(request);
    for (std::size_t size = 0; size < 8; ++size)
        EXPECT_EQ(decodeOperation(ByteView(cases[0].request).first(size)).error(),
                  "an operation of " + std::to_string(size) + " bytes");
}

TEST(UsbipOperations, BusIdIsTheTextUpToTheZeroInIts32Bytes) {
    Bytes field(40, 0);
    std::ranges::copy(Bytes{'1', '-', '1', 0, 'x'}, field.begin());
    EXPECT_EQ(decodeBusId(ByteView(field).first(32)), "1-1");
    for (std::size_t size = 0; size <= field.size(); ++size)
        EXPECT_EQ(decodeBusId(ByteView(field).first(size)).has_value(), size == 32) << size;
    EXPECT_EQ(decodeBusId(Bytes(32, '1')), std::nullopt);
    for (const std::uint8_t byte : Bytes{0x00, 0x01, 0x1F, 0x20, 0x7F, 0x80, 0xFF}) {
        Bytes no(32, 0);
        no[0] = byte;
        EXPECT_EQ(decodeBusId(no), std::nullopt) << int{byte};
    }
}

TEST(UsbipOperations, DevicesReplyHoldsEveryDeviceWithItsInterfaces) {
    const DeviceRecord device = keyboard();
    const Bytes reply = encodeDevicesReply(std::span(&device, 1));
    ASSERT_EQ(reply.size(), 8U + 4U + 312U + 2U * 4U);
    EXPECT_EQ(slice(reply, 0, 12), (Bytes{0x01, 0x11, 0x00, 0x05, 0, 0, 0, 0, 0, 0, 0, 1}));
    EXPECT_EQ(slice(reply, 12, 6), (Bytes{'/', 'a', '/', 'b', 0, 0}));
    EXPECT_EQ(slice(reply, 12 + 256, 5), (Bytes{'1', '-', '1', 0, 0}));
    EXPECT_EQ(slice(reply, 12 + 288, 24), kNumbers);
    EXPECT_EQ(slice(reply, 12 + 312, 8), (Bytes{1, 1, 0, 0, 1, 3, 7, 0}));
    EXPECT_EQ(encodeDevicesReply({}), (Bytes{0x01, 0x11, 0x00, 0x05, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(UsbipOperations, ImportReplyHoldsTheDeviceWithoutItsInterfacesOrAStatusAlone) {
    const Bytes reply = encodeImportReply(OperationStatus::Ok, keyboard());
    ASSERT_EQ(reply.size(), 8U + 312U);
    EXPECT_EQ(slice(reply, 0, 8), (Bytes{0x01, 0x11, 0x00, 0x03, 0, 0, 0, 0}));
    EXPECT_EQ(slice(reply, 8 + 288, 24), kNumbers);
    EXPECT_EQ(encodeImportReply(OperationStatus::NoDevice, keyboard()),
              (Bytes{0x01, 0x11, 0x00, 0x03, 0, 0, 0, 4}));
    EXPECT_EQ(encodeImportReply(OperationStatus::Busy, keyboard()),
              (Bytes{0x01, 0x11, 0x00, 0x03, 0, 0, 0, 2}));
}

TEST(UsbipOperations, TextsTooLongForTheirFieldsAreCut) {
    DeviceRecord device = keyboard();
    device.path = std::string(300, 'p');
    device.busId = std::string(40, 'b');
    const Bytes reply = encodeImportReply(OperationStatus::Ok, device);
    ASSERT_EQ(reply.size(), 8U + 312U);
    EXPECT_EQ(slice(reply, 8 + 254, 3), (Bytes{'p', 0, 'b'}));
    EXPECT_EQ(slice(reply, 8 + 286, 2), (Bytes{'b', 0}));
}

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

TEST(UsbipUrb, CommandsAreReadWhenTheyAreWhole) {
    EXPECT_EQ(decodeCommand(submitHeader()),
              Command(SubmitCommand{.sequence = 0x107,
                                    .device = 0x10002,
                                    .isIn = true,
                                    .endpoint = 1,
                                    .length = 12,
                                    .setup = {8, 7, 6, 5, 4, 3, 2, 1}}));
    EXPECT_EQ(decodeCommand(unlinkHeader()), Command(UnlinkCommand{0x108, 0x10002, 0x107}));
    for (const Bytes& whole : {submitHeader(), unlinkHeader()})
        for (std::size_t size = 0; size < whole.size(); ++size)
            EXPECT_EQ(decodeCommand(ByteView(whole).first(size)).error(),
                      "a command of " + std::to_string(size) + " bytes");
}

// The header with one number replaced.
Bytes with(std::size_t offset, std::uint32_t value) {
    Bytes header = submitHeader();
    for (unsigned byte = 0; byte < 4; ++byte)
        header[offset + byte] = static_cast<std::uint8_t>(value >> (24U - 8U * byte));
    return header;
}

TEST(UsbipUrb, FieldsAreTakenInTheirRangesAlone) {
    const struct {
        std::size_t offset;
        std::uint32_t value;
        std::string_view error;
    } cases[] = {
        {0, 0, "an unknown command 0"},
        {0, 3, "an unknown command 3"},
        {0, 0x01000000, "an unknown command 16777216"},
        {12, 2, "a transfer with the direction 2"},
        {16, 15, ""},
        {16, 16, "a transfer with the endpoint 16"},
        {16, 0x101, "a transfer with the endpoint 257"},
        {24, 0, ""},
        {24, 65536, ""},
        {24, 65537, "a transfer with the length 65537"},
        {24, 0xFFFFFFFF, "a transfer with the length 4294967295"},
        {32, 1, "a transfer with the packet count 1"},
        {32, 0xFFFFFFFF, ""},
    };
    for (const auto& [offset, value, error] : cases) {
        const Result<Command> decoded = decodeCommand(with(offset, value));
        EXPECT_EQ(decoded ? "" : decoded.error(), error) << value;
    }
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
