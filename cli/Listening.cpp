#include "cli/Listening.h"

#include "app/KeyboardPorts.h"
#include "bank/SettingText.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "model/ControlOutput.h"
#include "model/PopUpValue.h"
#include "platform/Process.h"
#include "platform/Text.h"

#include <fmt/chrono.h>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <ctime>
#include <poll.h>
#include <string>
#include <sys/signalfd.h>
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

void tell(const std::string& sentence) {
    reportError(sentence, kExitDone);
}

int follow(Sequencer& sequencer, Monitor& monitor) {
    const Waiting waiting;
    if (!monitor.start())
        return kExitController;
    for (bool isToEnd = false; !isToEnd;) {
        isToEnd = waiting.wait(sequencer.descriptor()).isToEnd;
        const std::string lines = monitor.take(Monitor::Clock::now());
        if (!lines.empty())
            if (const auto printed = writeStandardOutput(lines); !printed)
                return reportError(printed.error(), kExitOutput);
    }
    return kExitDone;
}

int runMonitor(const Arguments& arguments) {
    const auto lists = readPopUpValue();
    if (!lists)
        return reportError(lists.error(), kExitUsage);
    MonitorOptions options{.asJson = arguments.has("--json"),
                           .showsAll = arguments.has("--all"),
                           .noteNames = (*lists)->pad_NoteNumber_Array()};
    if (const std::string name = arguments.text("--bank"); !name.empty()) {
        auto bank = loadBank(name);
        if (!bank)
            return reportError(bank.error(), kExitUsage);
        options.hasBank = true;
        options.bank = std::move(bank->scenes);
    }
    const Keyboards keyboards(arguments.text("--device"));
    const auto sequencer = openListening(keyboards, "Scenewright monitor");
    if (!sequencer)
        return reportError(sequencer.error(), kExitController);
    Monitor monitor(
        **sequencer, [&keyboards] { return heardKeyboards(keyboards); }, std::move(options), &tell);
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
    return {.run = &runMonitor,
            .files = {bankToRead(arguments.text("--bank"), "the bank whose controls are told")}};
}

namespace {

using Verdict = TryRun::Verdict;

// In the order of the verdicts.
constexpr std::array<std::string_view, 6> kVerdicts{"open",  "right",   "assumed",
                                                    "wrong", "skipped", "silent"};

std::string_view wordOf(Verdict verdict) {
    return kVerdicts.at(static_cast<std::size_t>(verdict));
}

constexpr int kExitWrong = 1; // a control sends something else

Result<void> print(Trial& trial) {
    const std::string results = trial.results();
    auto printed = results.empty() ? Result<void>{} : writeStandardOutput(results);
    for (const std::string& sentence : trial.words())
        tell(sentence);
    return printed;
}

int follow(Sequencer& sequencer, KeyboardListener& listener, Trial& trial) {
    const Waiting waiting;
    LineReader lines(STDIN_FILENO);
    for (;;) {
        if (const auto printed = print(trial); !printed)
            return reportError(printed.error(), kExitOutput);
        if (trial.isDone())
            return trial.hasWrong() ? kExitWrong : kExitDone;
        const auto come = waiting.wait(sequencer.descriptor(), lines.descriptor());
        for (const MidiMessage& message : listener.take())
            trial.take(message, std::chrono::steady_clock::now());
        if (come.hasLines)
            for (const auto& line : lines.take())
                if (const auto done = line.and_then(
                        [&trial](const std::string& order) { return trial.order(order); });
                    !done)
                    tell(done.error());
        if (come.isToEnd)
            static_cast<void>(trial.order("end"));
    }
}

int runTry(const Arguments& arguments) {
    const auto bank = loadShown(arguments.text("BANK"), &loadBank);
    if (!bank)
        return reportError(bank.error(), kExitUsage);
    const Keyboards keyboards(arguments.text("--device"));
    const auto sequencer = openListening(keyboards, "Scenewright try");
    if (!sequencer)
        return reportError(sequencer.error(), kExitController);
    KeyboardListener listener(
        **sequencer, [&keyboards] { return heardKeyboards(keyboards); }, &tell);
    if (!listener.start())
        return kExitController;
    std::vector<int> scenes{1, 2, 3, 4};
    if (const auto scene = arguments.number("--scene"))
        scenes = {*scene};
    Trial trial(
        bank->scenes, scenes,
        {.asJson = arguments.has("--json"), .noteNames = bank->lists->pad_NoteNumber_Array()});
    return follow(**sequencer, listener, trial);
}

} // namespace

