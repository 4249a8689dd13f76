// A new file that has no place yet, and goes with its object unless it is given one.
#pragma once

#include "platform/Process.h"
#include "platform/Result.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <sys/types.h>
#include <utility>

namespace scenewright {

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

} // namespace scenewright
