// What travels to and from the controller: the protocol's USB-MIDI event packets, and the scene
// byte image, the fixed record in which the controller keeps a scene.
//
// Every message in either direction is one 4-byte USB-MIDI 1.0 event packet: byte 0 is the cable
// number (0) and the code index number (9, note-on); byte 1 the MIDI status byte; bytes 2 and 3 the
// note number and the velocity. Commands are note-ons on channel 13, scene data on channel 1.
//
// The image has 253 bytes a scene, scenes end to end, no header, separator or checksum. Bytes 0 to
// 11 are the name; every other byte is one field's option index, through the codec's 127 table.
// Fields stand field-major within each kind: one field for all members of a kind, then the next
// field.
#pragma once

#include "model/SceneValue.h"
#include "model/Setting.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

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

inline constexpr std::size_t kNameSize = 12;
inline constexpr std::size_t kSceneImageSize = kNameSize + kStoredValues; // 253
inline constexpr std::size_t kBankSize = 4 * kSceneImageSize; // 1012: all that the device holds

using SceneImage = std::array<std::uint8_t, kSceneImageSize>;
using BankImage = std::array<std::uint8_t, kBankSize>;

// The image of one scene. A name longer than 12 bytes keeps its first 12; a value outside 0..127 is
// written as 0x00, and so are the fields of records that the scene lacks.
[[nodiscard]] SceneImage encodeScene(const SceneValue& scene);

// The scenes of whole images laid end to end; bytes behind the last whole image are not read. A
// setting byte from 0x80 up reads as 0; the name keeps its 12 bytes whatever they are. Fields
// that a kind does not carry are kFieldAbsent. Logs one line a group control.
[[nodiscard]] SceneList parseScenes(std::span<const std::uint8_t> images);
// One of them, without a line.
[[nodiscard]] std::shared_ptr<SceneValue>
sceneFrom(std::span<const std::uint8_t, kSceneImageSize> image);

// Sets every field but the identifier to kFieldAbsent: what a control is before its kind's fields
// are read into it.
void markFieldsAbsent(ButtonValue& button);

// A new scene with an empty name, zeros for its common settings, and 45 controls whose every field
// is absent: what a reader of scenes fills.
[[nodiscard]] std::shared_ptr<SceneValue> blankScene();

} // namespace scenewright
