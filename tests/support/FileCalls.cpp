#include "tests/support/FileCalls.h"

#include <algorithm>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <sys/syscall.h>
#include <system_error>

namespace scenewright::testing {

namespace {

namespace fs = std::filesystem;

constexpr int kNone = -1;
constexpr std::size_t kLongestPath = 4096;
constexpr std::string_view kOwnDescriptors = "/proc/self/fd/";

// Where a call has its file: a descriptor, or a path below a folder's descriptor, or a path alone.
struct Row {
    std::uint64_t number;
    const char* name;
    int descriptor; // the argument's place; kNone for a path alone
    int path;       // kNone for a descriptor alone
    int target = kNone;
    int targetFolder = kNone;
};

constexpr Row kRows[] = {
    {SYS_open, "open", kNone, 0},          {SYS_openat, "open", 0, 1},
    {SYS_openat2, "open", 0, 1},           {SYS_creat, "open", kNone, 0},
    {SYS_stat, "stat", kNone, 0},          {SYS_lstat, "stat", kNone, 0},
    {SYS_newfstatat, "stat", 0, 1},        {SYS_statx, "stat", 0, 1},
    {SYS_fstat, "stat", 0, kNone},         {SYS_access, "access", kNone, 0},
    {SYS_faccessat, "access", 0, 1},       {SYS_faccessat2, "access", 0, 1},
    {SYS_readlink, "readlink", kNone, 0},  {SYS_readlinkat, "readlink", 0, 1},
    {SYS_rename, "rename", kNone, 0, 1},   {SYS_renameat, "rename", 0, 1, 3, 2},
    {SYS_renameat2, "rename", 0, 1, 3, 2}, {SYS_link, "link", kNone, 0, 1},
    {SYS_linkat, "link", 0, 1, 3, 2},      {SYS_unlink, "unlink", kNone, 0},
    {SYS_unlinkat, "unlink", 0, 1},        {SYS_rmdir, "unlink", kNone, 0},
    {SYS_mkdir, "mkdir", kNone, 0},        {SYS_mkdirat, "mkdir", 0, 1},
    {SYS_chmod, "chmod", kNone, 0},        {SYS_fchmodat, "chmod", 0, 1},
    {SYS_fchmod, "chmod", 0, kNone},       {SYS_fchown, "chown", 0, kNone},
    {SYS_truncate, "truncate", kNone, 0},  {SYS_ftruncate, "truncate", 0, kNone},
    {SYS_fallocate, "truncate", 0, kNone}, {SYS_read, "read", 0, kNone},
    {SYS_pread64, "read", 0, kNone},       {SYS_readv, "read", 0, kNone},
    {SYS_getdents64, "list", 0, kNone},    {SYS_lseek, "seek", 0, kNone},
    {SYS_write, "write", 0, kNone},        {SYS_pwrite64, "write", 0, kNone},
    {SYS_writev, "write", 0, kNone},       {SYS_copy_file_range, "write", 2, kNone},
    {SYS_sendfile, "write", 0, kNone},     {SYS_fsync, "fsync", 0, kNone},
    {SYS_fdatasync, "fsync", 0, kNone},    {SYS_close, "close", 0, kNone},
};

fs::path linkIn(pid_t thread, const std::string& name) {
    std::error_code none;
    return fs::read_symlink("/proc/" + std::to_string(thread) + "/" + name, none);
}

fs::path pathOfDescriptor(const RawCall& call, int place) {
    const int descriptor = place == kNone
                               ? AT_FDCWD
                               : static_cast<int>(call.arguments[static_cast<std::size_t>(place)]);
    return descriptor == AT_FDCWD ? linkIn(call.thread, "cwd")
                                  : linkIn(call.thread, "fd/" + std::to_string(descriptor));
}

std::string textAt(const RawCall& call, int place) {
    std::ifstream memory("/proc/" + std::to_string(call.thread) + "/mem", std::ios::binary);
    memory.seekg(static_cast<std::streamoff>(call.arguments[static_cast<std::size_t>(place)]));
    std::string text;
    for (char letter = 0; text.size() < kLongestPath && memory.get(letter) && letter != '\0';)
        text += letter;
    return text;
}

fs::path pathOf(const RawCall& call, int descriptor, int path) {
    const fs::path folder = pathOfDescriptor(call, descriptor);
    const std::string name = path == kNone ? std::string() : textAt(call, path);
    if (name.starts_with(kOwnDescriptors))
        return linkIn(call.thread, "fd/" + name.substr(kOwnDescriptors.size()));
    return name.empty() ? folder : (folder / name).lexically_normal();
}

// Empty for a path that lies elsewhere.
std::string placeIn(const fs::path& folder, const fs::path& path) {
    const std::string place = path.lexically_relative(folder).string();
    if (place.starts_with(".."))
        return {};
    const std::string name = fs::path(place).filename().string();
    // A file without a name has its number here.
    if (name.starts_with(".scenewright-") || name.ends_with(" (deleted)"))
        return (fs::path(place).parent_path() / "(temporary)").string();
    return place;
}

} // namespace

std::optional<FileCall> fileCallIn(const fs::path& folder, const RawCall& call) {
    const auto* const row = std::ranges::find(kRows, call.number, &Row::number);
    if (row == std::end(kRows))
        return std::nullopt;
    FileCall found{row->name, placeIn(folder, pathOf(call, row->descriptor, row->path)), {}};
    if (row->target != kNone)
        found.target = placeIn(folder, pathOf(call, row->targetFolder, row->target));
    return found.path.empty() ? std::nullopt : std::optional(found);
}

} // namespace scenewright::testing
