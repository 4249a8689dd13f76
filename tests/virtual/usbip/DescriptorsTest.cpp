#include "virtual/usbip/BusDevice.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace scenewright::usbip {
namespace {

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

// Every descriptor starts with its own size: walking them must end at the end.
TEST(UsbDescriptors, SizesOfTheConfigurationAddUp) {
    for (const std::uint8_t interfaces : {std::uint8_t{1}, std::uint8_t{2}}) {
        const Bytes bytes = configurationDescriptor({.interfaces = interfaces});
        EXPECT_EQ(bytes[2] + bytes[3] * 256U, bytes.size());
        std::size_t place = 0;
        while (place < bytes.size() && bytes[place] > 0)
            place += bytes[place];
        EXPECT_EQ(place, bytes.size());
    }
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
