// Finding the application's resources by name and type.
//
// Looked for in this order, a file at a time, so that a user replaces one and keeps the rest:
//   1. the folder given with --resources;
//   2. $XDG_CONFIG_HOME/scenewright, or ~/.config/scenewright;
//   3. share/scenewright beside the folder of the running program (installed and build trees
//      alike).
// Main thread, or before other threads start; `find`, `read` and `load` may be called by any thread
// after.
#pragma once

#include "platform/PropertyList.h"
#include "platform/Result.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace scenewright {

// The folders that a user's environment sets aside for the files of a program.
enum class XdgFolder {
    Config, // $XDG_CONFIG_HOME/scenewright, or ~/.config/scenewright
    State,  // $XDG_STATE_HOME/scenewright, or ~/.local/state/scenewright
};

// The folder's path, whether it exists or not; nothing when neither variable gives one. A relative
// value counts as unset: it would change with the working folder. With a name, what is called so in
// the folder. Any thread.
[[nodiscard]] std::optional<std::filesystem::path> xdgFolder(XdgFolder folder,
                                                             std::string_view name = {});

class Resources {
public:
    Resources() = delete;

    // The folder that --resources names; an empty path takes it back.
    static void setFolder(std::filesystem::path folder);

    // The folders in the order of the search; folders that do not exist are listed too.
    [[nodiscard]] static std::vector<std::filesystem::path> searchPath();

    // The user's own folder, the second of the search (whether it exists or not); nothing without a
    // home folder.
    [[nodiscard]] static std::optional<std::filesystem::path> userFolder();

    // The first file `name`.`type` of the search; nothing when there is none. A folder or a broken
    // link of that name is found too: the user is to hear of it, rather than get another file.
    [[nodiscard]] static std::optional<std::filesystem::path> find(std::string_view name,
                                                                   std::string_view type);

    // The same of several names: the first folder that has one of them counts, and there the first
    // of the names.
    [[nodiscard]] static std::optional<std::filesystem::path>
    findFirst(std::span<const std::string_view> names, std::string_view type);

    // All of the search, in its order; where the folder that --resources names has one, that alone.
    [[nodiscard]] static std::vector<std::filesystem::path> findAll(std::string_view name,
                                                                    std::string_view type);

    // The property list `name`.plist as its file is now.
    [[nodiscard]] static Result<PropertyValue> read(std::string_view name);

    // The same; an absent value when there is none that can be read.
    [[nodiscard]] static PropertyValue load(std::string_view name);
};

} // namespace scenewright
