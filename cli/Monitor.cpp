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
