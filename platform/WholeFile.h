// Files that are read whole, and written whole or not at all.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace scenewright {

// What reading a file gave: `bytes` is empty when `trouble` says why, in one sentence that names
// the file.
struct FileBytes {
    std::vector<std::uint8_t> bytes;
    std::optional<std::string> trouble;
};

// Reads a regular file or a pipe, at most `limit` bytes; more is trouble.
[[nodiscard]] FileBytes readWholeFile(const std::filesystem::path& path, std::size_t limit);

// Writes `bytes` to a temporary name in the same folder, flushes it to the disk and renames it over
// `path`; a symbolic link is followed, and an existing file's permission bits are kept. Nothing, or
// one sentence that names the file: then `path` is what it was, and no temporary file is left.
[[nodiscard]] std::optional<std::string> writeWholeFile(const std::filesystem::path& path,
                                                        std::span<const std::uint8_t> bytes);

// Whether `writeWholeFile` could begin, asked before work that would be lost: an existing folder, a
// missing or unwritable parent. Nothing, or the same sentence that writing would give.
[[nodiscard]] std::optional<std::string> whyNotWritable(const std::filesystem::path& path);

} // namespace scenewright
