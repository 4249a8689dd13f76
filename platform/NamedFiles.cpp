#include "platform/NamedFiles.h"

#include "platform/AtomicFile.h"

#include <charconv>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace scenewright {

namespace {

namespace fs = std::filesystem;

std::optional<int> numberIn(const std::string& text) {
    int number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc{} && stop == text.data() + text.size();
    return isWhole && number >= 0 ? std::optional(number) : std::nullopt;
}

fs::path folderOf(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

// Whether it stands where the system lists the process's own descriptors.
bool isDescriptor(const fs::path& path) {
    std::error_code error;
    const fs::path folder = fs::canonical(folderOf(path), error);
    return path.has_filename() && folder == fs::path("/proc") / std::to_string(::getpid()) / "fd";
}

// A file's place on the disk. One that does not exist yet has its folder's and a name.
struct Identity {
    dev_t device = 0;
    ino_t inode = 0;
    std::string name;
    bool operator==(const Identity&) const = default;
};

std::optional<Identity> identityOf(const struct stat& status, const std::string& name = {}) {
    return Identity{status.st_dev, status.st_ino, name};
}

std::optional<Identity> identityOfPath(const std::string& name) {
    struct stat status {};
    if (::stat(name.c_str(), &status) == 0)
        return S_ISREG(status.st_mode) ? identityOf(status) : std::nullopt;
    const auto target = followLinks(name);
    const fs::path path = target ? *target : fs::path(name);
    if (::stat(folderOf(path).c_str(), &status) != 0)
        return std::nullopt;
    return identityOf(status, path.filename().string());
}

std::optional<int> descriptorOf(const NamedFile& file) {
    if (file.name == "-")
        return file.use == FileUse::Read       ? STDIN_FILENO
               : file.use == FileUse::Appended ? STDERR_FILENO
                                               : STDOUT_FILENO;
    return namedDescriptor(file.name);
}

// Nothing for what cannot be overwritten: a terminal, a pipe, a device.
std::optional<Identity> identityOf(const NamedFile& file) {
    const auto descriptor = descriptorOf(file);
    if (!descriptor)
        return identityOfPath(file.name);
    struct stat status {};
    if (::fstat(*descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return identityOf(status);
}

// What goes to a descriptor is written as it comes, whatever else is replaced whole.
FileUse useOf(const NamedFile& file) {
    return file.use == FileUse::Replaced && descriptorOf(file) ? FileUse::Written : file.use;
}

bool mayShare(FileUse first, FileUse second) {
    if (first == FileUse::Appended || second == FileUse::Appended)
        return first == second;
    return first != FileUse::Written && second != FileUse::Written;
}

} // namespace

std::optional<int> namedDescriptor(const std::string& name) {
    const auto path = followLinks(name, &isDescriptor);
    return path && isDescriptor(*path) ? numberIn(path->filename().string()) : std::nullopt;
}

Result<void> checkNamedFiles(std::span<const NamedFile> files) {
    std::vector<std::optional<Identity>> identities;
    for (const NamedFile& file : files)
        identities.push_back(file.name.empty() ? std::nullopt : identityOf(file));
    for (std::size_t first = 0; first < files.size(); ++first)
        for (std::size_t second = first + 1; second < files.size(); ++second) {
            const bool isOneFile = identities[first] && identities[first] == identities[second];
            if (!isOneFile || mayShare(useOf(files[first]), useOf(files[second])))
                continue;
            const bool isFirstRead = files[first].use == FileUse::Read;
            const NamedFile& subject = files[isFirstRead ? second : first];
            const NamedFile& lost = files[isFirstRead ? first : second];
            return failure(subject.subject + " would overwrite " + lost.content);
        }
    return {};
}

} // namespace scenewright
