#include "usb/Transport.h"

#include <cstdint>
#include <exception>
#include <memory>
#include <mutex>
#include <span>
#include <utility>

namespace scenewright {

template <typename Value, typename Step>
Value InterfaceHandle::take(Value stale, Step step) {
    std::unique_lock lock(mutex_);
    if (isStale_)
        return stale;
    ++steps_;
    // Also when the step throws.
    const auto leave = [this](UsbInterface*) {
        const std::lock_guard leaving(mutex_);
        --steps_;
        left_.notify_all();
    };
    const std::unique_ptr<UsbInterface, decltype(leave)> interface(interface_.get(), leave);
    lock.unlock();
    return step(*interface);
}

bool InterfaceHandle::isStale() const {
    const std::lock_guard lock(mutex_);
    return isStale_;
}

ResultCode InterfaceHandle::releaseCode() const {
    const std::lock_guard lock(mutex_);
    return releaseCode_;
}

InterfaceClass InterfaceHandle::interfaceClass() {
    return take(InterfaceClass{}, [](UsbInterface& held) { return held.interfaceClass(); });
}

UsbResult<void> InterfaceHandle::open() {
    const UsbResult<void> stale = failedStep(UsbStep::Open, kResultGivenUp);
    return take(stale, [this](UsbInterface& held) {
        auto result = held.open();
        const std::lock_guard lock(mutex_);
        isOpen_ = isOpen_ || result;
        return result;
    });
}

UsbResult<void> InterfaceHandle::close() {
    const UsbResult<void> stale = failedStep(UsbStep::Close, kResultGivenUp);
    return take(stale, [this](UsbInterface& held) {
        {
            const std::lock_guard lock(mutex_);
            isOpen_ = false;
        }
        return held.close();
    });
}

UsbResult<void> InterfaceHandle::release() {
    std::unique_lock lock(mutex_);
    if (std::exchange(isStale_, true)) {
        // The program may end once this returns: not in the middle of another thread's release.
        left_.wait(lock, [this] { return isReleased_; });
        return failedStep(UsbStep::Release, kResultGivenUp);
    }
    // Also when the release throws.
    const auto notify = [this](bool* released) {
        const std::lock_guard ending(mutex_);
        *released = true;
        left_.notify_all();
    };
    const std::unique_ptr<bool, decltype(notify)> released(&isReleased_, notify);
    const bool wasOpen = std::exchange(isOpen_, false);
    if (steps_ > 0 && wasOpen) { // another thread waits for a transfer
        lock.unlock();
        interface_->close();
        lock.lock();
    }
    left_.wait(lock, [this] { return steps_ == 0; });
    const auto interface = std::move(interface_);
    lock.unlock();
    auto result = interface->release();
    const std::lock_guard telling(mutex_);
    releaseCode_ = result ? kResultSuccess : result.error().code;
    return result;
}

UsbResult<std::uint8_t> InterfaceHandle::endpointCount() {
    const UsbResult<std::uint8_t> stale = failedStep(UsbStep::EndpointCount, kResultGivenUp);
    return take(stale, [](UsbInterface& held) { return held.endpointCount(); });
}

UsbResult<PipeProperties> InterfaceHandle::pipeProperties(std::uint8_t pipe) {
    const UsbResult<PipeProperties> stale = failedStep(UsbStep::PipeProperties, kResultGivenUp);
    return take(stale, [&](UsbInterface& held) { return held.pipeProperties(pipe); });
}

UsbResult<void> InterfaceHandle::write(std::uint8_t pipe, std::span<const std::uint8_t> bytes) {
    const UsbResult<void> stale = failedStep(UsbStep::Write, kResultGivenUp);
    return take(stale, [&](UsbInterface& held) { return held.write(pipe, bytes); });
}

UsbRead InterfaceHandle::read(std::uint8_t pipe, std::span<std::uint8_t> room) {
    const UsbRead stale{.delivered = 0, .code = kResultGivenUp};
    return take(stale, [&](UsbInterface& held) { return held.read(pipe, room); });
}

void InterfaceHandle::closeAndRelease() noexcept {
    try {
        const auto isOpen = [this] {
            const std::lock_guard lock(mutex_);
            return isOpen_;
        };
        if (isOpen())
            close();
        release();
    } catch (const std::exception&) {
        return; // nothing of it can be told; the interface gives back what is left at its end
    }
}

Transport& Transport::instance() {
    static Transport transport;
    return transport;
}

void Transport::use(std::shared_ptr<UsbHost> host, Sleep sleep) {
    setInterface(nullptr);
    setDevice(nullptr);
    clearStats();
    host_ = std::move(host);
    sleep_ = std::move(sleep);
    buffer.fill(0);
    isShutDown_ = false;
}

UsbHost* Transport::host() const noexcept {
    return isShutDown_ ? nullptr : host_.get();
}

std::shared_ptr<InterfaceHandle> Transport::interface() const {
    const std::lock_guard lock(interfaceMutex_);
    return interface_;
}

void Transport::setInterface(std::shared_ptr<InterfaceHandle> interface) {
    std::shared_ptr<InterfaceHandle> former;
    {
        const std::lock_guard lock(interfaceMutex_);
        // A handle that comes after the end must not be opened: nobody would give it up.
        if (isShutDown_ && interface)
            interface->closeAndRelease();
        former = std::exchange(interface_, interface);
    }
    if (former && former != interface)
        former->closeAndRelease();
}

TransferStats Transport::stats() const {
    const std::lock_guard lock(statsMutex_);
    return stats_;
}

void Transport::clearStats() {
    const std::lock_guard lock(statsMutex_);
    stats_ = {};
    connectFailure = kResultSuccess;
}

void Transport::countWrite(ResultCode result) {
    const std::lock_guard lock(statsMutex_);
    const std::uint32_t transfer = stats_.writes++;
    if (result == kResultSuccess)
        return;
    ++stats_.failedWrites;
    if (!stats_.first)
        stats_.first = TransferStats::Failure{true, result, transfer, stats_.versionReads};
}

void Transport::countRead(const UsbRead& read, bool isVersionRead) {
    const std::lock_guard lock(statsMutex_);
    const std::uint32_t transfer = stats_.reads++;
    const std::uint32_t versionReads = stats_.versionReads;
    stats_.versionReads += isVersionRead ? 1 : 0;
    if (read.code == kResultSuccess && read.delivered >= kEventPacketSize)
        return;
    ++stats_.failedReads;
    if (!stats_.first)
        stats_.first = TransferStats::Failure{false, read.code, transfer, versionReads};
}

void Transport::noteConnectFailure(ResultCode result) {
    if (connectFailure == kResultSuccess)
        connectFailure = result;
}

void Transport::shutDown() {
    isShutDown_ = true;
    if (const auto held = interface())
        held->closeAndRelease();
}

} // namespace scenewright
