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
#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>

namespace scenewright {

inline constexpr std::size_t kReceiveBufferSize = 64;
inline constexpr std::size_t kReadRoom = 63; // the last byte stays 0, so that the buffer is a text
inline constexpr std::size_t kEventPacketSize = 4; // a read of less holds no event packet

class Transport {
public:
    [[nodiscard]] static Transport& instance();

    // Chooses the host (null: none, so that no device is ever found) and the pause, and starts
    // afresh: handles given up, buffer and tally zero.
    void use(std::shared_ptr<UsbHost> host, Sleep sleep = sleepFor);

    // Null when there is none, and after shutDown().
    [[nodiscard]] UsbHost* host() const noexcept;
    void pause(std::chrono::nanoseconds duration) const { sleep_(duration); }

    // Null until FindDevice matched one.
    [[nodiscard]] const std::shared_ptr<UsbDevice>& device() const noexcept { return device_; }
    void setDevice(std::shared_ptr<UsbDevice> device) { device_ = std::move(device); }

    // Null until CreateInterface took one; stale after it was given up.
    [[nodiscard]] std::shared_ptr<InterfaceHandle> interface() const;
    // Gives up what the former handle held, then stores the new one (null too).
    void setInterface(std::shared_ptr<InterfaceHandle> interface);

    // Starts a transaction: gives up what a former one held, tally and connect failure zero. The
    // interface goes before the next is taken, as a host may refuse it to a second handle.
    void beginTransaction();

    std::array<std::uint8_t, kReceiveBufferSize> buffer{};

    // The counts since the current transaction's beginning.
    [[nodiscard]] TransferTally tally() const;
    void clearTally();
    void countWrite(ResultCode result);
    void countRead(ResultCode result, std::size_t delivered, bool isVersionRead = false);

    // The result code of the first step that kept the device or its interface from being opened in
    // the current transaction; success when none did. Tells a user why.
    ResultCode connectFailure = kResultSuccess;
    // Keeps the first failure; success stands for a step that gave nothing and no reason.
    void noteConnectFailure(ResultCode result);

    // The end of the program: ends every transfer, waits for the step in progress, gives the
    // interface up, and refuses devices and interfaces from then on. A transaction that still runs
    // finds its handles stale. use() undoes it. Any thread.
    void shutDown();

private:
    Transport() = default;

    mutable std::mutex endingMutex_; // guards what shutDown() needs from another thread
    std::shared_ptr<UsbHost> host_;  // guarded by endingMutex_ but for the transactions' own reads
    Sleep sleep_ = sleepFor;
    std::shared_ptr<UsbDevice> device_;
    std::atomic<bool> isShutDown_ = false;
    std::shared_ptr<InterfaceHandle> interface_; // guarded by endingMutex_
    mutable std::mutex tallyMutex_;
    TransferTally tally_; // guarded by tallyMutex_
};

} // namespace scenewright
