// What the virtual controller holds when it is switched on.
#pragma once

#include "protocol/SceneImage.h"

#include <filesystem>
#include <optional>
#include <string>

namespace scenewright {

// Fills `bank` from the file; with the default scenes SCENE1 to SCENE4 when the path is empty or no
// such file exists. Nothing, or one sentence that names the file: also when what is sent could not
// be kept there.
[[nodiscard]] std::optional<std::string> loadBankMemory(const std::filesystem::path& file,
                                                        BankImage& bank);

} // namespace scenewright
