// The process-wide state of the transport, in one place: the host, the current device, the current
// interface, the receive buffer, the statistics. It lives as long as the process.
//
// Unguarded: one transaction at a time uses it, on whatever thread the transaction runs on. The
// exceptions are stats(), which any thread may ask for, and shutDown().
#pragma once

#include "platform/Clock.h"
#include "usb/InterfaceHandle.h"
#include "usb/TransferStats.h"
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
    // afresh: handles given up, buffer and statistics zero.
    void use(std::shared_ptr<UsbHost> host, Sleep sleep = sleepFor);

    // Null when there is none, and after shutDown().
    [[nodiscard]] UsbHost* host() const noexcept;
    [[nodiscard]] bool isShutDown() const noexcept { return isShutDown_; }
    void pause(std::chrono::nanoseconds duration) const { sleep_(duration); }

    // Null until FindDevice matched one.
    [[nodiscard]] const std::shared_ptr<UsbDevice>& device() const noexcept { return device_; }
    void setDevice(std::shared_ptr<UsbDevice> device) { device_ = std::move(device); }

    // Null until CreateInterface took one; stale after it was given up.
    [[nodiscard]] std::shared_ptr<InterfaceHandle> interface() const;
    // Gives up what the former handle held, then stores the new one (null too).
    void setInterface(std::shared_ptr<InterfaceHandle> interface);

    std::array<std::uint8_t, kReceiveBufferSize> buffer{};

    // The counts since the current transaction's beginning, which is where FindDevice clears them,
    // and the connect failure with them.
    [[nodiscard]] TransferStats stats() const;
    void clearStats();
    void countWrite(ResultCode result);
    void countRead(const UsbRead& read, bool isVersionRead = false);

    // The result code of the first step that kept the device or its interface from being opened in
    // the current transaction; success when none did. Tells a user why.
    ResultCode connectFailure = kResultSuccess;
    // Keeps the first failure.
    void noteConnectFailure(ResultCode result);

    // The end of the program: ends the transfer in flight, gives the interface up, and refuses
    // devices and interfaces from then on. A transaction that still runs finds its handles stale.
    // use() undoes it. Any thread.
    void shutDown();

private:
    Transport() = default;

    mutable std::mutex interfaceMutex_; // shutDown() may come from another thread
    std::shared_ptr<UsbHost> host_;
    Sleep sleep_ = sleepFor;
    std::shared_ptr<UsbDevice> device_;
    std::atomic<bool> isShutDown_ = false;
    std::shared_ptr<InterfaceHandle> interface_; // guarded by interfaceMutex_
    mutable std::mutex statsMutex_;
    TransferStats stats_; // guarded by statsMutex_
};

} // namespace scenewright
