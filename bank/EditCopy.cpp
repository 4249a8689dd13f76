#include "bank/Edit.h"
#include "bank/MessageText.h"
#include "bank/Path.h"

#include <fmt/format.h>

#include <memory>

namespace scenewright {

namespace {

using Trouble = std::optional<std::string>;

std::shared_ptr<SceneValue> copyOfScene(const SceneValue& scene) {
    auto copy = std::make_shared<SceneValue>(scene);
    copy->setCommonValue(std::make_shared<CommonValue>(*scene.commonValue()));
    auto buttons = scene.buttonValueArray();
    for (auto& button : buttons)
        button = std::make_shared<ButtonValue>(*button);
    copy->setButtonValueArray(std::move(buttons));
    return copy;
}

Trouble pairTrouble(const Path& from, const Path& to) {
    if (from.level != to.level || from.kind != to.kind || from.setting != to.setting)
        return "both must name scenes, controls of one kind, or one and the same setting";
    if ((from.scenes.isStar && !to.scenes.isStar) || (from.controls.isStar && !to.controls.isStar))
        return "a star in the first needs a star in the second";
    return std::nullopt;
}

Trouble countTrouble(const Path& from, std::size_t scenes) {
    const std::int32_t end = from.scenes.first + from.scenes.count;
    if (static_cast<std::size_t>(end) <= scenes)
        return std::nullopt;
    return "the file has one scene, scene1";
}

// Where the value for `target` comes from.
SettingPlace sourceOf(const Path& from, SettingPlace target) {
    if (!from.scenes.isStar)
        target.scene = from.scenes.first;
    if (from.level != Path::Level::Scene && !from.controls.isStar)
        target.control = from.controls.first;
    return target;
}

void copySetting(const SceneValue& source, std::int32_t control, const SceneValue& target,
                 const SettingPlace& place) {
    if (place.isName())
        target.commonValue()->setSceneName(source.commonValue()->SceneName());
    else
        place.setting->write(target, place.control, place.setting->read(source, control));
}

} // namespace

SceneList copyOf(const SceneList& scenes) {
    SceneList copies;
    for (const auto& scene : scenes)
        copies.push_back(copyOfScene(*scene));
    return copies;
}

Edited copyValues(const SceneList& scenes, std::string_view from, std::string_view to) {
    return copyValues(scenes, scenes, from, to);
}

Edited copyValues(const SceneList& source, const SceneList& scenes, std::string_view from,
                  std::string_view to) {
    const PathResult origins = parsePath(from);
    const PathResult targets = parsePath(to);
    for (const PathResult* result : {&origins, &targets})
        if (!result->path)
            return {{}, result->trouble};
    Trouble trouble = pairTrouble(*origins.path, *targets.path);
    if (!trouble)
        trouble = countTrouble(*origins.path, source.size());
    if (trouble)
        return {
            {},
            fmt::format("{} cannot be copied to {}: {}", sanitized(from), sanitized(to), *trouble)};
    SceneList copies = copyOf(scenes);
    for (const SettingPlace& place : settingsAt(*targets.path)) {
        const SettingPlace origin = sourceOf(*origins.path, place);
        copySetting(*source.at(static_cast<std::size_t>(origin.scene)), origin.control,
                    *copies.at(static_cast<std::size_t>(place.scene)), place);
    }
    return {std::move(copies), std::nullopt};
}

} // namespace scenewright
