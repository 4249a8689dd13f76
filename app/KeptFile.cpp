#include "app/KeptFile.h"

#include "bank/BankFile.h"
#include "platform/Text.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <system_error>

namespace scenewright {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMaxBytes = 65536; // two images have some 4500
constexpr const char* kFormat = "format";
constexpr int kHexadecimal = 16;

} // namespace

Result<void> makeFolder(const std::optional<fs::path>& folder) {
    if (!folder)
        return failure("there is no home folder to keep them in");
    std::error_code error;
    fs::create_directories(*folder, error);
    if (error)
        return failure(fmt::format("{}: {}", folder->string(), error.message()));
    return {};
}

FileContent keptBytes(std::string_view format, const KeptTexts& texts) {
    using Json = nlohmann::ordered_json;
    Json object{{kFormat, format}, {"version", 1}};
    for (const auto& [key, text] : texts)
        object[key] = text;
    // A file's or a keyboard's name is whatever it is, valid or not.
    const std::string text = object.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
    return {text.begin(), text.end()};
}

std::optional<KeptTexts> readKept(std::string_view format, const std::filesystem::path& file) {
    const auto bytes = readFile(file, kMaxBytes);
    if (!bytes)
        return std::nullopt;
    const auto object = nlohmann::json::parse(*bytes, nullptr, false);
    if (!object.is_object())
        return std::nullopt;
    KeptTexts texts;
    for (const auto& [key, value] : object.items())
        if (value.is_string())
            texts[key] = value.get<std::string>();
    return textAt(texts, kFormat) == format ? std::optional(texts) : std::nullopt;
}

std::string textAt(const KeptTexts& texts, const std::string& key) {
    const auto found = texts.find(key);
    return found != texts.end() ? found->second : std::string();
}

std::string imageDigits(const BankImage& image) {
    return fmt::format("{:02x}", fmt::join(image, ""));
}

std::optional<BankImage> imageOfDigits(std::string_view digits) {
    if (digits.size() != 2 * kBankSize)
        return std::nullopt;
    BankImage image{};
    for (std::size_t place = 0; place < kBankSize; ++place) {
        const auto byte = numberFrom<std::uint8_t>(digits.substr(2 * place, 2), kHexadecimal);
        if (!byte)
            return std::nullopt;
        image.at(place) = *byte;
    }
    return imageOfBytes(image);
}

std::optional<BankImage> imageOfBytes(std::span<const std::uint8_t> bytes) {
    if (!readBankImage(bytes))
        return std::nullopt;
    BankImage image{};
    std::ranges::copy(bytes, image.begin());
    return image;
}

} // namespace scenewright
