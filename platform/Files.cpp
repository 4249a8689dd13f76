#include "platform/Files.h"

#include "platform/Process.h"
#include "platform/Text.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <optional>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

namespace fs = std::filesystem;

constexpr int kMaxLinks = 40;         // the kernel's own limit for one path
constexpr mode_t kModeBits = 0777;    // what is kept: no set-user-id reaches other content
constexpr mode_t kNewFile = 0666;     // before the process's umask
constexpr mode_t kPrivateFile = 0600; // until the bits of the file it replaces are set
constexpr std::chrono::milliseconds kQuietWait{1000};
constexpr std::chrono::seconds kMaxLockWait{20};
constexpr std::chrono::milliseconds kLockPause{10};

constexpr SourceText kCannotRead = sourceText("scenewright::File", "Cannot read {0}: {1}.");
constexpr SourceText kCannotWrite = sourceText("scenewright::File", "Cannot write {0}: {1}.");
constexpr SourceText kIsFolder = sourceText("scenewright::File", "it is a folder");

// Within this file an error is the reason alone; its sentence is made where the file is known.
tl::unexpected<std::string> sentence(SourceText text, const fs::path& path, std::string_view why) {
    const std::string name =
        path.empty() ? translated(sourceText("scenewright::File", "a file without a name"))
                     : path.string();
    return failure(translated(text, name, why));
}

tl::unexpected<std::string> systemError(int error = errno) {
    return failure(systemText(error));
}

// ---- reading

Result<void> checkSource(const struct stat& status) {
    if (S_ISDIR(status.st_mode))
        return failure(translated(kIsFolder));
    if (!S_ISREG(status.st_mode) && !S_ISFIFO(status.st_mode))
        return failure(
            translated(sourceText("scenewright::File", "it is neither a file nor a pipe")));
    return {};
}

// A pipe that was opened without waiting has nothing to say until somebody opens it to write.
Result<void> waitForWriter(int fd, const std::function<void()>& whenWaiting) {
    pollfd place{.fd = fd, .events = POLLIN, .revents = 0};
    if (::poll(&place, 1, static_cast<int>(kQuietWait.count())) != 0)
        return {};
    if (!whenWaiting)
        return failure(translated(sourceText("scenewright::File", "nobody writes to this pipe")));
    whenWaiting();
    while (::poll(&place, 1, -1) < 0 && errno == EINTR) {
        // A signal that does not end the program does not end the wait.
    }
    return {};
}

Result<FileDescriptor> openSource(const fs::path& path, const std::function<void()>& whenWaiting) {
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0)
        return systemError();
    auto ready = checkSource(status);
    if (ready && S_ISFIFO(status.st_mode))
        ready = waitForWriter(file.get(), whenWaiting);
    if (!ready)
        return failure(ready.error());
    const int flags = ::fcntl(file.get(), F_GETFL);
    if (flags < 0 || ::fcntl(file.get(), F_SETFL, flags & ~O_NONBLOCK) != 0)
        return systemError();
    return file;
}

Result<FileContent> readAll(int fd, std::size_t limit) {
    auto bytes = readFully(fd, limit);
    if (!bytes)
        return systemError(bytes.error());
    if (bytes->size() > limit)
        return failure(
            translated(sourceText("scenewright::File", "it is longer than {} bytes"), limit));
    return *std::move(bytes);
}

// ---- writing

