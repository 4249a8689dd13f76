#include "usb/Transport.h"

#include <utility>

namespace scenewright {

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
            interface->giveUp();
        former = std::exchange(interface_, interface);
    }
    if (former && former != interface)
        former->giveUp();
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
        held->giveUp();
}

} // namespace scenewright
