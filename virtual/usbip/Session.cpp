#include "virtual/usbip/Session.h"

#include "virtual/usbip/TraceLine.h"

#include <fmt/format.h>

#include <cstdint>
#include <span>
#include <variant>

namespace scenewright::usbip {

Session::Session(Exported& exported, Start start)
    : exported_(exported), record_(recordOf(exported.identity)) {
    if (start == Start::Attached)
        attach();
}

Session::~Session() {
    if (isAttached())
        exported_.isTaken = false;
}

void Session::receive(ByteView bytes) {
    if (state_ != State::Open)
        return;
    input_.insert(input_.end(), bytes.begin(), bytes.end());
    while (state_ == State::Open && takeMessage()) {
    }
}

bool Session::takeMessage() {
    return isAttached() ? takeCommand() : takeOperation();
}

bool Session::takeOperation() {
    if (input_.size() < kOperationHeaderSize)
        return false;
    const OperationRequest request = decodeOperation(inputStart(kOperationHeaderSize));
    if (!request.code) {
        drop(request.trouble);
        return false;
    }
    if (*request.code == OperationCode::RequestImport)
        return takeImport();
    send(encodeDevicesReply(std::span(&record_, 1)));
    state_ = State::Done;
    return false;
}

bool Session::takeImport() {
    constexpr std::size_t kSize = kOperationHeaderSize + kBusIdSize;
    if (input_.size() < kSize)
        return false;
    const auto busId = decodeBusId(inputStart(kSize).subspan(kOperationHeaderSize));
    input_.erase(input_.begin(), input_.begin() + kSize);
    if (!busId) {
        drop("an import request without a bus id");
        return false;
    }
    import(*busId);
    return state_ == State::Open;
}

void Session::import(const std::string& busId) {
    if (busId == record_.busId && !exported_.isTaken) {
        send(encodeImportReply(OperationStatus::Ok, record_));
        attach();
        return;
    }
    const bool isTaken = busId == record_.busId;
    send(encodeImportReply(isTaken ? OperationStatus::Busy : OperationStatus::NoDevice, record_));
    state_ = State::Done;
}

void Session::attach() {
    exported_.isTaken = true;
    exported_.controller.reset();
    device_ =
        std::make_unique<BusDevice>(exported_.controller, exported_.keeper, exported_.identity);
}

bool Session::takeCommand() {
    if (input_.size() < kUrbHeaderSize)
        return false;
    const DecodedCommand decoded = decodeCommand(inputStart(kUrbHeaderSize));
    if (!decoded.command) {
        drop(decoded.trouble);
        return false;
    }
    const std::uint32_t device =
        std::visit([](const auto& command) { return command.device; }, *decoded.command);
    if (device != deviceNumberOf(record_)) {
        drop(fmt::format("a command for the device {}", device));
        return false;
    }
    if (const auto* const submit = std::get_if<SubmitCommand>(&*decoded.command))
        return takeSubmit(*submit);
    takeUnlink(std::get<UnlinkCommand>(*decoded.command));
    return true;
}

bool Session::takeSubmit(const SubmitCommand& command) {
    const std::size_t dataSize = command.isIn ? 0 : command.length;
    const std::size_t size = kUrbHeaderSize + dataSize;
    if (input_.size() < size)
        return false;
    const bool isTaken = device_->submit(command, inputStart(size).subspan(kUrbHeaderSize));
    input_.erase(input_.begin(), input_.begin() + static_cast<std::ptrdiff_t>(size));
    if (!isTaken) {
        drop("more waiting transfers than the device has room for");
        return false;
    }
    answerCompletions();
    if (!device_->isPresent())
        state_ = State::Unplugged;
    return true;
}

void Session::takeUnlink(const UnlinkCommand& command) {
    input_.erase(input_.begin(), input_.begin() + kUrbHeaderSize);
    const bool wasWaiting = device_->unlink(command.target);
    send(encodeUnlinkReply(command.sequence, wasWaiting ? UrbStatus::Unlinked : UrbStatus::Ok));
    if (wasWaiting && exported_.trace)
        exported_.trace(unlinkTraceLine(command.target));
}

void Session::answerCompletions() {
    for (const Completion& completion : device_->takeCompletions()) {
        const SubmitCommand& command = completion.command;
        send(encodeSubmitReply(command.sequence, completion.status, completion.moved,
                               command.isIn ? completion.data : Bytes{}));
        if (exported_.trace)
            exported_.trace(traceLine(completion));
    }
}

void Session::send(const Bytes& message) {
    output_.insert(output_.end(), message.begin(), message.end());
}

void Session::drop(std::string trouble) {
    trouble_ = std::move(trouble);
    state_ = State::Malformed;
}

} // namespace scenewright::usbip
