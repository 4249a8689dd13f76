#include "virtual/program/BankMemory.h"

#include "model/FileAction.h"
#include "platform/WholeFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>

namespace scenewright {

namespace {

constexpr std::size_t kMostRead = std::size_t{1} << 20U; // enough to tell a wrong file's size

void fillWithDefaults(BankImage& bank) {
    std::span<std::uint8_t> rest(bank);
    for (int number = 1; !rest.empty(); ++number) {
        const auto scene = FileAction::GetSceneFromDefault();
        scene->commonValue()->setSceneName(fmt::format("SCENE{}", number));
        std::ranges::copy(encodeScene(*scene), rest.begin());
        rest = rest.subspan(kSceneImageSize);
    }
}

} // namespace

std::optional<std::string> loadBankMemory(const std::filesystem::path& file, BankImage& bank) {
    fillWithDefaults(bank);
    if (file.empty())
        return std::nullopt;
    if (auto trouble = whyNotWritable(file))
        return trouble;
    if (!std::filesystem::exists(file))
        return std::nullopt;
    const FileBytes read = readWholeFile(file, kMostRead);
    if (read.trouble)
        return read.trouble;
    if (read.bytes.size() != kBankSize)
        return fmt::format("{}: a bank has {} bytes, and this file has {}", file.string(),
                           kBankSize, read.bytes.size());
    std::ranges::copy(read.bytes, bank.begin());
    return std::nullopt;
}

} // namespace scenewright
