#include "app/StoreFiles.h"

#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "model/Setting.h"
#include "platform/Translator.h"

namespace scenewright {

namespace {

// A scene made without controls gets those of the file.
void copyInto(SceneValue& stored, const SceneValue& scene) {
    if (stored.buttonValueArray().size() < static_cast<std::size_t>(kControlCount))
        stored.setButtonValueArray(scene.buttonValueArray());
    stored.commonValue()->setSceneName(scene.commonValue()->SceneName());
    for (const Setting& setting : settings())
        for (std::int32_t member = 0; member < controlRange(setting.kind()).count; ++member)
            setting.write(stored, member, setting.read(scene, member));
}

// What is saved in a file of the program's own would be lost at its next use.
Result<void> checkUnused(std::vector<NamedFile> files, const std::filesystem::path& file) {
    files.push_back({file.string(), FileUse::Written, {}, {}});
    if (checkNamedFiles(files))
        return {};
    return failure(translated(
        sourceText("scenewright::File",
                   "Cannot write {}: the program itself uses this file; choose another name."),
        file.string()));
}

} // namespace

std::optional<std::string> StoreFiles::keep() const {
    auto trouble = earlier_.keep(WindowAction::scenes());
    if (trouble)
        trouble = translated(
            sourceText("scenewright::File", "The former scenes could not be kept: {}"), *trouble);
    return trouble;
}

StoreFiles::Outcome StoreFiles::openBank(const std::filesystem::path& file) const {
    BankFile bank = readBank(file);
    if (bank.trouble)
        return {false, bank.trouble};
    auto notKept = keep();
    WindowAction::setScenes(std::move(bank.scenes));
    return {true, std::move(notKept)};
}

StoreFiles::Outcome StoreFiles::openScene(const std::filesystem::path& file,
                                          std::int32_t index) const {
    const auto read = readScene(file);
    if (!read)
        return {false, read.error()};
    auto notKept = keep();
    copyInto(*WindowAction::getSceneWithIndex(index), **read);
    return {true, std::move(notKept)};
}

std::optional<BackupStore::Bank> StoreFiles::newestOther() const {
    const BankImage stored = encodeBank(WindowAction::scenes());
    for (const BackupStore::Bank& bank : earlier_.list())
        if (const BankFile read = readBank(bank.file);
            !read.trouble && encodeBank(read.scenes) != stored)
            return bank;
    return std::nullopt;
}

StoreFiles::Outcome StoreFiles::restoreLatest() const {
    const auto bank = newestOther();
    return bank ? openBank(bank->file) : Outcome{};
}

Result<void> StoreFiles::saveBank(const std::filesystem::path& file,
                                  const PopUpValue& lists) const {
    return checkUnused(used_, file).and_then([&] {
        return writeBank(file, WindowAction::scenes(), formatForName(file), lists);
    });
}

Result<void> StoreFiles::saveScene(const std::filesystem::path& file, std::int32_t index,
                                   const PopUpValue& lists) const {
    return checkUnused(used_, file).and_then([&] {
        return writeScene(file, *WindowAction::getSceneWithIndex(index), lists);
    });
}

} // namespace scenewright
