// The transport's hold on one interface: it releases what it holds exactly once, and once it has
// been given up it is a safe object whose operations return kResultGivenUp.
#pragma once

#include "usb/UsbHost.h"

#include <memory>

namespace scenewright {

class InterfaceHandle {
public:
    explicit InterfaceHandle(std::unique_ptr<UsbInterface> interface);
    // Closes and releases what is still held; a failure is logged.
    ~InterfaceHandle();
    InterfaceHandle(const InterfaceHandle&) = delete;
    InterfaceHandle& operator=(const InterfaceHandle&) = delete;
    InterfaceHandle(InterfaceHandle&&) = delete;
    InterfaceHandle& operator=(InterfaceHandle&&) = delete;

    [[nodiscard]] bool isStale() const noexcept { return interface_ == nullptr; }

    [[nodiscard]] std::uint8_t interfaceClass();
    [[nodiscard]] std::uint8_t interfaceSubClass();
    ResultCode open();
    ResultCode close();
    ResultCode release();
    ResultCode endpointCount(std::uint8_t& count);
    ResultCode pipeProperties(std::uint8_t pipe, PipeProperties& properties);
    ResultCode writePipe(std::uint8_t pipe, std::span<const std::uint8_t> bytes);
    ResultCode readPipe(std::uint8_t pipe, std::span<std::uint8_t> room, std::size_t& delivered);

private:
    std::unique_ptr<UsbInterface> interface_;
};

} // namespace scenewright
