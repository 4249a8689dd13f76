#include "bank/SettingText.h"

#include "model/SceneValue.h"
#include "model/Setting.h"
#include "model/ValueAction.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

namespace scenewright {

namespace {

constexpr std::size_t kDigits = 2; // hexadecimal digits of a byte
constexpr int kBase = 16;

constexpr std::size_t kMaxBytes = 80;
constexpr std::string_view kEllipsis = "\xE2\x80\xA6"; // U+2026

constexpr bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
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

} // namespace scenewright
