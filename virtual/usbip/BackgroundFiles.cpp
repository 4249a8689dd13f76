#include "virtual/usbip/BackgroundFiles.h"

#include <fmt/format.h>

#include <cerrno>
#include <condition_variable>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace scenewright::usbip {

namespace {

// What waits for a pipe whose reader is slow: more than a read and a send of a whole bank make.
constexpr std::size_t kMaxPending = std::size_t{1} << 20U; // bytes
constexpr mode_t kNewFile = 0666;                          // before the process's umask
constexpr Moment kForever = Moment::max();

FileDescriptor standardOutput() {
    return FileDescriptor(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0));
}

// What standard output holds already stays, by whatever name it is meant: the trace goes behind it.
Result<FileDescriptor> openForLines(const std::string& name) {
    if (name == "-")
        return standardOutput();
    // Not blocking, as opening a pipe would wait for its reader.
    FileDescriptor file(
        ::open(name.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, kNewFile));
    if (!file.isOpen())
        return failure(errno == ENXIO ? "nobody reads it" : systemText());
    struct stat status {};
    struct stat output {};
    const bool isRegular = ::fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode);
    if (isRegular && ::fstat(STDOUT_FILENO, &output) == 0 && status.st_dev == output.st_dev &&
        status.st_ino == output.st_ino)
        return standardOutput();
    if (isRegular && ::ftruncate(file.get(), 0) != 0)
        return failure(systemText());
    ::fcntl(file.get(), F_SETFL, ::fcntl(file.get(), F_GETFL) & ~O_NONBLOCK);
    return file;
}

} // namespace

void BackgroundThread::start(std::function<void()> work) {
    std::packaged_task<void()> task(std::move(work));
    end_ = task.get_future();
    thread_ = std::thread(std::move(task));
}

struct BackgroundThread::Work {
    std::mutex mutex;
    std::condition_variable changed;
    bool isLast = false; // nothing more will be asked for
};

bool BackgroundThread::finish(Work& work, Moment limit) {
    {
        const std::scoped_lock lock(work.mutex);
        work.isLast = true;
        work.changed.notify_one();
    }
    if (!isStarted())
        return true;
    const bool isEnded = limit == kForever || end_.wait_until(limit) == std::future_status::ready;
    if (isEnded)
        thread_.join();
    else
        thread_.detach();
    return isEnded;
}

struct BankSaver::Work : BackgroundThread::Work {
    std::filesystem::path file;
    LineSink reportError;
    BankFileStore::Store store;
    FileDescriptor ended; // an eventfd, told each time when a saving has ended

    std::optional<BankImage> next;   // to be written
    std::optional<BankImage> unkept; // what was written last, if that failed
    bool isWriting = false;
    bool isLastTried = false; // and will not be tried again

    void run();
    [[nodiscard]] std::optional<BankImage> take();
    void storeOne(const BankImage& bank);
};

void BankSaver::Work::run() {
    while (const auto bank = take())
        storeOne(*bank);
}

std::optional<BankImage> BankSaver::Work::take() {
    std::unique_lock lock(mutex);
    changed.wait(lock, [this] { return next || isLast; });
    if (!next && !isLastTried) {
        isLastTried = true;
        next = std::exchange(unkept, std::nullopt);
    }
    isWriting = next.has_value();
    return std::exchange(next, std::nullopt);
}

void BankSaver::Work::storeOne(const BankImage& bank) {
    const Result<void> stored = store(file, bank);
    bool isEnd = false;
    {
        const std::scoped_lock lock(mutex);
        isWriting = false;
        unkept = stored ? std::nullopt : std::optional(bank);
        isEnd = isLastTried;
    }
    if (!stored)
        reportError(isEnd ? stored.error()
                          : stored.error() + " It is tried again at the next send and at the end.");
    static_cast<void>(::eventfd_write(ended.get(), 1));
}

