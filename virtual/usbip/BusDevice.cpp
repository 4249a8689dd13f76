#include "virtual/usbip/BusDevice.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

namespace scenewright::usbip {

namespace {

// More descriptor types, of USB and, from 0x24 on, of a class.
constexpr std::uint8_t kInterface = 0x04;
constexpr std::uint8_t kEndpoint = 0x05;
constexpr std::uint8_t kClassInterface = 0x24;
constexpr std::uint8_t kClassEndpoint = 0x25;

constexpr std::uint8_t kAudio = 0x01;         // interface class
constexpr std::uint8_t kAudioControl = 0x01;  // subclass
constexpr std::uint8_t kMidiStreaming = 0x03; // subclass
constexpr std::uint8_t kHeader = 0x01;        // class interface descriptor subtypes
constexpr std::uint8_t kInJack = 0x02;
constexpr std::uint8_t kOutJack = 0x03;
constexpr std::uint8_t kEmbedded = 0x01;
constexpr std::uint8_t kExternal = 0x02;
constexpr std::uint8_t kGeneral = 0x01; // class endpoint descriptor subtype
constexpr std::uint8_t kBulk = 0x02;
constexpr std::uint8_t kPacketSize = 64; // the most that full speed has

// Jack identifiers. Data from the host enters by an IN jack inside, and leaves by an OUT jack.
constexpr std::uint8_t kInInside = 1;
constexpr std::uint8_t kInOutside = 2;
constexpr std::uint8_t kOutInside = 3;
constexpr std::uint8_t kOutOutside = 4;

// One row a descriptor.
// clang-format off
constexpr auto kAudioControlAlone = std::to_array<std::uint8_t>({
    9, kInterface, 0, 0, 0, kAudio, kAudioControl, 0, 0, // number 0, no endpoints
    8, kClassInterface, kHeader, 0x00, 0x01, 8, 0, 0,    // 1.00, no streaming interface
});

constexpr auto kAudioControlOfMidi = std::to_array<std::uint8_t>({
    9, kInterface, 0, 0, 0, kAudio, kAudioControl, 0, 0,
    9, kClassInterface, kHeader, 0x00, 0x01, 9, 0, 1, kMidiInterface,
});

constexpr auto kMidi = std::to_array<std::uint8_t>({
    9, kInterface, kMidiInterface, 0, 2, kAudio, kMidiStreaming, 0, 0, // two endpoints
    7, kClassInterface, kHeader, 0x00, 0x01, 37, 0,                    // 37 bytes with the jacks
    6, kClassInterface, kInJack, kEmbedded, kInInside, 0,
    6, kClassInterface, kInJack, kExternal, kInOutside, 0,
    9, kClassInterface, kOutJack, kEmbedded, kOutInside, 1, kInOutside, 1, 0,
    9, kClassInterface, kOutJack, kExternal, kOutOutside, 1, kInInside, 1, 0,
    9, kEndpoint, 0x80 | kInEndpoint, kBulk, kPacketSize, 0, 0, 0, 0,
    5, kClassEndpoint, kGeneral, 1, kOutInside,
    9, kEndpoint, kOutEndpoint, kBulk, kPacketSize, 0, 0, 0, 0,
    5, kClassEndpoint, kGeneral, 1, kInInside,
});
// clang-format on

constexpr std::uint8_t kManufacturerIndex = 1;
constexpr std::uint8_t kProductIndex = 2;
constexpr std::uint8_t kSerialIndex = 3;
constexpr std::array<std::string_view, 3> kTexts{"Scenewright", "Virtual Controller", "0001"};
constexpr auto kLanguages =
    std::to_array<std::uint8_t>({4, kStringDescriptor, 0x09, 0x04}); // US English

constexpr std::uint8_t kConfigurationSize = 9;
constexpr std::uint8_t kBusPowered = 0x80;
constexpr std::uint8_t kHundredMilliamperes = 50; // in steps of 2 mA

std::uint8_t lowByte(std::size_t value) {
    return static_cast<std::uint8_t>(value);
}
std::uint8_t highByte(std::size_t value) {
    return static_cast<std::uint8_t>(value >> 8U);
}

// Request types: direction, standard, recipient.
constexpr std::uint8_t kToDevice = 0x00;
constexpr std::uint8_t kToInterface = 0x01;
constexpr std::uint8_t kToEndpoint = 0x02;
constexpr std::uint8_t kFromDevice = 0x80;
constexpr std::uint8_t kFromInterface = 0x81;
constexpr std::uint8_t kFromEndpoint = 0x82;

// Standard requests.
constexpr std::uint8_t kGetStatus = 0;
constexpr std::uint8_t kClearFeature = 1;
constexpr std::uint8_t kSetAddress = 5;
constexpr std::uint8_t kGetDescriptor = 6;
constexpr std::uint8_t kGetConfiguration = 8;
constexpr std::uint8_t kSetConfiguration = 9;
constexpr std::uint8_t kGetInterface = 10;
constexpr std::uint8_t kSetInterface = 11;

constexpr std::uint16_t kEndpointHalt = 0; // a feature
constexpr std::uint16_t kInAddress = 0x80 | kInEndpoint;
constexpr std::uint16_t kOutAddress = kOutEndpoint;
constexpr std::uint16_t kControlOut = 0x00; // the addresses of endpoint 0
constexpr std::uint16_t kControlIn = 0x80;

// Nothing for endpoint 0, and for one that is not there.
constexpr std::optional<VirtualController::Pipe> pipeAt(std::uint16_t address) {
    if (address == kInAddress)
        return VirtualController::Pipe::In;
    return address == kOutAddress ? std::optional(VirtualController::Pipe::Out) : std::nullopt;
}

// Fields of the setup stage are little-endian.
constexpr std::uint16_t fieldAt(const Setup& setup, std::size_t offset) {
    return static_cast<std::uint16_t>(setup.at(offset) | setup.at(offset + 1) << 8U);
}

constexpr std::size_t kMaxWaiting = 256; // IN transfers; a host's driver keeps fewer than ten
// Replies that no IN transfer has fetched: twice those of a whole bank.
constexpr std::size_t kMaxReplies = 2048;
constexpr std::size_t kMaxPlayed = 256; // transfers that a host is behind
constexpr std::size_t kPacketsPerTransfer = kPacketSize / sizeof(Packet);

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

// clang-format off
Bytes deviceDescriptor(const VirtualIdentity& identity) {
    return {18, kDeviceDescriptor,
            0x10, 0x01, // USB 1.1: a full-speed device has no other speed to tell of
            0, 0, 0,    // the classes stand in the interfaces
            kPacketSize,
            lowByte(identity.vendor), highByte(identity.vendor),
            lowByte(identity.product), highByte(identity.product),
            lowByte(kDeviceRelease), highByte(kDeviceRelease),
            kManufacturerIndex, kProductIndex, kSerialIndex,
            1}; // configurations
}
// clang-format on

Bytes configurationDescriptor(const VirtualIdentity& identity) {
    ByteWriter interfaces;
    if (identity.interfaces > kMidiInterface)
        interfaces.bytes(kAudioControlOfMidi).bytes(kMidi);
    else
        interfaces.bytes(kAudioControlAlone);
    const Bytes body = interfaces.take();
    const std::size_t size = kConfigurationSize + body.size();
    const std::uint8_t count = identity.interfaces > kMidiInterface ? 2 : 1;
    ByteWriter whole;
    whole.bytes(Bytes{kConfigurationSize, kConfigurationDescriptor, lowByte(size), highByte(size),
                      count, kConfigurationValue, 0, kBusPowered, kHundredMilliamperes});
    return whole.bytes(body).take();
}

std::optional<Bytes> stringDescriptor(std::uint8_t index) {
    if (index == 0)
        return Bytes(kLanguages.begin(), kLanguages.end());
    if (index > kTexts.size())
        return std::nullopt;
    // UTF-16, low byte first; the texts are ASCII.
    Bytes descriptor{0, kStringDescriptor};
    for (const char character : kTexts.at(index - 1U)) {
        descriptor.push_back(static_cast<std::uint8_t>(character));
        descriptor.push_back(0);
    }
    descriptor[0] = lowByte(descriptor.size());
    return descriptor;
}

ControlEndpoint::ControlEndpoint(VirtualController& controller, VirtualIdentity identity)
    : controller_(controller), identity_(identity) {}

const std::vector<ControlEndpoint::Row>& ControlEndpoint::rows() {
    using Self = ControlEndpoint;
    static const std::vector<Row> kRows{
        {kFromDevice, kGetDescriptor, &Self::getDescriptor},
        {kFromDevice, kGetStatus, &Self::getStatus},
        {kFromDevice, kGetConfiguration, &Self::getConfiguration},
        {kToDevice, kSetConfiguration, &Self::setConfiguration},
        {kToDevice, kSetAddress, &Self::setAddress},
        {kFromInterface, kGetStatus, &Self::getStatus},
        {kFromInterface, kGetInterface, &Self::getInterface},
        {kToInterface, kSetInterface, &Self::setInterface},
        {kFromEndpoint, kGetStatus, &Self::getEndpointStatus},
        {kToEndpoint, kClearFeature, &Self::clearEndpointFeature},
    };
    return kRows;
}

std::optional<Bytes> ControlEndpoint::answer(const Setup& setup) {
    const Request request{setup[0], setup[1], fieldAt(setup, 2), fieldAt(setup, 4),
                          fieldAt(setup, 6)};
    for (const Row& row : rows()) {
        if (row.type != request.type || row.code != request.code)
            continue;
        auto data = (this->*row.handler)(request);
        if (data && data->size() > request.length)
            data->resize(request.length);
        return data;
    }
    return std::nullopt;
}

std::optional<Bytes> ControlEndpoint::getDescriptor(const Request& request) {
    const auto index = static_cast<std::uint8_t>(request.value);
    switch (request.value >> 8U) {
    case kDeviceDescriptor:
        return deviceDescriptor(identity_);
    case kConfigurationDescriptor:
        return index == 0 ? std::optional(configurationDescriptor(identity_)) : std::nullopt;
    case kStringDescriptor:
        return stringDescriptor(index);
    default:
        return std::nullopt;
    }
}

std::optional<Bytes> ControlEndpoint::getConfiguration(const Request& /*request*/) {
    return Bytes{configuration_};
}

std::optional<Bytes> ControlEndpoint::setConfiguration(const Request& request) {
    if (request.value > kConfigurationValue)
        return std::nullopt;
    configuration_ = static_cast<std::uint8_t>(request.value);
    clearHalts();
    return Bytes{};
}

std::optional<Bytes> ControlEndpoint::getInterface(const Request& request) {
    return request.index < identity_.interfaces ? std::optional(Bytes{0}) : std::nullopt;
}

// Every interface has its first alternate setting alone; setting it ends its endpoints' halts.
std::optional<Bytes> ControlEndpoint::setInterface(const Request& request) {
    if (request.index >= identity_.interfaces || request.value != 0)
        return std::nullopt;
    if (request.index == kMidiInterface)
        clearHalts();
    return Bytes{};
}

std::optional<Bytes> ControlEndpoint::getStatus(const Request& /*request*/) {
    return Bytes{0, 0}; // bus powered, no remote wake-up
}

std::optional<Bytes> ControlEndpoint::getEndpointStatus(const Request& request) {
    const auto pipe = pipeAt(request.index);
    if (!pipe && request.index != kControlIn && request.index != kControlOut)
        return std::nullopt;
    return Bytes{static_cast<std::uint8_t>(pipe && controller_.isHalted(*pipe) ? 1 : 0), 0};
}

std::optional<Bytes> ControlEndpoint::clearEndpointFeature(const Request& request) {
    const auto pipe = pipeAt(request.index);
    if (request.value != kEndpointHalt || !pipe)
        return std::nullopt;
    controller_.clearHalt(*pipe);
    return Bytes{};
}

std::optional<Bytes> ControlEndpoint::setAddress(const Request& /*request*/) {
    return Bytes{};
}

void ControlEndpoint::clearHalts() {
    for (const auto pipe : {VirtualController::Pipe::In, VirtualController::Pipe::Out})
        controller_.clearHalt(pipe);
}

BusDevice::BusDevice(VirtualController& controller, VirtualIdentity identity, SendEnded sendEnded)
    : controller_(controller), sendEnded_(std::move(sendEnded)),
      sendsSeen_(controller.sendsEnded()), hasPipes_(identity.interfaces > kMidiInterface),
      control_(controller, identity) {}

Result<void> BusDevice::submit(const SubmitCommand& command, ByteView data) {
    if (command.endpoint == 0) {
        control(command);
    } else if (hasPipes_ && command.isIn && command.endpoint == kInEndpoint) {
        if (waiting_.size() == kMaxWaiting)
            return failure("more waiting transfers than the device has room for");
        waiting_.push_back(command);
        isListening_ = isListening_ || !isTalking_ || !controller_.isConversing();
    } else if (hasPipes_ && !command.isIn && command.endpoint == kOutEndpoint) {
        bulkOut(command, data);
    } else {
        complete(command, UrbStatus::Stall);
    }
    fill();
    if (controller_.repliesWaiting() > kMaxReplies)
        return failure("more unread replies than the device has room for");
    return {};
}

bool BusDevice::unlink(std::uint32_t sequence) {
    const auto found = std::ranges::find(waiting_, sequence, &SubmitCommand::sequence);
    if (found == waiting_.end())
        return false;
    waiting_.erase(found);
    stopListening();
    isTalking_ = false;
    return true;
}

bool BusDevice::play(std::span<const Packet> packets) {
    if (!isListening_)
        return false;
    while (!packets.empty()) {
        if (played_.size() == kMaxPlayed)
            return false;
        const auto count = std::min(packets.size(), kPacketsPerTransfer);
        Bytes transfer;
        for (const Packet& packet : packets.first(count))
            transfer.insert(transfer.end(), packet.begin(), packet.end());
        played_.push_back(std::move(transfer));
        packets = packets.subspan(count);
        fill();
    }
    return true;
}

void BusDevice::stopListening() {
    isListening_ = false;
    played_.clear();
}

std::vector<Completion> BusDevice::takeCompletions() {
    return std::exchange(completions_, {});
}

void BusDevice::control(const SubmitCommand& command) {
    // A driver that binds anew asks what it has: whoever talked before does not any more.
    if (command.setup[1] == kGetDescriptor)
        isTalking_ = false;
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
    isTalking_ = controller_.isConversing();
    if (isTalking_)
        stopListening();
    if (sendsSeen_ != controller_.sendsEnded() && sendEnded_)
        sendEnded_(controller_.bank());
    sendsSeen_ = controller_.sendsEnded();
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
        } else if (auto data = nextIn()) {
            const bool fits = data->size() <= command.length;
            const auto moved = fits ? static_cast<std::uint32_t>(data->size()) : 0;
            complete(command, fits ? UrbStatus::Ok : UrbStatus::Overflow, moved,
                     fits ? std::move(*data) : Bytes{});
        } else {
            return;
        }
        waiting_.pop_front();
    }
}

// What is played waits only outside a conversation.
std::optional<Bytes> BusDevice::nextIn() {
    if (auto reply = controller_.nextReply())
        return reply;
    if (played_.empty())
        return std::nullopt;
    Bytes transfer = std::move(played_.front());
    played_.pop_front();
    return transfer;
}

void BusDevice::complete(const SubmitCommand& command, UrbStatus status, std::uint32_t moved,
                         Bytes data) {
    completions_.push_back({command, status, moved, std::move(data)});
}

} // namespace scenewright::usbip
