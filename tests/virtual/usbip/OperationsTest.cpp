#include "virtual/usbip/Operations.h"

#include <gtest/gtest.h>

#include <algorithm>
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

TEST(UsbipOperations, DevicesRequestIsRead) {
    const OperationRequest request =
        decodeOperation(Bytes{0x01, 0x11, 0x80, 0x05, 0x00, 0x00, 0x00, 0x00});
    EXPECT_EQ(request.code, OperationCode::RequestDevices);
    EXPECT_EQ(request.trouble, "");
}

TEST(UsbipOperations, ImportRequestIsRead) {
    const OperationRequest request =
        decodeOperation(Bytes{0x01, 0x11, 0x80, 0x03, 0x00, 0x00, 0x00, 0x00, 0x31});
    EXPECT_EQ(request.code, OperationCode::RequestImport);
}

TEST(UsbipOperations, RequestTruncatedAtEachLengthIsRefused) {
    const Bytes whole{0x01, 0x11, 0x80, 0x05, 0x00, 0x00, 0x00, 0x00};
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const OperationRequest request = decodeOperation(ByteView(whole).first(size));
        EXPECT_FALSE(request.code.has_value());
        EXPECT_EQ(request.trouble, "an operation of " + std::to_string(size) + " bytes");
    }
}

TEST(UsbipOperations, EveryFieldOutOfRangeIsRefused) {
    EXPECT_EQ(decodeOperation(Bytes{0x01, 0x10, 0x80, 0x05, 0, 0, 0, 0}).trouble,
              "version 0110 of the protocol");
    EXPECT_EQ(decodeOperation(Bytes{0x01, 0x11, 0x80, 0x04, 0, 0, 0, 0}).trouble,
              "an unknown operation 8004");
    EXPECT_EQ(decodeOperation(Bytes{0x01, 0x11, 0x00, 0x05, 0, 0, 0, 0}).trouble,
              "an unknown operation 0005");
    EXPECT_EQ(decodeOperation(Bytes{0x01, 0x11, 0x80, 0x05, 0, 0, 0, 1}).trouble,
              "a request with the status 1");
}

TEST(UsbipOperations, BusIdIsTheTextUpToItsZero) {
    Bytes field(32, 0);
    field[0] = '1';
    field[1] = '-';
    field[2] = '1';
    field[4] = 'x';
    EXPECT_EQ(decodeBusId(field), "1-1");
}

TEST(UsbipOperations, BusIdThatIsEmptyEndlessOrNoTextIsRefused) {
    EXPECT_EQ(decodeBusId(Bytes(32, 0)), std::nullopt);
    EXPECT_EQ(decodeBusId(Bytes(32, '1')), std::nullopt);
    for (const std::uint8_t byte : Bytes{0x01, 0x1F, 0x20, 0x7F, 0x80, 0xFF}) {
        Bytes field(32, 0);
        field[0] = byte;
        EXPECT_EQ(decodeBusId(field), std::nullopt) << int{byte};
    }
}

TEST(UsbipOperations, BusIdOfAnotherSizeIsRefused) {
    Bytes field(40, 0);
    field[0] = '1';
    for (std::size_t size = 0; size <= field.size(); ++size)
        EXPECT_EQ(decodeBusId(ByteView(field).first(size)).has_value(), size == 32) << size;
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
}

TEST(UsbipOperations, DevicesReplyOfNoDevice) {
    EXPECT_EQ(encodeDevicesReply({}), (Bytes{0x01, 0x11, 0x00, 0x05, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(UsbipOperations, ImportReplyHoldsTheDeviceWithoutItsInterfaces) {
    const Bytes reply = encodeImportReply(OperationStatus::Ok, keyboard());
    ASSERT_EQ(reply.size(), 8U + 312U);
    EXPECT_EQ(slice(reply, 0, 8), (Bytes{0x01, 0x11, 0x00, 0x03, 0, 0, 0, 0}));
    EXPECT_EQ(slice(reply, 8 + 288, 24), kNumbers);
}

TEST(UsbipOperations, ImportReplyThatRefusesHoldsItsStatusAlone) {
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

} // namespace
} // namespace scenewright::usbip
