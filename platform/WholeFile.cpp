#include "platform/WholeFile.h"

#include "platform/FileDescriptor.h"
#include "platform/Words.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <system_error>

namespace scenewright {

namespace {

namespace fs = std::filesystem;

using Trouble = std::optional<std::string>; // why something cannot be done, without the file's name

constexpr int kMostLinks = 40;        // the kernel's own limit for one path
constexpr int kMostNames = 100;       // tries for a free temporary name
constexpr mode_t kModeBits = 07777;   // the permission bits of st_mode
constexpr mode_t kNewFile = 0666;     // before the process's umask
constexpr mode_t kPrivateFile = 0600; // until the bits of the file it replaces are set

std::string systemText(int error) {
    return std::generic_category().message(error);
}

constexpr OwnText kCannotRead = ownText("scenewright::File", "Cannot read {0}: {1}.");
constexpr OwnText kCannotWrite = ownText("scenewright::File", "Cannot write {0}: {1}.");
constexpr OwnText kIsFolder = ownText("scenewright::File", "it is a folder");

std::string sentence(OwnText text, const fs::path& path, std::string_view why) {
    const std::string name =
        path.empty() ? say(ownText("scenewright::File", "a file without a name")) : path.string();
    return say(text, name, why);
}

Trouble sourceTrouble(int fd) {
    struct stat status {};
    if (::fstat(fd, &status) != 0)
        return systemText(errno);
    if (S_ISDIR(status.st_mode))
        return say(kIsFolder);
    if (!S_ISREG(status.st_mode) && !S_ISFIFO(status.st_mode))
        return say(ownText("scenewright::File", "it is neither a file nor a pipe"));
    return std::nullopt;
}

Trouble readAll(int fd, std::size_t limit, std::vector<std::uint8_t>& bytes) {
    std::array<std::uint8_t, 16384> chunk{};
    while (true) {
        const ssize_t count = ::read(fd, chunk.data(), chunk.size());
        if (count == 0)
            return std::nullopt;
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return systemText(errno);
        bytes.insert(bytes.end(), chunk.begin(), chunk.begin() + count);
        if (bytes.size() > limit)
            return say(ownText("scenewright::File", "it is longer than {} bytes"), limit);
    }
}

Trouble writeAll(int fd, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(fd, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            return systemText(errno);
        if (count > 0)
            bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return std::nullopt;
}

// Where a write to `path` goes: what its last component links to, existing or not.
fs::path followLinks(fs::path path, Trouble& trouble) {
    std::error_code error;
    for (int i = 0; i < kMostLinks; ++i) {
        const fs::file_type type = fs::symlink_status(path, error).type();
        if (type != fs::file_type::none && type != fs::file_type::symlink)
            return path;
        // A link that cannot be looked at must not be taken for a file, and replaced.
        const fs::path next =
            type == fs::file_type::symlink ? fs::read_symlink(path, error) : fs::path();
        if (next.empty()) {
            trouble = error.message();
            return path;
        }
        path = path.parent_path() / next;
    }
    trouble = systemText(ELOOP);
    return path;
}

fs::path folderOf(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

Trouble folderTrouble(const fs::path& folder) {
    struct stat status {};
    if (::stat(folder.c_str(), &status) != 0)
        return folder.string() + ": " + systemText(errno);
    if (!S_ISDIR(status.st_mode))
        return say(ownText("scenewright::File", "{} is not a folder"), folder.string());
    if (::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0)
        return folder.string() + ": " + systemText(errno);
    return std::nullopt;
}

// What a write will replace, and why it cannot.
struct Target {
    fs::path path;
    std::optional<mode_t> mode; // the permission bits of the file that is there
    Trouble trouble;
};

Trouble examineExisting(Target& target) {
    struct stat status {};
    if (::stat(target.path.c_str(), &status) != 0)
        return errno == ENOENT ? std::nullopt : Trouble(systemText(errno));
    if (S_ISDIR(status.st_mode))
        return say(kIsFolder);
    if (!S_ISREG(status.st_mode))
        return say(ownText("scenewright::File", "it is no ordinary file"));
    if (::faccessat(AT_FDCWD, target.path.c_str(), W_OK, AT_EACCESS) != 0)
        return systemText(errno);
    target.mode = status.st_mode & kModeBits;
    return std::nullopt;
}

Target examineTarget(const fs::path& path) {
    Target target;
    if (!path.has_filename()) {
        target.trouble =
            say(path.empty() ? ownText("scenewright::File", "no name was given") : kIsFolder);
        return target;
    }
    target.path = followLinks(path, target.trouble);
    if (!target.trouble)
        target.trouble = folderTrouble(folderOf(target.path));
    if (!target.trouble)
        target.trouble = examineExisting(target);
    return target;
}

// A file of a name nobody uses, removed with the object unless it has taken another's place.
class TemporaryFile {
public:
    TemporaryFile(const fs::path& folder, mode_t mode) {
        static std::atomic<unsigned> counter = 0;
        for (int i = 0; i < kMostNames; ++i) {
            path_ = folder / (".scenewright-" + std::to_string(::getpid()) + "-" +
                              std::to_string(counter++));
            fd_ = FileDescriptor(
                ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
            if (fd_.isOpen() || errno != EEXIST)
                break;
        }
        error_ = fd_.isOpen() ? 0 : errno;
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (fd_.isOpen() && !moved_)
            ::unlink(path_.c_str());
    }

    [[nodiscard]] int error() const { return error_; }
    [[nodiscard]] int fd() const { return fd_.get(); }
    [[nodiscard]] Trouble moveTo(const fs::path& target) {
        moved_ = ::rename(path_.c_str(), target.c_str()) == 0;
        return moved_ ? std::nullopt : Trouble(systemText(errno));
    }

private:
    fs::path path_;
    FileDescriptor fd_;
    int error_ = 0;
    bool moved_ = false;
};

// A file system that cannot flush says EINVAL; the file is as good there as it can be.
bool flushed(int fd) {
    return ::fsync(fd) == 0 || errno == EINVAL;
}

Trouble fill(const TemporaryFile& file, const Target& target, std::span<const std::uint8_t> bytes) {
    if (file.error() != 0)
        return systemText(file.error());
    if (target.mode && ::fchmod(file.fd(), *target.mode) != 0)
        return systemText(errno);
    if (Trouble trouble = writeAll(file.fd(), bytes))
        return trouble;
    return flushed(file.fd()) ? std::nullopt : Trouble(systemText(errno));
}

Trouble replace(const Target& target, std::span<const std::uint8_t> bytes) {
    const fs::path folder = folderOf(target.path);
    TemporaryFile file(folder, target.mode ? kPrivateFile : kNewFile);
    if (Trouble trouble = fill(file, target, bytes))
        return trouble;
    if (Trouble trouble = file.moveTo(target.path))
        return trouble;
    // The new file is in place: that its folder cannot be flushed must not read as a failed write.
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.isOpen())
        static_cast<void>(::fsync(opened.get()));
    return std::nullopt;
}

} // namespace

FileBytes readWholeFile(const fs::path& path, std::size_t limit) {
    FileBytes result;
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    Trouble trouble = file.isOpen() ? sourceTrouble(file.get()) : Trouble(systemText(errno));
    if (!trouble)
        trouble = readAll(file.get(), limit, result.bytes);
    if (trouble)
        result = {{}, sentence(kCannotRead, path, *trouble)};
    return result;
}

std::optional<std::string> writeWholeFile(const fs::path& path,
                                          std::span<const std::uint8_t> bytes) {
    const Target target = examineTarget(path);
    const Trouble trouble = target.trouble ? target.trouble : replace(target, bytes);
    return trouble ? Trouble(sentence(kCannotWrite, path, *trouble)) : std::nullopt;
}

std::optional<std::string> whyNotWritable(const fs::path& path) {
    const Trouble trouble = examineTarget(path).trouble;
    return trouble ? Trouble(sentence(kCannotWrite, path, *trouble)) : std::nullopt;
}

} // namespace scenewright