fs::path folderOf(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

Result<void> checkFolder(const fs::path& folder) {
    struct stat status {};
    if (::stat(folder.c_str(), &status) != 0)
        return failure(folder.string() + ": " + systemText());
    if (!S_ISDIR(status.st_mode))
        return failure(
            translated(sourceText("scenewright::File", "{} is not a folder"), folder.string()));
    if (::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0)
        return failure(folder.string() + ": " + systemText());
    return {};
}

// A file that another one is mounted on cannot be replaced; a kernel that cannot tell does not know
// of it before the rename.
bool isMountedOn(const fs::path& path) {
    struct statx status {};
    return ::statx(AT_FDCWD, path.c_str(), 0, STATX_TYPE, &status) == 0 &&
           (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

// The file that will be replaced, if there is one.
Result<std::optional<struct stat>> examineExisting(const fs::path& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        if (errno == ENOENT)
            return std::nullopt;
        return systemError();
    }
    if (S_ISDIR(status.st_mode))
        return failure(translated(kIsFolder));
    if (!S_ISREG(status.st_mode))
        return failure(translated(sourceText("scenewright::File", "it is no ordinary file")));
    // Opened rather than asked for: that finds what can only be added to, or is being run.
    if (!FileDescriptor(::open(path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC)).isOpen())
        return systemError();
    if (isMountedOn(path))
        return failure(
            translated(sourceText("scenewright::File", "a file system is mounted on it")));
    return status;
}

// The new file beside the one that it will replace.
struct Successor {
    fs::path path;
    std::optional<struct stat> former;
    TemporaryFile file;
};

Result<void> keepOwner(int fd, const struct stat& former) {
    struct stat status {};
    if (::fstat(fd, &status) != 0)
        return systemError();
    if (status.st_uid == former.st_uid && status.st_gid == former.st_gid)
        return {};
    if (::fchown(fd, former.st_uid, former.st_gid) == 0)
        return {};
    if (errno != EPERM)
        return systemError();
    return failure(
        translated(sourceText("scenewright::File", "its owner and group could not be kept")));
}

Result<void> keepAttributes(int fd, const fs::path& path) {
    if (copyAttributes(path, fd) == 0)
        return {};
    return failure(translated(
        sourceText("scenewright::File", "its access list and attributes could not be kept")));
}

Result<Successor> begin(const fs::path& path) {
    const fs::path folder = folderOf(path);
    if (auto checked = checkFolder(folder); !checked)
        return failure(checked.error());
    auto former = examineExisting(path);
    if (!former)
        return failure(former.error());
    auto file = TemporaryFile::in(folder, *former ? kPrivateFile : kNewFile);
    if (!file)
        return systemError(file.error());
    if (*former) {
        const auto kept = keepOwner(file->fd(), **former).and_then([&] {
            return keepAttributes(file->fd(), path);
        });
        if (!kept)
            return failure(kept.error());
    }
    return Successor{path, *former, std::move(*file)};
}

// A file system that cannot flush says EINVAL; the file is as good there as it can be.
bool isFlushed(int fd) {
    return ::fsync(fd) == 0 || errno == EINVAL;
}

Result<void> fill(const Successor& successor, std::span<const std::uint8_t> bytes) {
    const int fd = successor.file.fd();
    if (const int error = writeFully(fd, asText(bytes)); error != 0)
        return systemError(error);
    if (successor.former && ::fchmod(fd, successor.former->st_mode & kModeBits) != 0)
        return systemError();
    if (!isFlushed(fd))
        return systemError();
    return {};
}

Result<Replaced> complete(Successor successor, std::span<const std::uint8_t> bytes) {
    if (auto filled = fill(successor, bytes); !filled)
        return failure(filled.error());
    if (const int error = successor.file.moveTo(successor.path); error != 0)
        return systemError(error);
    // The new file is in place: that its folder cannot be flushed must not read as a failed write.
    const FileDescriptor folder(
        ::open(folderOf(successor.path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen())
        static_cast<void>(::fsync(folder.get()));
    return Replaced{successor.former ? successor.former->st_nlink - 1 : 0};
}

// ---- one writer at a time

bool isNameOf(const fs::path& path, int fd) {
    struct stat named {};
    struct stat opened {};
    return ::stat(path.c_str(), &named) == 0 && ::fstat(fd, &opened) == 0 &&
           named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
}

FileDescriptor openToLock(const fs::path& path) {
    // Some network file systems lock for writing only what is open for writing.
    FileDescriptor file(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen())
        file = FileDescriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    return file;
}

// Locked until the descriptor is closed. Nothing is locked, and that is no error, where there is no
// file yet or the file system has no locks.
Result<FileDescriptor> lockFile(const fs::path& path) {
    const auto deadline = std::chrono::steady_clock::now() + kMaxLockWait;
    while (true) {
        FileDescriptor file = openToLock(path);
        struct stat status {};
        if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
            return FileDescriptor();
        const int error = ::flock(file.get(), LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
        // Another writer may have put a new file there while this one waited for the former.
        if (error == 0 && isNameOf(path, file.get()))
            return file;
        if (error != 0 && error != EWOULDBLOCK && error != EINTR)
            return FileDescriptor();
        if (std::chrono::steady_clock::now() > deadline)
            return failure(
                translated(sourceText("scenewright::File", "another program keeps it locked")));
        if (error != 0)
            std::this_thread::sleep_for(kLockPause);
    }
}

// What `path` leads to when every symbolic link in its last component is followed, existing or not,
// or the first path on the way that `isEnd` accepts.
Result<fs::path> followLinks(fs::path path,
                             const std::function<bool(const fs::path&)>& isEnd = {}) {
    std::error_code error;
    for (int i = 0; i < kMaxLinks; ++i) {
        if (isEnd && isEnd(path))
            return path;
        const fs::file_type type = fs::symlink_status(path, error).type();
        if (type != fs::file_type::none && type != fs::file_type::symlink)
            return path;
        // A link that cannot be looked at must not be taken for a file, and replaced.
        const fs::path next =
            type == fs::file_type::symlink ? fs::read_symlink(path, error) : fs::path();
        if (next.empty())
            return failure(error.message());
        path = path.parent_path() / next;
    }
    return systemError(ELOOP);
}

Result<fs::path> targetOf(const fs::path& path) {
    if (path.empty())
        return failure(translated(sourceText("scenewright::File", "no name was given")));
    std::error_code ignored;
    if (!path.has_filename() && fs::is_directory(path, ignored))
        return failure(translated(kIsFolder));
    if (!path.has_filename())
        return failure(
            translated(sourceText("scenewright::File", "a file's name does not end in a slash")));
    return followLinks(path);
}

// What is being done, and to which file, for the sentence of an error.
template <typename Value>
Result<Value> inSentence(SourceText text, const fs::path& path, Result<Value> result) {
    if (!result)
        return sentence(text, path, result.error());
    return result;
}

} // namespace

Result<FileContent> readFile(const fs::path& path, std::size_t limit,
                             const std::function<void()>& whenWaiting) {
    auto file = openSource(path, whenWaiting);
    if (!file)
        return sentence(kCannotRead, path, file.error());
    return inSentence(kCannotRead, path, readAll(file->get(), limit));
}

std::vector<fs::path> filesIn(const std::optional<fs::path>& folder) {
    std::vector<fs::path> files;
    std::error_code error;
    if (folder)
        for (fs::directory_iterator file(*folder, error), end; !error && file != end;
             file.increment(error))
            files.push_back(file->path());
    return files;
}

Result<Replaced> replaceFile(const fs::path& path, std::span<const std::uint8_t> bytes) {
    const auto replace = [bytes](const fs::path& target) -> Result<Replaced> {
        const auto lock = lockFile(target);
        if (!lock)
            return failure(lock.error());
        return begin(target).and_then(
            [bytes](Successor successor) { return complete(std::move(successor), bytes); });
    };
    return inSentence(kCannotWrite, path, targetOf(path).and_then(replace));
}

Result<Replaced> changeFile(const fs::path& path, std::size_t limit, const FileChange& change) {
    const auto target = targetOf(path);
    if (!target)
        return sentence(kCannotRead, path, target.error());
    struct stat status {};
    if (::stat(target->c_str(), &status) == 0 && S_ISFIFO(status.st_mode))
        return sentence(kCannotWrite, path, examineExisting(*target).error());
    const auto lock = lockFile(*target);
    if (!lock)
        return sentence(kCannotWrite, path, lock.error());
    const auto bytes = readFile(path, limit).and_then(change);
    if (!bytes)
        return failure(bytes.error());
    return inSentence(kCannotWrite, path, begin(*target).and_then([&bytes](Successor successor) {
        return complete(std::move(successor), *bytes);
    }));
}

Result<void> checkReplaceable(const fs::path& path) {
    const auto begun = targetOf(path).and_then(begin);
    if (!begun)
        return sentence(kCannotWrite, path, begun.error());
    return {};
}

namespace {

// ---- files compared

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
    return path && isDescriptor(*path)
               ? numberWithin(path->filename().string(), 0, std::numeric_limits<int>::max())
               : std::nullopt;
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
