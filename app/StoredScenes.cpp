#include "app/StoredScenes.h"

#include "app/WindowAction.h"
#include "bank/Edit.h"
#include "bank/SettingText.h"
#include "model/Control.h"
#include "model/FileAction.h"
#include "model/Setting.h"

#include <fmt/format.h>

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
    const auto fresh = FileAction::GetSceneFromDefault();
    fresh->commonValue()->setSceneName(fmt::format("SCENE{}", scene + 1));
    copyInto(stored(scene), *fresh);
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

} // namespace scenewright
