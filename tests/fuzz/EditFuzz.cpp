// Changes by path: the first byte says whether the lines behind it are assignments to carry out,
// two paths to copy between, or a path to fill, with what and by which intervals. The scenes that
// go in never change, a refused change changes nothing, and a change that is made again changes
// nothing more.
#include "bank/BankFile.h"
#include "bank/Edit.h"
#include "bank/Fill.h"
#include "bank/SettingText.h"
#include "tests/fuzz/Checks.h"
#include "tests/fuzz/Input.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace scenewright::fuzz {

namespace {

using Edition = std::function<Result<SceneList>(const SceneList&)>;

// What was made, or nothing when it was refused.
std::optional<SceneList> checkEdit(const Edition& edit, const SceneList& scenes) {
    const BankImage before = encodeBank(scenes);
    const auto edited = edit(scenes);
    check(encodeBank(scenes) == before, "the scenes that went in have changed");
    if (!edited) {
        checkSentence(edited.error());
        return std::nullopt;
    }
    const auto again = edit(*edited);
    check(again.has_value(), "taken once and refused the second time");
    BankImage second = encodeBank(*again);
    if (faultIsPlanted())
        second.back() ^= 1U;
    check(second == encodeBank(*edited), "the same change changes more the second time");
    return *edited;
}

// Every value that stands there can be given by what it is shown as.
void checkShownValues(const SceneList& scenes, const Path& path) {
    for (const SettingPlace& place : settingsAt(path)) {
        const SceneValue& scene = *scenes.at(static_cast<std::size_t>(place.scene));
        const SettingText shown = settingText(optionLists(), scene, place);
        const std::vector<std::string> byValue{assignmentOf(place, shown)};
        const auto edited = setValues(optionLists(), scenes, byValue);
        check(edited && encodeBank(*edited) == encodeBank(scenes),
              "a value cannot be set to what it is shown as");
        const std::vector<std::string> byTitle{pathOf(place) + "=title:" + shown.title};
        check(shown.title.empty() || setValues(optionLists(), scenes, byTitle),
              "a title that is shown cannot be set");
    }
}

void fuzzSet(const std::vector<std::string>& lines) {
    const SceneList scenes = defaultScenes();
    const auto set = [&](const SceneList& list) { return setValues(optionLists(), list, lines); };
    const auto made = checkEdit(set, scenes);
    if (!made)
        return;
    const auto first = parsePath(lines.front().substr(0, lines.front().find('=')));
    check(first.has_value(), "an assignment without a path was taken");
    if (settingsAt(*first).size() == 1)
        checkShownValues(*made, *first);
}

// Every setting counts, though the defaults are much alike.
SceneList distinctScenes() {
    SceneList scenes = defaultScenes();
    std::int32_t value = 0;
    for (const SettingPlace& place : allSettings(4))
        if (!place.isName())
            place.setting->write(*scenes[static_cast<std::size_t>(place.scene)], place.control,
                                 value++ % 127);
    return scenes;
}

void fuzzCopy(std::string_view from, std::string_view to) {
    const SceneList scenes = distinctScenes();
    const auto copy = [&](const SceneList& list) {
        return copyValues(optionLists(), list, list, from, to);
    };
    const auto made = checkEdit(copy, scenes);
    if (!made)
        return;
    const auto target = settingsAt(*parsePath(to));
    for (const SettingPlace& place : allSettings(4)) {
        const auto scene = static_cast<std::size_t>(place.scene);
        if (std::ranges::find(target, place) == target.end())
            check(settingText(optionLists(), *scenes[scene], place).value ==
                      settingText(optionLists(), *(*made)[scene], place).value,
                  "a setting outside the target has changed");
    }
}

void fuzzFill(const std::vector<std::string>& lines) {
    FillSteps steps;
    if (lines.size() > 2)
        steps.intervals = intervalsOf(lines[2]);
    const auto fill = [&](const SceneList& list) {
        return fillValues(optionLists(), list, lines.front(), lines.size() > 1 ? lines[1] : "",
                          steps)
            .map_error([](const FillError& error) { return error.text; });
    };
    if (const auto made = checkEdit(fill, defaultScenes()))
        for (const SettingPlace& place : settingsAt(*parsePath(lines.front())))
            check(
                !settingText(optionLists(), *(*made)[static_cast<std::size_t>(place.scene)], place)
                     .title.empty(),
                "filled with what the list does not have");
}

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright::fuzz;
    Input input(data, size);
    const auto edit = input.below(3);
    const std::vector<std::string> lines = split(textOf(input.rest()), '\n');
    if (edit == 0)
        fuzzSet(lines);
    else if (edit == 1)
        fuzzCopy(lines.front(), lines.size() > 1 ? lines[1] : "");
    else
        fuzzFill(lines);
    return 0;
}
