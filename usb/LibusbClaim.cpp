#include "usb/LibusbClaim.h"

#include "platform/Diagnostics.h"

#include <exception>

namespace scenewright {

ResultCode ClaimedInterface::claim(LibusbHandle& handle, std::uint8_t interface,
                                   std::unique_ptr<ClaimedInterface>& claimed) {
    const ResultCode result = handle.claim(interface);
    if (result == kResultSuccess)
        claimed = std::make_unique<ClaimedInterface>(handle, interface);
    return result;
}

ClaimedInterface::ClaimedInterface(LibusbHandle& handle, std::uint8_t interface)
    : handle_(handle), interface_(interface) {}

ClaimedInterface::~ClaimedInterface() {
    for (const std::uint8_t endpoint : halted_)
        handle_.clearHalt(endpoint); // if it stays halted, the next transaction says so
    const ResultCode result = handle_.release(interface_);
    // A device that has gone has taken the claim with it.
    if (result == kResultSuccess || result == kResultNoDevice)
        return;
    try {
        Diagnostics::log("Unable to release interface %d (%08x)", interface_, result);
    } catch (const std::exception&) {
        return; // nowhere left to say so
    }
}

} // namespace scenewright
