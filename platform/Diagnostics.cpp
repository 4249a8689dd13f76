#include "platform/Diagnostics.h"

#include "platform/Files.h"
#include "platform/Process.h"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

// One stream. The flag stands apart from the sink so that a stream that is off takes no lock.
struct Stream {
    std::atomic<bool> on = false;
    std::mutex mutex;
    Diagnostics::Sink sink;

    void set(Diagnostics::Sink newSink) {
        const std::lock_guard lock(mutex);
        sink = std::move(newSink);
        on = static_cast<bool>(sink);
    }
    // The stream may have been turned off since the caller looked at the flag.
    void write(std::string_view text) {
        const std::lock_guard lock(mutex);
        if (sink)
            sink(text);
    }
};

Stream& consoleStream() {
    static Stream stream;
    return stream;
}

Stream& logStream() {
    static Stream stream;
    return stream;
}

constexpr mode_t kNewFileMode = 0666; // before the process's umask

// A stream's file and what became of it.
class StreamFile {
public:
    StreamFile(std::string name, FileDescriptor file)
        : name_(std::move(name)), file_(std::move(file)) {}

    void write(std::string_view text) noexcept {
        if (!writeOrDrop(file_.get(), text))
            isWhole_ = false;
    }
    [[nodiscard]] bool isWhole() const noexcept { return isWhole_; }
    [[nodiscard]] const std::string& name() const noexcept { return name_; }

private:
    std::string name_;
    FileDescriptor file_;
    std::atomic<bool> isWhole_ = true;
};

// The files that the streams were sent to, for the end of the program.
std::vector<std::shared_ptr<StreamFile>>& streamFiles() {
    static std::vector<std::shared_ptr<StreamFile>> files;
    return files;
}

std::string asOneLine(std::string_view line) {
    std::string text;
    text.reserve(line.size() + 1);
    for (const char c : line) {
        if (c == '\n')
            text += "\\n";
        else
            text += c;
    }
    text += '\n';
    return text;
}

std::string cannotWrite(const std::string& name, const std::string& why) {
    return "Cannot write " + name + ": " + why + ".";
}

// Empties or makes the file; each piece then goes to its end.
Result<FileDescriptor> openStreamFile(const std::string& name) {
    const auto descriptor = namedDescriptor(name);
    // Not waiting for a reader is the file's own flag here; a descriptor's is shared with others.
    const int fd = descriptor
                       ? ::fcntl(*descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)
                       : ::open(name.c_str(),
                                O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK | O_NOCTTY | O_CLOEXEC,
                                kNewFileMode);
    FileDescriptor file(fd);
    if (!file.isOpen())
        return failure(cannotWrite(name, errno == ENXIO ? "nobody reads this pipe" : systemText()));
    struct stat status {};
    if (!descriptor && ::fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode) &&
        ::ftruncate(file.get(), 0) != 0)
        return failure(cannotWrite(name, systemText()));
    return file;
}

Diagnostics::Sink inLines(Diagnostics::Sink sink) {
    return [sink = std::move(sink)](std::string_view line) { sink(asOneLine(line)); };
}

// To the file, or the descriptor that it stands for.
Result<Diagnostics::Sink> sinkTo(const std::string& name) {
    if (name == "-")
        return consoleSink(STDERR_FILENO);
    return openStreamFile(name).map([&name](FileDescriptor opened) -> Diagnostics::Sink {
        auto file = std::make_shared<StreamFile>(name, std::move(opened));
        streamFiles().push_back(file);
        return [file](std::string_view text) { file->write(text); };
    });
}

} // namespace

std::string formatPrintf(std::string_view format, fmt::printf_args values) {
    return fmt::vsprintf(fmt::string_view(format), values);
}

void Diagnostics::setConsole(Sink sink) {
    consoleStream().set(std::move(sink));
}
void Diagnostics::setLog(Sink sink) {
    logStream().set(std::move(sink));
}

bool Diagnostics::consoleIsOn() noexcept {
    return consoleStream().on;
}
bool Diagnostics::logIsOn() noexcept {
    return logStream().on;
}

void Diagnostics::writeConsole(std::string_view text) {
    consoleStream().write(text);
}
void Diagnostics::writeLog(std::string_view line) {
    logStream().write(line);
}

std::string hexDump(std::span<const std::uint8_t> bytes) {
    static constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 3);
    for (const std::uint8_t byte : bytes) {
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 0x0FU];
        text += ' ';
    }
    return text;
}

Diagnostics::Sink consoleSink(int fd) {
    return [fd](std::string_view text) { writeOrDrop(fd, text); };
}

Diagnostics::Sink logSink(int fd) {
    return inLines(consoleSink(fd));
}

Result<void> sendConsoleTo(const std::string& name) {
    return sinkTo(name).map(&Diagnostics::setConsole);
}

Result<void> sendLogTo(const std::string& name) {
    return sinkTo(name).map([](Diagnostics::Sink sink) { Diagnostics::setLog(inLines(sink)); });
}

Result<void> endDiagnostics() {
    Diagnostics::setConsole({});
    Diagnostics::setLog({});
    for (const auto& file : std::exchange(streamFiles(), {}))
        if (!file->isWhole())
            return failure(file->name() + ": not all of it could be written");
    return {};
}

} // namespace scenewright
