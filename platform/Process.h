// A program as a process: its open files, how it begins and ends, and its standard streams,
// whatever they are connected to: a terminal that has stopped or gone, a pipe that nobody reads, a
// full disk, nothing at all.
//
// Texts for a person go to standard error and are dropped when they cannot be written; results go
// to standard output, and that they could not be written is an error. Any thread may call.
#pragma once

#include "platform/Text.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>
#include <vector>

namespace scenewright {

// The first thing that a program does, before it opens anything. SIGPIPE and SIGXFSZ are ignored: a
// write that they would end fails instead. A closed descriptor of 0 to 2 gets a place holder, so
// that no file can be opened in its stead: reading 0 and writing 1 then fail, writing 2 does
// nothing.
void prepareProcess() noexcept;

// Writes to an open file what it takes, waiting at most half a second, and not at all once it has
// made the process wait in vain. Whether all was written. The flags that other processes share
// stay as they are. Safe in a signal handler; errno is kept.
bool writeOrDrop(int fd, std::string_view text) noexcept;

// The same to standard error.
void writeStandardError(std::string_view text) noexcept;

// One line on standard error, "PROGRAM: SENTENCE", made readable; dropped when it cannot be
// written.
void reportError(std::string_view program, std::string_view sentence) noexcept;

// What the system calls an error, by errno's value.
[[nodiscard]] std::string systemText(int error = errno);

// Reads to the end, waiting as long as it takes, or until there is more than `limit` bytes. The
// error is errno's value.
[[nodiscard]] Result<std::vector<std::uint8_t>, int> readFully(int fd, std::size_t limit);

// Writes all of a result, waiting as long as it takes; gives 0 or errno's value.
[[nodiscard]] int writeFully(int fd, std::string_view text) noexcept;
// The same to standard output.
[[nodiscard]] Result<void> writeStandardOutput(std::string_view text);
// After the last result: some file systems say only now that something could not be written.
[[nodiscard]] Result<void> closeStandardOutput();

// An open file of the system, closed with the object that owns it.
class FileDescriptor {
public:
    FileDescriptor() = default;
    // Takes the descriptor over; a negative one owns nothing.
    explicit FileDescriptor(int fd) noexcept : fd_(fd) {}
    FileDescriptor(FileDescriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(fd_, other.fd_);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() {
        if (fd_ >= 0)
            ::close(fd_);
    }

    [[nodiscard]] bool isOpen() const noexcept { return fd_ >= 0; }
    [[nodiscard]] int get() const noexcept { return fd_; }

private:
    int fd_ = -1;
};

// Lines of text from a descriptor, as they come. The descriptor stays the caller's. One thread.
class LineReader {
public:
    static constexpr std::size_t kLongest = 4096; // bytes

    // -1 gives none ever.
    explicit LineReader(int descriptor = -1) : descriptor_(descriptor) {}

    // To be waited for; -1 once the input has ended.
    [[nodiscard]] int descriptor() const noexcept { return descriptor_; }
    // The lines that are whole after one read, without what ends them; a sentence in place of one
    // that is too long. Blocks unless the descriptor is ready. The end of the input ends its last
    // line. An input that cannot be read, or is no text, ends with a sentence.
    [[nodiscard]] std::vector<Result<std::string>> take();

private:
    [[nodiscard]] Result<std::string> endLine();
    [[nodiscard]] std::vector<Result<std::string>> end(std::vector<Result<std::string>> lines,
                                                       Result<std::string> last);

    int descriptor_;
    std::string begun_; // a line whose end has not come
    bool isTooLong_ = false;
};

// ---- The main function, in ProgramMain.cpp, which is part of the programs alone: its linking
// installs a handler, before any object of theirs is made, that reports in one sentence what would
// otherwise end them by a signal: an exception in the making of such an object, in a thread, or
// where none may pass. They then end with kExitUnexpected.

inline constexpr int kExitUnexpected = 2;

// What the exception means to a person. Refers to `error` or to a text that stays.
[[nodiscard]] std::string_view sentenceOf(const std::exception& error) noexcept;

// Prepares the process and runs the program; gives its exit code. An exception is
// reported in one sentence on standard error.
int runProgram(std::string_view name, int (*run)(int, char**), int argc, char** argv) noexcept;

} // namespace scenewright
