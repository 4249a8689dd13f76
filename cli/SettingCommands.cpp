// The commands on settings by their paths: get, set, copy, swap, reset and rename, and those that
// change many controls in a musical order: fill and transpose.
#include "app/Launch.h"
#include "app/WindowAction.h"
#include "bank/Edit.h"
#include "bank/Fill.h"
#include "bank/SettingText.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "model/PopUpValue.h"
#include "model/Setting.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

std::string lineOf(const PopUpValue& lists, const SceneList& scenes, const SettingPlace& place) {
    const SettingText text = settingText(lists, sceneAt(scenes, place), place);
    return assignmentOf(place, text) + (text.title.empty() ? "" : "\t" + text.title) + "\n";
}

// A line as lineOf() writes it for each option that the setting has; none for a name.
std::string optionLines(const PopUpValue& lists, const SceneList& scenes,
                        const SettingPlace& place) {
    std::string lines;
    const Titles titles = titlesAt(lists, place, sceneAt(scenes, place));
    for (std::size_t index = 0; titles != nullptr && index < titles->size(); ++index)
        lines += assignmentOf(place, {std::to_string(index), titles->at(index)}) + "\t" +
                 titles->at(index) + "\n";
    return lines;
}

int get(const Arguments& arguments) {
    std::vector<SettingPlace> places;
    for (const std::string& text : arguments.texts("PATH")) {
        const auto path = parsePath(text);
        if (!path)
            return reportError(path.error(), kExitUsage);
        const auto more = settingsAt(*path);
        places.insert(places.end(), more.begin(), more.end());
    }
    const auto bank = loadShown(arguments.text("BANK"), &loadBank);
    if (!bank)
        return reportError(bank.error(), kExitUsage);
    std::string text;
    for (const SettingPlace& place : places)
        text +=
            (arguments.has("--options") ? optionLines : lineOf)(*bank->lists, bank->scenes, place);
    return printAndEnd(text, kExitDone);
}

int set(const Arguments& arguments) {
    return changeBankAndTell(arguments.text("BANK"),
                             [&](const PopUpValue& lists, const SceneList& scenes) {
                                 return setValues(lists, scenes, arguments.texts("ASSIGNMENT"));
                             });
}

int copy(const Arguments& arguments) {
    const std::string bank = arguments.text("BANK");
    const std::string source = arguments.text("--from"); // empty for the bank itself
    if (inputDescriptor(bank) && inputDescriptor(bank) == inputDescriptor(source))
        return reportError("standard input can be the bank or what is copied from, not both",
                           kExitUsage);
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    return changeBank(bank, [&](const BankFile& former) {
        const auto origin = source.empty() ? Result<BankFile>(former) : loadBankOrScene(source);
        return origin.and_then([&](const BankFile& from) {
            return copyValues(**lists, from.scenes, former.scenes, arguments.text("FROM"),
                              arguments.text("TO"));
        });
    });
}

// The path of a scene, which may also be given by its number alone.
std::string scenePath(const std::string& text) {
    const bool isNumber = text.size() == 1 && text >= "1" && text <= std::to_string(kSceneCount);
    return isNumber ? "scene" + text : text;
}

int rename(const Arguments& arguments) {
    return changeBankAndTell(
        arguments.text("BANK"), [&](const PopUpValue& /*lists*/, const SceneList& scenes) {
            return renameScene(scenes, scenePath(arguments.text("SCENE")), arguments.text("NAME"));
        });
}

int swap(const Arguments& arguments) {
    return changeBank(arguments.text("BANK"), [&](const BankFile& bank) {
        return swapValues(bank.scenes, scenePath(arguments.text("FIRST")),
                          scenePath(arguments.text("SECOND")));
    });
}

int reset(const Arguments& arguments) {
    const SceneList defaults = WindowAction::defaultScenes();
    if (const auto checked = checkDefaultScenes(defaults); !checked)
        return reportError(checked.error(), kExitUsage);
    const std::string path = scenePath(arguments.text("PATH"));
    return changeBankAndTell(arguments.text("BANK"),
                             [&](const PopUpValue& lists, const SceneList& scenes) {
                                 return copyValues(lists, defaults, scenes, path, path);
                             });
}

using Change = std::function<FilledScenes(const PopUpValue& lists, const SceneList& scenes)>;

int change(const std::string& name, const Change& change) {
    return changeBankAndTell(name, [&](const PopUpValue& lists, const SceneList& scenes) {
        return change(lists, scenes).map_error([](const FillError& error) { return error.text; });
    });
}

Result<FillSteps> stepsOf(const Arguments& arguments) {
    FillSteps steps;
    if (const Scale* const scale = findScale(arguments.text("--scale")))
        return stepsOf(*scale);
    if (const auto step = arguments.number("--step")) {
        steps.intervals = Intervals{*step};
    } else if (const std::string intervals = arguments.text("--intervals"); !intervals.empty()) {
        steps.intervals = intervalsOf(intervals);
        if (!steps.intervals)
            return failure("--intervals: whole numbers with commas between were expected, as in "
                           "2,2,3");
    }
    return steps;
}

int fill(const Arguments& arguments) {
    const auto steps = stepsOf(arguments);
    if (!steps)
        return reportError(steps.error(), kExitUsage);
    return change(arguments.text("BANK"), [&](const PopUpValue& lists, const SceneList& scenes) {
        return fillValues(lists, scenes, arguments.text("PATH"), arguments.text("START"), *steps);
    });
}

// "12", "+12", "-5"; nothing for anything else.
std::optional<int> semitonesOf(std::string_view text) {
    if (text.starts_with("+-"))
        return std::nullopt;
    return numberWithin(text.substr(text.starts_with('+') ? 1 : 0), -kLargestSettingValue,
                        kLargestSettingValue);
}

int transpose(const Arguments& arguments) {
    const auto semitones = semitonesOf(arguments.text("SEMITONES"));
    if (!semitones)
        return reportError("SEMITONES must be a whole number from -127 to 127, as in +12",
                           kExitUsage);
    return change(arguments.text("BANK"), [&](const PopUpValue& lists, const SceneList& scenes) {
        return transposeNotes(lists, scenes, arguments.text("PATH"), *semitones);
    });
}

CommandChoice changing(const Arguments& arguments, int (*run)(const Arguments&)) {
    return {.run = run, .files = {bankToChange(arguments.text("BANK"))}};
}

} // namespace

CommandChoice getCommand(const Arguments& arguments) {
    return {.run = &get,
            .files = {bankToRead(arguments.text("BANK"), "the bank that is to be read")}};
}

CommandChoice setCommand(const Arguments& arguments) {
    return changing(arguments, &set);
}

CommandChoice copyCommand(const Arguments& arguments) {
    return {.run = &copy,
            .files = {bankToRead(arguments.text("--from"), "what is to be copied"),
                      bankToChange(arguments.text("BANK"))}};
}

CommandChoice renameCommand(const Arguments& arguments) {
    return changing(arguments, &rename);
}

CommandChoice swapCommand(const Arguments& arguments) {
    return changing(arguments, &swap);
}

CommandChoice resetCommand(const Arguments& arguments) {
    return changing(arguments, &reset);
}

CommandChoice fillCommand(const Arguments& arguments) {
    return changing(arguments, &fill);
}

CommandChoice transposeCommand(const Arguments& arguments) {
    return changing(arguments, &transpose);
}

} // namespace scenewright
