#include "app/VirtualBank.h"

#include "app/ListCheck.h"
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "bank/BankJson.h"
#include "model/PopUpValue.h"
#include "platform/AtomicFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

namespace scenewright {

namespace {

namespace fs = std::filesystem;

// The lists are taken along, as sends end on a thread of their own.
BankFileStore::Store jsonStore(std::shared_ptr<PopUpValue> lists) {
    return [lists = std::move(lists)](const fs::path& file, const BankImage& image) {
        return readBankImage(image)
            .map_error([&file](const std::string& why) {
                return fmt::format("{}: {}", file.string(), why);
            })
            .and_then([&](const SceneList& scenes) {
                return writeBank(file, scenes, BankFormat::Json, *lists);
            });
    };
}

Result<BankFileStore> keeperFor(const fs::path& file, BankFormat form, bool needsLists) {
    if (form != BankFormat::Json)
        return BankFileStore(file);
    if (!needsLists)
        return BankFileStore(file, jsonStore(loadPopUpValue()));
    return readPopUpValue().map([&file](std::shared_ptr<PopUpValue> lists) {
        return BankFileStore(file, jsonStore(std::move(lists)));
    });
}

// What a controller's memory can be filled with, and the form that it is kept in.
struct Memory {
    BankImage image{};
    BankFormat form = BankFormat::Image;
};

Result<Memory> readMemory(const std::string& path) {
    const auto bytes = readFile(path, kJsonBytes);
    if (!bytes)
        return failure(bytes.error());
    Memory memory{.form = formOf(*bytes)};
    if (memory.form == BankFormat::Json)
        return parseBank(*bytes, path).map([&memory](const BankFile& bank) {
            memory.image = encodeBank(bank.scenes);
            return memory;
        });
    if (bytes->size() != kBankSize)
        return failure(fmt::format("{}: not a bank for the virtual controller: it holds {} bytes, "
                                   "and a bank holds {} or is JSON",
                                   path, bytes->size(), kBankSize));
    std::ranges::copy(*bytes, memory.image.begin());
    return memory;
}

} // namespace

Result<VirtualBank> openVirtualBank(const std::string& path, bool needsLists) {
    WindowAction::getSceneValue();
    Result<Memory> memory = Memory{encodeBank(WindowAction::scenes()), formatForName(path)};
    if (!path.empty())
        if (const auto checked = checkReplaceable(path); !checked)
            return failure(checked.error());
    const bool isThere = !path.empty() && fs::exists(path);
    if (isThere)
        memory = readMemory(path);
    if (!memory)
        return failure(memory.error());
    if (!isThere && needsLists)
        if (auto checked = checkDefaultScenes(WindowAction::scenes()); !checked)
            return failure(std::move(checked.error()));
    return keeperFor(path, memory->form, needsLists).map([&memory](BankFileStore keeper) {
        return VirtualBank{memory->image, std::move(keeper)};
    });
}

} // namespace scenewright
