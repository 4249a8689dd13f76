#include "bank/SettingText.h"

#include "bank/BankFile.h"
#include "model/Midi.h"
#include "model/SceneValue.h"
#include "model/Setting.h"
#include "model/TypedValue.h"
#include "model/ValueAction.h"
#include "platform/Text.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <vector>

namespace scenewright {

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
    std::int32_t index = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), index);
    if (!isIndex(digits) || result.ec != std::errc() || index > kLargestSettingValue)
        return std::nullopt;
    return index;
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
        return failure(notAValue(pathOf(place), sanitized(digits)));
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

NameBytes nameBytes(std::string_view sceneName) {
    NameBytes bytes{};
    std::ranges::copy(sceneName.substr(0, kNameSize), bytes.begin());
    return bytes;
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
    for (const std::uint8_t byte : nameBytes(sceneName))
        digits += fmt::format("{:02x}", byte);
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
        std::uint8_t byte = 0;
        const char* const end = digits.data() + at + kDigits;
        const auto result = std::from_chars(digits.data() + at, end, byte, kBase);
        if (result.ec != std::errc() || result.ptr != end)
            return std::nullopt;
        name += static_cast<char>(byte);
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
