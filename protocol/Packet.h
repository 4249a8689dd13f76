// The protocol's USB-MIDI event packets.
//
// Every message in either direction is one 4-byte USB-MIDI 1.0 event packet: byte 0 is the cable
// number (0) and the code index number (9, note-on); byte 1 the MIDI status byte; bytes 2 and 3 the
// note number and the velocity. Commands are note-ons on channel 13, scene data on channel 1.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace scenewright {

inline constexpr std::size_t kPacketSize = 4;
using Packet = std::array<std::uint8_t, kPacketSize>;

inline constexpr std::uint8_t kCableZeroNoteOn = 0x09;
inline constexpr std::uint8_t kCommandStatus = 0x9C;
inline constexpr std::uint8_t kDataStatus = 0x90;

namespace packets {
inline constexpr Packet kHandshakeRequest{0x09, 0x9C, 0x01, 0x02};
inline constexpr Packet kHandshakeConfirm{0x09, 0x9C, 0x7E, 0x7D};
inline constexpr Packet kHandshakeReply{0x09, 0x9C, 0x01, 0x38}; // second packet of the reply
inline constexpr Packet kSendStart{0x09, 0x9C, 0x01, 0x03};
inline constexpr Packet kReadStart{0x09, 0x9C, 0x01, 0x04};
inline constexpr Packet kReadEnd{0x09, 0x9C, 0x01, 0x05};
inline constexpr Packet kReadNext{0x09, 0x9C, 0x01, 0x06};
inline constexpr Packet kFill{0x09, 0x90, 0x0F, 0x0F}; // a position past the end of the data

// One image byte, its high nibble in byte 2, its low nibble in byte 3.
[[nodiscard]] constexpr Packet data(std::uint8_t byte) {
    return {kCableZeroNoteOn, kDataStatus, static_cast<std::uint8_t>(byte >> 4U),
            static_cast<std::uint8_t>(byte & 0x0FU)};
}
} // namespace packets

// Data packets between two of the device's answers.
inline constexpr std::size_t kBlockPackets = 512;

} // namespace scenewright
