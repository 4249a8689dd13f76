// Paths: how a person names settings of a bank.
//
//   scene1.pad3.CR              one setting
//   scene2.common.SceneName     a scene's name
//   scene1.pad3.colour          a pad's red, green and blue
//   scene*.knob*.Enable         one setting of every knob of every scene
//   scene1.pad3   scene1.pad*   whole controls
//   scene1                      a whole scene
//
// Numbers count from 1; a star stands for all. Letters count as they are: "CR", not "cr".
#pragma once

#include "model/SceneValue.h"
#include "model/Setting.h"
#include "platform/Text.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

// The path's word for a scene's name, which is no option and has no row among the settings.
inline constexpr std::string_view kSceneNameField = "SceneName";
// The path's word for the three settings that make a pad's colour.
inline constexpr std::string_view kColourField = "colour";

// One setting of one control of one scene, or a scene's name.
struct SettingPlace {
    std::int32_t scene = 0; // from 0
    ControlKind kind = ControlKind::Common;
    std::int32_t control = 0;         // within its kind, from 0
    const Setting* setting = nullptr; // null for the scene's name

    [[nodiscard]] bool isName() const { return setting == nullptr; }
    friend bool operator==(const SettingPlace&, const SettingPlace&) = default;
};

// The control of a place, 0 to 45.
[[nodiscard]] constexpr std::int32_t controlIndexOf(const SettingPlace& place) {
    return controlRange(place.kind).start + place.control;
}

// "scene1.pad3.CR".
[[nodiscard]] std::string pathOf(const SettingPlace& place);
// "scene1.pad3", "scene1.common": a control by its index, 0 to 45.
[[nodiscard]] std::string controlPath(std::int32_t scene, std::int32_t control);
// "Scene 1, Pad 3, Red", in the person's language.
[[nodiscard]] std::string wordsOf(const SettingPlace& place);

// The members of a kind, or the scenes, that a path names.
struct PathRange {
    std::int32_t first = 0; // from 0
    std::int32_t count = 0;
    bool isStar = false;
};

struct Path {
    enum class Level : std::uint8_t { Scene, Control, Setting };

    Level level = Level::Scene;
    PathRange scenes;
    ControlKind kind = ControlKind::Common; // from Level::Control on
    PathRange controls;
    const Setting* setting = nullptr; // at Level::Setting; null for the scene's name and a colour
    bool isColour = false;
};

// The error says in one phrase what was expected, and where
// ("scene1.pad9: at character 11, a pad's number from 1 to 8 or * was expected").
[[nodiscard]] Result<Path> parsePath(std::string_view text);

// Every setting that the path covers: scene by scene, its name first, then control by control.
[[nodiscard]] std::vector<SettingPlace> settingsAt(const Path& path);
// Every setting of the first `scenes` scenes, in the same order.
[[nodiscard]] std::vector<SettingPlace> allSettings(std::int32_t scenes);

} // namespace scenewright
