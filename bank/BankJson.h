// The JSON form of a bank, and of one scene alone: docs/bank-format.md tells it to users.
//
//   { "format": "scenewright-bank", "version": 1, "scenes": [ SCENE, SCENE, SCENE, SCENE ] }
//   { "format": "scenewright-scene", "version": 1, "scene": SCENE }
//
// A scene has a name ("name", or "nameBytes" where a text would not hold it), "common", and its
// controls as the arrays "groups", "knobs", "sliders", "pads" and "keys". Every field stands under
// its own name as an option index. A key that begins with "//" is a comment, which the reader
// ignores: the writer puts each value's title under "//" and the field's name.
#pragma once

#include "bank/BankFile.h"
#include "model/Control.h"
#include "model/PopUpValue.h"
#include "model/SceneValue.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace scenewright {

inline constexpr std::string_view kBankFormat = "scenewright-bank";
inline constexpr std::string_view kSceneFormat = "scenewright-scene";
inline constexpr std::int64_t kBankVersion = 1;
inline constexpr std::string_view kCommentMark = "//";

// The key of a kind's controls: "pads"; "common" for the scene-wide settings.
[[nodiscard]] std::string controlsKey(ControlKind kind);

// Valid UTF-8 that ends in a line feed. The first form takes the first four scenes and throws
// std::out_of_range when there are fewer; both write 0 for a value outside 0..127.
[[nodiscard]] std::string writeBankJson(const SceneList& scenes, const PopUpValue& lists);
[[nodiscard]] std::string writeSceneJson(const SceneValue& scene, const PopUpValue& lists);

[[nodiscard]] BankContent readBankJson(std::string_view text);  // four scenes
[[nodiscard]] BankContent readSceneJson(std::string_view text); // one

} // namespace scenewright
