#include "virtual/usbip/Session.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

namespace scenewright::usbip {

namespace {

std::string_view word(UrbStatus status) {
    switch (status) {
    case UrbStatus::Ok:
        return "ok";
    case UrbStatus::Stall:
        return "stall";
    case UrbStatus::Failed:
        return "failed";
    case UrbStatus::Overflow:
        return "overflow";
    case UrbStatus::Unlinked:
        return "unlinked";
    }
    return "unknown";
}

std::string hex(ByteView bytes) {
    return fmt::format("{:02x}", fmt::join(bytes, " "));
}

constexpr std::array<std::uint8_t, 3> kAudioControlClass{1, 1, 0};
constexpr std::array<std::uint8_t, 3> kMidiStreamingClass{1, 3, 0};

} // namespace

DeviceRecord recordOf(const VirtualIdentity& identity) {
    DeviceRecord record;
    record.path = "/scenewright/virtual/1-1";
    record.busId = "1-1";
    record.busNumber = 1;
    record.deviceNumber = 2;
    record.speed = kFullSpeed;
    record.vendor = identity.vendor;
    record.product = identity.product;
    record.release = kDeviceRelease;
    record.configurationValue = kConfigurationValue;
    record.configurations = 1;
    record.interfaces = {kAudioControlClass};
    if (identity.interfaces > kMidiInterface)
        record.interfaces.push_back(kMidiStreamingClass);
    return record;
}

std::uint32_t deviceNumberOf(const DeviceRecord& record) {
    return record.busNumber << 16U | record.deviceNumber;
}

std::string traceLine(const Completion& completion) {
    const SubmitCommand& command = completion.command;
    std::string line =
        fmt::format("{} ep{} {} {} {}", command.sequence, command.endpoint,
                    command.isIn ? "in" : "out", word(completion.status), completion.moved);
    if (command.endpoint == 0)
        line += fmt::format(" ({})", hex(command.setup));
    if (!completion.data.empty())
        line += ": " + hex(completion.data);
    return line;
}

std::string unlinkTraceLine(std::uint32_t sequence) {
    return fmt::format("{} unlinked", sequence);
}

Session::Session(ServerState& server, Start start)
    : server_(server), record_(recordOf(server.identity)) {
    if (start == Start::Attached)
        attach();
}

Session::~Session() {
    detach();
}

void Session::receive(ByteView bytes) {
    if (state_ != State::Open)
        return;
    input_.insert(input_.end(), bytes.begin(), bytes.end());
    while (state_ == State::Open && (isAttached() ? takeCommand() : takeOperation())) {
    }
}

bool Session::play(std::span<const Packet> packets) {
    if (!isAttached() || state_ != State::Open || !device_->play(packets))
        return false;
    answerCompletions();
    return true;
}

bool Session::takeOperation() {
    if (input_.size() < kOperationHeaderSize)
        return false;
    const Result<OperationCode> request = decodeOperation(inputStart(kOperationHeaderSize));
    if (!request)
        return drop(request.error());
    if (*request == OperationCode::RequestImport)
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
    if (!busId)
        return drop("an import request without a bus id");
    import(*busId);
    return state_ == State::Open;
}

void Session::import(const std::string& busId) {
    if (busId == record_.busId && !server_.isTaken) {
        send(encodeImportReply(OperationStatus::Ok, record_));
        attach();
        return;
    }
    const bool isTaken = busId == record_.busId;
    send(encodeImportReply(isTaken ? OperationStatus::Busy : OperationStatus::NoDevice, record_));
    state_ = State::Done;
}

void Session::attach() {
    server_.isTaken = true;
    server_.controller.reset();
    server_.playing.reset();
    device_ =
        std::make_unique<BusDevice>(server_.controller, server_.identity,
                                    [this](const BankImage& bank) { server_.saver.save(bank); });
}

// What the host has left unread goes with it.
void Session::detach() {
    if (!isAttached())
        return;
    device_.reset();
    server_.controller.reset();
    server_.isTaken = false;
}

bool Session::takeCommand() {
    if (input_.size() < kUrbHeaderSize)
        return false;
    const Result<Command> decoded = decodeCommand(inputStart(kUrbHeaderSize));
    if (!decoded)
        return drop(decoded.error());
    const std::uint32_t device =
        std::visit([](const auto& command) { return command.device; }, *decoded);
    if (device != deviceNumberOf(record_))
        return drop(fmt::format("a command for the device {}", device));
    if (const auto* const submit = std::get_if<SubmitCommand>(&*decoded))
        return takeSubmit(*submit);
    takeUnlink(std::get<UnlinkCommand>(*decoded));
    return state_ == State::Open;
}

bool Session::takeSubmit(const SubmitCommand& command) {
    const std::size_t dataSize = command.isIn ? 0 : command.length;
    const std::size_t size = kUrbHeaderSize + dataSize;
    if (input_.size() < size)
        return false;
    const Result<void> taken = device_->submit(command, inputStart(size).subspan(kUrbHeaderSize));
    input_.erase(input_.begin(), input_.begin() + static_cast<std::ptrdiff_t>(size));
    if (!taken)
        return drop(taken.error());
    answerCompletions();
    if (state_ == State::Open && !device_->isPresent()) {
        state_ = State::Unplugged;
        detach();
    }
    return state_ == State::Open;
}

void Session::takeUnlink(const UnlinkCommand& command) {
    input_.erase(input_.begin(), input_.begin() + kUrbHeaderSize);
    const bool wasWaiting = device_->unlink(command.target);
    send(encodeUnlinkReply(command.sequence, wasWaiting ? UrbStatus::Unlinked : UrbStatus::Ok));
    if (wasWaiting && server_.trace)
        server_.trace(unlinkTraceLine(command.target));
}

void Session::answerCompletions() {
    for (const Completion& completion : device_->takeCompletions()) {
        const SubmitCommand& command = completion.command;
        send(encodeSubmitReply(command.sequence, completion.status, completion.moved,
                               command.isIn ? completion.data : Bytes{}));
        if (server_.trace)
            server_.trace(traceLine(completion));
    }
}

void Session::send(const Bytes& message) {
    if (state_ == State::Dropped)
        return;
    if (output_.size() + message.size() > kMaxUnsent) {
        drop("its host does not take the answers");
        return;
    }
    output_.insert(output_.end(), message.begin(), message.end());
}

bool Session::drop(std::string error) {
    error_ = std::move(error);
    state_ = State::Dropped;
    return false;
}

} // namespace scenewright::usbip