BankSaver::BankSaver(std::filesystem::path file, LineSink reportError, BankFileStore::Store store) {
    if (file.empty())
        return;
    work_ = std::make_shared<Work>();
    work_->file = std::move(file);
    work_->reportError = std::move(reportError);
    work_->store = std::move(store);
    work_->ended = FileDescriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    thread_.start([work = work_] { work->run(); });
}

BankSaver::~BankSaver() {
    static_cast<void>(finish(kForever));
}

void BankSaver::save(const BankImage& bank) {
    if (!work_)
        return;
    const std::scoped_lock lock(work_->mutex);
    work_->next = bank;
    work_->changed.notify_one();
}

bool BankSaver::isSaving() const {
    if (!work_)
        return false;
    const std::scoped_lock lock(work_->mutex);
    return work_->next || work_->isWriting;
}

int BankSaver::descriptor() const noexcept {
    return work_ ? work_->ended.get() : -1;
}

void BankSaver::acknowledge() const {
    ::eventfd_t count = 0;
    static_cast<void>(::eventfd_read(descriptor(), &count));
}

Result<void> BankSaver::finish(Moment limit) {
    if (!thread_.isStarted())
        return {};
    const bool isEnded = thread_.finish(*work_, limit);
    const std::scoped_lock lock(work_->mutex);
    if (!isEnded)
        return failure(
            fmt::format("{}: what was sent could not be written in time", work_->file.string()));
    if (work_->unkept)
        return failure(fmt::format("{}: what was sent is not kept", work_->file.string()));
    return {};
}

struct LineFile::Work : BackgroundThread::Work {
    std::string name;
    FileDescriptor file;

    std::string pending;
    std::string lost; // why a line was dropped; empty when none was
    bool isBroken = false;

    void run();
    [[nodiscard]] std::string take();
    void dropLine(std::string why);
};

void LineFile::Work::run() {
    for (std::string text = take(); !text.empty(); text = take()) {
        const int error = writeFully(file.get(), text);
        if (error == 0)
            continue;
        const std::scoped_lock lock(mutex);
        isBroken = true;
        dropLine(systemText(error));
        pending.clear();
        return;
    }
}

std::string LineFile::Work::take() {
    std::unique_lock lock(mutex);
    changed.wait(lock, [this] { return !pending.empty() || isLast; });
    return std::exchange(pending, {});
}

// The first reason is told.
void LineFile::Work::dropLine(std::string why) {
    if (lost.empty())
        lost = std::move(why);
}

Result<LineFile> LineFile::open(const std::string& name) {
    auto file = openForLines(name);
    if (!file)
        return failure(fmt::format("{}: cannot be written: {}", name, file.error()));
    if (!file->isOpen())
        return failure(fmt::format("{}: cannot be written: {}", name, systemText()));
    auto work = std::make_shared<Work>();
    work->name = name;
    work->file = std::move(*file);
    return LineFile(std::move(work));
}

LineFile::LineFile(std::shared_ptr<Work> work) : work_(std::move(work)) {
    thread_.start([shared = work_] { shared->run(); });
}

LineFile::~LineFile() {
    if (work_)
        static_cast<void>(finish(kForever));
}

void LineFile::write(std::string_view line) {
    const std::scoped_lock lock(work_->mutex);
    if (work_->isBroken)
        return;
    if (work_->pending.size() + line.size() > kMaxPending) {
        work_->dropLine("it is not read fast enough");
        return;
    }
    work_->pending.append(line).push_back('\n');
    work_->changed.notify_one();
}

Result<void> LineFile::finish(Moment limit) {
    const bool isEnded = thread_.finish(*work_, limit);
    const std::scoped_lock lock(work_->mutex);
    if (!isEnded)
        work_->dropLine("it is not read fast enough");
    if (work_->lost.empty())
        return {};
    return failure(
        fmt::format("{}: not all of the trace could be written: {}", work_->name, work_->lost));
}

} // namespace scenewright::usbip
