#include "usb/Transport.h"

#include <utility>

namespace scenewright {

Transport& Transport::instance() {
    static Transport transport;
    return transport;
}

void Transport::use(std::shared_ptr<UsbHost> host, Sleep sleep) {
    beginTransaction();
    setInterface(nullptr);
    {
        const std::lock_guard lock(endingMutex_);
        host_ = std::move(host);
    }
    sleep_ = std::move(sleep);
    buffer.fill(0);
    isShutDown_ = false;
}

UsbHost* Transport::host() const noexcept {
    return isShutDown_ ? nullptr : host_.get();
}

std::shared_ptr<InterfaceHandle> Transport::interface() const {
    const std::lock_guard lock(endingMutex_);
    return interface_;
}

void Transport::setInterface(std::shared_ptr<InterfaceHandle> interface) {
    std::shared_ptr<InterfaceHandle> former;
    {
        const std::lock_guard lock(endingMutex_);
        // A handle that comes after the end must not be opened: nobody would give it up.
        if (isShutDown_ && interface)
            interface->giveUp();
        former = std::exchange(interface_, interface);
    }
    if (former && former != interface)
        former->giveUp();
}

void Transport::beginTransaction() {
    if (const auto former = interface())
        former->giveUp();
    setDevice(nullptr);
    clearTally();
    connectFailure = kResultSuccess;
}

TransferTally Transport::tally() const {
    const std::lock_guard lock(tallyMutex_);
    return tally_;
}

void Transport::clearTally() {
    const std::lock_guard lock(tallyMutex_);
    tally_ = {};
}

void Transport::countWrite(ResultCode result) {
    const std::lock_guard lock(tallyMutex_);
    const std::uint32_t transfer = tally_.writes++;
    if (result == kResultSuccess)
        return;
    ++tally_.failedWrites;
    if (!tally_.first)
        tally_.first = TransferTally::Failure{true, result, transfer, tally_.versionReads};
}

void Transport::countRead(ResultCode result, std::size_t delivered, bool isVersionRead) {
    const std::lock_guard lock(tallyMutex_);
    const std::uint32_t transfer = tally_.reads++;
    const std::uint32_t versionReads = tally_.versionReads;
    tally_.versionReads += isVersionRead ? 1 : 0;
    if (result == kResultSuccess && delivered >= kEventPacketSize)
        return;
    ++tally_.failedReads;
    if (!tally_.first)
        tally_.first = TransferTally::Failure{false, result, transfer, versionReads};
}

void Transport::noteConnectFailure(ResultCode result) {
    if (connectFailure == kResultSuccess)
        connectFailure = result == kResultSuccess ? kResultOther : result;
}

void Transport::shutDown() {
    isShutDown_ = true;
    std::shared_ptr<UsbHost> host;
    {
        const std::lock_guard lock(endingMutex_);
        host = host_;
    }
    if (host)
        host->cancelTransfers();
    if (const auto held = interface())
        held->giveUp();
}

} // namespace scenewright
