#include "bank/Edit.h"

#include "bank/BankJson.h"
#include "bank/Path.h"
#include "bank/SettingText.h"
#include "model/Setting.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <charconv>
#include <map>
#include <memory>
#include <tuple>
#include <vector>

namespace scenewright {

namespace {

constexpr std::string_view kTitleMark = "title:";
constexpr std::size_t kMinOptions = 17; // that a message can list; more are told by their ends

// One setting's new value, once the later of two assignments has replaced the earlier.
struct Assignment {
    SettingPlace place;
    std::string_view value;
};

using PlaceKey = std::tuple<std::int32_t, ControlKind, std::int32_t, std::string_view>;
using Assignments = std::map<PlaceKey, Assignment>;

PlaceKey keyOf(const SettingPlace& place) {
    return {place.scene, place.kind, place.control,
            place.isName() ? kSceneNameField : place.setting->name()};
}

Result<void> addAssignment(std::string_view text, Assignments& assignments) {
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos)
        return failure(fmt::format("{}: PATH=VALUE was expected", sanitized(text)));
    const std::string_view pathText = text.substr(0, equals);
    const auto path = parsePath(pathText);
    if (!path)
        return failure(path.error());
    if (path->level != Path::Level::Setting)
        return failure(fmt::format("{}: a value needs the path of a setting", sanitized(pathText)));
    for (const SettingPlace& place : settingsAt(*path))
        assignments.insert_or_assign(keyOf(place), Assignment{place, text.substr(equals + 1)});
    return {};
}

bool isIndex(std::string_view value) {
    return !value.empty() &&
           std::ranges::all_of(value, [](char c) { return c >= '0' && c <= '9'; });
}

std::optional<std::int32_t> indexOf(std::string_view digits) {
    std::int32_t index = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), index);
    if (result.ec != std::errc() || index > kLargestSettingValue)
        return std::nullopt;
    return index;
}

std::string optionsText(const Titles& titles) {
    if (titles == nullptr || titles->empty())
        return "it has none";
    if (titles->size() > kMinOptions)
        return fmt::format("its options go from {} to {}", titles->front(), titles->back());
    return fmt::format("its options are {}", fmt::join(*titles, ", "));
}

// The list that names the place's values, as the scene stands now.
Titles titlesFor(const PopUpValue& lists, const SettingPlace& place, const SceneValue& scene) {
    const Setting* const type = findSetting(place.kind, "AssignType");
    return optionList(lists, *place.setting,
                      type == nullptr ? kAssignOff : type->read(scene, place.control));
}

Result<void> assignOption(const PopUpValue& lists, const Assignment& assignment,
                          const SceneValue& scene) {
    const SettingPlace& place = assignment.place;
    std::string_view value = assignment.value;
    if (isIndex(value)) {
        const auto index = indexOf(value);
        if (!index)
            return failure(notAValue(pathOf(place), sanitized(value)));
        place.setting->write(scene, place.control, *index);
        return {};
    }
    if (value.starts_with(kTitleMark))
        value.remove_prefix(kTitleMark.size());
    const Titles titles = titlesFor(lists, place, scene);
    const auto found = titles == nullptr ? std::vector<std::string>::const_iterator()
                                         : std::ranges::find(*titles, value);
    if (titles == nullptr || found == titles->end())
        return failure(fmt::format("{} has no option \"{}\": {}", pathOf(place), sanitized(value),
                                   optionsText(titles)));
    place.setting->write(scene, place.control, static_cast<std::int32_t>(found - titles->begin()));
    return {};
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
        const SceneValue& scene = *scenes.at(static_cast<std::size_t>(assignment.place.scene));
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
    if (from.level != to.level || from.kind != to.kind || from.setting != to.setting)
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

Result<SceneList> copyValues(const SceneList& scenes, std::string_view from, std::string_view to) {
    return copyValues(scenes, scenes, from, to);
}

Result<SceneList> copyValues(const SceneList& source, const SceneList& scenes,
                             std::string_view from, std::string_view to) {
    const auto origins = parsePath(from);
    const auto targets = parsePath(to);
    for (const auto* const path : {&origins, &targets})
        if (!*path)
            return failure(path->error());
    const auto checked =
        checkPair(*origins, *targets).and_then([&] { return checkCount(*origins, source.size()); });
    if (!checked)
        return failure(fmt::format("{} cannot be copied to {}: {}", sanitized(from), sanitized(to),
                                   checked.error()));
    SceneList copies = copyOf(scenes);
    for (const SettingPlace& place : settingsAt(*targets)) {
        const SettingPlace origin = sourceOf(*origins, place);
        copySetting(*source.at(static_cast<std::size_t>(origin.scene)), origin.control,
                    *copies.at(static_cast<std::size_t>(place.scene)), place);
    }
    return copies;
}

} // namespace scenewright
