// Banks as files: the four scenes of a controller, as the 1012 bytes of its image or as a JSON text
// (BankJson.h). A file's content tells which of the two it is, its name does not.
#pragma once

#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "platform/Result.h"
#include "protocol/SceneImage.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
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

// The same for a file that may also be that of one scene (readScene below), and then gives one.
[[nodiscard]] Result<BankFile> parseBankOrScene(std::span<const std::uint8_t> bytes,
                                                const std::string& name);
[[nodiscard]] Result<BankFile> readBankOrScene(const std::filesystem::path& path);

// The form that a new file's name asks for: JSON when it ends in ".json", in either case.
[[nodiscard]] BankFormat formatForName(const std::filesystem::path& path);

// The image of the first four scenes; throws std::out_of_range when there are fewer.
[[nodiscard]] BankImage encodeBank(const SceneList& scenes);
// A file's bytes in one of the forms; `lists` gives the titles of a JSON text.
[[nodiscard]] std::vector<std::uint8_t> bankBytes(const SceneList& scenes, BankFormat form,
                                                  const PopUpValue& lists);

// Each writes the first four scenes. On error the file is what it was.
[[nodiscard]] Result<void> writeBank(const std::filesystem::path& path, const SceneList& scenes);
[[nodiscard]] Result<void> writeBank(const std::filesystem::path& path, const SceneList& scenes,
                                     BankFormat form, const PopUpValue& lists);

// One scene as a file of its own, always JSON.
[[nodiscard]] Result<std::shared_ptr<SceneValue>> readScene(const std::filesystem::path& path);
[[nodiscard]] Result<void> writeScene(const std::filesystem::path& path, const SceneValue& scene,
                                      const PopUpValue& lists);

// Four scenes, for exactly 1012 bytes; logs nothing. Stricter than the parse of what a controller
// sent, which takes a byte from 0x80 up as 0: a file must say what it means. The error is a phrase
// without the file.
[[nodiscard]] Result<SceneList> readBankImage(std::span<const std::uint8_t> bytes);

} // namespace scenewright
