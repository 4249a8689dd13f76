#include "bank/Path.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Listening.h"
#include "model/ControlOutput.h"
#include "model/PopUpValue.h"

#include <fmt/chrono.h>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include <ctime>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

// "2026-11-22T12:03:04.123", or from the hour on.
std::string timeText(Monitor::Clock::time_point now, bool hasDay) {
    const std::tm local = fmt::localtime(Monitor::Clock::to_time_t(now));
    const auto part =
        std::chrono::floor<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
    return hasDay ? fmt::format("{:%Y-%m-%dT%H:%M:%S}.{:03}", local, part)
                  : fmt::format("{:%H:%M:%S}.{:03}", local, part);
}

std::vector<std::string> senders(const SceneList& bank, const MidiMessage& message) {
    std::vector<std::string> paths;
    for (std::size_t scene = 0; scene < bank.size(); ++scene)
        for (const std::int32_t control : controlsSending(*bank[scene], message))
            paths.push_back(controlPath(static_cast<std::int32_t>(scene), control));
    return paths;
}

int follow(Sequencer& sequencer, Monitor& monitor) {
    const Waiting waiting;
    if (!monitor.start())
        return kExitController;
    for (bool isToEnd = false; !isToEnd;) {
        isToEnd = waiting.wait(sequencer.descriptor()).isToEnd;
        const std::string lines = monitor.take(Monitor::Clock::now());
        if (!lines.empty())
            if (const auto printed = printOut(lines); !printed)
                return reportError(printed.error(), kExitOutput);
    }
    return kExitDone;
}

// The options are without the bank and the names; those of a bank and of a device may be empty.
int runMonitor(const std::string& bankName, const std::string& device, MonitorOptions options) {
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    options.noteNames = (*lists)->pad_NoteNumber_Array();
    options.hasBank = !bankName.empty();
    if (options.hasBank) {
        auto bank = loadBank(bankName);
        if (!bank)
            return reportError(bank.error(), kExitUsage);
        options.bank = std::move(bank->scenes);
    }
    const Keyboards keyboards(device);
    const auto sequencer = openListening(keyboards, "Scenewright monitor");
    if (!sequencer)
        return reportError(sequencer.error(), kExitController);
    Monitor monitor(
        **sequencer, [&keyboards] { return heardKeyboards(keyboards); }, std::move(options),
        [](const std::string& sentence) { reportError(sentence, 0); });
    return follow(**sequencer, monitor);
}

} // namespace

Monitor::Monitor(Sequencer& sequencer, KeyboardConnections::Keyboards keyboards,
                 MonitorOptions options, KeyboardListener::Tell tell)
    : listener_(sequencer, std::move(keyboards), std::move(tell)), options_(std::move(options)) {}

std::string Monitor::take(Clock::time_point now) {
    std::string lines;
    for (const MidiMessage& message : listener_.take())
        if (options_.showsAll || !isFrequent(message))
            lines += line(message, now);
    return lines;
}

std::string Monitor::line(const MidiMessage& message, Clock::time_point now) const {
    const std::string words = messageText(message, options_.noteNames);
    const auto controls = senders(options_.bank, message);
    if (!options_.asJson) {
        const std::string told =
            controls.empty() ? "-" : fmt::format("{}", fmt::join(controls, " "));
        return fmt::format("{}  {}{}\n", timeText(now, false), words,
                           options_.hasBank ? "  " + told : "");
    }
    nlohmann::ordered_json object;
    object["time"] = timeText(now, true);
    object["text"] = words;
    object["status"] = message.status;
    object["data"] = {message.first, message.second};
    if (options_.hasBank)
        object["controls"] = controls;
    return object.dump() + "\n";
}

CommandChoice monitorCommand(const Arguments& arguments) {
    const MonitorOptions options{.asJson = arguments.has("--json"),
                                 .showsAll = arguments.has("--all")};
    const std::string bank = arguments.text("--bank");
    CommandChoice choice{.run = [bank, device = arguments.text("--device"), options] {
        return runMonitor(bank, device, options);
    }};
    if (!bank.empty())
        choice.files = {bankToRead(bank, "the bank whose controls are told")};
    return choice;
}

} // namespace scenewright
