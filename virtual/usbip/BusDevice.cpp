#include "virtual/usbip/BusDevice.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace scenewright::usbip {

namespace {

constexpr std::size_t kMaxWaiting = 256; // a host's driver keeps fewer than ten

UrbStatus statusOf(VirtualController::WriteResult result) {
    switch (result) {
    case VirtualController::WriteResult::Taken:
        return UrbStatus::Ok;
    case VirtualController::WriteResult::Halted:
        return UrbStatus::Stall;
    case VirtualController::WriteResult::Failed:
    case VirtualController::WriteResult::Gone:
        break;
    }
    return UrbStatus::Failed;
}

} // namespace

BusDevice::BusDevice(VirtualController& controller, BankKeeper& keeper, VirtualIdentity identity)
    : controller_(controller), keeper_(keeper), hasPipes_(identity.interfaces > kMidiInterface),
      control_(controller, identity) {}

bool BusDevice::submit(const SubmitCommand& command, ByteView data) {
    if (command.endpoint == 0) {
        control(command);
    } else if (hasPipes_ && command.isIn && command.endpoint == kInEndpoint) {
        if (waiting_.size() == kMaxWaiting)
            return false;
        waiting_.push_back(command);
    } else if (hasPipes_ && !command.isIn && command.endpoint == kOutEndpoint) {
        bulkOut(command, data);
    } else {
        complete(command, UrbStatus::Stall);
    }
    fill();
    return true;
}

bool BusDevice::unlink(std::uint32_t sequence) {
    const auto found =
        std::find_if(waiting_.begin(), waiting_.end(), [sequence](const SubmitCommand& command) {
            return command.sequence == sequence;
        });
    if (found == waiting_.end())
        return false;
    waiting_.erase(found);
    return true;
}

std::vector<Completion> BusDevice::takeCompletions() {
    return std::exchange(completions_, {});
}

void BusDevice::control(const SubmitCommand& command) {
    auto data = control_.answer(command.setup);
    if (!data) {
        complete(command, UrbStatus::Stall);
        return;
    }
    if (command.isIn)
        data->resize(std::min<std::size_t>(data->size(), command.length));
    else
        data->clear();
    const auto moved = command.isIn ? static_cast<std::uint32_t>(data->size()) : command.length;
    complete(command, UrbStatus::Ok, moved, std::move(*data));
}

void BusDevice::bulkOut(const SubmitCommand& command, ByteView data) {
    const UrbStatus status = statusOf(controller_.receive(data));
    keeper_.afterTransfer(controller_);
    if (status == UrbStatus::Ok)
        complete(command, status, command.length, Bytes(data.begin(), data.end()));
    else
        complete(command, status);
}

void BusDevice::fill() {
    while (!waiting_.empty() && controller_.isPresent()) {
        const SubmitCommand command = waiting_.front();
        if (controller_.isHalted(VirtualController::Pipe::In)) {
            complete(command, UrbStatus::Stall);
        } else if (auto reply = controller_.nextReply()) {
            const bool fits = reply->size() <= command.length;
            const auto moved = fits ? static_cast<std::uint32_t>(reply->size()) : 0;
            complete(command, fits ? UrbStatus::Ok : UrbStatus::Overflow, moved,
                     fits ? std::move(*reply) : Bytes{});
        } else {
            return;
        }
        waiting_.pop_front();
    }
}

void BusDevice::complete(const SubmitCommand& command, UrbStatus status, std::uint32_t moved,
                         Bytes data) {
    completions_.push_back({command, status, moved, std::move(data)});
}

} // namespace scenewright::usbip
