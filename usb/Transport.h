// The process-wide state of the transport, in one place: the host, the current device, the current
// interface, the receive buffer, the statistics. It lives as long as the process.
//
// Unguarded: one transaction at a time uses it, on whatever thread the transaction runs on. The
// exceptions are stats(), which any thread may ask for, and shutDown().
#pragma once

#include "platform/MainQueue.h"
#include "usb/UsbHost.h"

#include <array>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>

namespace scenewright {

// The transport's hold on one interface: it releases what it holds exactly once, and once it has
// been released it is a safe object whose operations fail with kResultGivenUp.
//
// One thread at a time uses it, but for close(), release() and closeAndRelease(), which any thread
// may call: they end a transfer that another thread waits for, and wait for that thread to leave.
class InterfaceHandle {
public:
    explicit InterfaceHandle(std::unique_ptr<UsbInterface> interface)
        : interface_(std::move(interface)) {}
    ~InterfaceHandle() { closeAndRelease(); }
    InterfaceHandle(const InterfaceHandle&) = delete;
    InterfaceHandle& operator=(const InterfaceHandle&) = delete;
    InterfaceHandle(InterfaceHandle&&) = delete;
    InterfaceHandle& operator=(InterfaceHandle&&) = delete;

    [[nodiscard]] bool isStale() const;

    // Zeros on a stale handle.
    [[nodiscard]] InterfaceClass interfaceClass();
    UsbResult<void> open();
    UsbResult<void> close();
    // Makes the handle stale, whatever the result. A second call waits for the first to end.
    UsbResult<void> release();
    [[nodiscard]] UsbResult<std::uint8_t> endpointCount();
    [[nodiscard]] UsbResult<PipeProperties> pipeProperties(std::uint8_t pipe);
    UsbResult<void> write(std::uint8_t pipe, std::span<const std::uint8_t> bytes);
    UsbRead read(std::uint8_t pipe, std::span<std::uint8_t> room);

    // Closes what is open and releases what is held. Nothing on a stale handle.
    void closeAndRelease() noexcept;
    // What the release gave; success before it.
    [[nodiscard]] ResultCode releaseCode() const;

private:
    // Takes a step on the interface without the lock: a read may wait for ever, and a close must
    // end it. `stale` is what the step gives on a stale handle.
    template <typename Value, typename Step>
    Value take(Value stale, Step step);

    mutable std::mutex mutex_; // guards all below
    std::condition_variable left_;
    std::unique_ptr<UsbInterface> interface_; // null once released
    int steps_ = 0;                           // being taken now
    bool isOpen_ = false;
    bool isStale_ = false;
    bool isReleased_ = false; // the one release has ended
    ResultCode releaseCode_ = kResultSuccess;
};

// What the transfers of one transaction did, counted beside a protocol that looks at no result.
struct TransferStats {
    struct Failure {
        bool isWrite = false;
        ResultCode code = kResultSuccess; // success for a read that was merely short
        std::uint32_t transfer = 0;       // which write or read of the transaction, from 0
        std::uint32_t versionReads = 0;   // how many version reads had been made before it
        friend bool operator==(const Failure&, const Failure&) = default;
    };

    std::uint32_t writes = 0;
    std::uint32_t failedWrites = 0;
    std::uint32_t reads = 0;
    std::uint32_t failedReads = 0;  // an error, or fewer bytes than one event packet
    std::uint32_t versionReads = 0; // those of the reads that asked for the version
    std::optional<Failure> first;

    [[nodiscard]] bool isClean() const noexcept { return failedWrites == 0 && failedReads == 0; }
    friend bool operator==(const TransferStats&, const TransferStats&) = default;
};

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
