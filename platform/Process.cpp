#include "platform/Process.h"

#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <climits>
#include <csignal>
#include <exception>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace scenewright {

namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kMaxWait{500};
constexpr const char* kOutputFailed = "standard output could not be written";

// Whether the last piece that had to wait was dropped.
std::atomic<bool> hasStalled = false;

// The same file opened anew, so that it can be written without waiting and without a change to
// flags that other processes share.
FileDescriptor openAnew(int fd) noexcept {
    constexpr std::string_view kFolder = "/proc/self/fd/";
    std::array<char, 32> path{};
    char* const number = std::ranges::copy(kFolder, path.begin()).out;
    std::to_chars(number, path.end() - 1, fd);
    return FileDescriptor(::open(path.data(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
}

// A regular file's own offset counts; a socket cannot be opened anew, nor can what belongs to
// another user.
bool canWaitForReader(int fd) noexcept {
    struct stat status {};
    return ::fstat(fd, &status) == 0 && (S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode));
}

bool isWritableBefore(int fd, SteadyClock::time_point deadline) noexcept {
    using std::chrono::milliseconds;
    pollfd place{.fd = fd, .events = POLLOUT, .revents = 0};
    int ready = 0;
    do {
        const auto left = std::chrono::ceil<milliseconds>(deadline - SteadyClock::now());
        ready = ::poll(&place, 1, static_cast<int>(std::max(left, milliseconds(0)).count()));
    } while (ready < 0 && errno == EINTR && SteadyClock::now() < deadline);
    return ready == 1;
}

// What is ready takes a piece of this size without waiting, even when it was not opened anew.
bool writePieces(int fd, std::string_view text) noexcept {
    const auto deadline = SteadyClock::now() + (hasStalled ? SteadyClock::duration(0) : kMaxWait);
    while (!text.empty()) {
        if (!isWritableBefore(fd, deadline)) {
            hasStalled = true;
            return false;
        }
        const ssize_t count =
            ::write(fd, text.data(), std::min<std::size_t>(text.size(), PIPE_BUF));
        if (count < 0 && ((errno != EAGAIN && errno != EINTR) || SteadyClock::now() > deadline))
            return false;
        if (count > 0)
            text.remove_prefix(static_cast<std::size_t>(count));
    }
    hasStalled = false;
    return true;
}

// Of what was opened without waiting.
void waitFor(int fd, short event) noexcept {
    pollfd place{.fd = fd, .events = event, .revents = 0};
    static_cast<void>(::poll(&place, 1, -1));
}

bool isClosed(int fd) noexcept {
    return ::fcntl(fd, F_GETFD) < 0 && errno == EBADF;
}

// The lowest free descriptor is the one that is given, so the three are filled in their order.
void fillClosedDescriptors() noexcept {
    constexpr std::array kModes{O_WRONLY, O_RDONLY, O_WRONLY}; // the wrong way round for 0 and 1
    for (int fd = 0; fd < static_cast<int>(kModes.size()); ++fd)
        if (isClosed(fd))
            static_cast<void>(::open("/dev/null", kModes.at(static_cast<std::size_t>(fd))));
}

} // namespace

void prepareProcess() noexcept {
    fillClosedDescriptors();
    for (const int number : {SIGPIPE, SIGXFSZ})
        static_cast<void>(std::signal(number, SIG_IGN));
}

bool writeOrDrop(int fd, std::string_view text) noexcept {
    if (fd < 0)
        return false; // which poll() would wait for
    const int keptError = errno;
    const FileDescriptor anew = canWaitForReader(fd) ? openAnew(fd) : FileDescriptor();
    // What has lost its other end cannot be opened, and says so when it is written.
    const bool isWritten = writePieces(anew.isOpen() ? anew.get() : fd, text);
    errno = keptError;
    return isWritten;
}

void writeStandardError(std::string_view text) noexcept {
    static_cast<void>(writeOrDrop(STDERR_FILENO, text));
}

void reportError(std::string_view program, std::string_view sentence) noexcept {
    try {
        // A file's name or an argument in it may hold anything, a terminal's commands included.
        writeStandardError(std::string(program) + ": " + readableText(sentence) + '\n');
    } catch (const std::exception&) {
        for (const std::string_view part : {program, std::string_view(": out of memory\n")})
            writeStandardError(part);
    }
}

std::string systemText(int error) {
    return std::generic_category().message(error);
}

Result<std::vector<std::uint8_t>, int> readFully(int fd, std::size_t limit) {
    std::vector<std::uint8_t> bytes;
    std::array<std::uint8_t, 16384> chunk{};
    while (bytes.size() <= limit) {
        const ssize_t count = ::read(fd, chunk.data(), chunk.size());
        if (count == 0)
            break;
        if (count > 0)
            bytes.insert(bytes.end(), chunk.begin(), chunk.begin() + count);
        else if (errno == EAGAIN)
            waitFor(fd, POLLIN);
        else if (errno != EINTR)
            return failure(int{errno});
    }
    return bytes;
}

int writeFully(int fd, std::string_view text) noexcept {
    while (!text.empty()) {
        const ssize_t count = ::write(fd, text.data(), text.size());
        if (count > 0)
            text.remove_prefix(static_cast<std::size_t>(count));
        else if (count < 0 && errno == EAGAIN)
            waitFor(fd, POLLOUT);
        else if (count < 0 && errno != EINTR)
            return errno;
    }
    return 0;
}

Result<void> writeStandardOutput(std::string_view text) {
    if (writeFully(STDOUT_FILENO, text) != 0)
        return failure(kOutputFailed);
    return {};
}

Result<void> closeStandardOutput() {
    const bool isClosedWell = ::close(STDOUT_FILENO) == 0 || errno == EINTR;
    fillClosedDescriptors();
    if (!isClosedWell)
        return failure(kOutputFailed);
    return {};
}

std::vector<Result<std::string>> LineReader::take() {
    std::array<char, kLongest> room{};
    const ssize_t count = ::read(descriptor_, room.data(), room.size());
    const int error = count < 0 ? errno : 0;
    std::vector<Result<std::string>> lines;
    for (ssize_t place = 0; place < count; ++place) {
        const char letter = room[static_cast<std::size_t>(place)];
        if (letter == '\0') // of a device, perhaps, that never ends
            return end(std::move(lines),
                       failure("what comes in is no text; it is read no further"));
        if (letter == '\n')
            lines.push_back(endLine());
        else if (begun_.size() < kLongest)
            begun_ += letter;
        else
            isTooLong_ = true;
    }
    if (error != 0 && error != EINTR && error != EAGAIN)
        return end(std::move(lines),
                   failure("what comes in cannot be read any more: " + systemText(error)));
    if (count == 0 && !begun_.empty())
        return end(std::move(lines), endLine());
    if (count == 0)
        descriptor_ = -1;
    return lines;
}

std::vector<Result<std::string>> LineReader::end(std::vector<Result<std::string>> lines,
                                                 Result<std::string> last) {
    descriptor_ = -1;
    lines.push_back(std::move(last));
    return lines;
}

Result<std::string> LineReader::endLine() {
    std::string line = std::exchange(begun_, {});
    if (std::exchange(isTooLong_, false))
        return failure(fmt::format("a line of more than {} bytes is no order", kLongest));
    return line;
}

} // namespace scenewright
