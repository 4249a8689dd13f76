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

VirtualBus::VirtualBus(std::shared_ptr<VirtualController> device, BankFileStore keeper,
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
    std::unique_lock lock(mutex_);
    if (owner_ != owner)
        return;
    owner_ = nullptr;
    changed_.notify_all();
    changed_.wait(lock, [this] { return reads_ == 0; });
}

ResultCode VirtualBus::write(const void* owner, std::span<const std::uint8_t> bytes) {
    const std::lock_guard lock(mutex_);
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

UsbRead VirtualBus::read(const void* owner, std::span<std::uint8_t> room) {
    std::unique_lock lock(mutex_);
    if (owner_ != owner)
        return {.delivered = 0, .code = kResultNotOpen};
    ++reads_;
    UsbRead moved;
    changed_.wait(lock, [&] {
        const auto outcome = tryRead(owner, room);
        moved = outcome.value_or(UsbRead{});
        return outcome.has_value();
    });
    --reads_;
    changed_.notify_all();
    return moved;
}

std::optional<UsbRead> VirtualBus::tryRead(const void* owner, std::span<std::uint8_t> room) {
    if (owner_ != owner)
        return UsbRead{.delivered = 0, .code = kResultCancelled};
    if (!device_->isPresent())
        return UsbRead{.delivered = 0, .code = kResultNoDevice};
    if (device_->isHalted(VirtualController::Pipe::In))
        return UsbRead{.delivered = 0, .code = kResultStall};
    const auto reply = device_->nextReply();
    if (!reply)
        return std::nullopt;
    // A bus cannot cut a transfer to the room: it has none for the rest.
    if (reply->size() > room.size())
        return UsbRead{.delivered = 0, .code = kResultOverflow};
    std::ranges::copy(*reply, room.begin());
    return UsbRead{.delivered = reply->size(), .code = kResultSuccess};
}

std::optional<std::string> VirtualBus::storageError() const {
    const std::lock_guard lock(mutex_);
    return keeper_.trouble();
}

} // namespace scenewright
