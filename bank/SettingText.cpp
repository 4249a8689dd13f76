#include "bank/SettingText.h"

#include "bank/BankFile.h"
#include "model/TypedValue.h"
#include "model/ValueAction.h"
#include "platform/Text.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cctype>

namespace scenewright {

namespace {

constexpr std::string_view kScene = "scene";
constexpr std::size_t kMaxDigits = 2;

// Reads a path from left to right; after the first thing that is not as expected, `error` says
// so and the rest of the reading does nothing.
class Reader {
public:
    explicit Reader(std::string_view text) : text_(text) {}

    [[nodiscard]] bool isAtEnd() const { return at_ == text_.size(); }
    [[nodiscard]] bool failed() const { return !error_.empty(); }
    [[nodiscard]] const std::string& error() const { return error_; }

    void expected(std::string_view what) {
        if (!failed())
            error_ = fmt::format("{}: at character {}, {} was expected",
                                 text_.empty() ? "an empty path" : sanitized(text_), at_ + 1, what);
    }

    [[nodiscard]] bool take(std::string_view word) {
        if (failed() || !text_.substr(at_).starts_with(word))
            return false;
        at_ += word.size();
        return true;
    }

    // The letters that come next.
    [[nodiscard]] std::string_view takeWord() {
        const std::size_t start = at_;
        while (at_ < text_.size() && std::isalpha(static_cast<unsigned char>(text_[at_])) != 0)
            ++at_;
        return text_.substr(start, at_ - start);
    }

    void back(std::size_t count) { at_ -= count; }

