#include "bank/Difference.h"

#include "bank/BankJson.h"
#include "bank/SettingText.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace scenewright {

namespace {

bool isSame(const SceneValue& first, const SceneValue& second, const SettingPlace& place) {
    if (place.isName())
        return nameBytes(first.commonValue()->SceneName()) ==
               nameBytes(second.commonValue()->SceneName());
    return storedIndex(first, *place.setting, place.control) ==
           storedIndex(second, *place.setting, place.control);
}

std::string shown(const SettingPlace& place, const SettingText& text) {
    if (place.isName())
        return fmt::format("\"{}\"", text.value);
    return text.title.empty() ? fmt::format("({})", text.value) : text.title;
}

// With the number beside the title, for two options of one title.
std::string shownWithNumber(const SettingText& text) {
    return fmt::format("{} ({})", text.title, text.value);
}

std::string valueJson(const SettingPlace& place, const SettingText& text) {
    std::string json =
        fmt::format("{{\"value\": {}", place.isName() ? jsonQuoted(text.value) : text.value);
    if (!text.title.empty())
        json += ", \"title\": " + jsonQuoted(text.title);
    return json + "}";
}

std::string differenceJson(const Difference& difference) {
    const SettingPlace& place = difference.place;
    return fmt::format("  {{\"path\": {}, \"words\": {}, \"first\": {}, \"second\": {}}}",
                       jsonQuoted(pathOf(place)), jsonQuoted(wordsOf(place)),
                       valueJson(place, difference.first), valueJson(place, difference.second));
}

} // namespace

std::vector<Difference> differences(const PopUpValue& lists, const SceneList& first,
                                    const SceneList& second) {
    std::vector<Difference> list;
    const std::size_t scenes = std::min(first.size(), second.size());
    for (const SettingPlace& place : allSettings(static_cast<std::int32_t>(scenes))) {
        const SceneValue& one = *first[static_cast<std::size_t>(place.scene)];
        const SceneValue& other = *second[static_cast<std::size_t>(place.scene)];
        if (!isSame(one, other, place))
            list.push_back(
                {place, settingText(lists, one, place), settingText(lists, other, place)});
    }
    return list;
}

DifferenceTexts valuesInWords(const Difference& difference) {
    const SettingText& first = difference.first;
    const SettingText& second = difference.second;
    const bool isAmbiguous = !first.title.empty() && first.title == second.title;
    return {isAmbiguous ? shownWithNumber(first) : shown(difference.place, first),
            isAmbiguous ? shownWithNumber(second) : shown(difference.place, second)};
}

std::string differenceWords(const Difference& difference) {
    const DifferenceTexts values = valuesInWords(difference);
    return translated(sourceText("scenewright::Bank", "{0}: {1} -> {2}"), wordsOf(difference.place),
                      values.first, values.second);
}

void writeFirst(const Difference& difference, const SceneList& scenes) {
    const SettingPlace& place = difference.place;
    if (std::cmp_greater_equal(place.scene, scenes.size()))
        return;
    const SceneValue& scene = *scenes[static_cast<std::size_t>(place.scene)];
    const std::string& value = difference.first.value;
    if (!place.isName())
        return place.setting->write(scene, place.control, std::stoi(value));
    const auto name = value.starts_with(kBytesMark) ? nameOfHex(value.substr(kBytesMark.size()))
                                                    : nameOfText(value);
    if (name && scene.commonValue())
        scene.commonValue()->setSceneName(*name);
}

std::string differenceLine(const Difference& difference) {
    return fmt::format("{}  {}", pathOf(difference.place), differenceWords(difference));
}

std::string differenceLines(const std::vector<Difference>& list) {
    std::string lines;
    for (const Difference& difference : list)
        lines += differenceLine(difference) + "\n";
    return lines;
}

std::string changeLine(const Difference& difference) {
    const SettingText& first = difference.first;
    const SettingText& second = difference.second;
    std::string line = fmt::format("{}: {} -> {}", pathOf(difference.place),
                                   shown(difference.place, first), shown(difference.place, second));
    const bool saysMore = first.title != first.value || second.title != second.value;
    if (!difference.place.isName() && saysMore)
        line += fmt::format(" (index {} -> {})", first.value, second.value);
    return line;
}

std::string changeLines(const std::vector<Difference>& list) {
    std::string lines;
    for (const Difference& difference : list)
        lines += changeLine(difference) + "\n";
    return lines;
}

std::string differencesJson(const std::vector<Difference>& list) {
    std::string json = "[";
    for (const Difference& difference : list)
        json += (json.size() == 1 ? "\n" : ",\n") + differenceJson(difference);
    return json + (list.empty() ? "]\n" : "\n]\n");
}

} // namespace scenewright