Waiting::Waiting() {
    ::sigset_t ending{};
    sigemptyset(&ending);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action {};
        if (::sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN)
            sigaddset(&ending, signal);
    }
    signals_ = FileDescriptor(::signalfd(-1, &ending, SFD_CLOEXEC | SFD_NONBLOCK));
    if (signals_.isOpen()) // else they end the program as they end any
        pthread_sigmask(SIG_BLOCK, &ending, nullptr);
}

Waiting::Come Waiting::wait(int input, int lines,
                            std::optional<std::chrono::steady_clock::time_point> until) const {
    using std::chrono::milliseconds;
    milliseconds limit{-1};
    if (until)
        limit =
            std::max(milliseconds(0),
                     std::chrono::ceil<milliseconds>(*until - std::chrono::steady_clock::now()));
    std::array<pollfd, 3> places{
        {{input, POLLIN, 0}, {lines, POLLIN, 0}, {signals_.get(), POLLIN, 0}}};
    ::poll(places.data(), places.size(), static_cast<int>(limit.count()));
    return {.hasInput = places[0].revents != 0,
            .hasLines = places[1].revents != 0,
            .isToEnd = places[2].revents != 0};
}

Trial::Trial(SceneList bank, std::vector<int> scenes, Options options)
    : bank_(std::move(bank)), scenes_(std::move(scenes)), options_(std::move(options)),
      run_(SceneValue()) {
    begin();
    follow();
}

void Trial::take(const MidiMessage& message, Time now) {
    if (!isDone() && run_.take(message, now) != nullptr)
        follow();
}

Result<void> Trial::order(std::string_view line) {
    if (isDone())
        return {};
    if (line == "skip") {
        run_.skip();
    } else if (line == "again") {
        run_.again();
        told_ = std::min(told_, static_cast<std::size_t>(run_.next() - run_.rows().data()));
    } else if (line == "end") {
        run_.end();
        scenes_.resize(place_ + 1);
    } else {
        return failure(
            fmt::format("'{}' is no order: those are skip, again and end", readableText(line)));
    }
    follow();
    return {};
}

std::string Trial::results() {
    return std::exchange(results_, {});
}

std::vector<std::string> Trial::words() {
    return std::exchange(words_, {});
}

void Trial::begin() {
    const int scene = scenes_.at(place_);
    run_ = TryRun(*bank_.at(static_cast<std::size_t>(scene) - 1));
    told_ = 0;
    words_.push_back(fmt::format("choose scene {} on the keyboard", scene));
}

void Trial::follow() {
    for (tellDecided(); run_.next() == nullptr; tellDecided()) {
        hasWrong_ = hasWrong_ || run_.count(Verdict::Wrong) > 0;
        words_.push_back(fmt::format("scene {}: {}", scenes_[place_], reportText(run_)));
        if (++place_ == scenes_.size())
            return;
        begin();
    }
    words_.push_back(fmt::format("touch {}, which should send {}", pathOf(*run_.next()),
                                 expectedText(*run_.next(), options_.noteNames)));
}

void Trial::tellDecided() {
    const auto& rows = run_.rows();
    while (told_ < rows.size() && &rows[told_] != run_.next())
        if (const TryRun::Row& row = rows[told_++]; row.verdict != Verdict::Open)
            results_ += line(row);
}

std::string Trial::line(const TryRun::Row& row) const {
    const std::string text = verdictText(row, options_.noteNames);
    if (!options_.asJson)
        return fmt::format("{:<8} {:<15} {}\n", wordOf(row.verdict), pathOf(row), text);
    nlohmann::ordered_json object;
    object["control"] = pathOf(row);
    object["verdict"] = wordOf(row.verdict);
    if (row.expected)
        object["expected"] = expectedText(row, options_.noteNames);
    object["text"] = text;
    if (row.sent.status != 0) {
        object["status"] = row.sent.status;
        object["data"] = {row.sent.first, row.sent.second};
    }
    return object.dump() + "\n";
}

std::string Trial::pathOf(const TryRun::Row& row) const {
    return controlPath(scenes_[place_] - 1, row.control);
}

CommandChoice tryCommand(const Arguments& arguments) {
    return {.run = &runTry,
            .files = {bankToRead(arguments.text("BANK"), "the bank that is to be tried")}};
}

} // namespace scenewright
