#include "platform/Files.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <pthread.h>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace scenewright {

namespace {

namespace fs = std::filesystem;

constexpr int kMaxNames = 100; // tries for a free name
constexpr std::string_view kPrefix = ".scenewright-";

// PREFIX PID - NUMBER
std::string hiddenName() {
    static std::atomic<unsigned> counter = 0;
    return std::string(kPrefix) + std::to_string(::getpid()) + "-" + std::to_string(counter++);
}

bool isHiddenName(std::string_view name) {
    if (!name.starts_with(kPrefix))
        return false;
    name.remove_prefix(kPrefix.size());
    return std::ranges::count(name, '-') == 1 && name.front() != '-' && name.back() != '-' &&
           std::ranges::all_of(name,
                               [](unsigned char c) { return c == '-' || std::isdigit(c) != 0; });
}

// Shared by who has a hidden name; of the whole process.
std::shared_timed_mutex& hiddenNames() {
    static std::shared_timed_mutex mutex;
    return mutex;
}

fs::path procPath(int fd) {
    return "/proc/self/fd/" + std::to_string(fd);
}

// Whether the file's writer is gone, and the file is the user's own. The lock keeps others away
// until the descriptor is closed.
bool isLeftBehind(int fd) {
    struct stat status {};
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0 || ::fstat(fd, &status) != 0)
        return false;
    return S_ISREG(status.st_mode) && status.st_nlink > 0 &&
           (status.st_uid == ::geteuid() || ::geteuid() == 0);
}

// By the system's own calls: the library's iterator ends the program when there is no memory left.
void removeWhatWasLeft(const fs::path& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> listed(::opendir(folder.c_str()), &::closedir);
    if (!listed)
        return;
    const int place = ::dirfd(listed.get());
    while (const dirent* const entry = ::readdir(listed.get())) {
        const char* const name = &entry->d_name[0];
        if (!isHiddenName(name))
            continue;
        const FileDescriptor file(
            ::openat(place, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
        if (file.isOpen() && isLeftBehind(file.get()))
            ::unlinkat(place, name, 0);
    }
}

// A file system without locks keeps nobody away, and nobody removes anything there either.
bool isOursAlone(int fd) {
    struct stat status {};
    static_cast<void>(::flock(fd, LOCK_EX));
    return ::fstat(fd, &status) == 0 && status.st_nlink > 0;
}

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr std::string_view kUsers = "user.";
constexpr int kMaxTries = 8; // of reading what another program changes

// What `read(buffer, size)` gives, which tells the size when it is given none. A negative result
// stays so, with errno's value.
template <typename Read>
ssize_t readWhole(std::string& content, Read read) {
    for (int i = 0; i < kMaxTries; ++i) {
        const ssize_t size = read(nullptr, 0);
        if (size <= 0)
            return size;
        content.resize(static_cast<std::size_t>(size));
        const ssize_t count = read(content.data(), content.size());
        if (count >= 0)
            content.resize(static_cast<std::size_t>(count));
        if (count >= 0 || errno != ERANGE)
            return count;
    }
    return -1;
}

bool isUnknown(int error) {
    return error == ENOTSUP || error == ENOSYS;
}

int copyAttribute(const std::filesystem::path& from, int to, const char* name) {
    std::string value;
    const ssize_t size = readWhole(value, [&](char* buffer, std::size_t room) {
        return ::getxattr(from.c_str(), name, buffer, room);
    });
    if (size < 0)
        return errno;
    return ::fsetxattr(to, name, value.data(), value.size(), 0) == 0 ? 0 : errno;
}

int copyAccessList(const std::filesystem::path& from, int to) {
    const int error = copyAttribute(from, to, kAccessList);
    if (error != ENODATA)
        return isUnknown(error) ? 0 : error;
    if (::fremovexattr(to, kAccessList) == 0 || errno == ENODATA || isUnknown(errno))
        return 0;
    return errno;
}

} // namespace

std::unique_lock<std::shared_timed_mutex> keepFromHiddenNames(std::chrono::milliseconds limit) {
    return {hiddenNames(), limit};
}

TemporaryFile::EndWaits::EndWaits() : lock_(hiddenNames(), std::defer_lock) {
    ::sigset_t ending{};
    sigemptyset(&ending);
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGALRM})
        sigaddset(&ending, number);
    pthread_sigmask(SIG_BLOCK, &ending, &former_);
    lock_.lock();
}

TemporaryFile::EndWaits::~EndWaits() {
    lock_.unlock(); // before a signal that has waited can end the process
    pthread_sigmask(SIG_SETMASK, &former_, nullptr);
}

TemporaryFile::Name::~Name() {
    if (!path_.empty())
        ::unlink(path_.c_str());
}

int TemporaryFile::Name::renameTo(const fs::path& target) {
    if (::rename(path_.c_str(), target.c_str()) != 0)
        return errno;
    path_.clear();
    return 0;
}

Result<TemporaryFile, int> TemporaryFile::in(const fs::path& folder, mode_t mode) {
    removeWhatWasLeft(folder);
    FileDescriptor fd(::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, mode));
    if (!fd.isOpen() && errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)
        return failure(errno);
    // Without that folder it could not be given a name.
    if (!fd.isOpen() || ::access(procPath(fd.get()).c_str(), F_OK) != 0)
        return named(folder, mode);
    return TemporaryFile(folder, std::move(fd));
}

Result<TemporaryFile, int> TemporaryFile::named(const fs::path& folder, mode_t mode) {
    TemporaryFile file(folder, FileDescriptor());
    file.endWaits_ = std::make_unique<EndWaits>();
    for (int i = 0; i < kMaxNames; ++i) {
        fs::path path = folder / hiddenName();
        FileDescriptor fd(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (!fd.isOpen() && errno != EEXIST)
            return failure(errno);
        if (!fd.isOpen() || !isOursAlone(fd.get()))
            continue;
        file.fd_ = std::move(fd);
        file.name_.emplace(
            std::move(path)); // without memory of its own, now that the file is there
        return file;
    }
    return failure(EEXIST);
}

int TemporaryFile::giveName() {
    endWaits_ = std::make_unique<EndWaits>();
    static_cast<void>(::flock(fd_.get(), LOCK_EX));
    for (int i = 0; i < kMaxNames; ++i) {
        fs::path path = folder_ / hiddenName();
        if (::linkat(AT_FDCWD, procPath(fd_.get()).c_str(), AT_FDCWD, path.c_str(),
                     AT_SYMLINK_FOLLOW) == 0) {
            name_.emplace(std::move(path)); // without memory of its own, now that the name is there
            return 0;
        }
        if (errno != EEXIST)
            break;
    }
    return errno;
}

int TemporaryFile::moveTo(const fs::path& target) {
    if (!name_)
        if (const int error = giveName(); error != 0)
            return error;
    return name_->renameTo(target);
}

int copyAttributes(const std::filesystem::path& from, int to) {
    if (const int error = copyAccessList(from, to); error != 0)
        return error;
    std::string names;
    const ssize_t size = readWhole(names, [&](char* buffer, std::size_t room) {
        return ::listxattr(from.c_str(), buffer, room);
    });
    if (size < 0)
        return isUnknown(errno) ? 0 : errno;
    for (std::size_t at = 0; at < names.size(); at += std::strlen(names.c_str() + at) + 1) {
        const char* const name = names.c_str() + at;
        if (!std::string_view(name).starts_with(kUsers))
            continue;
        if (const int error = copyAttribute(from, to, name); error != 0 && error != ENODATA)
            return error;
    }
    return 0;
}

} // namespace scenewright
