#include "protocol/Packet.h"

#include "usb/InterfaceAction.h"

namespace scenewright {

void writePacket(const Packet& packet) {
    InterfaceAction::WriteToDeviceWithChar_andSize(packet.data(),
                                                   static_cast<std::int32_t>(packet.size()));
}

} // namespace scenewright
