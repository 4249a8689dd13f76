// A claimed interface: exclusive use among programs, given back at the end.
#pragma once

#include "usb/LibusbApi.h"

#include <memory>

namespace scenewright {

class ClaimedInterface {
public:
    // Null in `claimed` unless the result is success. `handle` must outlive the claim.
    static ResultCode claim(LibusbHandle& handle, std::uint8_t interface,
                            std::unique_ptr<ClaimedInterface>& claimed);

    // For an interface that has just been claimed on `handle`.
    ClaimedInterface(LibusbHandle& handle, std::uint8_t interface);
    // Releases; a failure is logged.
    ~ClaimedInterface();
    ClaimedInterface(const ClaimedInterface&) = delete;
    ClaimedInterface& operator=(const ClaimedInterface&) = delete;
    ClaimedInterface(ClaimedInterface&&) = delete;
    ClaimedInterface& operator=(ClaimedInterface&&) = delete;

private:
    LibusbHandle& handle_;
    std::uint8_t interface_;
};

} // namespace scenewright
