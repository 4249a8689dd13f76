// The former way to call platform/AtomicFile.h, for callers that expect an optional sentence.
#pragma once

#include "platform/AtomicFile.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

struct FileBytes {
    std::vector<std::uint8_t> bytes;
    std::optional<std::string> trouble;
};

[[nodiscard]] inline FileBytes readWholeFile(const std::filesystem::path& path, std::size_t limit) {
    auto read = readFile(path, limit);
    return read ? FileBytes{std::move(*read), std::nullopt}
                : FileBytes{{}, std::move(read.error())};
}

[[nodiscard]] inline std::optional<std::string>
writeWholeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
    const auto replaced = replaceFile(path, bytes);
    return replaced ? std::nullopt : std::optional(replaced.error());
}

[[nodiscard]] inline std::optional<std::string> whyNotWritable(const std::filesystem::path& path) {
    const auto checked = checkReplaceable(path);
    return checked ? std::nullopt : std::optional(checked.error());
}

} // namespace scenewright
