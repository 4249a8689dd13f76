#include "bank/Fill.h"

#include "bank/Edit.h"
#include "bank/SettingText.h"
#include "model/Setting.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace scenewright {

namespace {

constexpr std::string_view kControllerMark = "cc:";
constexpr std::string_view kChannelMark = "ch:";
constexpr std::string_view kNumberField = "CCOrNoteNumber";
constexpr std::string_view kBetweenStations = "..";

constexpr std::array<Scale, 19> kScales{{
    {"major", "2,2,1,2,2,2,1"},
    {"minor", "2,1,2,2,1,2,2"},
    {"harmonic-minor", "2,1,2,2,1,3,1"},
    {"melodic-minor", "2,1,2,2,2,2,1"},
    {"major-pentatonic", "2,2,3,2,3"},
    {"minor-pentatonic", "3,2,2,3,2"},
    {"blues", "3,2,1,1,3,2"},
    {"ionian", "2,2,1,2,2,2,1"},
    {"dorian", "2,1,2,2,2,1,2"},
    {"phrygian", "1,2,2,2,1,2,2"},
    {"lydian", "2,2,2,1,2,2,1"},
    {"mixolydian", "2,2,1,2,2,1,2"},
    {"aeolian", "2,1,2,2,1,2,2"},
    {"locrian", "1,2,2,1,2,2,2"},
    {"whole-tone", "2"},
    {"chromatic", "1"},
    {"fourths", "5"},
    {"fifths", "7"},
    {"octaves", "12"},
}};

std::vector<std::string_view> split(std::string_view text, std::string_view separator) {
    std::vector<std::string_view> parts;
    for (std::size_t at = 0; (at = text.find(separator)) != std::string_view::npos;) {
        parts.push_back(text.substr(0, at));
        text.remove_prefix(at + separator.size());
    }
    parts.push_back(text);
    return parts;
}

std::optional<std::vector<PadColour>> stationsOf(std::string_view text,
                                                 std::string_view separator) {
    std::vector<PadColour> colours;
    for (const std::string_view part : split(text, separator)) {
        const auto colour = colourOf(part);
        if (!colour)
            return std::nullopt;
        colours.push_back(*colour);
    }
    return colours;
}

// The colour that stands `at` of `whole` equal steps on the way through the stations.
PadColour between(const std::vector<PadColour>& stations, std::size_t at, std::size_t whole) {
    const std::size_t legs = stations.size() - 1;
    const std::size_t leg = std::min(at * legs / whole, legs - 1);
    const auto part = static_cast<std::int32_t>(at * legs - leg * whole);
    const auto length = static_cast<std::int32_t>(whole);
    PadColour colour{};
    for (std::size_t i = 0; i < colour.size(); ++i)
        colour.at(i) =
            (stations[leg].at(i) * (length - part) + stations[leg + 1].at(i) * part + length / 2) /
            length;
    return colour;
}

// What a fill writes: one setting, and the type that a control is given with it.
struct Target {
    Path path;
    std::string start;
    std::optional<std::int32_t> assignType{};
};

Result<Target> targetOf(std::string_view pathText, std::string_view start) {
    const auto path = parsePath(pathText);
    if (!path)
        return failure(path.error());
    Target target{*path, std::string(start)};
    if (path->level == Path::Level::Setting && (path->setting != nullptr || path->isColour))
        return target;
    if (path->level != Path::Level::Control)
        return failure(fmt::format("{}: the path of controls or of a setting that is a number was "
                                   "expected",
                                   sanitized(pathText)));
    target.path.level = Path::Level::Setting;
    target.path.isColour = path->kind == ControlKind::Pad && coloursFor(start, 1).has_value();
    if (target.path.isColour)
        return target;
    const bool isChannel = start.starts_with(kChannelMark);
    target.path.setting = findSetting(path->kind, isChannel ? "MIDIChannel" : kNumberField);
    if (target.path.setting == nullptr)
        return failure(
            fmt::format("{} cannot be filled with \"{}\"", sanitized(pathText), sanitized(start)));
    if (isChannel)
        return target;
    const bool isController = start.starts_with(kControllerMark);
    if (isController)
        target.start.erase(0, kControllerMark.size());
    if (findSetting(path->kind, "AssignType") != nullptr)
        target.assignType = isController ? kAssignController : kAssignNote;
    return target;
}

std::vector<SettingPlace> placesAt(const Path& path, Members members) {
    auto places = settingsAt(path);
    if (!members.empty())
        std::erase_if(places, [members](const SettingPlace& place) {
            return std::ranges::find(members, place.control) == members.end();
        });
    return places;
}

void writeColours(const SceneList& scenes, const std::vector<SettingPlace>& places,
                  const std::vector<PadColour>& colours) {
    for (std::size_t i = 0; i < places.size(); ++i) {
        const PadColour& colour = colours.at(i / colours.front().size());
        places[i].setting->write(sceneAt(scenes, places[i]), places[i].control,
                                 colour.at(i % colour.size()));
    }
}

using Cause = FillError::Cause;

FillError usageError(std::string text) {
    return {.text = std::move(text)};
}

bool sendsNote(const SettingPlace& place, const SceneValue& scene) {
    return assignTypeAt(place, scene) == kAssignNote && place.setting->name() == kNumberField;
}

// Writes the value if the list has it.
Result<void, FillError> writeNumber(const PopUpValue& lists, SceneValue& scene,
                                    const SettingPlace& place, std::int32_t value) {
    auto checked = checkIndex(lists, place, scene, value);
    if (!checked) {
        const Titles titles = titlesAt(lists, place, scene);
        const bool isLow = value < 0;
        const bool hasEnds = titles != nullptr && !titles->empty();
        return failure(FillError{.text = std::move(checked.error()),
                                 .cause = isLow ? Cause::TooLow : Cause::TooHigh,
                                 .place = place,
                                 .end = !hasEnds ? std::string()
                                        : isLow  ? titles->front()
                                                 : titles->back()});
    }
    place.setting->write(scene, place.control, value);
    return {};
}

Result<void, FillError> writeNumbers(const PopUpValue& lists, const SceneList& scenes,
                                     const std::vector<SettingPlace>& places, const Target& target,
                                     const FillSteps& steps) {
    if (target.assignType)
        for (const SettingPlace& place : places)
            findSetting(place.kind, "AssignType")
                ->write(sceneAt(scenes, place), place.control, *target.assignType);
    auto start = indexTyped(lists, places.front(), sceneAt(scenes, places.front()), target.start);
    if (!start)
        return failure(FillError{
            .text = std::move(start.error()), .cause = Cause::Start, .place = places.front()});
    const Intervals suggested{target.path.setting->name() == kNumberField ? 1 : 0};
    const Intervals& intervals = steps.intervals ? *steps.intervals : suggested;
    std::int32_t value = *start;
    for (std::size_t i = 0; i < places.size(); ++i) {
        SceneValue& scene = sceneAt(scenes, places[i]);
        if (steps.isScale && !sendsNote(places[i], scene))
            return failure(FillError{.text = pathOf(places[i]) + " is no note, and a scale needs "
                                                                 "notes",
                                     .cause = Cause::NoNote,
                                     .place = places[i]});
        if (auto written = writeNumber(lists, scene, places[i], value); !written)
            return written;
        value += intervals[i % intervals.size()];
    }
    return {};
}

} // namespace

