#include "virtual/VirtualBus.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace scenewright {

VirtualBus::VirtualBus(std::shared_ptr<VirtualController> device, BankKeeper keeper,
                       VirtualIdentity identity)
    : device_(std::move(device)), keeper_(std::move(keeper)), identity_(identity) {}

bool VirtualBus::isPresent() const {
    const std::lock_guard lock(mutex_);
    return device_->isPresent();
}

ResultCode VirtualBus::claim(const void* owner) {
    const std::lock_guard lock(mutex_);
    if (!device_->isPresent())
        return kResultNoDevice;
    if (owner_ != nullptr && owner_ != owner)
        return kResultBusy;
    if (owner_ == nullptr) {
        // Taking an interface sets its alternate setting, which ends a halt.
        device_->clearHalt(VirtualController::Pipe::In);
        device_->clearHalt(VirtualController::Pipe::Out);
    }
    owner_ = owner;
    return kResultSuccess;
}

void VirtualBus::unclaim(const void* owner) {
    const std::lock_guard lock(mutex_);
    if (owner_ == owner)
        owner_ = nullptr;
}

ResultCode VirtualBus::write(const void* owner, std::span<const std::uint8_t> bytes) {
    const std::lock_guard lock(mutex_);
    if (isCancelled_)
        return kResultCancelled;
    if (owner_ != owner)
        return kResultNotOpen;
    const auto result = device_->receive(bytes);
    keeper_.afterTransfer(*device_);
    changed_.notify_all();
    switch (result) {
    case VirtualController::WriteResult::Taken:
        return kResultSuccess;
    case VirtualController::WriteResult::Failed:
        return kResultInputOutput;
    case VirtualController::WriteResult::Halted:
        return kResultStall;
    case VirtualController::WriteResult::Gone:
        return kResultNoDevice;
    }
    return kResultOther;
}

std::optional<ResultCode> VirtualBus::whyNoRead(const void* owner) const {
    if (isCancelled_)
        return kResultCancelled;
    if (owner_ != owner)
        return kResultNotOpen;
    if (!device_->isPresent())
        return kResultNoDevice;
    if (device_->isHalted(VirtualController::Pipe::In))
        return kResultStall;
    return std::nullopt;
}

ResultCode VirtualBus::read(const void* owner, std::span<std::uint8_t> room,
                            std::size_t& delivered) {
    std::unique_lock lock(mutex_);
    delivered = 0;
    for (;;) {
        if (const auto reason = whyNoRead(owner))
            return *reason;
        if (const auto reply = device_->nextReply()) {
            // A bus cannot cut a transfer to the room: it has none for the rest.
            if (reply->size() > room.size())
                return kResultOverflow;
            delivered = reply->size();
            std::copy(reply->begin(), reply->end(), room.begin());
            return kResultSuccess;
        }
        changed_.wait(lock);
    }
}

void VirtualBus::cancel() {
    const std::lock_guard lock(mutex_);
    isCancelled_ = true;
    changed_.notify_all();
}

std::optional<std::string> VirtualBus::bankTrouble() const {
    const std::lock_guard lock(mutex_);
    return keeper_.trouble();
}

} // namespace scenewright
