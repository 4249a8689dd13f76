#include "app/Recovery.h"

#include "app/KeptFile.h"
#include "platform/Files.h"
#include "platform/Resources.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <utility>

namespace scenewright {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kFirstLine = "scenewright edited scenes 1\n";
constexpr std::size_t kLongestText = 1 << 16; // of a path or a name; more is no file of ours
constexpr std::size_t kLongestFile = kFirstLine.size() + kBankSize + 2 * kLongestText;

constexpr std::string_view kScenesName = ".scenes";
constexpr std::string_view kLockName = ".lock";
constexpr std::uint32_t kLastPlace = 1000; // far beyond the windows that a person opens

std::string nameOf(std::uint32_t place, std::string_view kind) {
    return fmt::format("{}{}", place, kind);
}

// The text up to the zero byte, which is taken too; nothing when there is none.
std::optional<std::string> takeText(std::string_view& from) {
    const std::size_t end = from.find('\0');
    if (end == std::string_view::npos)
        return std::nullopt;
    std::string text(from.substr(0, end));
    from.remove_prefix(end + 1);
    return text;
}

std::optional<Recovery::Left> readLeft(const fs::path& file, std::uint32_t place) {
    const auto bytes = readFile(file, kLongestFile);
    auto scenes = bytes ? parseEdited(*bytes) : std::nullopt;
    struct stat status {};
    if (!scenes || ::stat(file.c_str(), &status) != 0)
        return std::nullopt;
    return Recovery::Left{.scenes = std::move(*scenes),
                          .kept = std::chrono::system_clock::from_time_t(status.st_mtime),
                          .place = place};
}

} // namespace

std::vector<std::uint8_t> editedBytes(const EditedScenes& scenes) {
    std::vector<std::uint8_t> bytes(scenes.image.begin(), scenes.image.end());
    bytes.insert(bytes.begin(), kFirstLine.begin(), kFirstLine.end());
    for (const std::string& text : {scenes.file, scenes.keyboard}) {
        bytes.insert(bytes.end(), text.begin(), text.end());
        bytes.push_back(0);
    }
    return bytes;
}

std::optional<EditedScenes> parseEdited(std::span<const std::uint8_t> bytes) {
    const std::string all(bytes.begin(), bytes.end());
    std::string_view rest = all;
    if (!rest.starts_with(kFirstLine) || rest.size() < kFirstLine.size() + kBankSize)
        return std::nullopt;
    EditedScenes scenes;
    rest.remove_prefix(kFirstLine.size());
    std::ranges::copy(bytes.subspan(kFirstLine.size(), kBankSize), scenes.image.begin());
    rest.remove_prefix(kBankSize);
    auto file = takeText(rest);
    auto keyboard = takeText(rest);
    if (!file || !keyboard || !rest.empty())
        return std::nullopt;
    scenes.file = std::move(*file);
    scenes.keyboard = std::move(*keyboard);
    return scenes;
}

Recovery::Recovery(std::optional<fs::path> folder) : folder_(std::move(folder)) {
    if (auto made = makeFolder(folder_); !made)
        trouble_ = std::move(made.error());
    else
        findPlaces();
}

std::optional<fs::path> Recovery::stateFolder() {
    return xdgFolder(XdgFolder::State, "unsent");
}

fs::path Recovery::fileOf(std::uint32_t place) const {
    return *folder_ / nameOf(place, kScenesName);
}

bool Recovery::take(std::uint32_t place) {
    const fs::path file = *folder_ / nameOf(place, kLockName);
    FileDescriptor lock(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!lock.isOpen()) {
        trouble_ = fmt::format("{}: {}", file.string(), systemText());
        return false;
    }
    if (::flock(lock.get(), LOCK_EX | LOCK_NB) != 0)
        return false;
    locks_[place] = std::move(lock);
    return true;
}

// Every place up to the last one in use is looked at, and the first empty one is ours.
void Recovery::findPlaces() {
    std::uint32_t last = 0;
    std::error_code error;
    for (const fs::path& file : filesIn(folder_)) {
        const std::string name = file.filename().string();
        std::uint32_t place = 0;
        const auto number = std::from_chars(name.data(), name.data() + name.size(), place);
        if (number.ec == std::errc{} && place <= kLastPlace)
            last = std::max(last, place);
    }
    for (std::uint32_t place = 1; place <= last || (!own_ && place <= kLastPlace); ++place) {
        if (!take(place)) {
            if (!trouble_.empty())
                break;
            continue;
        }
        if (auto found = readLeft(fileOf(place), place))
            left_.push_back(std::move(*found));
        else if (!own_ && !fs::exists(fileOf(place), error))
            own_ = place;
        else
            locks_.erase(place);
    }
    if (own_)
        trouble_.clear();
    else if (trouble_.empty())
        trouble_ = fmt::format("{}: it is full", folder_->string());
    std::ranges::sort(left_, std::ranges::greater(), &Left::kept);
}

void Recovery::forget(std::uint32_t place) {
    std::error_code error;
    fs::remove(fileOf(place), error);
    std::erase_if(left_, [place](const Left& left) { return left.place == place; });
    locks_.erase(place);
}

void Recovery::keep(EditedScenes scenes) {
    const std::lock_guard lock(mutex_);
    isOnDisk_ = isOnDisk_ && wanted_ == scenes;
    wanted_ = std::move(scenes);
}

void Recovery::discard() {
    const std::lock_guard lock(mutex_);
    isOnDisk_ = isOnDisk_ && !wanted_;
    wanted_.reset();
}

Result<void> Recovery::flush() {
    const std::lock_guard lock(mutex_);
    if (isOnDisk_)
        return {};
    auto written = write();
    isOnDisk_ = written.has_value();
    return written.map_error([](const std::string& why) {
        return translated(
            sourceText("scenewright::File", "The edited scenes could not be kept: {}"), why);
    });
}

Result<void> Recovery::write() {
    if (!own_)
        return wanted_ ? Result<void>(failure(trouble_)) : Result<void>();
    if (wanted_)
        return replaceFile(fileOf(*own_), editedBytes(*wanted_)).map([](const Replaced&) {});
    std::error_code error;
    fs::remove(fileOf(*own_), error);
    if (error)
        return failure(fmt::format("{}: {}", fileOf(*own_).string(), error.message()));
    return {};
}

} // namespace scenewright
