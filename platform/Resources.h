// Finding the application's resources by name and type.
//
// Looked for in this order, a file at a time, so that a user replaces one and keeps the rest:
//   1. the folder given with --resources;
//   2. $XDG_CONFIG_HOME/scenewright, or ~/.config/scenewright;
//   3. share/scenewright beside the folder of the running program (installed and build trees
//      alike).
// Main thread, or before other threads start; `find` and `load` may be called by any thread after.
#pragma once

#include "platform/PropertyList.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

class Resources {
public:
    Resources() = delete;

    // The folder that --resources names; an empty path takes it back.
    static void setFolder(std::filesystem::path folder);

    // The folders in the order of the search; folders that do not exist are listed too.
    [[nodiscard]] static std::vector<std::filesystem::path> searchPath();

    // The user's own folder, the second of the search (whether it exists or not).
    [[nodiscard]] static std::filesystem::path userFolder();

    // The first file `name`.`type` of the search; nothing when there is none.
    [[nodiscard]] static std::optional<std::filesystem::path> find(std::string_view name,
                                                                   std::string_view type);

    // The property list `name`.plist as its file is now; never null. Absent when it is missing or
    // cannot be read; the latter is logged in one line.
    [[nodiscard]] static std::shared_ptr<const PropertyValue> load(std::string_view name);

    // One sentence a property list of the search that exists but cannot be read.
    [[nodiscard]] static std::vector<std::string> troubles(std::span<const std::string_view> names);
};

} // namespace scenewright
