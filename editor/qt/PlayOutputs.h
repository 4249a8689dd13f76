// What can be played into from the window, and the virtual controller as its keyboard.
#pragma once

#include "app/ScenePlayer.h"
#include "editor/qt/KeyboardInput.h"
#include "editor/qt/PlayBar.h"

#include <memory>

namespace scenewright {

// A port of ours that other programs connect to; what is played are the scenes of the window.
[[nodiscard]] Result<std::unique_ptr<PlayOutput>>
openPlayPort(const KeyboardInput::Open& open = &PlayPort::openMachines);

// The virtual controller, and the scenes that it holds.
[[nodiscard]] std::unique_ptr<PlayOutput> makeVirtualOutput();

// From here on what the virtual controller sends comes in.
void listenToVirtual(KeyboardInput& input);

} // namespace scenewright
