#include "bank/Edit.h"

#include "bank/SettingText.h"
#include "model/Setting.h"
#include "model/TypedValue.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <tuple>
#include <vector>

namespace scenewright {

namespace {

// One setting's new value, once the later of two assignments has replaced the earlier.
struct Assignment {
    SettingPlace place;
    std::string value;
};

using PlaceKey = std::tuple<std::int32_t, ControlKind, std::int32_t, std::string_view>;
using Assignments = std::map<PlaceKey, Assignment>;

PlaceKey keyOf(const SettingPlace& place) {
    return {place.scene, place.kind, place.control,
            place.isName() ? kSceneNameField : place.setting->name()};
}

// A colour's levels, one for each place in turn.
Result<void> addColour(const Path& path, std::string_view pathText, std::string_view value,
                       Assignments& assignments) {
    const auto colour = colourOf(value);
    if (!colour)
        return failure(
            fmt::format("{} must be # and six hexadecimal digits, as in #ff8000, and is \"{}\"",
                        sanitized(pathText), sanitized(value)));
    std::size_t level = 0;
    for (const SettingPlace& place : settingsAt(path))
        assignments.insert_or_assign(
            keyOf(place), Assignment{place, std::to_string(colour->at(level++ % colour->size()))});
    return {};
}

Result<void> addAssignment(std::string_view text, Assignments& assignments) {
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos)
        return failure(fmt::format("{}: PATH=VALUE was expected", sanitized(text)));
    const std::string_view pathText = text.substr(0, equals);
    const std::string_view value = text.substr(equals + 1);
    const auto path = parsePath(pathText);
    if (!path)
        return failure(path.error());
    if (path->level != Path::Level::Setting)
        return failure(fmt::format("{}: a value needs the path of a setting", sanitized(pathText)));
    if (path->isColour)
        return addColour(*path, pathText, value, assignments);
    for (const SettingPlace& place : settingsAt(*path))
        assignments.insert_or_assign(keyOf(place), Assignment{place, std::string(value)});
    return {};
}

Result<void> assignOption(const PopUpValue& lists, const Assignment& assignment,
                          const SceneValue& scene) {
    const SettingPlace& place = assignment.place;
    return indexTyped(lists, place, scene, assignment.value).map([&](std::int32_t index) {
        place.setting->write(scene, place.control, index);
    });
}

Result<void> assignName(const Assignment& assignment, const SceneValue& scene) {
    const std::string_view value = assignment.value;
    auto name = nameOfText(value);
    if (!name && value.starts_with(kBytesMark))
        name = nameOfHex(value.substr(kBytesMark.size()));
    if (!name)
        return failure(
            fmt::format("{} must be at most 12 bytes without control characters, or {} and 24 "
                        "hexadecimal digits, and is \"{}\"",
                        pathOf(assignment.place), kBytesMark, sanitized(value)));
    scene.commonValue()->setSceneName(*name);
    return {};
}

// What a control sends decides which titles its number has, so it is assigned before all else.
bool isAssignedFirst(const SettingPlace& place) {
    return !place.isName() && place.setting->name() == "AssignType";
}

Result<void> assignAll(const PopUpValue& lists, const Assignments& assignments,
                       const SceneList& scenes, bool first) {
    for (const auto& [key, assignment] : assignments) {
        if (isAssignedFirst(assignment.place) != first)
            continue;
        const SceneValue& scene = sceneAt(scenes, assignment.place);
        auto assigned = assignment.place.isName() ? assignName(assignment, scene)
                                                  : assignOption(lists, assignment, scene);
        if (!assigned)
            return assigned;
    }
    return {};
}

std::shared_ptr<SceneValue> copyOfScene(const SceneValue& scene) {
    auto copy = std::make_shared<SceneValue>(scene);
    copy->setCommonValue(std::make_shared<CommonValue>(*scene.commonValue()));
    auto buttons = scene.buttonValueArray();
    for (auto& button : buttons)
        button = std::make_shared<ButtonValue>(*button);
    copy->setButtonValueArray(std::move(buttons));
    return copy;
}

Result<void> checkPair(const Path& from, const Path& to) {
    if (from.level != to.level || from.kind != to.kind || from.setting != to.setting ||
        from.isColour != to.isColour)
        return failure("both must name scenes, controls of one kind, or one and the same setting");
    if ((from.scenes.isStar && !to.scenes.isStar) || (from.controls.isStar && !to.controls.isStar))
        return failure("a star in the first needs a star in the second");
    return {};
}

Result<void> checkCount(const Path& from, std::size_t scenes) {
    const std::int32_t end = from.scenes.first + from.scenes.count;
    if (static_cast<std::size_t>(end) > scenes)
        return failure("the file has one scene, scene1");
    return {};
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

struct PathPair {
    Path first;
    Path second;
};

// Two paths that go together; `verb` tells what cannot be done with them, as in "copied to".
Result<PathPair> parsePair(std::string_view first, std::string_view verb, std::string_view second,
                           const std::function<Result<void>(const PathPair&)>& check) {
    const auto one = parsePath(first);
    const auto other = parsePath(second);
    for (const auto* const path : {&one, &other})
        if (!*path)
            return failure(path->error());
    const PathPair pair{*one, *other};
    if (const auto checked = check(pair); !checked)
        return failure(fmt::format("{} cannot be {} {}: {}", sanitized(first), verb,
                                   sanitized(second), checked.error()));
    return pair;
}

} // namespace

Result<SceneList> setValues(const PopUpValue& lists, const SceneList& scenes,
                            std::span<const std::string> assignments) {
    Assignments places;
    for (const std::string& assignment : assignments)
        if (auto added = addAssignment(assignment, places); !added)
            return failure(std::move(added.error()));
    SceneList copies = copyOf(scenes);
    for (const bool first : {true, false})
        if (auto assigned = assignAll(lists, places, copies, first); !assigned)
            return failure(std::move(assigned.error()));
    return copies;
}

SceneList copyOf(const SceneList& scenes) {
    SceneList copies;
    for (const auto& scene : scenes)
        copies.push_back(copyOfScene(*scene));
    return copies;
}

Result<SceneList> copyValues(const PopUpValue& lists, const SceneList& source,
                             const SceneList& scenes, std::string_view from, std::string_view to) {
    const bool isRaw = from.starts_with(kRawMark);
    from.remove_prefix(isRaw ? kRawMark.size() : 0);
    const auto pair = parsePair(from, "copied to", to, [&](const PathPair& paths) {
        return checkPair(paths.first, paths.second).and_then([&] {
            return checkCount(paths.first, source.size());
        });
    });
    if (!pair)
        return failure(pair.error());
    SceneList copies = copyOf(scenes);
    for (const SettingPlace& place : settingsAt(pair->second)) {
        const SettingPlace origin = sourceOf(pair->first, place);
        copySetting(sceneAt(source, origin), origin.control, sceneAt(copies, place), place);
    }
    for (const SettingPlace& place : settingsAt(pair->second)) {
        if (isRaw || place.isName())
            continue;
        const SceneValue& scene = sceneAt(copies, place);
        const std::int32_t index = storedIndex(scene, *place.setting, place.control);
        if (const auto checked = checkIndex(lists, place, scene, index); !checked)
            return failure(fmt::format("{1} cannot be copied to {2}: {0}; {3}{1} is copied all the "
                                       "same",
                                       checked.error(), sanitized(from), sanitized(to), kRawMark));
    }
    return copies;
}

Result<SceneList> renameScene(const SceneList& scenes, std::string_view path,
                              std::string_view name) {
    const auto renamed = parsePath(path);
    if (!renamed)
        return failure(renamed.error());
    if (renamed->level != Path::Level::Scene)
        return failure(fmt::format("{}: the path of a scene was expected", sanitized(path)));
    const auto stored = storedNameOf(name);
    if (!stored)
        return failure(stored.error());
    SceneList copies = copyOf(scenes);
    const auto first = static_cast<std::size_t>(renamed->scenes.first);
    const auto count = static_cast<std::size_t>(renamed->scenes.count);
    for (std::size_t scene = first; scene < first + count; ++scene)
        copies.at(scene)->commonValue()->setSceneName(*stored);
    return copies;
}

Result<SceneList> swapValues(const SceneList& scenes, std::string_view first,
                             std::string_view second) {
    const auto pair = parsePair(first, "swapped with", second, [](const PathPair& paths) {
        const auto isStarred = [](const Path& path) {
            return path.scenes.isStar || path.controls.isStar;
        };
        if (isStarred(paths.first) || isStarred(paths.second))
            return Result<void>(failure("neither may have a star"));
        return checkPair(paths.first, paths.second);
    });
    if (!pair)
        return failure(pair.error());
    SceneList copies = copyOf(scenes);
    const auto firsts = settingsAt(pair->first);
    const auto seconds = settingsAt(pair->second);
    const auto copy = [&](const SettingPlace& from, const SettingPlace& to) {
        copySetting(sceneAt(scenes, from), from.control, sceneAt(copies, to), to);
    };
    for (std::size_t i = 0; i < firsts.size(); ++i) {
        copy(firsts[i], seconds[i]);
        copy(seconds[i], firsts[i]);
    }
    return copies;
}

} // namespace scenewright
