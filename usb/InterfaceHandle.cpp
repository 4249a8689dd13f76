#include "usb/InterfaceHandle.h"

#include "platform/Diagnostics.h"

#include <exception>

namespace scenewright {

InterfaceHandle::InterfaceHandle(std::unique_ptr<UsbInterface> interface)
    : interface_(std::move(interface)) {}

InterfaceHandle::~InterfaceHandle() {
    giveUp();
}

template <typename Step>
ResultCode InterfaceHandle::onInterface(Step step) {
    const std::lock_guard lock(mutex_);
    return interface_ ? step(*interface_) : kResultGivenUp;
}

bool InterfaceHandle::isStale() {
    const std::lock_guard lock(mutex_);
    return interface_ == nullptr;
}

std::uint8_t InterfaceHandle::interfaceClass() {
    const std::lock_guard lock(mutex_);
    return interface_ ? interface_->interfaceClass() : std::uint8_t{0};
}

std::uint8_t InterfaceHandle::interfaceSubClass() {
    const std::lock_guard lock(mutex_);
    return interface_ ? interface_->interfaceSubClass() : std::uint8_t{0};
}

ResultCode InterfaceHandle::open() {
    return onInterface([this](UsbInterface& held) {
        const ResultCode result = held.open();
        isOpen_ = isOpen_ || result == kResultSuccess;
        return result;
    });
}

ResultCode InterfaceHandle::close() {
    return onInterface([this](UsbInterface& held) {
        isOpen_ = false;
        return held.close();
    });
}

ResultCode InterfaceHandle::release() {
    return onInterface([this](UsbInterface&) { return releaseHeld(); });
}

ResultCode InterfaceHandle::endpointCount(std::uint8_t& count) {
    return onInterface([&](UsbInterface& held) { return held.endpointCount(count); });
}

ResultCode InterfaceHandle::pipeProperties(std::uint8_t pipe, PipeProperties& properties) {
    return onInterface([&](UsbInterface& held) { return held.pipeProperties(pipe, properties); });
}

ResultCode InterfaceHandle::writePipe(std::uint8_t pipe, std::span<const std::uint8_t> bytes) {
    return onInterface([&](UsbInterface& held) { return held.writePipe(pipe, bytes); });
}

ResultCode InterfaceHandle::readPipe(std::uint8_t pipe, std::span<std::uint8_t> room,
                                     std::size_t& delivered) {
    delivered = 0;
    return onInterface([&](UsbInterface& held) { return held.readPipe(pipe, room, delivered); });
}

ResultCode InterfaceHandle::releaseHeld() {
    isOpen_ = false;
    const ResultCode result = interface_->release();
    interface_.reset();
    if (result != kResultSuccess)
        Diagnostics::log("Unable to release interface (%08x)", result);
    return result;
}

void InterfaceHandle::giveUp() noexcept {
    try {
        const std::lock_guard lock(mutex_);
        if (!interface_)
            return;
        const ResultCode closed = isOpen_ ? interface_->close() : kResultSuccess;
        if (closed != kResultSuccess)
            Diagnostics::log("Unable to close interface (%08x)", closed);
        releaseHeld();
    } catch (const std::exception&) {
        // A log line that cannot be built is no reason to keep the interface.
        interface_.reset();
    }
}

} // namespace scenewright
