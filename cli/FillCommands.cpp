// The commands that change many controls in a musical order: fill and transpose.
#include "bank/Fill.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "model/PopUpValue.h"
#include "model/Setting.h"

#include <charconv>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace scenewright {

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
