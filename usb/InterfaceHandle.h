// The transport's hold on one interface: it releases what it holds exactly once, and once it has
// been given up it is a safe object whose operations return kResultGivenUp.
//
// One thread at a time uses it, but for giveUp(), which any thread may call: it waits for the step
// in progress to return.
#pragma once

#include "usb/UsbHost.h"

#include <memory>
#include <mutex>

namespace scenewright {

class InterfaceHandle {
public:
    explicit InterfaceHandle(std::unique_ptr<UsbInterface> interface);
    // Gives up what is still held.
    ~InterfaceHandle();
    InterfaceHandle(const InterfaceHandle&) = delete;
    InterfaceHandle& operator=(const InterfaceHandle&) = delete;
    InterfaceHandle(InterfaceHandle&&) = delete;
    InterfaceHandle& operator=(InterfaceHandle&&) = delete;

    [[nodiscard]] bool isStale();

    // 0 on a stale handle.
    [[nodiscard]] std::uint8_t interfaceClass();
    [[nodiscard]] std::uint8_t interfaceSubClass();
    ResultCode open();
    ResultCode close();
    // Makes the handle stale, whatever the result; a failure is logged.
    ResultCode release();
    ResultCode endpointCount(std::uint8_t& count);
    ResultCode pipeProperties(std::uint8_t pipe, PipeProperties& properties);
    ResultCode writePipe(std::uint8_t pipe, std::span<const std::uint8_t> bytes);
    // `delivered` is set always.
    ResultCode readPipe(std::uint8_t pipe, std::span<std::uint8_t> room, std::size_t& delivered);

    // Closes what is open and releases what is held; failures are logged. Nothing on a stale one.
    void giveUp() noexcept;

private:
    template <typename Step>
    ResultCode onInterface(Step step);
    ResultCode releaseHeld();

    std::mutex mutex_; // guards all below
    std::unique_ptr<UsbInterface> interface_;
    bool isOpen_ = false;
};

} // namespace scenewright