std::span<const Scale> scales() {
    return kScales;
}

const Scale* findScale(std::string_view name) {
    const auto* const found = std::ranges::find(kScales, name, &Scale::name);
    return found == kScales.end() ? nullptr : &*found;
}

FillSteps stepsOf(const Scale& scale) {
    return {.intervals = intervalsOf(scale.intervals), .isScale = true};
}

std::optional<Intervals> intervalsOf(std::string_view text) {
    Intervals intervals;
    for (const std::string_view part : split(text, ",")) {
        const auto interval = numberWithin(part, -kLargestSettingValue, kLargestSettingValue);
        if (!interval)
            return std::nullopt;
        intervals.push_back(*interval);
    }
    return intervals;
}

std::optional<std::vector<PadColour>> coloursFor(std::string_view text, std::size_t count) {
    const bool isGradient = text.find(kBetweenStations) != std::string_view::npos;
    const Palette* const palette = findPalette(text);
    const auto stations = palette != nullptr
                              ? std::optional(std::vector(palette->begin(), palette->end()))
                              : stationsOf(text, isGradient ? kBetweenStations : ",");
    if (!stations)
        return std::nullopt;
    std::vector<PadColour> colours;
    for (std::size_t i = 0; i < count; ++i)
        colours.push_back(isGradient && count > 1 ? between(*stations, i, count - 1)
                                                  : (*stations)[i % stations->size()]);
    return colours;
}

FilledScenes fillValues(const PopUpValue& lists, const SceneList& scenes, std::string_view path,
                        std::string_view start, const FillSteps& steps, Members members) {
    const auto target = targetOf(path, start);
    if (!target)
        return failure(usageError(target.error()));
    SceneList copies = copyOf(scenes);
    Path inScene = target->path;
    inScene.scenes.count = 1;
    for (std::int32_t i = 0; i < target->path.scenes.count; ++i) {
        inScene.scenes.first = target->path.scenes.first + i;
        const auto places = placesAt(inScene, members);
        if (!target->path.isColour) {
            if (const auto done = writeNumbers(lists, copies, places, *target, steps); !done)
                return failure(done.error());
            continue;
        }
        const auto colours = coloursFor(start, places.size() / kColourFields.size());
        if (!colours || steps.intervals)
            return failure(usageError(fmt::format(
                "{} cannot be filled with \"{}\": a colour as in #ff8000, several with commas "
                "between, "
                "the first and the last as in #ff0000..#ffff00, or one of {} was expected",
                sanitized(path), sanitized(start), paletteNames())));
        writeColours(copies, places, *colours);
    }
    return copies;
}

FilledScenes transposeNotes(const PopUpValue& lists, const SceneList& scenes,
                            std::string_view pathText, std::int32_t semitones, Members members) {
    const auto path = parsePath(pathText);
    if (!path)
        return failure(usageError(path.error()));
    SceneList copies = copyOf(scenes);
    bool isNoteThere = false;
    for (const SettingPlace& place : placesAt(*path, members)) {
        SceneValue& scene = sceneAt(copies, place);
        if (place.isName() || !sendsNote(place, scene))
            continue;
        isNoteThere = true;
        const std::int32_t note = place.setting->read(scene, place.control) + semitones;
        if (auto written = writeNumber(lists, scene, place, note); !written)
            return failure(written.error());
    }
    if (!isNoteThere)
        return failure(FillError{.text = sanitized(pathText) + ": nothing there sends notes",
                                 .cause = Cause::NoneNotes});
    return copies;
}

} // namespace scenewright
