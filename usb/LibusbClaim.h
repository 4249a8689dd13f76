// A claimed interface: exclusive use among programs, given back at the end, and its endpoints with
// it as they were found: an endpoint stays halted after a stall until its host clears that, and
// nobody else would before the device is plugged in again.
#pragma once

#include "usb/LibusbApi.h"

#include <memory>
#include <set>

namespace scenewright {

class ClaimedInterface {
public:
    // Null in `claimed` unless the result is success. `handle` must outlive the claim.
    static ResultCode claim(LibusbHandle& handle, std::uint8_t interface,
                            std::unique_ptr<ClaimedInterface>& claimed);

    // For an interface that has just been claimed on `handle`.
    ClaimedInterface(LibusbHandle& handle, std::uint8_t interface);
    // Clears the halts and releases; a release that fails is logged.
    ~ClaimedInterface();
    ClaimedInterface(const ClaimedInterface&) = delete;
    ClaimedInterface& operator=(const ClaimedInterface&) = delete;
    ClaimedInterface(ClaimedInterface&&) = delete;
    ClaimedInterface& operator=(ClaimedInterface&&) = delete;

    // A transfer on this endpoint has ended by a stall.
    void noteHalt(std::uint8_t endpoint) { halted_.insert(endpoint); }

private:
    LibusbHandle& handle_;
    std::uint8_t interface_;
    std::set<std::uint8_t> halted_;
};

} // namespace scenewright
