#include "virtual/usbip/Descriptors.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace scenewright::usbip {

namespace {

// More descriptor types, of USB and, from 0x24 on, of a class.
constexpr std::uint8_t kInterface = 0x04;
constexpr std::uint8_t kEndpoint = 0x05;
constexpr std::uint8_t kClassInterface = 0x24;
constexpr std::uint8_t kClassEndpoint = 0x25;

constexpr std::uint8_t kAudio = 0x01;         // interface class
constexpr std::uint8_t kAudioControl = 0x01;  // subclass
constexpr std::uint8_t kMidiStreaming = 0x03; // subclass
constexpr std::uint8_t kHeader = 0x01;        // class interface descriptor subtypes
constexpr std::uint8_t kInJack = 0x02;
constexpr std::uint8_t kOutJack = 0x03;
constexpr std::uint8_t kEmbedded = 0x01;
constexpr std::uint8_t kExternal = 0x02;
constexpr std::uint8_t kGeneral = 0x01; // class endpoint descriptor subtype
constexpr std::uint8_t kBulk = 0x02;
constexpr std::uint8_t kPacketSize = 64; // the most that full speed has

// Jack identifiers. Data from the host enters by an IN jack inside, and leaves by an OUT jack.
constexpr std::uint8_t kInInside = 1;
constexpr std::uint8_t kInOutside = 2;
constexpr std::uint8_t kOutInside = 3;
constexpr std::uint8_t kOutOutside = 4;

// One row a descriptor.
// clang-format off
constexpr auto kAudioControlAlone = std::to_array<std::uint8_t>({
    9, kInterface, 0, 0, 0, kAudio, kAudioControl, 0, 0, // number 0, no endpoints
    8, kClassInterface, kHeader, 0x00, 0x01, 8, 0, 0,    // 1.00, no streaming interface
});

constexpr auto kAudioControlOfMidi = std::to_array<std::uint8_t>({
    9, kInterface, 0, 0, 0, kAudio, kAudioControl, 0, 0,
    9, kClassInterface, kHeader, 0x00, 0x01, 9, 0, 1, kMidiInterface,
});

constexpr auto kMidi = std::to_array<std::uint8_t>({
    9, kInterface, kMidiInterface, 0, 2, kAudio, kMidiStreaming, 0, 0, // two endpoints
    7, kClassInterface, kHeader, 0x00, 0x01, 37, 0,                    // 37 bytes with the jacks
    6, kClassInterface, kInJack, kEmbedded, kInInside, 0,
    6, kClassInterface, kInJack, kExternal, kInOutside, 0,
    9, kClassInterface, kOutJack, kEmbedded, kOutInside, 1, kInOutside, 1, 0,
    9, kClassInterface, kOutJack, kExternal, kOutOutside, 1, kInInside, 1, 0,
    9, kEndpoint, 0x80 | kInEndpoint, kBulk, kPacketSize, 0, 0, 0, 0,
    5, kClassEndpoint, kGeneral, 1, kOutInside,
    9, kEndpoint, kOutEndpoint, kBulk, kPacketSize, 0, 0, 0, 0,
    5, kClassEndpoint, kGeneral, 1, kInInside,
});
// clang-format on

constexpr std::uint8_t kManufacturerIndex = 1;
constexpr std::uint8_t kProductIndex = 2;
constexpr std::uint8_t kSerialIndex = 3;
constexpr std::array<std::string_view, 3> kTexts{"Scenewright", "Virtual Controller", "0001"};
constexpr auto kLanguages =
    std::to_array<std::uint8_t>({4, kStringDescriptor, 0x09, 0x04}); // US English

constexpr std::uint8_t kConfigurationSize = 9;
constexpr std::uint8_t kBusPowered = 0x80;
constexpr std::uint8_t kHundredMilliamperes = 50; // in steps of 2 mA

std::uint8_t lowByte(std::size_t value) {
    return static_cast<std::uint8_t>(value);
}
std::uint8_t highByte(std::size_t value) {
    return static_cast<std::uint8_t>(value >> 8U);
}

} // namespace

// clang-format off
Bytes deviceDescriptor(const VirtualIdentity& identity) {
    return {18, kDeviceDescriptor,
            0x10, 0x01, // USB 1.1: a full-speed device has no other speed to tell of
            0, 0, 0,    // the classes stand in the interfaces
            kPacketSize,
            lowByte(identity.vendor), highByte(identity.vendor),
            lowByte(identity.product), highByte(identity.product),
            lowByte(kDeviceRelease), highByte(kDeviceRelease),
            kManufacturerIndex, kProductIndex, kSerialIndex,
            1}; // configurations
}
// clang-format on

Bytes configurationDescriptor(const VirtualIdentity& identity) {
    ByteWriter interfaces;
    if (identity.interfaces > kMidiInterface)
        interfaces.bytes(kAudioControlOfMidi).bytes(kMidi);
    else
        interfaces.bytes(kAudioControlAlone);
    const Bytes body = interfaces.take();
    const std::size_t size = kConfigurationSize + body.size();
    const std::uint8_t count = identity.interfaces > kMidiInterface ? 2 : 1;
    ByteWriter whole;
    whole.bytes(Bytes{kConfigurationSize, kConfigurationDescriptor, lowByte(size), highByte(size),
                      count, kConfigurationValue, 0, kBusPowered, kHundredMilliamperes});
    return whole.bytes(body).take();
}

std::optional<Bytes> stringDescriptor(std::uint8_t index) {
    if (index == 0)
        return Bytes(kLanguages.begin(), kLanguages.end());
    if (index > kTexts.size())
        return std::nullopt;
    // UTF-16, low byte first; the texts are ASCII.
    Bytes descriptor{0, kStringDescriptor};
    for (const char character : kTexts.at(index - 1U)) {
        descriptor.push_back(static_cast<std::uint8_t>(character));
        descriptor.push_back(0);
    }
    descriptor[0] = lowByte(descriptor.size());
    return descriptor;
}

} // namespace scenewright::usbip
