// Banks as files: the four scenes of a controller, as the 1012 bytes of its image or as a JSON
// text. A file's content tells which of the two it is, its name does not.
//
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

#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/Text.h"
#include "protocol/SceneImage.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

enum class BankFormat : std::uint8_t { Image, Json };

struct BankFile {
    SceneList scenes; // four, or the one of parseBankOrScene
    BankFormat form = BankFormat::Image;
};

[[nodiscard]] BankFormat formOf(std::span<const std::uint8_t> bytes);

// An error names the file, and the place in it where a value is to blame ("scenes[1].pads[3].CR").
// Both forms refuse a value outside 0..127, so that nothing is changed by reading.
[[nodiscard]] Result<BankFile> readBank(const std::filesystem::path& path);
// The same for bytes that came from elsewhere; `name` stands for the file in the error.
[[nodiscard]] Result<BankFile> parseBank(std::span<const std::uint8_t> bytes,
                                         const std::string& name);

// The same for a file that may also be that of one scene, and then gives one. `whenWaiting` is that
// of readFile().
[[nodiscard]] Result<BankFile> parseBankOrScene(std::span<const std::uint8_t> bytes,
                                                const std::string& name);
[[nodiscard]] Result<BankFile> readBankOrScene(const std::filesystem::path& path,
                                               const std::function<void()>& whenWaiting = {});

// The form that a new file's name asks for: JSON when it ends in ".json", in either case.
[[nodiscard]] BankFormat formatForName(const std::filesystem::path& path);

// The image of the first four scenes; throws std::out_of_range when there are fewer.
[[nodiscard]] BankImage encodeBank(const SceneList& scenes);
// A file's bytes in one of the forms; `lists` gives the titles of a JSON text.
[[nodiscard]] std::vector<std::uint8_t> bankBytes(const SceneList& scenes, BankFormat form,
                                                  const PopUpValue& lists);

// Each writes the first four scenes. On error the file is what it was.
[[nodiscard]] Result<void> writeBank(const std::filesystem::path& path, const SceneList& scenes,
                                     BankFormat form, const PopUpValue& lists);

// One scene as a file of its own, always JSON.
[[nodiscard]] Result<void> writeScene(const std::filesystem::path& path, const SceneValue& scene,
                                      const PopUpValue& lists);

// Four scenes, for exactly 1012 bytes; logs nothing. Stricter than the parse of what a controller
// sent, which takes a byte from 0x80 up as 0: a file must say what it means. The error is a phrase
// without the file.
[[nodiscard]] Result<SceneList> readBankImage(std::span<const std::uint8_t> bytes);

inline constexpr std::string_view kBankFormat = "scenewright-bank";
inline constexpr std::string_view kSceneFormat = "scenewright-scene";
inline constexpr std::int64_t kBankVersion = 1;
inline constexpr std::string_view kCommentMark = "//";

// What a hostile text can cost is bounded; time and memory grow with its length. A thousand scenes
// with their titles take less than a quarter of the bytes.
inline constexpr std::size_t kJsonBytes = std::size_t{64} * 1024 * 1024;
inline constexpr std::size_t kJsonLevels = 16;
inline constexpr std::size_t kJsonValues = 1'000'000;

// Valid UTF-8 that ends in a line feed. The first form takes the first four scenes and throws
// std::out_of_range when there are fewer; both write 0 for a value outside 0..127.
[[nodiscard]] std::string writeBankJson(const SceneList& scenes, const PopUpValue& lists);
[[nodiscard]] std::string writeSceneJson(const SceneValue& scene, const PopUpValue& lists);

// The scenes are what a read of the same image gives. The error says in one phrase what is wrong
// and where, as in "scenes[1].pads[3].CR is missing"; a key that stands twice in an object is one.
[[nodiscard]] Result<SceneList> readBankJson(std::string_view text);        // four scenes
[[nodiscard]] Result<SceneList> readBankOrSceneJson(std::string_view text); // or one

// The key of a kind's controls: "pads"; "common" for the scene-wide settings.
[[nodiscard]] std::string controlsKey(ControlKind kind);

// Where a value stands: "scenes[1].pads[3]" and "CR" make "scenes[1].pads[3].CR".
[[nodiscard]] std::string memberPlace(std::string_view place, std::string_view key);
[[nodiscard]] std::string elementPlace(std::string_view place, std::size_t index);

// The phrase for a setting without a value: `found` is what stands at its place instead.
[[nodiscard]] std::string notAValue(std::string_view place, std::string_view found);

// `text` in quotation marks, as a JSON text writes it. Bytes that are no UTF-8 become U+FFFD.
[[nodiscard]] std::string jsonQuoted(std::string_view text);

} // namespace scenewright
