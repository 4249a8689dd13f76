#include "app/VirtualBank.h"

#include "app/ListCheck.h"
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "bank/BankImageReader.h"
#include "bank/JsonTree.h"
#include "editor/options/PopUpValue.h"
#include "platform/WholeFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

namespace scenewright {

namespace {

namespace fs = std::filesystem;
using Trouble = std::optional<std::string>;

// The lists are taken along, as sends end on a thread of their own.
BankKeeper::Store jsonStore(std::shared_ptr<PopUpValue> lists) {
    return [lists = std::move(lists)](const fs::path& file, const BankImage& image) -> Trouble {
        const BankContent bank = readBankImage(image);
        if (bank.trouble)
            return fmt::format("{}: {}", file.string(), *bank.trouble);
        return writeBank(file, bank.scenes, BankForm::Json, *lists);
    };
}

Result<BankKeeper> keeperFor(const fs::path& file, BankForm form, bool needsLists) {
    if (form != BankForm::Json)
        return BankKeeper(file);
    if (!needsLists)
        return BankKeeper(file, jsonStore(WindowAction::InitializePopUp()));
    return readPopUpValue().map([&file](std::shared_ptr<PopUpValue> lists) {
        return BankKeeper(file, jsonStore(std::move(lists)));
    });
}

Trouble readImage(const std::string& path, BankImage& image, BankForm& form) {
    const FileBytes file = readWholeFile(path, kJsonBytes);
    if (file.trouble)
        return file.trouble;
    form = formOf(file.bytes);
    if (form == BankForm::Image && file.bytes.size() != kBankSize)
        return fmt::format("{}: not a bank for the virtual controller: it holds {} bytes, and a "
                           "bank holds {} or is JSON",
                           path, file.bytes.size(), kBankSize);
    if (form == BankForm::Image) {
        std::ranges::copy(file.bytes, image.begin());
        return std::nullopt;
    }
    const BankFile bank = parseBank(file.bytes, path);
    if (!bank.trouble)
        image = encodeBank(bank.scenes);
    return bank.trouble;
}

} // namespace

Result<VirtualBank> openVirtualBank(const std::string& path, bool needsLists) {
    WindowAction::getSceneValue();
    BankImage image = encodeBank(WindowAction::scenes());
    BankForm form = formForName(path);
    if (!path.empty())
        if (auto trouble = whyNotWritable(path))
            return failure(std::move(*trouble));
    const bool isThere = !path.empty() && fs::exists(path);
    if (isThere)
        if (auto trouble = readImage(path, image, form))
            return failure(std::move(*trouble));
    if (!isThere && needsLists)
        if (auto checked = checkDefaultScenes(WindowAction::scenes()); !checked)
            return failure(std::move(checked.error()));
    return keeperFor(path, form, needsLists).map([&image](BankKeeper keeper) {
        return VirtualBank{image, std::move(keeper)};
    });
}

} // namespace scenewright
