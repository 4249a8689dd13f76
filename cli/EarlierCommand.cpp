// The command earlier: what reads, opened files and sends have replaced.
#include "app/Earlier.h"
#include "bank/BankJson.h"
#include "bank/Difference.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Reports.h"
#include "cli/Transaction.h"
#include "model/PopUpValue.h"

#include <fmt/chrono.h>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include <ctime>
#include <optional>
#include <string>
#include <vector>

namespace scenewright {

namespace {

constexpr int kIndent = 2;

struct EarlierOptions {
    std::string action;
    std::optional<int> number; // from 1, the newest
    bool isJson = false;
};

std::string timeText(const EarlierScenes::Entry& entry) {
    return fmt::format("{:%Y-%m-%d %H:%M:%S}",
                       fmt::localtime(EarlierScenes::Clock::to_time_t(entry.kept)));
}

std::string listLines(const std::vector<EarlierScenes::Entry>& entries) {
    std::string text;
    for (std::size_t place = 0; place < entries.size(); ++place) {
        const EarlierScenes::Entry& entry = entries[place];
        const std::string reason = reasonText(entry.occasion);
        text += fmt::format("{:>4}  {}  {}\n      {}\n", place + 1, timeText(entry),
                            reason.empty() ? "-" : reason, fmt::join(entry.names(), ", "));
    }
    return text;
}

std::string listJson(const std::vector<EarlierScenes::Entry>& entries) {
    using Json = nlohmann::ordered_json;
    auto array = Json::array();
    for (std::size_t place = 0; place < entries.size(); ++place) {
        const EarlierScenes::Entry& entry = entries[place];
        const std::tm utc = fmt::gmtime(EarlierScenes::Clock::to_time_t(entry.kept));
        array.push_back({{"number", place + 1},
                         {"kept", fmt::format("{:%Y-%m-%dT%H:%M:%SZ}", utc)},
                         {"reason", reasonText(entry.occasion)},
                         {"keyboard", entry.occasion.keyboard},
                         {"names", entry.names()}});
    }
    return array.dump(kIndent, ' ', false, Json::error_handler_t::replace) + "\n";
}

int show(const PopUpValue& lists, const SceneList& scenes, bool isJson) {
    if (isJson)
        return printAndEnd(writeBankJson(scenes, lists), kExitDone);
    std::string text;
    int number = 0;
    for (const auto& scene : scenes)
        text += sceneTable(lists, *scene, ++number);
    return printAndEnd(text, kExitDone);
}

// What a restore would change.
int diff(const PopUpValue& lists, const SceneList& scenes, bool isJson) {
    const ControllerRead held = readController(DeviceOperation::Compare);
    if (!held.scenes)
        return held.exitCode;
    const auto list = differences(lists, *held.scenes, scenes);
    return printAndEnd(isJson ? differencesJson(list) : differenceLines(list), held.exitCode);
}

int runOn(const EarlierScenes::Entry& entry, const EarlierOptions& options) {
    if (options.action == "restore")
        return sendToController({.scenes = entry.scenes()});
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    return (options.action == "show" ? show : diff)(**lists, entry.scenes(), options.isJson);
}

int runEarlier(const EarlierOptions& options) {
    const auto entries = EarlierScenes().list();
    if (options.action == "list")
        return printAndEnd((options.isJson ? listJson : listLines)(entries), kExitDone);
    if (!options.number)
        return reportError("earlier " + options.action +
                               ": N is missing, the number that earlier "
                               "list gives",
                           kExitUsage);
    const auto place = static_cast<std::size_t>(*options.number) - 1;
    if (place >= entries.size())
        return reportError(fmt::format("earlier {}: there is no number {}; earlier list gives {}",
                                       options.action, *options.number, entries.size()),
                           kExitUsage);
    return runOn(entries[place], options);
}

} // namespace

CommandChoice earlierCommand(const Arguments& arguments) {
    const EarlierOptions options{.action = arguments.text("ACTION"),
                                 .number = arguments.number("N"),
                                 .isJson = arguments.has("--json")};
    return {.run = [options] { return runEarlier(options); },
            .usesController = options.action == "restore" || options.action == "diff"};
}

} // namespace scenewright
