// Files that are read whole, and replaced whole or not at all.
//
// Any thread may call.
#pragma once

#include "platform/Result.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <vector>

namespace scenewright {

using FileContent = std::vector<std::uint8_t>;

// Reads a regular file or a pipe, at most `limit` bytes; more is an error. `whenWaiting` is called
// once if it is a pipe that nobody has opened to write for a second; the wait goes on.
[[nodiscard]] Result<FileContent> readFile(const std::filesystem::path& path, std::size_t limit,
                                           const std::function<void()>& whenWaiting = {});

// What replacing did beside its purpose.
struct Replaced {
    std::uint64_t otherNames = 0; // hard links, which keep the former content
};

// Writes `bytes` to a new file in the same folder, flushes it to the disk and puts it in the place
// of `path`. A symbolic link is followed; an existing file keeps its owner, its group, its
// permission bits, its access list and its user's attributes, or is not written at all. On error
// `path` is what it was. What a writer that was killed has left in the folder is removed.
//
// Writers of one file come one after the other; one that cannot within 20 seconds is an error.
[[nodiscard]] Result<Replaced> replaceFile(const std::filesystem::path& path,
                                           std::span<const std::uint8_t> bytes);

// The same with bytes that are made of the file's own: no other writer comes between.
using FileChange = std::function<Result<FileContent>(FileContent former)>;
[[nodiscard]] Result<Replaced> changeFile(const std::filesystem::path& path, std::size_t limit,
                                          const FileChange& change);

// Whether `replaceFile` could do its work, tried as far as that leaves no trace, and asked before
// work that would be lost. The error is the one that writing would give.
[[nodiscard]] Result<void> checkReplaceable(const std::filesystem::path& path);

// What `path` leads to when every symbolic link in its last component is followed, existing or not,
// or the first path on the way that `isEnd` accepts.
[[nodiscard]] Result<std::filesystem::path>
followLinks(std::filesystem::path path,
            const std::function<bool(const std::filesystem::path&)>& isEnd = {});

} // namespace scenewright
