// Property lists that were read before: a file is read and parsed once for as long as it stays as
// it is, however often its content is asked for.
#pragma once

#include "platform/PropertyList.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <optional>

namespace scenewright {

// Any thread may call it. What it gave stays whole when the file changes later.
class RememberedLists {
public:
    // As readPropertyList(); never null. A file that changed since the last call is read anew.
    [[nodiscard]] std::shared_ptr<const PropertyListFile> read(const std::filesystem::path& path);

private:
    // What tells a file from the one that stood there before.
    struct Stamp {
        std::uint64_t device = 0;
        std::uint64_t inode = 0;
        std::int64_t size = 0;
        std::int64_t changed = 0; // nanoseconds since 1970
        friend bool operator==(const Stamp&, const Stamp&) = default;
    };
    struct Entry {
        Stamp stamp;
        std::shared_ptr<const PropertyListFile> list;
    };

    [[nodiscard]] static std::optional<Stamp> stampOf(const std::filesystem::path& path);

    std::mutex mutex_;
    std::map<std::filesystem::path, Entry> entries_;
};

} // namespace scenewright
