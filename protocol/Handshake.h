// How every transaction begins: the connection, the handshake and its retry, packets as transfers.
#pragma once

#include "protocol/Packet.h"

namespace scenewright {

// Writes one packet to the controller, as a transfer of its own. A failure is logged by the
// transport and changes nothing here: a transaction goes on to its end.
void writePacket(const Packet& packet);

// One attempt; opens the interface itself. True when the reply's first 8 bytes were right.
[[nodiscard]] bool handshakeOnce();

// Attempts without limit and without delay, closing the interface between two attempts. A device
// that never answers correctly keeps the caller here.
void handshakeUntilAnswered();

// Finds the device, takes its interface and makes the handshake. False, with the message "Could not
// connect to midi device" set, when there is no device or its interface cannot be taken.
[[nodiscard]] bool connectToDevice();

} // namespace scenewright
