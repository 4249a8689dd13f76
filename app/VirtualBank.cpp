#include "app/VirtualBank.h"

#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "bank/BankImageReader.h"
#include "bank/JsonTree.h"
#include "platform/WholeFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <memory>

namespace scenewright {

namespace {

namespace fs = std::filesystem;
using Trouble = std::optional<std::string>;

// The lists are taken along, as sends end on a thread of their own.
BankKeeper::Store jsonStore() {
    return [lists = WindowAction::InitializePopUp()](const fs::path& file,
                                                     const BankImage& image) -> Trouble {
        const BankContent bank = readBankImage(image);
        if (bank.trouble)
            return fmt::format("{}: {}", file.string(), *bank.trouble);
        return writeBank(file, bank.scenes, BankForm::Json, *lists);
    };
}

BankKeeper keeperFor(const fs::path& file, BankForm form) {
    return form == BankForm::Json ? BankKeeper(file, jsonStore()) : BankKeeper(file);
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

std::optional<VirtualBank> openVirtualBank(const std::string& path, Trouble& trouble) {
    WindowAction::getSceneValue();
    BankImage image = encodeBank(WindowAction::scenes());
    if (path.empty())
        return VirtualBank{image, BankKeeper({})};
    BankForm form = formForName(path);
    trouble = whyNotWritable(path);
    if (!trouble && fs::exists(path))
        trouble = readImage(path, image, form);
    if (trouble)
        return std::nullopt;
    return VirtualBank{image, keeperFor(path, form)};
}

} // namespace scenewright
