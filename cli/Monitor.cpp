#include "cli/Monitor.h"

#include "model/Control.h"
#include "model/ControlOutput.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include <ctime>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

bool isFrequent(const MidiMessage& message) {
    return message.status == kClock || message.status == kActiveSensing;
}

// "2026-11-22T12:03:04.123", or from the hour on.
std::string timeText(Monitor::Clock::time_point now, const char* format) {
    const std::time_t seconds = Monitor::Clock::to_time_t(now);
    const auto part = std::chrono::duration_cast<std::chrono::milliseconds>(
        now - Monitor::Clock::from_time_t(seconds));
    std::tm local{};
    ::localtime_r(&seconds, &local);
    std::array<char, 32> text{};
    const std::size_t size = std::strftime(text.data(), text.size(), format, &local);
    return fmt::format("{}.{:03}", std::string_view(text.data(), size), part.count());
}

// As paths name them: "scene1.pad3".
std::vector<std::string> senders(const SceneList& bank, const MidiMessage& message) {
    std::vector<std::string> names;
    for (std::size_t scene = 0; scene < bank.size(); ++scene)
        for (const std::int32_t control : controlsSending(*bank[scene], message)) {
            const ControlRange& range = *controlRangeOf(control);
            names.push_back(
                fmt::format("scene{}.{}{}", scene + 1, range.name, control - range.start + 1));
        }
    return names;
}

} // namespace

Monitor::Monitor(Sequencer& sequencer, KeyboardConnections::Keyboards keyboards,
                 MonitorOptions options, Tell tell)
    : sequencer_(sequencer), keyboards_(std::move(keyboards)), options_(std::move(options)),
      tell_(std::move(tell)) {}

void Monitor::start() {
    listen();
}

std::string Monitor::take(Clock::time_point now) {
    const SequencerInput input = sequencer_.take();
    std::string lines;
    for (const SequencerInput::Message& each : input.messages)
        if (options_.showsAll || !isFrequent(each.message))
            lines += line(each.message, now);
    if (input.isIncomplete)
        tell_("more came than could be taken at once, and some of it is lost");
    if (input.hasChanged || input.isIncomplete)
        listen();
    return lines;
}

void Monitor::listen() {
    std::vector<std::string> names;
    for (const auto& [port, keyboard] : portsOf(sequencer_.ports(), keyboards_())) {
        if (!port.sends)
            continue;
        if (const auto listening = sequencer_.listenTo(port.address); listening)
            names.push_back(port.portName);
        else
            tell_(listening.error());
    }
    const std::string sentence =
        names.empty() ? "no MIDI port of a keyboard of the list is there; waiting for one"
                      : fmt::format("listening to {}", fmt::join(names, ", "));
    if (std::exchange(told_, sentence) != sentence)
        tell_(sentence);
}

std::string Monitor::line(const MidiMessage& message, Clock::time_point now) const {
    const std::string words = messageText(message, options_.noteNames);
    const auto controls = senders(options_.bank, message);
    if (!options_.asJson) {
        const std::string told =
            controls.empty() ? "-" : fmt::format("{}", fmt::join(controls, " "));
        return fmt::format("{}  {}{}\n", timeText(now, "%H:%M:%S"), words,
                           options_.hasBank ? "  " + told : "");
    }
    nlohmann::ordered_json object;
    object["time"] = timeText(now, "%Y-%m-%dT%H:%M:%S");
    object["text"] = words;
    object["status"] = message.status;
    object["data"] = {message.first, message.second};
    if (options_.hasBank)
        object["controls"] = controls;
    return object.dump() + "\n";
}

} // namespace scenewright
