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

#include <fmt/format.h>

#include <charconv>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

std::string lineOf(const PopUpValue& lists, const SceneList& scenes, const SettingPlace& place) {
    const SettingText text =
        settingText(lists, *scenes.at(static_cast<std::size_t>(place.scene)), place);
    return assignmentOf(place, text) + (text.title.empty() ? "" : "\t" + text.title) + "\n";
}

// A line as lineOf() writes it for each option that the setting has; none for a name.
std::string optionLines(const PopUpValue& lists, const SceneList& scenes,
                        const SettingPlace& place) {
    std::string lines;
    const Titles titles = titlesAt(lists, place, *scenes.at(static_cast<std::size_t>(place.scene)));
    for (std::size_t index = 0; titles != nullptr && index < titles->size(); ++index)
        lines += assignmentOf(place, {std::to_string(index), titles->at(index)}) + "\t" +
                 titles->at(index) + "\n";
    return lines;
}

int get(const std::string& name, const std::vector<std::string>& paths, bool isOfOptions) {
    std::vector<SettingPlace> places;
    for (const std::string& text : paths) {
        const auto path = parsePath(text);
        if (!path)
            return reportError(path.error(), kExitUsage);
        const auto more = settingsAt(*path);
        places.insert(places.end(), more.begin(), more.end());
    }
    const auto bank = loadBank(name);
    if (!bank)
        return reportError(bank.error(), kExitUsage);
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    std::string text;
    for (const SettingPlace& place : places)
        text += (isOfOptions ? optionLines : lineOf)(**lists, bank->scenes, place);
    return printAndEnd(text, kExitDone);
}

int set(const std::string& name, const std::vector<std::string>& assignments) {
    return changeBankAndTell(name, [&](const PopUpValue& lists, const SceneList& scenes) {
        return setValues(lists, scenes, assignments);
    });
}

struct CopyOptions {
    std::string bank;
    std::string from;
    std::string to;
    std::string source; // empty for the bank itself
};

int copy(const CopyOptions& options) {
    if (inputDescriptor(options.bank) &&
        inputDescriptor(options.bank) == inputDescriptor(options.source))
        return reportError("standard input can be the bank or what is copied from, not both",
                           kExitUsage);
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    return changeBank(options.bank, [&](const BankFile& bank) {
        const auto source =
            options.source.empty() ? Result<BankFile>(bank) : loadBankOrScene(options.source);
        return source.and_then([&](const BankFile& from) {
            return copyValues(**lists, from.scenes, bank.scenes, options.from, options.to);
        });
    });
}

// The path of a scene, which may also be given by its number alone.
std::string scenePath(const std::string& text) {
    const bool isNumber = text.size() == 1 && text >= "1" && text <= std::to_string(kSceneCount);
    return isNumber ? "scene" + text : text;
}

int rename(const std::string& name, const std::string& scene, const std::string& newName) {
    return changeBankAndTell(name, [&](const PopUpValue& /*lists*/, const SceneList& scenes) {
        return renameScene(scenes, scenePath(scene), newName);
    });
}

int swap(const std::string& name, const std::string& first, const std::string& second) {
    return changeBank(name, [&](const BankFile& bank) {
        return swapValues(bank.scenes, scenePath(first), scenePath(second));
    });
}

int reset(const std::string& name, const std::string& path) {
    const SceneList defaults = WindowAction::defaultScenes();
    if (const auto checked = checkDefaultScenes(defaults); !checked)
        return reportError(checked.error(), kExitUsage);
    return changeBankAndTell(name, [&](const PopUpValue& lists, const SceneList& scenes) {
        return copyValues(lists, defaults, scenes, scenePath(path), scenePath(path));
    });
}

} // namespace

CommandChoice getCommand(const Arguments& arguments) {
    const std::string bank = arguments.text("BANK");
    return {
        .run = [bank, paths = arguments.texts("PATH"),
                isOfOptions = arguments.has("--options")] { return get(bank, paths, isOfOptions); },
        .files = {bankToRead(bank, "the bank that is to be read")}};
}

CommandChoice setCommand(const Arguments& arguments) {
    const std::string bank = arguments.text("BANK");
    return {.run = [bank, all = arguments.texts("ASSIGNMENT")] { return set(bank, all); },
            .files = {bankToChange(bank)}};
}

