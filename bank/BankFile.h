// Banks: the 1012 bytes of four scenes, as files.
#pragma once

#include "model/SceneValue.h"
#include "protocol/SceneImage.h"

#include <filesystem>
#include <optional>
#include <string>

namespace scenewright {

// What reading a bank gave: `scenes` is empty when `trouble` says why, in one sentence that names
// the file.
struct BankFile {
    SceneList scenes;
    std::optional<std::string> trouble;
};

[[nodiscard]] BankFile readBank(const std::filesystem::path& path);

// The image of the first four scenes, each of which must hold 45 controls.
[[nodiscard]] BankImage encodeBank(const SceneList& scenes);

// Nothing, or one sentence: then the file is what it was.
[[nodiscard]] std::optional<std::string> writeBank(const std::filesystem::path& path,
                                                   const SceneList& scenes);

} // namespace scenewright
