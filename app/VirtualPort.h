// The virtual controller of this process where a keyboard's MIDI port is otherwise: what is played
// on it, and a sequencer that hears it.
//
// It is the one that the transport has; without it nothing is held, played and heard. Main thread
// only.
#pragma once

#include "app/KeyboardConnections.h"
#include "model/MidiMessage.h"
#include "protocol/SceneImage.h"
#include "sequencer/Sequencer.h"

#include <functional>
#include <memory>
#include <vector>

namespace scenewright {

class VirtualPort {
public:
    VirtualPort() = delete;

    // What the controller holds.
    [[nodiscard]] static BankImage bank();
    // Dropped while a transaction has the controller, and where nobody listens.
    static void play(const MidiMessage& message);
    // A sequencer whose one port is the controller's; `ready` is called when there is something to
    // take. One at a time listens.
    [[nodiscard]] static std::unique_ptr<Sequencer> listen(std::function<void()> ready);
    // The controller, as the owner of that port.
    [[nodiscard]] static std::vector<SoundKeyboard> keyboards();
};

} // namespace scenewright
