#include "bank/BankFile.h"

#include "model/Control.h"
#include "platform/WholeFile.h"

#include <fmt/format.h>

#include <algorithm>

namespace scenewright {

namespace {

// Enough to tell that a file is no bank without reading all of it.
constexpr std::size_t kReadLimit = std::size_t{1} << 20U;

} // namespace

BankFile readBank(const std::filesystem::path& path) {
    FileBytes file = readWholeFile(path, kReadLimit);
    if (file.trouble)
        return {{}, std::move(file.trouble)};
    if (file.bytes.size() != kBankSize)
        return {{},
                fmt::format("{}: not a bank: it holds {} bytes, and a bank holds {}", path.string(),
                            file.bytes.size(), kBankSize)};
    return {parseScenes(file.bytes), std::nullopt};
}

BankImage encodeBank(const SceneList& scenes) {
    BankImage bank{};
    auto place = bank.begin();
    for (std::size_t scene = 0; scene < kSceneCount; ++scene)
        place = std::ranges::copy(encodeScene(*scenes.at(scene)), place).out;
    return bank;
}

std::optional<std::string> writeBank(const std::filesystem::path& path, const SceneList& scenes) {
    return writeWholeFile(path, encodeBank(scenes));
}

} // namespace scenewright
