#include "app/KeyboardPorts.h"

#include "platform/Files.h"
#include "platform/Resources.h"
#include "platform/Text.h"
#include "usb/Devices.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <set>
#include <span>
#include <system_error>
#include <utility>

namespace scenewright {

namespace {

using Json = nlohmann::json;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kMaxNote = std::size_t{1} << 20U; // bytes
constexpr int kSystemClient = 0;                        // the sequencer itself
constexpr KeyboardConnections::Milliseconds kLongestWait{100};

// Client numbers hold until then.
std::string systemStart() {
    std::string id;
    std::getline(std::ifstream("/proc/sys/kernel/random/boot_id"), id);
    return id;
}

const SequencerPort* find(const std::vector<SequencerPort>& ports, PortAddress address) {
    const auto found = std::ranges::find(ports, address, &SequencerPort::address);
    return found == ports.end() ? nullptr : &*found;
}

// A member of the note of the type that is wanted; the default otherwise.
template <typename Value>
Value member(const Json& object, const char* name, Value byDefault) {
    const auto found = object.find(name);
    if (found == object.end())
        return byDefault;
    if constexpr (std::is_same_v<Value, std::string>)
        return found->is_string() ? found->get<std::string>() : byDefault;
    else if constexpr (std::is_same_v<Value, bool>)
        return found->is_boolean() ? found->get<bool>() : byDefault;
    else
        return found->is_number_integer() ? found->get<Value>() : byDefault;
}

} // namespace

std::vector<SoundKeyboard> soundKeyboards() {
    std::vector<SoundKeyboard> keyboards;
    const std::vector<DeviceIds> listed = deviceList();
    std::map<std::pair<std::int32_t, std::int32_t>, int> alike;
    for (const AttachedDevice& device : attachedDevices())
        if (std::ranges::find(listed, device.ids) != listed.end())
            keyboards.push_back(
                {.identity = fmt::format("{:04x}:{:04x}#{}", device.ids.vendor, device.ids.product,
                                         alike[{device.ids.vendor, device.ids.product}]++),
                 .card = soundCardOf(device.bus, device.address),
                 .port = device.port});
    return keyboards;
}

std::vector<SoundKeyboard> heardKeyboards(const Keyboards& keyboards) {
    std::vector<SoundKeyboard> heard = soundKeyboards();
    if (const auto port = keyboards.offeredPort())
        std::erase_if(heard, [&port](const SoundKeyboard& each) { return each.port != *port; });
    return heard;
}

std::vector<std::pair<SequencerPort, std::string>>
portsOf(const std::vector<SequencerPort>& ports, const std::vector<SoundKeyboard>& keyboards) {
    std::vector<std::pair<SequencerPort, std::string>> found;
    for (const SoundKeyboard& keyboard : keyboards)
        for (const SequencerPort& port : ports)
            if (keyboard.card && port.card == *keyboard.card)
                found.emplace_back(port, keyboard.identity);
    return found;
}

void restoreNotedConnections() {
    const auto file = KeyboardConnections::stateFile();
    std::error_code ignored;
    if (file && std::filesystem::exists(*file, ignored))
        KeyboardConnections(KeyboardConnections::sequencerIfAny())
            .restore(KeyboardConnections::kLimit);
}

std::unique_ptr<Sequencer> KeyboardConnections::sequencerIfAny() {
    auto opened = openSequencer("Scenewright connections");
    return opened ? std::move(*opened) : nullptr;
}

std::optional<std::filesystem::path> KeyboardConnections::stateFile() {
    return xdgFolder(XdgFolder::State, "connections.json");
}

KeyboardConnections::KeyboardConnections(std::unique_ptr<Sequencer> sequencer, Keyboards keyboards,
                                         std::optional<std::filesystem::path> file)
    : sequencer_(std::move(sequencer)), keyboards_(std::move(keyboards)), file_(std::move(file)) {
    if (!sequencer_)
        return;
    load();
    refresh();
}

int KeyboardConnections::descriptor() const {
    return sequencer_ ? sequencer_->descriptor() : -1;
}

void KeyboardConnections::process() {
    if (!sequencer_)
        return;
    const SequencerInput input = sequencer_->take();
    forgetEnded(input);
    if (input.hasChanged || input.isIncomplete)
        refresh();
}

// Of a port that has gone it cannot be asked any more what was connected to it. It may be back by
// now, and then without its connections.
void KeyboardConnections::forgetEnded(const SequencerInput& input) {
    if (input.isIncomplete)
        present_.clear();
    for (const PortAddress ended : input.ended)
        std::erase_if(present_, [ended](const auto& entry) {
            return std::ranges::find(entry.second, ended) != entry.second.end();
        });
}

void KeyboardConnections::beforeTransaction() {
    process();
    if (!noted_.empty())
        store();
}

void KeyboardConnections::restore(Milliseconds limit) {
    if (!sequencer_)
        return;
    const auto end = Clock::now() + limit;
    for (process(); isPending(); process()) {
        const auto keyboards = keyboards_();
        const bool isComing = std::ranges::any_of(keyboards, [this](const SoundKeyboard& each) {
            return noted_.contains(each.identity) && !present_.contains(each.identity);
        });
        const auto left = std::chrono::duration_cast<Milliseconds>(end - Clock::now());
        if (!isComing || left <= Milliseconds(0))
            return;
        sequencer_->wait(std::min(left, kLongestWait));
        refresh();
    }
}

bool KeyboardConnections::isPending() const {
    return std::ranges::any_of(noted_,
                               [this](const auto& each) { return !present_.contains(each.first); });
}

std::size_t KeyboardConnections::count() const {
    std::size_t count = 0;
    for (const auto& [keyboard, noted] : noted_)
        count += noted.size();
    return count;
}

void KeyboardConnections::refresh() {
    const Ports all = sequencer_->ports();
    std::map<std::string, Ports> there;
    for (const auto& [port, keyboard] : portsOf(all, keyboards_()))
        there[keyboard].push_back(port);
    std::erase_if(present_, [&there](const auto& each) { return !there.contains(each.first); });
    for (const auto& [keyboard, own] : there) {
        if (!present_.contains(keyboard) && noted_.contains(keyboard))
            makeAgain(noted_[keyboard], own, all);
        if (auto noted = current(own, all); noted.empty())
            noted_.erase(keyboard);
        else
            noted_[keyboard] = std::move(noted);
        auto& addresses = present_[keyboard];
        addresses.clear();
        std::ranges::transform(own, std::back_inserter(addresses), &SequencerPort::address);
    }
    if (hasNote_ && !isPending()) {
        std::error_code ignored;
        std::filesystem::remove(*file_, ignored);
        hasNote_ = false;
    }
}

std::vector<KeyboardConnections::Noted> KeyboardConnections::current(const Ports& own,
                                                                     const Ports& all) {
    std::vector<Noted> noted;
    for (const SequencerPort& port : own)
        for (const PortConnection& connection : sequencer_->connectionsOf(port.address)) {
            const bool isFrom = connection.from == port.address;
            const SequencerPort* const other = find(all, isFrom ? connection.to : connection.from);
            if (other != nullptr && !other->isOwn && other->address.client != kSystemClient)
                noted.push_back({.keyboardPort = port.address.port,
                                 .connection = connection,
                                 .isFromKeyboard = isFrom,
                                 .otherClient = readableText(other->clientName),
                                 .otherPort = readableText(other->portName)});
        }
    return noted;
}

void KeyboardConnections::makeAgain(const std::vector<Noted>& noted, const Ports& own,
                                    const Ports& all) {
    for (const Noted& each : noted) {
        const auto hasNames = [&each](const SequencerPort& port) {
            return !port.isOwn && readableText(port.clientName) == each.otherClient &&
                   readableText(port.portName) == each.otherPort;
        };
        const auto port = std::ranges::find_if(own, [&each](const SequencerPort& candidate) {
            return candidate.address.port == each.keyboardPort;
        });
        const PortAddress former = each.isFromKeyboard ? each.connection.to : each.connection.from;
        const SequencerPort* other = find(all, former);
        if (other == nullptr || !hasNames(*other)) {
            // Started anew since, perhaps, or plugged in anew.
            const auto named = std::ranges::find_if(all, hasNames);
            other = named == all.end() ? nullptr : &*named;
        }
        if (port == own.end() || other == nullptr)
            continue;
        PortConnection again = each.connection;
        again.from = each.isFromKeyboard ? port->address : other->address;
        again.to = each.isFromKeyboard ? other->address : port->address;
        // One that cannot be made is its program's to make.
        static_cast<void>(sequencer_->connect(again));
    }
}

void KeyboardConnections::store() {
    if (!file_)
        return;
    Json connections = Json::array();
    for (const auto& [keyboard, noted] : noted_)
        for (const Noted& each : noted) {
            const PortAddress other =
                each.isFromKeyboard ? each.connection.to : each.connection.from;
            connections.push_back({{"keyboard", keyboard},
                                   {"keyboardPort", each.keyboardPort},
                                   {"fromKeyboard", each.isFromKeyboard},
                                   {"client", other.client},
                                   {"port", other.port},
                                   {"clientName", each.otherClient},
                                   {"portName", each.otherPort},
                                   {"exclusive", each.connection.isExclusive},
                                   {"timeQueue", each.connection.timeQueue},
                                   {"realTime", each.connection.hasRealTime}});
        }
    const Json note{{"systemStart", systemStart()}, {"connections", std::move(connections)}};
    const std::string text = note.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
    std::error_code ignored;
    std::filesystem::create_directories(file_->parent_path(), ignored);
    // Without the file a kill in the middle costs the connections; nothing else depends on it.
    hasNote_ = replaceFile(*file_, FileContent(text.begin(), text.end())).has_value();
}

void KeyboardConnections::load() {
    std::error_code error;
    if (!file_ || !std::filesystem::is_regular_file(*file_, error))
        return;
    const auto bytes = readFile(*file_, kMaxNote);
    const Json note = bytes ? Json::parse(*bytes, nullptr, false) : Json();
    hasNote_ = true; // goes, whatever it holds
    if (!note.is_object() || member<std::string>(note, "systemStart", "") != systemStart())
        return;
    const Json connections = note.value("connections", Json::array());
    for (const Json& row : connections) {
        if (!row.is_object())
            continue;
        Noted noted{.keyboardPort = member(row, "keyboardPort", 0),
                    .connection = {.isExclusive = member(row, "exclusive", false),
                                   .timeQueue = member(row, "timeQueue", -1),
                                   .hasRealTime = member(row, "realTime", false)},
                    .isFromKeyboard = member(row, "fromKeyboard", false),
                    .otherClient = member<std::string>(row, "clientName", ""),
                    .otherPort = member<std::string>(row, "portName", "")};
        const PortAddress other{member(row, "client", -1), member(row, "port", -1)};
        (noted.isFromKeyboard ? noted.connection.to : noted.connection.from) = other;
        noted_[member<std::string>(row, "keyboard", "")].push_back(std::move(noted));
    }
}

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
