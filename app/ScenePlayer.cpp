#include "app/ScenePlayer.h"

#include "platform/Text.h"
#include "usb/Transport.h"
#include "virtual/VirtualController.h"
#include "virtual/VirtualHost.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
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

namespace {

constexpr int kCard = 0; // the only one

VirtualHost* virtualHost() {
    return dynamic_cast<VirtualHost*>(Transport::instance().host());
}

class VirtualSequencer final : public Sequencer {
public:
    explicit VirtualSequencer(std::function<void()> ready) : ready_(std::move(ready)) {
        listen([this](const Packet& packet) {
            input_.messages.push_back({PortAddress{}, {packet[1], packet[2], packet[3]}});
            ready_();
        });
    }
    ~VirtualSequencer() override { listen(nullptr); }
    VirtualSequencer(const VirtualSequencer&) = delete;
    VirtualSequencer& operator=(const VirtualSequencer&) = delete;
    VirtualSequencer(VirtualSequencer&&) = delete;
    VirtualSequencer& operator=(VirtualSequencer&&) = delete;

    [[nodiscard]] int descriptor() const override { return -1; }
    void wait(std::chrono::milliseconds /*limit*/) override {}
    [[nodiscard]] SequencerInput take() override { return std::exchange(input_, {}); }
    [[nodiscard]] std::vector<SequencerPort> ports() override {
        return {{.clientName = "Virtual controller",
                 .portName = "Virtual controller",
                 .card = kCard,
                 .sends = true}};
    }
    [[nodiscard]] std::vector<PortConnection> connectionsOf(PortAddress /*port*/) override {
        return {};
    }
    Result<void> connect(const PortConnection& /*connection*/) override { return {}; }
    Result<void> listenTo(PortAddress /*port*/) override { return {}; }
    Result<void> send(const MidiMessage& /*message*/) override { return {}; }

private:
    static void listen(VirtualHost::Listener listener) {
        if (VirtualHost* const host = virtualHost())
            host->setListener(std::move(listener));
    }

    std::function<void()> ready_;
    SequencerInput input_;
};

} // namespace

BankImage VirtualPort::bank() {
    const VirtualHost* const host = virtualHost();
    return host == nullptr ? BankImage{} : host->bank();
}

void VirtualPort::play(const MidiMessage& message) {
    if (VirtualHost* const host = virtualHost())
        host->play(packetOf(message));
}

std::unique_ptr<Sequencer> VirtualPort::listen(std::function<void()> ready) {
    return std::make_unique<VirtualSequencer>(std::move(ready));
}

std::vector<SoundKeyboard> VirtualPort::keyboards() {
    return {{.identity = "virtual", .card = kCard}};
}

} // namespace scenewright
