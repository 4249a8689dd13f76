#include "bank/BankFile.h"

#include "bank/BankJson.h"
#include "model/Control.h"
#include "model/Setting.h"
#include "platform/AtomicFile.h"
#include "platform/Text.h"
#include "protocol/SceneImage.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <string_view>

namespace scenewright {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kJsonBlanks = " \t\r\n";

std::string_view textOf(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

bool beginsLikeJson(std::string_view text) {
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    const std::size_t first = text.find_first_not_of(kJsonBlanks);
    return first != std::string_view::npos && text[first] == '{';
}

constexpr bool isTextByte(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return kJsonBlanks.find(byte) != std::string_view::npos || (code >= 0x20 && code != 0x7F);
}

// Every JSON bank is longer than an image, but one that was cut short may have just its size; and
// an image may begin with a brace, if the first scene's name does. An image that is text in all its
// bytes would need channels from 33 up, of which no keyboard has any.
bool isJson(std::string_view text) {
    return beginsLikeJson(text) &&
           (text.size() != kBankSize || std::ranges::all_of(text, isTextByte));
}

std::vector<std::uint8_t> bytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

Result<void> writeWhole(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
    return replaceFile(path, bytes).map([](const Replaced&) {});
}

// Where a JSON text would have the value, so that both forms name a place alike.
std::string placeOf(std::size_t scene, const Setting& setting, std::int32_t control) {
    std::string place = memberPlace(elementPlace("scenes", scene), controlsKey(setting.kind()));
    if (setting.kind() != ControlKind::Common)
        place = elementPlace(place, static_cast<std::size_t>(control));
    return memberPlace(place, setting.name());
}

// The fields stand in the order of the settings, right behind the name.
Result<std::shared_ptr<SceneValue>> readSceneImage(std::span<const std::uint8_t> bytes,
                                                   std::size_t number) {
    auto scene = blankScene();
    const auto name = bytes.first(kNameSize);
    scene->commonValue()->setSceneName(std::string(name.begin(), name.end()));
    auto next = bytes.begin() + kNameSize;
    for (const Setting& setting : settings())
        for (std::int32_t k = 0; k < controlRange(setting.kind()).count; ++k, ++next) {
            if (*next > kLargestSettingValue)
                return failure(notAValue(placeOf(number, setting, k), std::to_string(*next)));
            setting.write(*scene, k, *next);
        }
    return scene;
}

using JsonReader = Result<SceneList> (*)(std::string_view text);

Result<BankFile> parse(std::span<const std::uint8_t> bytes, const std::string& name,
                       JsonReader readJson) {
    const BankFormat form = formOf(bytes);
    auto scenes = form == BankFormat::Json ? readJson(textOf(bytes)) : readBankImage(bytes);
    if (!scenes)
        return failure(fmt::format("{}: {}", name, scenes.error()));
    return BankFile{*std::move(scenes), form};
}

} // namespace

BankFormat formOf(std::span<const std::uint8_t> bytes) {
    return isJson(textOf(bytes)) ? BankFormat::Json : BankFormat::Image;
}

Result<BankFile> readBank(const std::filesystem::path& path) {
    return readFile(path, kJsonBytes).and_then([&path](const FileContent& bytes) {
        return parseBank(bytes, path.string());
    });
}

Result<BankFile> parseBank(std::span<const std::uint8_t> bytes, const std::string& name) {
    return parse(bytes, name, &readBankJson);
}

Result<BankFile> parseBankOrScene(std::span<const std::uint8_t> bytes, const std::string& name) {
    return parse(bytes, name, &readBankOrSceneJson);
}

Result<BankFile> readBankOrScene(const std::filesystem::path& path) {
    return readFile(path, kJsonBytes).and_then([&path](const FileContent& bytes) {
        return parseBankOrScene(bytes, path.string());
    });
}

BankFormat formatForName(const std::filesystem::path& path) {
    std::string ending = path.extension().string();
    std::ranges::transform(ending, ending.begin(), [](unsigned char letter) {
        return static_cast<char>(std::tolower(letter));
    });
    return ending == ".json" ? BankFormat::Json : BankFormat::Image;
}

BankImage encodeBank(const SceneList& scenes) {
    BankImage bank{};
    auto* place = bank.begin();
    for (std::size_t scene = 0; scene < kSceneCount; ++scene)
        place = std::ranges::copy(encodeScene(*scenes.at(scene)), place).out;
    return bank;
}

std::vector<std::uint8_t> bankBytes(const SceneList& scenes, BankFormat form,
                                    const PopUpValue& lists) {
    if (form == BankFormat::Json)
        return bytesOf(writeBankJson(scenes, lists));
    const BankImage image = encodeBank(scenes);
    return {image.begin(), image.end()};
}

Result<void> writeBank(const std::filesystem::path& path, const SceneList& scenes) {
    return writeWhole(path, encodeBank(scenes));
}

Result<void> writeBank(const std::filesystem::path& path, const SceneList& scenes, BankFormat form,
                       const PopUpValue& lists) {
    return writeWhole(path, bankBytes(scenes, form, lists));
}

Result<std::shared_ptr<SceneValue>> readScene(const std::filesystem::path& path) {
    const auto bytes = readFile(path, kJsonBytes);
    if (!bytes)
        return failure(bytes.error());
    auto scenes = readSceneJson(textOf(*bytes));
    if (!scenes)
        return failure(fmt::format("{}: {}", path.string(), scenes.error()));
    return scenes->front();
}

Result<void> writeScene(const std::filesystem::path& path, const SceneValue& scene,
                        const PopUpValue& lists) {
    return writeWhole(path, bytesOf(writeSceneJson(scene, lists)));
}

Result<SceneList> readBankImage(std::span<const std::uint8_t> bytes) {
    if (bytes.size() != kBankSize)
        return failure(
            translated(sourceText("scenewright::Bank",
                                  "not a bank: it holds {} bytes, and a bank holds {} or is JSON"),
                       bytes.size(), kBankSize));
    SceneList scenes;
    for (std::size_t number = 0; number < kSceneCount; ++number) {
        auto scene =
            readSceneImage(bytes.subspan(number * kSceneImageSize, kSceneImageSize), number);
        if (!scene)
            return failure(scene.error());
        scenes.push_back(*std::move(scene));
    }
    return scenes;
}

} // namespace scenewright
