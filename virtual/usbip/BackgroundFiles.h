// The files that a server writes, each on a thread of its own: a disk, a pipe or a terminal that
// takes its time delays neither the other connections nor the end of the program.
//
// At the end each is given until a moment; a thread that has not come back from the system by then
// is left behind, and the process must be ended without waiting for it (_exit).
#pragma once

#include "platform/Process.h"
#include "platform/Text.h"
#include "protocol/SceneImage.h"
#include "virtual/VirtualHost.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <string_view>
#include <thread>

namespace scenewright::usbip {

// Receives one line, without a line feed. Called on any thread.
using LineSink = std::function<void(std::string_view)>;
using Moment = std::chrono::steady_clock::time_point;

// A thread that can be left behind.
class BackgroundThread {
public:
    void start(std::function<void()> work);
    [[nodiscard]] bool isStarted() const noexcept { return thread_.joinable(); }
    // Tells the work that it ends, and waits for that. False when it has not by then; the thread is
    // nobody's after that.
    struct Work;
    [[nodiscard]] bool finish(Work& work, Moment limit);

private:
    std::thread thread_;
    std::future<void> end_;
};

// Keeps what was sent to the controller. What could not be written is told, tried again with the
// next bank, and once more at the end.
class BankSaver {
public:
    // An empty path keeps nothing. `reportError` is called on the thread that writes.
    BankSaver(std::filesystem::path file, LineSink reportError,
              BankFileStore::Store store = &BankFileStore::storeImage);
    ~BankSaver();
    BankSaver(const BankSaver&) = delete;
    BankSaver& operator=(const BankSaver&) = delete;
    BankSaver(BankSaver&&) = delete;
    BankSaver& operator=(BankSaver&&) = delete;

    // Returns at once; of several banks that wait, the last is written.
    void save(const BankImage& bank);
    // From save() until the bank is written, or has failed to be.
    [[nodiscard]] bool isSaving() const;
    // Readable when a saving has ended since the last call of acknowledge().
    [[nodiscard]] int descriptor() const noexcept;
    void acknowledge() const;
    // Nothing may be saved after it. An error when what was sent last is not in the file.
    [[nodiscard]] Result<void> finish(Moment limit);

private:
    struct Work;
    std::shared_ptr<Work> work_; // null when nothing is kept; shared with a thread left behind
    BackgroundThread thread_;
};

// Lines of text to a file, a pipe or a terminal. A line that cannot be written is dropped; one is
// written whole or not at all, unless the file fails in the middle of it.
class LineFile {
public:
    // "-" is standard output; any other file is emptied. A pipe must have a reader already.
    [[nodiscard]] static Result<LineFile> open(const std::string& name);
    ~LineFile();
    LineFile(LineFile&&) = default;
    LineFile& operator=(LineFile&&) = delete;
    LineFile(const LineFile&) = delete;
    LineFile& operator=(const LineFile&) = delete;

    // Returns at once; adds the line feed.
    void write(std::string_view line);
    // Nothing may be written after it. An error when a line was dropped.
    [[nodiscard]] Result<void> finish(Moment limit);

private:
    struct Work;
    explicit LineFile(std::shared_ptr<Work> work);

    std::shared_ptr<Work> work_; // shared with a thread left behind
    BackgroundThread thread_;
};

} // namespace scenewright::usbip
