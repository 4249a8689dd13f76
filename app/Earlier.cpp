#include "app/Earlier.h"

#include "app/DeviceSession.h"
#include "app/KeptFile.h"
#include "bank/BankFile.h"
#include "platform/Files.h"
#include "platform/Resources.h"
#include "platform/Text.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <string_view>

namespace scenewright {

namespace {

namespace fs = std::filesystem;

using std::chrono::milliseconds;
using Reason = EarlierScenes::Reason;
using Time = EarlierScenes::Clock::time_point;

// The time in UTC, so that names sort by it: "scenes-20260131T235959.123Z.json". A file that ends
// in ".bank" was kept by a version that wrote the image alone.
constexpr std::string_view kBeforeTime = "scenes-";
constexpr std::string_view kEnding = "Z.json";
constexpr std::string_view kImageEnding = "Z.bank";
constexpr const char* kTimeForm = "%Y%m%dT%H%M%S";

constexpr std::string_view kFormat = "scenewright-earlier";

struct ReasonRow {
    Reason reason{};
    const char* word = nullptr; // in the file
    SourceText alone{};
    SourceText ofSubject = alone;
};

constexpr std::array<ReasonRow, 5> kReasons{{
    {Reason::Unknown, "unknown", {}},
    {Reason::Read, "read", sourceText("scenewright::Earlier", "before a read")},
    {Reason::Send, "send", sourceText("scenewright::Earlier", "on the keyboard before a send"),
     sourceText("scenewright::Earlier", "on the keyboard before the send of {}")},
    {Reason::Opening, "opening", sourceText("scenewright::Earlier", "before a file was opened"),
     sourceText("scenewright::Earlier", "before opening {}")},
    {Reason::BringingBack, "bringing-back",
     sourceText("scenewright::Earlier", "before earlier scenes were brought back")},
}};

std::string nameFor(Time time, std::string_view ending) {
    const auto sinceEpoch = std::chrono::floor<milliseconds>(time.time_since_epoch());
    const auto seconds = std::chrono::floor<std::chrono::seconds>(sinceEpoch);
    const std::tm utc = fmt::gmtime(static_cast<std::time_t>(seconds.count()));
    return fmt::format("{}{:%Y%m%dT%H%M%S}.{:03}{}", kBeforeTime, utc,
                       (sinceEpoch - seconds).count(), ending);
}

// Nothing for a name that nameFor() does not give.
std::optional<Time> timeOf(const std::string& name, std::string_view ending) {
    if (!name.starts_with(kBeforeTime) || !name.ends_with(ending))
        return std::nullopt;
    std::tm utc{};
    const char* end = strptime(name.c_str() + kBeforeTime.size(), kTimeForm, &utc);
    if (end == nullptr || *end != '.')
        return std::nullopt;
    const Time time = EarlierScenes::Clock::from_time_t(timegm(&utc)) +
                      milliseconds(std::strtol(end + 1, nullptr, 10));
    return nameFor(time, ending) == name ? std::optional(time) : std::nullopt;
}

FileContent entryBytes(const BankImage& image, const EarlierScenes::Occasion& occasion) {
    const auto* const row = std::ranges::find(kReasons, occasion.reason, &ReasonRow::reason);
    return keptBytes(kFormat, {{"reason", row->word},
                               {"subject", occasion.subject},
                               {"keyboard", occasion.keyboard},
                               {"image", imageDigits(image)}});
}

using Entry = EarlierScenes::Entry;

std::optional<Entry> readImageAlone(const fs::path& file, Time time) {
    const auto bytes = readFile(file, kBankSize);
    const auto image = bytes ? imageOfBytes(*bytes) : std::nullopt;
    if (!image)
        return std::nullopt;
    return Entry{.file = file, .kept = time, .occasion = {}, .image = *image};
}

// Nothing for another file, and for one that is damaged.
std::optional<Entry> readEntry(const fs::path& file) {
    const std::string name = file.filename().string();
    if (const auto time = timeOf(name, kImageEnding))
        return readImageAlone(file, *time);
    const auto time = timeOf(name, kEnding);
    const auto texts = time ? readKept(kFormat, file) : std::nullopt;
    const auto image = texts ? imageOfDigits(textAt(*texts, "image")) : std::nullopt;
    if (!image)
        return std::nullopt;
    Entry entry{
        .file = file,
        .kept = *time,
        .occasion = {.subject = textAt(*texts, "subject"), .keyboard = textAt(*texts, "keyboard")},
        .image = *image};
    const auto* const row = std::ranges::find(kReasons, textAt(*texts, "reason"), &ReasonRow::word);
    if (row != kReasons.end())
        entry.occasion.reason = row->reason;
    return entry;
}

struct Band {
    std::chrono::hours age; // from which on
    std::chrono::hours each;
};

constexpr std::chrono::hours kDay{24};
constexpr std::chrono::hours kWeek = 7 * kDay;
constexpr std::array kBands{Band{8 * kWeek, kWeek}, Band{kWeek, kDay},
                            Band{kDay, std::chrono::hours{1}}};

// Whether one of them is enough, the later one.
bool isOfOnePeriod(Time time, Time later, Time now) {
    const auto* const band =
        std::ranges::find_if(kBands, [&](const Band& row) { return now - time >= row.age; });
    return band != kBands.end() &&
           time.time_since_epoch() / band->each == later.time_since_epoch() / band->each;
}

} // namespace

SceneList EarlierScenes::Entry::scenes() const {
    return readBankImage(image).value_or(SceneList{});
}

std::vector<std::string> EarlierScenes::Entry::names() const {
    std::vector<std::string> names;
    for (const auto& scene : scenes())
        names.push_back(displayName(scene->commonValue()->SceneName()));
    return names;
}

std::optional<fs::path> EarlierScenes::stateFolder() {
    return xdgFolder(XdgFolder::State, "backups");
}

Result<bool> EarlierScenes::keep(const BankImage& image, const Occasion& occasion,
                                 Clock::time_point now) const {
    if (image == defaultImage())
        return false;
    const std::vector<Entry> kept = list();
    if (!kept.empty() && kept.front().image == image)
        return true;
    if (const auto made = makeFolder(folder_); !made)
        return failure(made.error());
    // A clock that was set back, or that has not moved, must not put the newest entry elsewhere.
    if (!kept.empty())
        now = std::max(now, kept.front().kept + milliseconds(1));
    const fs::path file = *folder_ / nameFor(now, kEnding);
    if (const auto replaced = replaceFile(file, entryBytes(image, occasion)); !replaced)
        return failure(replaced.error());
    thin(now);
    return true;
}

std::vector<EarlierScenes::Entry> EarlierScenes::list() const {
    std::vector<Entry> entries;
    for (const fs::path& file : filesIn(folder_))
        if (auto entry = readEntry(file))
            entries.push_back(std::move(*entry));
    std::ranges::sort(entries, std::ranges::greater(), &Entry::kept);
    return entries;
}

std::vector<bool> EarlierScenes::dropped(std::span<const Clock::time_point> newestFirst,
                                         Clock::time_point now) {
    std::vector<bool> dropped;
    std::optional<Time> later;
    for (const Time time : newestFirst) {
        dropped.push_back(later && isOfOnePeriod(time, *later, now));
        if (!dropped.back())
            later = time;
    }
    return dropped;
}

// Two that hold the same may be neighbours only once what was between them has gone.
void EarlierScenes::thin(Clock::time_point now) const {
    const std::vector<Entry> entries = list();
    std::vector<Time> times;
    times.reserve(entries.size());
    for (const Entry& entry : entries)
        times.push_back(entry.kept);
    const std::vector<bool> isDropped = dropped(times, now);
    const Entry* later = nullptr;
    std::error_code error;
    for (std::size_t place = 0; place < entries.size(); ++place) {
        const Entry& entry = entries[place];
        if (isDropped[place] || (later != nullptr && later->image == entry.image))
            fs::remove(entry.file, error);
        else
            later = &entry;
    }
}

std::string reasonText(const EarlierScenes::Occasion& occasion) {
    const auto* const row = std::ranges::find(kReasons, occasion.reason, &ReasonRow::reason);
    if (row->reason == Reason::Unknown)
        return {};
    return occasion.subject.empty() ? translated(row->alone)
                                    : translated(row->ofSubject, readableText(occasion.subject));
}

} // namespace scenewright
