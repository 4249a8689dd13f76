#include "app/SceneChanges.h"

#include "app/WindowAction.h"
#include "bank/Edit.h"
#include "bank/Findings.h"
#include "model/SceneValue.h"
#include "model/Setting.h"
#include "platform/Text.h"

#include <algorithm>
#include <utility>

namespace scenewright {

namespace {

bool isSameScene(const SettingPlace& one, const SettingPlace& other) {
    return one.scene == other.scene;
}

bool isSameKind(const SettingPlace& one, const SettingPlace& other) {
    return isSameScene(one, other) && one.kind == other.kind;
}

bool isSameControl(const SettingPlace& one, const SettingPlace& other) {
    return isSameKind(one, other) && one.control == other.control;
}

// What the control sends, for a setting whose title depends on it.
std::int32_t assignTypeFor(const SettingPlace& place, const SceneList& scenes) {
    const bool depends = !place.isName() && place.setting->details().noteList != nullptr;
    return depends ? assignTypeAt(place, sceneAt(scenes, place)) : kAssignOff;
}

std::string titleOf(const SettingPlace& place, std::int32_t assignType) {
    if (place.isName())
        return translated(sourceText("scenewright::Bank", "Name"));
    switch (assignType) {
    case kAssignController:
        return translated(sourceText("scenewright::SceneChanges", "CC"));
    case kAssignNote:
        return translated(sourceText("scenewright::SceneChanges", "Note"));
    default:
        return settingTitle(*place.setting);
    }
}

std::string sceneTitle(const SettingPlace& place) {
    return translated(sourceText("scenewright::SceneChanges", "Scene {}"), place.scene + 1);
}

// The scene itself for its common settings, which every scene has; of several controls, how many.
std::string ownerTitle(const SettingPlace& place, std::size_t count = 1) {
    if (place.kind == ControlKind::Common)
        return sceneTitle(place);
    if (count > 1)
        return kindTitle(place.kind, count);
    return translated(sourceText("scenewright::SceneChanges", "{0} {1}"), kindTitle(place.kind),
                      place.control + 1);
}

} // namespace

SceneList copyOfStored() {
    return copyOf(WindowAction::scenes());
}

SceneChanges::Values SceneChanges::valuesAt(const SceneList& scenes, const SettingPlace& place) {
    const SceneValue& scene = sceneAt(scenes, place);
    if (place.isName())
        return {.name = scene.commonValue()->SceneName()};
    return {.index = place.setting->read(scene, place.control)};
}

SceneChanges SceneChanges::between(const PopUpValue& lists, const SceneList& before,
                                   const SceneList& after) {
    SceneChanges made;
    for (const Difference& difference : differences(lists, before, after)) {
        const SettingPlace& place = difference.place;
        made.changes_.push_back({.place = place,
                                 .assignType = assignTypeFor(place, after),
                                 .before = valuesAt(before, place),
                                 .after = valuesAt(after, place)});
    }
    return made;
}

std::vector<SettingPlace> SceneChanges::places() const {
    std::vector<SettingPlace> places;
    places.reserve(changes_.size());
    for (const Change& change : changes_)
        places.push_back(change.place);
    return places;
}

void SceneChanges::write(Side side, const SceneList& scenes) const {
    for (const Change& change : changes_) {
        const SettingPlace& place = change.place;
        const Values& values = side == Side::Before ? change.before : change.after;
        const SceneValue& scene = sceneAt(scenes, place);
        if (place.isName())
            scene.commonValue()->setSceneName(values.name);
        else
            place.setting->write(scene, place.control, values.index);
    }
}

const SettingPlace* SceneChanges::chosen() const {
    const auto drivesAll = [this](const Change& candidate) {
        return std::ranges::all_of(changes_, [&](const Change& change) {
            const SettingPlace& place = change.place;
            return isSameKind(place, candidate.place) &&
                   (place.setting == candidate.place.setting ||
                    (!place.isName() && !candidate.place.isName() &&
                     place.setting->isDrivenBy(*candidate.place.setting)));
        });
    };
    const auto found = std::ranges::find_if(changes_, drivesAll);
    return found == changes_.end() ? nullptr : &found->place;
}

void SceneChanges::append(const SceneChanges& later) {
    for (const Change& change : later.changes_) {
        const auto same = std::ranges::find(changes_, change.place, &Change::place);
        if (same == changes_.end()) {
            changes_.push_back(change);
        } else {
            same->after = change.after;
            same->assignType = change.assignType;
        }
    }
    std::erase_if(changes_, [](const Change& change) { return change.before == change.after; });
}

std::string SceneChanges::title() const {
    const auto areAll = [this](bool (*isSame)(const SettingPlace&, const SettingPlace&)) {
        return std::ranges::all_of(changes_, [&](const Change& change) {
            return isSame(change.place, changes_.front().place);
        });
    };
    if (isEmpty() || !areAll(&isSameScene))
        return translated(sourceText("scenewright::SceneChanges", "Scenes"));
    const SettingPlace& first = changes_.front().place;
    const SettingPlace* const place = chosen();
    if (place == nullptr)
        return areAll(&isSameControl) ? ownerTitle(first) : sceneTitle(first);
    const auto isOfSetting = [place](const Change& change) {
        return change.place.setting == place->setting;
    };
    const auto controls = std::ranges::count_if(changes_, isOfSetting);
    const auto change = std::ranges::find(changes_, *place, &Change::place);
    return translated(sourceText("scenewright::SceneChanges", "{0} {1}"),
                      ownerTitle(*place, static_cast<std::size_t>(controls)),
                      titleOf(*place, change->assignType));
}

} // namespace scenewright