    // A number from 1 to `count` without leading zeros, or a star.
    [[nodiscard]] PathRange takeRange(std::int32_t count, std::string_view owner) {
        if (take("*"))
            return {0, count, true};
        std::int32_t number = 0;
        std::size_t digits = 0;
        while (digits < kMaxDigits && at_ + digits < text_.size() && isDigit(at_ + digits))
            number = number * 10 + (text_[at_ + digits++] - '0');
        const bool goesOn = at_ + digits < text_.size() && isDigit(at_ + digits);
        if (digits == 0 || goesOn || text_[at_] == '0' || number > count) {
            expected(fmt::format("a {}'s number from 1 to {} or *", owner, count));
            return {};
        }
        at_ += digits;
        return {number - 1, 1, false};
    }

private:
    [[nodiscard]] bool isDigit(std::size_t at) const {
        return std::isdigit(static_cast<unsigned char>(text_[at])) != 0;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::string error_;
};

const ControlRange* findKind(std::string_view name) {
    for (const ControlRange& range : kControlRanges)
        if (range.name == name)
            return &range;
    return nullptr;
}

std::string settingNames(ControlKind kind) {
    std::string names;
    if (kind == ControlKind::Common)
        names = kSceneNameField;
    for (const Setting& setting : settings())
        if (setting.kind() == kind)
            names += fmt::format("{}{}", names.empty() ? "" : ", ", setting.name());
    if (kind == ControlKind::Pad)
        names += fmt::format(", {}", kColourField);
    return names;
}

void readControl(Reader& reader, Path& path) {
    const std::string_view name = reader.takeWord();
    const ControlRange* const range = findKind(name);
    if (range == nullptr) {
        reader.back(name.size());
        reader.expected("common, group, knob, slider, pad or key");
        return;
    }
    path.level = Path::Level::Control;
    path.kind = range->kind;
    path.controls = range->kind == ControlKind::Common
                        ? PathRange{0, 1, false}
                        : reader.takeRange(range->count, range->name);
}

void readSetting(Reader& reader, Path& path) {
    const std::string_view name = reader.takeWord();
    path.level = Path::Level::Setting;
    path.setting = findSetting(path.kind, name);
    path.isColour = path.kind == ControlKind::Pad && name == kColourField;
    const bool isName = path.kind == ControlKind::Common && name == kSceneNameField;
    if (path.setting == nullptr && !path.isColour && !isName) {
        reader.back(name.size());
        reader.expected("one of " + settingNames(path.kind));
    }
}

// Whether the path goes on; what is no dot behind a whole part is told.
bool goesOn(Reader& reader) {
    if (reader.failed() || reader.isAtEnd())
        return false;
    if (reader.take("."))
        return true;
    reader.expected("a dot or the end");
    return false;
}

// The settings of one control, the name first.
void appendControl(std::vector<SettingPlace>& places, std::int32_t scene, ControlKind kind,
                   std::int32_t control) {
    if (kind == ControlKind::Common)
        places.push_back({scene, kind, 0, nullptr});
    for (const Setting& setting : settings())
        if (setting.kind() == kind)
            places.push_back({scene, kind, control, &setting});
}

void appendScene(std::vector<SettingPlace>& places, std::int32_t scene) {
    for (const ControlRange& range : kControlRanges)
        for (std::int32_t control = 0; control < range.count; ++control)
            appendControl(places, scene, range.kind, control);
}

void appendControls(std::vector<SettingPlace>& places, std::int32_t scene, const Path& path) {
    for (std::int32_t i = 0; i < path.controls.count; ++i) {
        const std::int32_t control = path.controls.first + i;
        if (path.level != Path::Level::Setting)
            appendControl(places, scene, path.kind, control);
        else if (path.isColour)
            for (const std::string_view field : kColourFields)
                places.push_back({scene, path.kind, control, findSetting(path.kind, field)});
        else
            places.push_back({scene, path.kind, control, path.setting});
    }
}

} // namespace

std::string pathOf(const SettingPlace& place) {
    return fmt::format("{}.{}", controlPath(place.scene, controlIndexOf(place)),
                       place.isName() ? kSceneNameField : place.setting->name());
}

std::string controlPath(std::int32_t scene, std::int32_t control) {
    const ControlRange& range = *controlRangeOf(control);
    const std::string number = range.count == 1 ? "" : std::to_string(control - range.start + 1);
    return fmt::format("{}{}.{}{}", kScene, scene + 1, range.name, number);
}

std::string wordsOf(const SettingPlace& place) {
    const std::int32_t scene = place.scene + 1;
    const std::string title = place.isName() ? translated(sourceText("scenewright::Bank", "Name"))
                                             : settingTitle(*place.setting);
    if (place.kind == ControlKind::Common)
        return translated(sourceText("scenewright::Bank", "Scene {0}, {1}"), scene, title);
    return translated(sourceText("scenewright::Bank", "Scene {0}, {1} {2}, {3}"), scene,
                      kindTitle(place.kind), place.control + 1, title);
}

Result<Path> parsePath(std::string_view text) {
    Reader reader(text);
    Path path;
    if (!reader.take(kScene))
        reader.expected("\"scene\"");
    else
        path.scenes = reader.takeRange(kSceneCount, kScene);
    if (goesOn(reader))
        readControl(reader, path);
    if (goesOn(reader))
        readSetting(reader, path);
    if (!reader.isAtEnd())
        reader.expected("the end");
    if (reader.failed())
        return failure(reader.error());
    return path;
}

std::vector<SettingPlace> settingsAt(const Path& path) {
    std::vector<SettingPlace> places;
    for (std::int32_t i = 0; i < path.scenes.count; ++i) {
        const std::int32_t scene = path.scenes.first + i;
        if (path.level == Path::Level::Scene)
            appendScene(places, scene);
        else
            appendControls(places, scene, path);
    }
    return places;
}

std::vector<SettingPlace> allSettings(std::int32_t scenes) {
    return settingsAt({.scenes = {0, scenes}});
}

namespace {

constexpr std::size_t kDigits = 2; // hexadecimal digits of a byte
constexpr int kBase = 16;

constexpr std::size_t kMaxBytes = 80;
constexpr std::string_view kEllipsis = "\xE2\x80\xA6"; // U+2026

constexpr bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

constexpr std::string_view kTitleMark = "title:";
constexpr std::string_view kChannelMark = "ch:";
constexpr std::int32_t kChannels = 16;
constexpr std::size_t kMinOptions = 17; // that a message can list; more are told by their ends

bool isIndex(std::string_view value) {
    return !value.empty() &&
           std::ranges::all_of(value, [](char c) { return c >= '0' && c <= '9'; });
}

std::optional<std::int32_t> indexOf(std::string_view digits) {
    return isIndex(digits) ? numberWithin(digits, 0, kLargestSettingValue) : std::nullopt;
}

std::string optionsText(const Titles& titles) {
    if (titles == nullptr || titles->empty())
        return "it has none";
    if (titles->size() > kMinOptions)
        return fmt::format("its options go from {} to {}", titles->front(), titles->back());
    return fmt::format("its options are {}", fmt::join(*titles, ", "));
}

// Without a list nothing is known of what there is.
bool hasOption(const Titles& titles, std::int32_t index) {
    return titles == nullptr || titleAt(titles, index) != nullptr;
}

bool isChannel(const Setting& setting) {
    constexpr std::array kFields{"MIDIChannel", "GlobalMIDICh", "PianoKeyCh"};
    return std::ranges::find(kFields, setting.name()) != kFields.end();
}

Result<std::int32_t> indexOfDigits(const SettingPlace& place, const Titles& titles,
                                   std::string_view digits) {
    const auto index = indexOf(digits);
    if (!index)
        return failure(notAValue(pathOf(place), isIndex(digits)
                                                    ? std::string(digits)
                                                    : fmt::format("\"{}\"", sanitized(digits))));
    if (!hasOption(titles, *index))
        return failure(fmt::format("{0} has no option of index {1}: its options go from 0 ({2}) to "
                                   "{3} ({4}); raw:{1} is stored all the same",
                                   pathOf(place), *index, titles->front(), titles->size() - 1,
                                   titles->back()));
    return *index;
}

Result<std::int32_t> indexOfChannel(const SettingPlace& place, std::string_view digits) {
    const auto channel = indexOf(digits);
    if (!isChannel(*place.setting))
        return failure(fmt::format("{} is no channel", pathOf(place)));
    if (!channel || *channel < 1 || *channel > kChannels)
        return failure(fmt::format("{} must be a channel from 1 to {} behind {}, and is \"{}\"",
                                   pathOf(place), kChannels, kChannelMark, sanitized(digits)));
    return *channel - 1;
}

std::optional<std::int32_t> indexOfTitle(const std::vector<std::string>& titles,
                                         std::string_view title) {
    const auto found = std::ranges::find(titles, title);
    if (found == titles.end())
        return std::nullopt;
    return static_cast<std::int32_t>(found - titles.begin());
}

} // namespace

std::int32_t storedIndex(const SceneValue& scene, const Setting& setting, std::int32_t control) {
    // The codec's byte is never above 127, so its sign says nothing.
    return static_cast<std::uint8_t>(
        ValueAction::GetFrom127WithIndex(setting.read(scene, control)));
}

SettingText settingText(const PopUpValue& lists, const SceneValue& scene,
                        const SettingPlace& place) {
    if (place.isName()) {
        const std::string& name = scene.commonValue()->SceneName();
        return {nameAsText(name).value_or(std::string(kBytesMark) + nameAsHex(name)), {}};
    }
    std::string title = optionTitle(lists, *place.setting, scene, place.control);
    if (title == kNoTitle)
        title.clear();
    return {std::to_string(storedIndex(scene, *place.setting, place.control)), std::move(title)};
}

std::string storedName(std::string_view sceneName) {
    std::string name(sceneName.substr(0, kNameSize));
    name.resize(kNameSize, '\0');
    return name;
}

std::optional<std::string> nameAsText(std::string_view sceneName) {
    std::string name = storedName(sceneName);
    name.erase(name.find_last_not_of('\0') + 1);
    if (displayName(name) != name)
        return std::nullopt;
    return name;
}

std::string nameAsHex(std::string_view sceneName) {
    std::string digits;
    for (const char byte : storedName(sceneName))
        digits += fmt::format("{:02x}", static_cast<std::uint8_t>(byte));
    return digits;
}

std::optional<std::string> nameOfText(std::string_view text) {
    if (text.size() > kNameSize || nameAsText(text) != text)
        return std::nullopt;
    return storedName(text);
}

Result<std::string> storedNameOf(std::string_view text) {
    if (auto name = nameOfText(text))
        return *std::move(name);
    if (text.size() > kNameSize)
        return failure(
            translated(sourceText("scenewright::Bank",
                                  "a scene's name has at most {0} bytes, and \"{1}\" has {2}"),
                       kNameSize, sanitized(text), text.size()));
    return failure(translated(
        sourceText("scenewright::Bank",
                   "a scene's name is a text without control characters, and \"{}\" is none"),
        sanitized(text)));
}

std::optional<std::string> nameOfHex(std::string_view digits) {
    if (digits.size() != kDigits * kNameSize)
        return std::nullopt;
    std::string name;
    for (std::size_t at = 0; at < digits.size(); at += kDigits) {
        const auto byte = numberFrom<std::uint8_t>(digits.substr(at, kDigits), kBase);
        if (!byte)
            return std::nullopt;
        name += static_cast<char>(*byte);
    }
    return name;
}

std::string sanitized(std::string_view text) {
    if (text.size() <= kMaxBytes)
        return displayName(text);
    std::size_t end = kMaxBytes;
    while (end > 0 && continuesCharacter(text[end]))
        --end;
    return displayName(text.substr(0, end)) + std::string(kEllipsis);
}

std::string assignmentOf(const SettingPlace& place, const SettingText& text) {
    const bool isRaw = !place.isName() && text.title.empty();
    return fmt::format("{}={}{}", pathOf(place), isRaw ? kRawMark : "", text.value);
}

std::int32_t assignTypeAt(const SettingPlace& place, const SceneValue& scene) {
    const Setting* const type = findSetting(place.kind, "AssignType");
    return type == nullptr ? kAssignOff : type->read(scene, place.control);
}

Titles titlesAt(const PopUpValue& lists, const SettingPlace& place, const SceneValue& scene) {
    return place.isName() ? nullptr : optionList(lists, *place.setting, assignTypeAt(place, scene));
}

Result<void> checkIndex(const PopUpValue& lists, const SettingPlace& place, const SceneValue& scene,
                        std::int32_t index) {
    const Titles titles = titlesAt(lists, place, scene);
    if (hasOption(titles, index) && index >= 0 && index <= kLargestSettingValue)
        return {};
    if (titles == nullptr)
        return failure(notAValue(pathOf(place), std::to_string(index)));
    return failure(fmt::format("{} would be {}, and its options go from 0 ({}) to {} ({})",
                               pathOf(place), index, titles->front(), titles->size() - 1,
                               titles->back()));
}

Result<std::int32_t> indexTyped(const PopUpValue& lists, const SettingPlace& place,
                                const SceneValue& scene, std::string_view typed) {
    const Titles titles = titlesAt(lists, place, scene);
    const auto taken = [&typed](std::string_view mark) {
        const bool isMarked = typed.starts_with(mark);
        typed.remove_prefix(isMarked ? mark.size() : 0);
        return isMarked;
    };
    if (isIndex(typed))
        return indexOfDigits(place, titles, typed);
    if (taken(kRawMark))
        return indexOfDigits(place, nullptr, typed);
    if (taken(kChannelMark))
        return indexOfChannel(place, typed);
    const bool isTitle = taken(kTitleMark);
    std::optional<std::int32_t> index;
    if (titles != nullptr)
        index = isTitle ? indexOfTitle(*titles, typed)
                        : typedPosition(typed, *titles,
                                        optionNames(*place.setting, assignTypeAt(place, scene)));
    if (!index)
        return failure(fmt::format("{} has no option \"{}\": {}", pathOf(place), sanitized(typed),
                                   optionsText(titles)));
    return *index;
}

} // namespace scenewright
