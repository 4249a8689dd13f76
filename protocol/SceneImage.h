// The scene byte image: the fixed record in which the controller keeps a scene.
//
// 253 bytes a scene, scenes end to end, no header, separator or checksum. Bytes 0 to 11 are the
// name; every other byte is one field's option index, through the codec's 127 table. Fields stand
// field-major within each kind: one field for all members of a kind, then the next field.
#pragma once

#include "model/SceneValue.h"

#include <array>
#include <cstdint>
#include <memory>
#include <span>

namespace scenewright {

inline constexpr std::size_t kNameSize = 12;
inline constexpr std::size_t kSceneImageSize = 253;
inline constexpr std::size_t kBankSize = 4 * kSceneImageSize; // 1012: all that the device holds

using SceneImage = std::array<std::uint8_t, kSceneImageSize>;
using BankImage = std::array<std::uint8_t, kBankSize>;

// The image of one scene. A name longer than 12 bytes keeps its first 12; a value outside 0..127 is
// written as 0x00. Fields of
// records that the scene lacks are written as 0x00.
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
