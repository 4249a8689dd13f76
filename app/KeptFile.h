// The small files of the state folder: a JSON object of texts, some of which are the digits of a
// bank's image.
#pragma once

#include "platform/Files.h"
#include "platform/Text.h"
#include "protocol/SceneImage.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

// The folder of kept files, made if need be; nothing stands for one without a home folder.
[[nodiscard]] Result<void> makeFolder(const std::optional<std::filesystem::path>& folder);
using KeptTexts = std::map<std::string, std::string>;

// With "format" and "version" beside the texts. Bytes that are no UTF-8 become U+FFFD.
[[nodiscard]] FileContent keptBytes(std::string_view format, const KeptTexts& texts);
// The texts of a whole file of that format; nothing for any other.
[[nodiscard]] std::optional<KeptTexts> readKept(std::string_view format,
                                                const std::filesystem::path& file);
// Empty when it is not there.
[[nodiscard]] std::string textAt(const KeptTexts& texts, const std::string& key);

[[nodiscard]] std::string imageDigits(const BankImage& image);
// Nothing unless it is an image that makes four scenes.
[[nodiscard]] std::optional<BankImage> imageOfDigits(std::string_view digits);
[[nodiscard]] std::optional<BankImage> imageOfBytes(std::span<const std::uint8_t> bytes);

} // namespace scenewright
