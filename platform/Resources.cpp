#include "platform/Resources.h"

#include <fmt/format.h>

#include <cstdlib>
#include <system_error>
#include <utility>

namespace scenewright {

namespace {

namespace fs = std::filesystem;

constexpr const char* kProductFolder = "scenewright";

fs::path& givenFolder() {
    static fs::path folder;
    return folder;
}

// Nothing for a variable that is not set or gives no absolute path.
std::optional<fs::path> environmentPath(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value == '/' ? std::optional<fs::path>(value) : std::nullopt;
}

// Empty when the system does not tell.
fs::path programFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

bool isThere(const fs::path& file) {
    std::error_code error;
    return fs::exists(fs::symlink_status(file, error));
}

} // namespace

std::optional<fs::path> xdgFolder(XdgFolder folder, std::string_view name) {
    const fs::path inside =
        name.empty() ? fs::path(kProductFolder) : fs::path(kProductFolder) / name;
    const bool isConfig = folder == XdgFolder::Config;
    if (const auto given = environmentPath(isConfig ? "XDG_CONFIG_HOME" : "XDG_STATE_HOME"))
        return *given / inside;
    if (const auto home = environmentPath("HOME"))
        return *home / (isConfig ? ".config" : ".local/state") / inside;
    return std::nullopt;
}

void Resources::setFolder(fs::path folder) {
    givenFolder() = std::move(folder);
}

std::vector<fs::path> Resources::searchPath() {
    std::vector<fs::path> folders;
    if (!givenFolder().empty())
        folders.push_back(givenFolder());
    if (const auto folder = userFolder())
        folders.push_back(*folder);
    if (const fs::path folder = programFolder(); !folder.empty())
        folders.push_back(folder.parent_path() / "share" / kProductFolder);
    return folders;
}

std::optional<fs::path> Resources::userFolder() {
    return xdgFolder(XdgFolder::Config);
}

std::optional<fs::path> Resources::find(std::string_view name, std::string_view type) {
    return findFirst({&name, 1}, type);
}

std::optional<fs::path> Resources::findFirst(std::span<const std::string_view> names,
                                             std::string_view type) {
    for (const fs::path& folder : searchPath())
        for (const std::string_view name : names)
            if (fs::path file = folder / fmt::format("{}.{}", name, type); isThere(file))
                return file;
    return std::nullopt;
}

std::vector<fs::path> Resources::findAll(std::string_view name, std::string_view type) {
    std::vector<fs::path> files;
    for (const fs::path& folder : searchPath()) {
        if (fs::path file = folder / fmt::format("{}.{}", name, type); isThere(file))
            files.push_back(std::move(file));
        if (!files.empty() && folder == givenFolder())
            break;
    }
    return files;
}

Result<PropertyValue> Resources::read(std::string_view name) {
    const std::optional<fs::path> file = find(name, "plist");
    if (!file)
        return failure(fmt::format("{}.plist: not found among the program's resources", name));
    return readPropertyList(*file);
}

PropertyValue Resources::load(std::string_view name) {
    return read(name).value_or(PropertyValue());
}

} // namespace scenewright
