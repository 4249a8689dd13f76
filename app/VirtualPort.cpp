#include "app/VirtualPort.h"

#include "usb/Transport.h"
#include "virtual/Playing.h"
#include "virtual/VirtualHost.h"

#include <chrono>
#include <utility>

namespace scenewright {

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
