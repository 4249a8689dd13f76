#include "app/SendJournal.h"

#include "app/KeptFile.h"
#include "model/SceneValue.h"
#include "platform/Files.h"
#include "platform/Resources.h"
#include "platform/Text.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <ctime>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace scenewright {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFormat = "scenewright-send";
constexpr mode_t kOwnAlone = 0600;

// "send-1769903998007-4711.json": when it was begun, in milliseconds, and by which process.
constexpr std::string_view kBeforeTime = "send-";
constexpr std::string_view kEnding = ".json";

// The one text that changes while the send runs: a digit, overwritten in its place.
constexpr const char* kScenes = "scenes";

char digitOf(std::size_t scenes) {
    return static_cast<char>('0' + scenes);
}

std::size_t scenesOfDigit(const std::string& text) {
    return text.size() == 1 && text[0] > '0' && text[0] <= digitOf(kSceneCount)
               ? static_cast<std::size_t>(text[0] - '0')
               : 0;
}

// In no other text a quotation mark stands without a backslash.
std::size_t placeOfDigit(const FileContent& bytes) {
    constexpr std::string_view kBefore = "\"scenes\": \"";
    const auto found = std::search(bytes.begin(), bytes.end(), kBefore.begin(), kBefore.end());
    return static_cast<std::size_t>(found - bytes.begin()) + kBefore.size();
}

std::int64_t millisecondsOf(SendJournal::Clock::time_point time) {
    return std::chrono::floor<std::chrono::milliseconds>(time.time_since_epoch()).count();
}

int flush(int fd) {
    return ::fsync(fd) == 0 ? 0 : errno;
}

// The name of a new file is on the disk once its folder is.
int flushFolder(const fs::path& folder) {
    const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return opened.isOpen() ? flush(opened.get()) : errno;
}

// Written, flushed and locked before it has its name: nobody finds it who could take it for left
// behind. The lock ends with the process, however that ends.
Result<FileDescriptor, int> store(const fs::path& file, const FileContent& bytes) {
    auto made = TemporaryFile::in(file.parent_path(), kOwnAlone);
    if (!made)
        return failure(made.error());
    int error = writeFully(made->fd(), asText(bytes));
    if (error == 0)
        error = flush(made->fd());
    static_cast<void>(::flock(made->fd(), LOCK_EX | LOCK_NB));
    FileDescriptor lock(::fcntl(made->fd(), F_DUPFD_CLOEXEC, 0));
    const fs::path folder = file.parent_path(); // once it has its name, nothing here needs memory
    if (error == 0)
        error = made->moveTo(file);
    if (error == 0 && (error = flushFolder(folder)) != 0)
        ::unlink(file.c_str()); // it is told as not written, and stands for no send
    if (error != 0)
        return failure(error);
    return lock;
}

