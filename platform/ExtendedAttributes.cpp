#include "platform/ExtendedAttributes.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <sys/xattr.h>

namespace scenewright {

namespace {

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
