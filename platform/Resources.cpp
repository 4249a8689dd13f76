#include "platform/Resources.h"

#include "platform/Diagnostics.h"
#include "platform/RememberedLists.h"

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

fs::path environmentPath(const char* variable) {
    const char* value = std::getenv(variable);
    return value == nullptr ? fs::path() : fs::path(value);
}

RememberedLists& lists() {
    static RememberedLists remembered;
    return remembered;
}

// Empty when the system does not tell.
fs::path programFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

bool isThere(const fs::path& file) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    return fs::exists(status) && !fs::is_directory(status);
}

} // namespace

void Resources::setFolder(fs::path folder) {
    givenFolder() = std::move(folder);
}

std::vector<fs::path> Resources::searchPath() {
    std::vector<fs::path> folders;
    if (!givenFolder().empty())
        folders.push_back(givenFolder());
    if (fs::path folder = userFolder(); !folder.empty())
        folders.push_back(std::move(folder));
    if (const fs::path folder = programFolder(); !folder.empty())
        folders.push_back(folder.parent_path() / "share" / kProductFolder);
    return folders;
}

fs::path Resources::userFolder() {
    // A relative XDG_CONFIG_HOME counts as unset: it would change with the working folder.
    if (const fs::path config = environmentPath("XDG_CONFIG_HOME"); config.is_absolute())
        return config / kProductFolder;
    if (const fs::path home = environmentPath("HOME"); home.is_absolute())
        return home / ".config" / kProductFolder;
    return {};
}

std::optional<fs::path> Resources::find(std::string_view name, std::string_view type) {
    fs::path fileName(name);
    fileName += ".";
    fileName += type;
    for (const fs::path& folder : searchPath()) {
        fs::path file = folder / fileName;
        if (isThere(file))
            return file;
    }
    return std::nullopt;
}

std::shared_ptr<const PropertyValue> Resources::load(std::string_view name) {
    const std::optional<fs::path> file = find(name, "plist");
    if (!file)
        return std::make_shared<const PropertyValue>();
    const auto list = lists().read(*file);
    if (list->trouble)
        Diagnostics::log("%s", *list->trouble);
    return {list, &list->root};
}

std::vector<std::string> Resources::troubles(std::span<const std::string_view> names) {
    std::vector<std::string> sentences;
    for (const std::string_view name : names) {
        const std::optional<fs::path> file = find(name, "plist");
        if (!file)
            continue;
        if (const auto list = lists().read(*file); list->trouble)
            sentences.push_back(*list->trouble);
    }
    return sentences;
}

} // namespace scenewright
