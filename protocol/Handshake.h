// The exchange that opens every transaction, and its retry.
#pragma once

namespace scenewright {

// One attempt; opens the interface itself. True when the reply's first 8 bytes were right.
[[nodiscard]] bool handshakeOnce();

// Attempts without limit and without delay, closing the interface between two attempts. A device
// that never answers correctly keeps the caller here.
void handshakeUntilAnswered();

// Finds the device, takes its interface and makes the handshake. False, with the message "Could not
// connect to midi device" set, when there is no device or its interface cannot be taken.
[[nodiscard]] bool connectToDevice();

} // namespace scenewright
