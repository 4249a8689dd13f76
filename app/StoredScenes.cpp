#include "app/StoredScenes.h"

#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "bank/Edit.h"
#include "bank/SettingText.h"
#include "model/SceneValue.h"
#include "model/Setting.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

namespace scenewright {

namespace {

SceneValue& stored(std::int32_t scene) {
    return *WindowAction::getSceneWithIndex(scene);
}

std::string allOf(ControlKind kind, std::int32_t scene) {
    return fmt::format("scene{}.{}*", scene + 1, controlRange(kind).name);
}

} // namespace

void copyInto(SceneValue& stored, const SceneValue& scene) {
    if (stored.buttonValueArray().size() < static_cast<std::size_t>(kControlCount))
        stored.setButtonValueArray(scene.buttonValueArray());
    stored.commonValue()->setSceneName(scene.commonValue()->SceneName());
    for (const Setting& setting : settings())
        for (std::int32_t member = 0; member < controlRange(setting.kind()).count; ++member)
            setting.write(stored, member, setting.read(scene, member));
}

std::string StoredScenes::name(std::int32_t scene) {
    return nameAsText(stored(scene).commonValue()->SceneName()).value_or(std::string());
}

Result<void> StoredScenes::checkName(std::string_view name) {
    return storedNameOf(name).map([](const std::string&) {});
}

Result<void> StoredScenes::rename(std::int32_t scene, std::string_view name) {
    return storedNameOf(name).map(
        [scene](const std::string& bytes) { stored(scene).commonValue()->setSceneName(bytes); });
}

void StoredScenes::copy(std::int32_t from, std::int32_t to) {
    copyInto(stored(to), *copyOf({WindowAction::getSceneWithIndex(from)}).front());
}

void StoredScenes::swap(std::int32_t first, std::int32_t second) {
    const SceneList former = copyOf({WindowAction::getSceneWithIndex(first)});
    copy(second, first);
    copyInto(stored(second), *former.front());
}

void StoredScenes::reset(std::int32_t scene) {
    copyInto(stored(scene), *WindowAction::defaultScenes().at(static_cast<std::size_t>(scene)));
}

std::vector<Finding> StoredScenes::findings(const PopUpValue& lists) {
    return findingsOf(lists, WindowAction::scenes());
}

FilledScenes filledScenes(const PopUpValue& lists, std::int32_t scene, ControlKind kind,
                          Members members, std::string_view start, const FillSteps& steps) {
    return fillValues(lists, WindowAction::scenes(), allOf(kind, scene), start, steps, members);
}

FilledScenes transposedScenes(const PopUpValue& lists, std::int32_t scene, ControlKind kind,
                              Members members, std::int32_t semitones) {
    return transposeNotes(lists, WindowAction::scenes(), allOf(kind, scene), semitones, members);
}

namespace {

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

EarlierScenes::Occasion beforeOpening(const std::filesystem::path& file) {
    return {.reason = EarlierScenes::Reason::Opening, .subject = file.filename().string()};
}

} // namespace

Result<void> StoreFiles::keep(const EarlierScenes::Occasion& occasion) const {
    if (WindowAction::scenes().size() < static_cast<std::size_t>(kSceneCount))
        return {};
    const auto kept = earlier_.keep(encodeBank(WindowAction::scenes()), occasion);
    if (kept)
        return {};
    return failure(translated(
        sourceText("scenewright::File", "The former scenes could not be kept: {}"), kept.error()));
}

Result<StoreFiles::Opened> StoreFiles::openBank(const std::filesystem::path& file) const {
    return readBank(file).map([&](BankFile bank) {
        Opened opened{.kept = keep(beforeOpening(file))};
        WindowAction::setScenes(std::move(bank.scenes));
        return opened;
    });
}

Result<StoreFiles::Opened> StoreFiles::openScene(const std::filesystem::path& file,
                                                 std::int32_t index, std::int32_t from) const {
    return readBankOrScene(file).map([&](const BankFile& read) {
        Opened opened{.kept = keep(beforeOpening(file)), .isScene = true};
        copyInto(*WindowAction::getSceneWithIndex(index),
                 *read.scenes.at(static_cast<std::size_t>(from)));
        return opened;
    });
}

Result<std::vector<std::string>> StoreFiles::sceneNames(const std::filesystem::path& file) {
    return readBankOrScene(file).map([](const BankFile& read) {
        std::vector<std::string> names;
        for (const auto& scene : read.scenes)
            names.push_back(displayName(scene->commonValue()->SceneName()));
        return names;
    });
}

std::optional<BankImage> StoreFiles::imageIn(const std::filesystem::path& file) {
    const auto read = readBank(file);
    return read ? std::optional(encodeBank(read->scenes)) : std::nullopt;
}

Result<StoreFiles::Opened> StoreFiles::openAtStart(const std::filesystem::path& file,
                                                   std::int32_t index) {
    // There is no window yet that would stand still until a command has written what it was given.
    return readBankOrScene(file, [] {}).map([index](BankFile read) {
        Opened opened{{}, read.scenes.size() == 1};
        if (opened.isScene)
            copyInto(*WindowAction::getSceneWithIndex(index), *read.scenes.front());
        else
            WindowAction::setScenes(std::move(read.scenes));
        return opened;
    });
}

Result<void> StoreFiles::bringBack(const BankImage& image) const {
    auto kept = keep({.reason = EarlierScenes::Reason::BringingBack});
    WindowAction::setScenes(readBankImage(image).value_or(SceneList{}));
    return kept;
}

std::optional<EarlierScenes::Entry> StoreFiles::newestOther() const {
    const BankImage stored = encodeBank(WindowAction::scenes());
    for (EarlierScenes::Entry& entry : earlier_.list())
        if (entry.image != stored)
            return entry;
    return std::nullopt;
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
