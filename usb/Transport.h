// The process-wide state of the transport, in one place: the host, the current device, the current
// interface, the receive buffer, the tally. It lives as long as the process.
//
// Unguarded: one transaction at a time uses it, on whatever thread the transaction runs on. The
// exceptions are tally(), which any thread may ask for, and shutDown().
#pragma once

#include "platform/Clock.h"
#include "usb/InterfaceHandle.h"
#include "usb/TransferTally.h"
#include "usb/UsbHost.h"

#include <array>
#include <cstdint>
#include <memory>
#include <mutex>

namespace scenewright {

inline constexpr std::size_t kReceiveBufferSize = 64;
inline constexpr std::size_t kReadRoom = 63; // the last byte stays 0, so that the buffer is a text

class Transport {
public:
    [[nodiscard]] static Transport& instance();

    // Chooses the host (null: none, so that no device is ever found) and the pause, and starts
    // afresh: handles given up, buffer and tally zero.
    void use(std::shared_ptr<UsbHost> host, Sleep sleep = sleepFor);

    [[nodiscard]] UsbHost* host() const noexcept { return host_.get(); }
    void pause(std::chrono::nanoseconds duration) const { sleep_(duration); }

    // Null until FindDevice matched one. Overwriting gives up what the former one held.
    std::shared_ptr<UsbDevice> device;
    // Null until CreateInterface took one; stale after it was given up.
    std::shared_ptr<InterfaceHandle> interface;
    std::array<std::uint8_t, kReceiveBufferSize> buffer{};

    // The counts since the current transaction's FindDevice.
    [[nodiscard]] TransferTally tally() const;
    void clearTally();
    void countWrite(ResultCode result);
    void countRead(ResultCode result, std::size_t delivered);

    // The result code of the step that kept the device or its interface from being opened in the
    // current transaction; success when none did. Tells a user why.
    ResultCode connectFailure = kResultSuccess;

private:
    Transport() = default;

    std::shared_ptr<UsbHost> host_;
    Sleep sleep_ = sleepFor;
    mutable std::mutex tallyMutex_;
    TransferTally tally_;
};

} // namespace scenewright
