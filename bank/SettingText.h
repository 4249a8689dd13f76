// Settings of a bank as files, commands and lists of differences write them: the path that names
// one, the text of its value and of a scene's name, and the option that is meant by what a person
// types.
//
// A path:
//   scene1.pad3.CR              one setting
//   scene2.common.SceneName     a scene's name
//   scene1.pad3.colour          a pad's red, green and blue
//   scene*.knob*.Enable         one setting of every knob of every scene
//   scene1.pad3   scene1.pad*   whole controls
//   scene1                      a whole scene
//
// Numbers count from 1; a star stands for all. Letters count as they are: "CR", not "cr".
#pragma once

#include "model/PopUpValue.h"
#include "model/SceneValue.h"
#include "model/Setting.h"
#include "platform/Text.h"
#include "protocol/SceneImage.h"

#include <cstdint>
#include <optional>
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

// Throws std::out_of_range when the list does not have the scene.
[[nodiscard]] inline SceneValue& sceneAt(const SceneList& scenes, const SettingPlace& place) {
    return *scenes.at(static_cast<std::size_t>(place.scene));
}

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
    PathRange scenes{};
    ControlKind kind = ControlKind::Common; // from Level::Control on
    PathRange controls{};
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

// Before the hexadecimal digits of a name that no text can give.
inline constexpr std::string_view kBytesMark = "bytes:";

// A setting's value.
struct SettingText {
    // The option index; for a scene's name its text, or "bytes:" and 24 hexadecimal digits.
    std::string value;
    // The option's title; empty for a name, and for a value outside its list.
    std::string title;
    friend bool operator==(const SettingText&, const SettingText&) = default;
};

// The scene must hold the place's record.
[[nodiscard]] SettingText settingText(const PopUpValue& lists, const SceneValue& scene,
                                      const SettingPlace& place);

// The index that the controller stores for it: 0 for one outside 0..127.
[[nodiscard]] std::int32_t storedIndex(const SceneValue& scene, const Setting& setting,
                                       std::int32_t control);

// A scene's stored name in the two ways that files and commands write it: as text where a person
// can read all of it, else as the twelve bytes in hexadecimal.

// The first twelve bytes of a record's name, filled up with zeros: what the image holds, and a
// record after a read.
[[nodiscard]] std::string storedName(std::string_view sceneName);

// The name without its fill, when nothing of it would be lost or hidden in a text: valid UTF-8
// without control characters. Otherwise nothing, and the name is to be given in hexadecimal.
[[nodiscard]] std::optional<std::string> nameAsText(std::string_view sceneName);
// 24 hexadecimal digits, lower case.
[[nodiscard]] std::string nameAsHex(std::string_view sceneName);

// The stored name that `text` stands for; nothing when it is longer than twelve bytes or is no
// text of nameAsText().
[[nodiscard]] std::optional<std::string> nameOfText(std::string_view text);
// The same, or one sentence that says what is in the way, in the person's language.
[[nodiscard]] Result<std::string> storedNameOf(std::string_view text);
// The stored name of 24 hexadecimal digits, either case; nothing for anything else.
[[nodiscard]] std::optional<std::string> nameOfHex(std::string_view digits);

// `text` as it may stand in a message of one line: bytes that nobody can read show as U+FFFD, and
// a long text is cut short with an ellipsis.
[[nodiscard]] std::string sanitized(std::string_view text);

// What a person types for an option: the setting's place decides what the words mean, as the number
// of a pad is a note if the pad sends notes. From here on places are options, not names.

// Before a number that is stored whether a list has it or not, or the path of such a thing.
inline constexpr std::string_view kRawMark = "raw:";

// The list whose titles name the place's values, as the scene stands; null for a name, and when the
// resource lacks the list.
[[nodiscard]] Titles titlesAt(const PopUpValue& lists, const SettingPlace& place,
                              const SceneValue& scene);
// What the place's control sends, kAssignOff for one that carries no `AssignType`.
[[nodiscard]] std::int32_t assignTypeAt(const SettingPlace& place, const SceneValue& scene);
// Whether the list there has the index. The error is one phrase that names the path.
[[nodiscard]] Result<void> checkIndex(const PopUpValue& lists, const SettingPlace& place,
                                      const SceneValue& scene, std::int32_t index);
// The index that `typed` stands for there:
//
//   digits             the index itself, if the list has it
//   "raw:" and digits  the index whether the list has it or not
//   "ch:" and digits   for a channel: that of 1 to 16, as players count
//   "title:" and text  the title, letter for letter
//   anything else      what typedPosition() takes: a title, a note, a controller's name
//
// The error is one phrase that names the path.
[[nodiscard]] Result<std::int32_t> indexTyped(const PopUpValue& lists, const SettingPlace& place,
                                              const SceneValue& scene, std::string_view typed);

// "scene1.pad3.CR=127": the assignment that stores what stands at the place now.
[[nodiscard]] std::string assignmentOf(const SettingPlace& place, const SettingText& text);

} // namespace scenewright
