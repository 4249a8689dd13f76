// Files: read whole, replaced whole or not at all, made without a place, and compared before a
// command opens the first of those that it names.
//
// Any thread may call, where nothing else is said.
#pragma once

#include "platform/Process.h"
#include "platform/Text.h"

#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <span>
#include <string>
#include <sys/types.h>
#include <utility>
#include <vector>

namespace scenewright {

using FileContent = std::vector<std::uint8_t>;

// Reads a regular file or a pipe, at most `limit` bytes; more is an error. A pipe that nobody
// writes to for a second is one too, unless there is `whenWaiting`: it is called once, and the wait
// goes on.
[[nodiscard]] Result<FileContent> readFile(const std::filesystem::path& path, std::size_t limit,
                                           const std::function<void()>& whenWaiting = {});

// What is in a folder; nothing where it cannot be read, or there is none.
[[nodiscard]] std::vector<std::filesystem::path>
filesIn(const std::optional<std::filesystem::path>& folder);

// What replacing did beside its purpose.
struct Replaced {
    std::uint64_t otherNames = 0; // hard links, which keep the former content
};

// Writes `bytes` to a new file in the same folder, flushes it to the disk and puts it in the place
// of `path`. A symbolic link is followed; an existing file keeps its owner, its group, its
// permission bits, its access list and its user's attributes, or is not written at all. On error
// `path` is what it was. What a writer that was killed has left in the folder is removed.
//
// Writers of one file come one after the other; one that cannot within 20 seconds is an error.
[[nodiscard]] Result<Replaced> replaceFile(const std::filesystem::path& path,
                                           std::span<const std::uint8_t> bytes);

// The same with bytes that are made of the file's own: no other writer comes between.
using FileChange = std::function<Result<FileContent>(FileContent former)>;
[[nodiscard]] Result<Replaced> changeFile(const std::filesystem::path& path, std::size_t limit,
                                          const FileChange& change);

// Whether `replaceFile` could do its work, tried as far as that leaves no trace, and asked before
// work that would be lost. The error is the one that writing would give.
[[nodiscard]] Result<void> checkReplaceable(const std::filesystem::path& path);

// ---- In TemporaryFile.cpp: a new file that has no place yet, and goes with its object unless it
// is given one.

// Waits until no file of this process has a hidden name, for that long at most, and keeps every
// file from getting one as long as what it gives is held: a process that ends then leaves none.
// Any thread but one that has such a file. The lock is not held when the time was too short.
[[nodiscard]] std::unique_lock<std::shared_timed_mutex>
keepFromHiddenNames(std::chrono::milliseconds limit);

// Where the file system has files without a name it has none until it is moved to its place; else,
// and in the moment of the move, it has a hidden name of its own. While it has, the signals that
// end a program wait in this thread, a thread that ends the process waits in keepFromHiddenNames(),
// and the file is locked: what is found under such a name and is not locked was left by a writer
// that was killed.
class TemporaryFile {
public:
    // Removes what killed writers have left in the folder, then makes the file, open for writing.
    // The error is errno's value.
    [[nodiscard]] static Result<TemporaryFile, int> in(const std::filesystem::path& folder,
                                                       mode_t mode);

    TemporaryFile(TemporaryFile&&) = default;
    TemporaryFile& operator=(TemporaryFile&&) = delete;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() = default;

    [[nodiscard]] int fd() const noexcept { return fd_.get(); }
    // Puts the file, which must be whole, in the place of `target` in the same folder. Gives 0 or
    // errno's value.
    [[nodiscard]] int moveTo(const std::filesystem::path& target);

private:
    // The end of the process waits from construction to destruction, both in one thread.
    class EndWaits {
    public:
        EndWaits();
        EndWaits(const EndWaits&) = delete;
        EndWaits& operator=(const EndWaits&) = delete;
        EndWaits(EndWaits&&) = delete;
        EndWaits& operator=(EndWaits&&) = delete;
        ~EndWaits();

    private:
        ::sigset_t former_{};
        std::shared_lock<std::shared_timed_mutex> lock_;
    };
    // A hidden name, removed with its object unless the file has been renamed.
    class Name {
    public:
        explicit Name(std::filesystem::path path) : path_(std::move(path)) {}
        Name(Name&& other) noexcept : path_(std::exchange(other.path_, {})) {}
        Name& operator=(Name&&) = delete;
        Name(const Name&) = delete;
        Name& operator=(const Name&) = delete;
        ~Name();
        [[nodiscard]] int renameTo(const std::filesystem::path& target);

    private:
        std::filesystem::path path_;
    };

    TemporaryFile(std::filesystem::path folder, FileDescriptor fd)
        : folder_(std::move(folder)), fd_(std::move(fd)) {}
    static Result<TemporaryFile, int> named(const std::filesystem::path& folder, mode_t mode);
    int giveName();

    std::filesystem::path folder_;
    FileDescriptor fd_;
    std::unique_ptr<EndWaits> endWaits_; // outlives the name
    std::optional<Name> name_;
};

// Gives the open file `to` what the file `from` has beside its content, its owner and its mode: the
// list of further users and groups that may use it (an access ACL) and its user's attributes. Takes
// away a list that `to` has from its folder and `from` has not. 0, or errno's value. A file system
// that has neither is no error. Any thread.
[[nodiscard]] int copyAttributes(const std::filesystem::path& from, int to);

// ---- The files that one command names, looked at together before the first of them is opened:
// what is read must not be overwritten under another option's name. Files are compared by what they
// are on the disk, whatever their names.

// The descriptor that a name stands for: /dev/stdin, /dev/fd/3, /proc/self/fd/3, and links to such.
[[nodiscard]] std::optional<int> namedDescriptor(const std::string& name);

enum class FileUse : std::uint8_t {
    Read,     // before anything is replaced
    Replaced, // after all was read, by a file that is whole
    Written,  // while others are still needed
    Appended, // as the program goes on, emptied first; several streams may share one
};

struct NamedFile {
    std::string name; // a path, or "-" for standard input if it is read, else standard output
    FileUse use = FileUse::Read;
    std::string subject; // how the error begins when this file is written: "--log m.bank: it"
    std::string content; // what the file is to the command: "the bank that is to be shown"
};

// An error, "SUBJECT would overwrite CONTENT", if two of them are one file and one would be lost.
// The earlier one in the list is the subject when both are written.
[[nodiscard]] Result<void> checkNamedFiles(std::span<const NamedFile> files);

} // namespace scenewright