CommandChoice copyCommand(const Arguments& arguments) {
    const CopyOptions options{.bank = arguments.text("BANK"),
                              .from = arguments.text("FROM"),
                              .to = arguments.text("TO"),
                              .source = arguments.text("--from")};
    return {
        .run = [options] { return copy(options); },
        .files = {bankToRead(options.source, "what is to be copied"), bankToChange(options.bank)}};
}

CommandChoice renameCommand(const Arguments& arguments) {
    const std::string bank = arguments.text("BANK");
    return {.run = [bank, scene = arguments.text("SCENE"),
                    name = arguments.text("NAME")] { return rename(bank, scene, name); },
            .files = {bankToChange(bank)}};
}

CommandChoice swapCommand(const Arguments& arguments) {
    const std::string bank = arguments.text("BANK");
    return {.run = [bank, first = arguments.text("FIRST"),
                    second = arguments.text("SECOND")] { return swap(bank, first, second); },
            .files = {bankToChange(bank)}};
}

CommandChoice resetCommand(const Arguments& arguments) {
    const std::string bank = arguments.text("BANK");
    return {.run = [bank, path = arguments.text("PATH")] { return reset(bank, path); },
            .files = {bankToChange(bank)}};
}

namespace {

using Change = std::function<FilledScenes(const PopUpValue& lists, const SceneList& scenes)>;

int change(const std::string& name, const Change& change) {
    return changeBankAndTell(name, [&](const PopUpValue& lists, const SceneList& scenes) {
        return change(lists, scenes).map_error([](const FillError& error) { return error.text; });
    });
}

struct FillOptions {
    std::string bank;
    std::string path;
    std::string start;
    std::string scale;
    std::optional<int> step;
    std::string intervals;
};

Result<FillSteps> stepsOf(const FillOptions& options) {
    FillSteps steps;
    if (const Scale* const scale = findScale(options.scale))
        return stepsOf(*scale);
    if (options.step) {
        steps.intervals = Intervals{*options.step};
    } else if (!options.intervals.empty()) {
        steps.intervals = intervalsOf(options.intervals);
        if (!steps.intervals)
            return failure("--intervals: whole numbers with commas between were expected, as in "
                           "2,2,3");
    }
    return steps;
}

int fill(const FillOptions& options) {
    const auto steps = stepsOf(options);
    if (!steps)
        return reportError(steps.error(), kExitUsage);
    return change(options.bank, [&](const PopUpValue& lists, const SceneList& scenes) {
        return fillValues(lists, scenes, options.path, options.start, *steps);
    });
}

// "12", "+12", "-5"; nothing for anything else.
std::optional<int> semitonesOf(std::string_view text) {
    const std::string_view digits = text.substr(text.starts_with('+') ? 1 : 0);
    int semitones = 0;
    const char* const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, semitones);
    const bool isWhole = result.ec == std::errc() && result.ptr == end && !text.starts_with("+-");
    return isWhole && semitones >= -kLargestSettingValue && semitones <= kLargestSettingValue
               ? std::optional(semitones)
               : std::nullopt;
}

int transpose(const std::string& bank, const std::string& path, const std::string& text) {
    const auto semitones = semitonesOf(text);
    if (!semitones)
        return reportError("SEMITONES must be a whole number from -127 to 127, as in +12",
                           kExitUsage);
    return change(bank, [&](const PopUpValue& lists, const SceneList& scenes) {
        return transposeNotes(lists, scenes, path, *semitones);
    });
}

} // namespace

CommandChoice fillCommand(const Arguments& arguments) {
    const FillOptions options{.bank = arguments.text("BANK"),
                              .path = arguments.text("PATH"),
                              .start = arguments.text("START"),
                              .scale = arguments.text("--scale"),
                              .step = arguments.number("--step"),
                              .intervals = arguments.text("--intervals")};
    return {.run = [options] { return fill(options); }, .files = {bankToChange(options.bank)}};
}

CommandChoice transposeCommand(const Arguments& arguments) {
    const std::string bank = arguments.text("BANK");
    return {.run = [bank, path = arguments.text("PATH"),
                    semitones =
                        arguments.text("SEMITONES")] { return transpose(bank, path, semitones); },
            .files = {bankToChange(bank)}};
}

} // namespace scenewright
