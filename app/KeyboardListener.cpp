#include "app/KeyboardListener.h"

#include "platform/Text.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <utility>

namespace scenewright {

bool isFrequent(const MidiMessage& message) {
    return message.status == kClock || message.status == kActiveSensing;
}

Result<std::unique_ptr<Sequencer>> openListening(const Keyboards& keyboards,
                                                 const std::string& name) {
    return keyboards.checkChosen().and_then([&name] { return openSequencer(name); });
}

KeyboardListener::KeyboardListener(Sequencer& sequencer, KeyboardConnections::Keyboards keyboards,
                                   Tell tell)
    : sequencer_(sequencer), keyboards_(std::move(keyboards)), tell_(std::move(tell)) {}

std::vector<MidiMessage> KeyboardListener::take() {
    const SequencerInput input = sequencer_.take();
    std::vector<MidiMessage> messages;
    messages.reserve(input.messages.size());
    for (const SequencerInput::Message& each : input.messages)
        messages.push_back(each.message);
    if (input.isIncomplete)
        tell_(translated(
            sourceText("scenewright::Listening",
                       "more came than could be taken at once, and some of it is lost")));
    if (input.hasChanged || input.isIncomplete)
        listen();
    return messages;
}

bool KeyboardListener::listen() {
    std::vector<std::string> names;
    std::vector<std::string> refusals;
    for (const auto& [port, keyboard] : portsOf(sequencer_.ports(), keyboards_())) {
        if (!port.sends)
            continue;
        if (const auto listening = sequencer_.listenTo(port.address); listening)
            names.push_back(port.portName);
        else
            refusals.push_back(listening.error());
    }
    if (!names.empty() || refusals.empty())
        tellPorts(names);
    std::ranges::for_each(refusals, tell_); // the last that is told says why start() is false
    return refusals.empty();
}

void KeyboardListener::tellPorts(const std::vector<std::string>& names) {
    const std::string sentence =
        names.empty() ? translated(sourceText(
                            "scenewright::Listening",
                            "no MIDI port of a keyboard of the list is there; waiting for one"))
                      : translated(sourceText("scenewright::Listening", "listening to {}"),
                                   fmt::format("{}", fmt::join(names, ", ")));
    if (std::exchange(told_, sentence) != sentence)
        tell_(sentence);
}

} // namespace scenewright
