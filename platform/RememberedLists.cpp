#include "platform/RememberedLists.h"

#include <chrono>
#include <sys/stat.h>
#include <utility>

namespace scenewright {

namespace {

constexpr std::int64_t kSecond = 1'000'000'000; // in nanoseconds

// Files get their times from a clock that stands still for some milliseconds at a time: of one that
// was changed just now, a later change may not show.
constexpr std::int64_t kSettled = kSecond;

std::int64_t now() {
    using namespace std::chrono;
    return duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
}

} // namespace

// A pipe gives its content once, so it has no stamp; nor has a file of the last second.
std::optional<RememberedLists::Stamp> RememberedLists::stampOf(const std::filesystem::path& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    const Stamp stamp{.device = status.st_dev,
                      .inode = status.st_ino,
                      .size = status.st_size,
                      .changed = status.st_ctim.tv_sec * kSecond + status.st_ctim.tv_nsec};
    return stamp.changed < now() - kSettled ? std::optional(stamp) : std::nullopt;
}

std::shared_ptr<const PropertyListFile> RememberedLists::read(const std::filesystem::path& path) {
    const std::lock_guard lock(mutex_);
    // Before the file is read: a change that comes in between makes the stamp an old one.
    const std::optional<Stamp> stamp = stampOf(path);
    const auto known = entries_.find(path);
    if (stamp && known != entries_.end() && known->second.stamp == *stamp)
        return known->second.list;
    auto list = std::make_shared<const PropertyListFile>(readPropertyList(path));
    if (stamp)
        entries_.insert_or_assign(path, Entry{*stamp, list});
    return list;
}

} // namespace scenewright