bool isBeingSent(const fs::path& file) {
    const FileDescriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
    return opened.isOpen() && ::flock(opened.get(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

std::optional<SendJournal::Unfinished> readUnfinished(const fs::path& file) {
    const std::string name = file.filename().string();
    if (!name.starts_with(kBeforeTime) || !name.ends_with(kEnding) || isBeingSent(file))
        return std::nullopt;
    const auto texts = readKept(kFormat, file);
    const auto sent = texts ? imageOfDigits(textAt(*texts, "sent")) : std::nullopt;
    if (!sent)
        return std::nullopt;
    std::int64_t milliseconds = 0;
    const std::string begun = textAt(*texts, "begun");
    std::from_chars(begun.data(), begun.data() + begun.size(), milliseconds);
    return SendJournal::Unfinished{
        .file = file,
        .send = {.sent = *sent,
                 .before = imageOfDigits(textAt(*texts, "before")),
                 .subject = textAt(*texts, "subject"),
                 .keyboard = textAt(*texts, "keyboard"),
                 .begun = SendJournal::Clock::time_point(std::chrono::milliseconds(milliseconds)),
                 .scenes = scenesOfDigit(textAt(*texts, kScenes))}};
}

FileContent bytesOf(const SendJournal::Send& send) {
    KeptTexts texts{{"sent", imageDigits(send.sent)},
                    {"subject", send.subject},
                    {"keyboard", send.keyboard},
                    {"begun", std::to_string(millisecondsOf(send.begun))},
                    {kScenes, std::string(1, digitOf(send.scenes))}};
    if (send.before)
        texts["before"] = imageDigits(*send.before);
    return keptBytes(kFormat, texts);
}

} // namespace

void SendJournal::Running::note(std::size_t scenes) const noexcept {
    const char digit = digitOf(scenes);
    if (::pwrite(lock_.get(), &digit, 1, static_cast<off_t>(scenesAt_)) == 1)
        static_cast<void>(flush(lock_.get())); // else less is known to have been sent
}

bool SendJournal::Running::end(const Outcome& outcome) {
    const bool mayHoldParts =
        outcome.end == Outcome::End::Unreliable || outcome.end == Outcome::End::Cancelled;
    std::error_code error;
    if (!mayHoldParts)
        fs::remove(file_, error);
    lock_ = FileDescriptor();
    return !mayHoldParts;
}

std::optional<fs::path> SendJournal::stateFolder() {
    return xdgFolder(XdgFolder::State, "sends");
}

Result<SendJournal::Running> SendJournal::begin(const Send& send) const {
    if (const auto made = makeFolder(folder_); !made)
        return failure(made.error());
    fs::path file = *folder_ / fmt::format("{}{}-{}{}", kBeforeTime, millisecondsOf(send.begun),
                                           ::getpid(), kEnding);
    const FileContent bytes = bytesOf(send);
    auto stored = store(file, bytes);
    if (!stored)
        return failure(fmt::format("{}: {}", file.string(), systemText(stored.error())));
    // Without memory of its own.
    return Running(std::move(file), std::move(*stored), placeOfDigit(bytes));
}

std::vector<SendJournal::Unfinished> SendJournal::unfinished() const {
    std::vector<Unfinished> all;
    for (const fs::path& file : filesIn(folder_))
        if (auto found = readUnfinished(file))
            all.push_back(std::move(*found));
    std::ranges::sort(all, std::ranges::greater(),
                      [](const Unfinished& one) { return one.send.begun; });
    return all;
}

std::optional<SendJournal::Unfinished>
SendJournal::unfinishedOf(const std::string& keyboard) const {
    for (Unfinished& one : unfinished())
        if (one.send.keyboard == keyboard)
            return std::optional(std::move(one));
    return std::nullopt;
}

void SendJournal::forget(const Unfinished& unfinished) {
    std::error_code error;
    fs::remove(unfinished.file, error);
}

void SendJournal::forgetAllOf(const std::string& keyboard) const {
    for (const Unfinished& one : unfinished())
        if (one.send.keyboard == keyboard)
            forget(one);
}

void SendJournal::forgetSettled(const std::string& keyboard, const BankImage& held) const {
    for (const Unfinished& one : unfinished())
        if (one.send.keyboard == keyboard && (held == one.send.sent || held == one.send.before))
            forget(one);
}

bool isPartOf(const BankImage& held, const SendJournal::Send& send) {
    for (std::size_t place = 0; place < kBankSize; ++place)
        if (held.at(place) != send.sent.at(place) &&
            (!send.before || held.at(place) != send.before->at(place)))
            return false;
    return true;
}

std::string unfinishedText(const SendJournal::Send& send) {
    const std::string begun =
        fmt::format("{:%Y-%m-%d %H:%M}", fmt::localtime(SendJournal::Clock::to_time_t(send.begun)));
    if (send.subject.empty())
        return translated(sourceText("scenewright::Outcome",
                                     "The send that was begun at {0} did not end: {1} of 4 scenes "
                                     "were sent, and the keyboard may hold a part of each bank"),
                          begun, send.scenes);
    return translated(sourceText("scenewright::Outcome",
                                 "The send of {0} that was begun at {1} did not end: {2} of 4 "
                                 "scenes were sent, and the keyboard may hold a part of each bank"),
                      readableText(send.subject), begun, send.scenes);
}

} // namespace scenewright
