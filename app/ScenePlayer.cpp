#include "app/ScenePlayer.h"

#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace scenewright {

ScenePlayer::ScenePlayer(Bank bank, Send send) : bank_(std::move(bank)), send_(std::move(send)) {}

ScenePlayer::~ScenePlayer() {
    releaseAll();
}

void ScenePlayer::play(const PlayOrder& order, PlayingTime now) {
    if (order.kind == PlayOrder::Kind::Scene)
        releaseAll();
    send(playing_.take(order, bank_(), now));
}

void ScenePlayer::advance(PlayingTime now) {
    if (next())
        send(playing_.advance(bank_(), now));
}

void ScenePlayer::releaseAll() {
    send(playing_.releaseAll());
}

void ScenePlayer::send(const Playing::Messages& messages) const {
    for (const MidiMessage& message : messages)
        send_(message);
}

Result<std::unique_ptr<Sequencer>> PlayPort::openMachines() {
    return openSequencer(kName, SequencerUse::Sending);
}

PlayPort::PlayPort(std::unique_ptr<Sequencer> sequencer) : sequencer_(std::move(sequencer)) {
    refresh({});
}

bool PlayPort::process() {
    const SequencerInput input = sequencer_->take();
    return (input.hasChanged || input.isIncomplete) && refresh(input.ended);
}

std::string PlayPort::address() const {
    return fmt::format("{}:{}", own_.client, own_.port);
}

bool PlayPort::refresh(const std::vector<PortAddress>& ended) {
    const auto ports = sequencer_->ports();
    if (const auto own = std::ranges::find(ports, true, &SequencerPort::isOwn); own != ports.end())
        own_ = own->address;
    std::vector<PortAddress> listeners;
    names_.clear();
    for (const PortConnection& connection : sequencer_->connectionsOf(own_)) {
        const auto other = std::ranges::find(ports, connection.to, &SequencerPort::address);
        if (connection.from != own_ || other == ports.end())
            continue;
        listeners.push_back(connection.to);
        names_.push_back(readableText(other->clientName));
    }
    const auto former = std::exchange(listeners_, std::move(listeners));
    return std::ranges::any_of(former, [&](PortAddress each) {
        return std::ranges::find(listeners_, each) == listeners_.end() ||
               std::ranges::find(ended, each) != ended.end();
    });
}

} // namespace scenewright
