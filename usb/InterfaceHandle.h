// The transport's hold on one interface: it releases what it holds exactly once, and once it has
// been released it is a safe object whose operations fail with kResultGivenUp.
//
// One thread at a time uses it, but for close(), release() and giveUp(), which any thread may call:
// they end a transfer that another thread waits for, and wait for that thread to leave.
#pragma once

#include "usb/UsbHost.h"

#include <condition_variable>
#include <memory>
#include <mutex>

namespace scenewright {

class InterfaceHandle {
public:
    explicit InterfaceHandle(std::unique_ptr<UsbInterface> interface)
        : interface_(std::move(interface)) {}
    ~InterfaceHandle() { giveUp(); }
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
    void giveUp() noexcept;
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

} // namespace scenewright
