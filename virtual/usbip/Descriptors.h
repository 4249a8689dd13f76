// What the virtual controller tells a host of itself: the descriptors of a USB MIDI keyboard.
//
// Audio control interface 0; MIDI streaming interface 1 with one embedded and one external jack
// each way, bulk IN first and bulk OUT second. Layouts are those of the USB 1.1, Audio 1.0 and MIDI
// 1.0 class documents. Pure functions; any thread.
#pragma once

#include "virtual/VirtualHost.h"
#include "virtual/usbip/Protocol.h"

#include <optional>

namespace scenewright::usbip {

inline constexpr std::uint8_t kInEndpoint = 1;  // address 0x81
inline constexpr std::uint8_t kOutEndpoint = 2; // address 0x02
inline constexpr std::uint8_t kConfigurationValue = 1;
inline constexpr std::uint16_t kDeviceRelease = 0x0100; // 1.00
inline constexpr std::uint8_t kMidiInterface = 1;

// Descriptor types of USB 1.1, table 9-5: in a descriptor, and in the request for one.
inline constexpr std::uint8_t kDeviceDescriptor = 1;
inline constexpr std::uint8_t kConfigurationDescriptor = 2;
inline constexpr std::uint8_t kStringDescriptor = 3;

[[nodiscard]] Bytes deviceDescriptor(const VirtualIdentity& identity);
// The configuration with all that belongs to it. One interface: the audio control alone.
[[nodiscard]] Bytes configurationDescriptor(const VirtualIdentity& identity);
// Index 0 lists the languages; 1 manufacturer, 2 product, 3 serial number. Nothing for another.
[[nodiscard]] std::optional<Bytes> stringDescriptor(std::uint8_t index);

} // namespace scenewright::usbip
