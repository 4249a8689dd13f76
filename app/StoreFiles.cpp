#include "app/StoreFiles.h"

#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "model/Control.h"
#include "model/Setting.h"
#include "platform/AtomicFile.h"
#include "platform/Resources.h"
#include "platform/Text.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>

namespace scenewright {

namespace fs = std::filesystem;

namespace {

// A scene made without controls gets those of the file.
void copyInto(SceneValue& stored, const SceneValue& scene) {
    if (stored.buttonValueArray().size() < static_cast<std::size_t>(kControlCount))
        stored.setButtonValueArray(scene.buttonValueArray());
    stored.commonValue()->setSceneName(scene.commonValue()->SceneName());
    for (const Setting& setting : settings())
        for (std::int32_t member = 0; member < controlRange(setting.kind()).count; ++member)
            setting.write(stored, member, setting.read(scene, member));
}

// What is saved in a file of the program's own would be lost at its next use.
Result<void> checkUnused(std::vector<NamedFile> files, const std::filesystem::path& file) {
    files.push_back({file.string(), FileUse::Written, {}, {}});
    if (checkNamedFiles(files))
        return {};
    return failure(translated(
        sourceText("scenewright::File",
                   "Cannot write {}: the program itself uses this file; choose another name."),
        file.string()));
}

using std::chrono::milliseconds;
using Time = BackupStore::Clock::time_point;

// The time in UTC, so that names sort by it: "scenes-20260131T235959.123Z.bank".
constexpr std::string_view kBeforeTime = "scenes-";
constexpr std::string_view kAfterTime = "Z.bank";
constexpr const char* kTimeForm = "%Y%m%dT%H%M%S";
constexpr std::size_t kWholeSeconds = 15; // letters of that form
constexpr std::size_t kNameLetters =
    kBeforeTime.size() + kWholeSeconds + std::string_view(".123").size() + kAfterTime.size();

std::string nameFor(Time time) {
    const auto sinceEpoch = std::chrono::floor<milliseconds>(time.time_since_epoch());
    const auto seconds = std::chrono::floor<std::chrono::seconds>(sinceEpoch);
    const std::tm utc = fmt::gmtime(static_cast<std::time_t>(seconds.count()));
    return fmt::format("{}{:%Y%m%dT%H%M%S}.{:03}{}", kBeforeTime, utc,
                       (sinceEpoch - seconds).count(), kAfterTime);
}

// Nothing for a name that nameFor() does not give.
std::optional<Time> timeOf(const std::string& name) {
    if (name.size() != kNameLetters || !name.starts_with(kBeforeTime) ||
        !name.ends_with(kAfterTime))
        return std::nullopt;
    std::tm utc{};
    const char* end = strptime(name.c_str() + kBeforeTime.size(), kTimeForm, &utc);
    if (end == nullptr || *end != '.')
        return std::nullopt;
    const Time time = BackupStore::Clock::from_time_t(timegm(&utc)) +
                      milliseconds(std::strtol(end + 1, nullptr, 10));
    return nameFor(time) == name ? std::optional(time) : std::nullopt;
}

bool isSame(const fs::path& file, std::span<const std::uint8_t> bytes) {
    const auto kept = readFile(file, bytes.size());
    return kept && std::ranges::equal(*kept, bytes);
}

} // namespace

Result<void> StoreFiles::keep() const {
    return earlier_.keep(WindowAction::scenes()).map_error([](const std::string& why) {
        return translated(
            sourceText("scenewright::File", "The former scenes could not be kept: {}"), why);
    });
}

Result<StoreFiles::Opened> StoreFiles::openBank(const std::filesystem::path& file) const {
    return readBank(file).map([this](BankFile bank) {
        Opened opened{.kept = keep()};
        WindowAction::setScenes(std::move(bank.scenes));
        return opened;
    });
}

Result<StoreFiles::Opened> StoreFiles::openScene(const std::filesystem::path& file,
                                                 std::int32_t index) const {
    return readScene(file).map([this, index](const std::shared_ptr<SceneValue>& scene) {
        Opened opened{.kept = keep()};
        copyInto(*WindowAction::getSceneWithIndex(index), *scene);
        return opened;
    });
}

Result<StoreFiles::Opened> StoreFiles::openAtStart(const std::filesystem::path& file,
                                                   std::int32_t index) {
    return readBankOrScene(file).map([index](BankFile read) {
        Opened opened{{}, read.scenes.size() == 1};
        if (opened.isScene)
            copyInto(*WindowAction::getSceneWithIndex(index), *read.scenes.front());
        else
            WindowAction::setScenes(std::move(read.scenes));
        return opened;
    });
}

std::optional<BackupStore::Bank> StoreFiles::newestOther() const {
    const BankImage stored = encodeBank(WindowAction::scenes());
    for (const BackupStore::Bank& bank : earlier_.list())
        if (const auto read = readBank(bank.file); read && encodeBank(read->scenes) != stored)
            return bank;
    return std::nullopt;
}

Result<void> StoreFiles::saveBank(const std::filesystem::path& file,
                                  const PopUpValue& lists) const {
    return checkUnused(used_, file).and_then([&] {
        return writeBank(file, WindowAction::scenes(), formatForName(file), lists);
    });
}

Result<void> StoreFiles::saveScene(const std::filesystem::path& file, std::int32_t index,
                                   const PopUpValue& lists) const {
    return checkUnused(used_, file).and_then([&] {
        return writeScene(file, *WindowAction::getSceneWithIndex(index), lists);
    });
}

std::optional<fs::path> BackupStore::stateFolder() {
    if (const auto state = xdgFolder(XdgFolder::State))
        return *state / "backups";
    return std::nullopt;
}

Result<void> BackupStore::keep(const SceneList& scenes, Clock::time_point now) const {
    if (scenes.size() < static_cast<std::size_t>(kSceneCount))
        return {};
    if (!folder_)
        return failure("there is no home folder to keep them in");
    const BankImage image = encodeBank(scenes);
    const std::vector<Bank> kept = list();
    if (!kept.empty() && isSame(kept.front().file, image))
        return {};
    std::error_code error;
    fs::create_directories(*folder_, error);
    if (error)
        return failure(fmt::format("{}: {}", folder_->string(), error.message()));
    // A clock that was set back, or that has not moved, must not put the newest bank elsewhere.
    if (!kept.empty())
        now = std::max(now, kept.front().kept + milliseconds(1));
    if (const auto replaced = replaceFile(*folder_ / nameFor(now), image); !replaced)
        return failure(replaced.error());
    for (std::size_t place = kMax - 1; place < kept.size(); ++place)
        fs::remove(kept[place].file, error);
    return {};
}

std::vector<BackupStore::Bank> BackupStore::list() const {
    std::vector<Bank> banks;
    std::error_code error;
    if (!folder_)
        return banks;
    for (fs::directory_iterator entry(*folder_, error), end; !error && entry != end;
         entry.increment(error))
        if (const auto time = timeOf(entry->path().filename().string()))
            banks.push_back({entry->path(), *time});
    std::ranges::sort(banks, std::ranges::greater(), &Bank::kept);
    return banks;
}

} // namespace scenewright
