#include "virtual/usbip/Protocol.h"

#include <fmt/format.h>

#include <algorithm>

namespace scenewright::usbip {

namespace {

// Offsets in the header of an operation.
constexpr std::size_t kVersionAt = 0;
constexpr std::size_t kCodeAt = 2;
constexpr std::size_t kStatusAt = 4;

constexpr std::size_t kPathSize = 256;

void writeHeader(ByteWriter& writer, OperationCode code, OperationStatus status) {
    writer.u16(kVersion)
        .u16(static_cast<std::uint16_t>(code))
        .u32(static_cast<std::uint32_t>(status));
}

void writeDevice(ByteWriter& writer, const DeviceRecord& device) {
    writer.text(device.path, kPathSize)
        .text(device.busId, kBusIdSize)
        .u32(device.busNumber)
        .u32(device.deviceNumber)
        .u32(device.speed)
        .u16(device.vendor)
        .u16(device.product)
        .u16(device.release)
        .bytes(device.classes)
        .u8(device.configurationValue)
        .u8(device.configurations)
        .u8(static_cast<std::uint8_t>(device.interfaces.size()));
}

enum class UrbCode : std::uint32_t { Submit = 1, Unlink = 2, SubmitReply = 3, UnlinkReply = 4 };

// Offsets in the header.
constexpr std::size_t kCommandAt = 0;
constexpr std::size_t kSequenceAt = 4;
constexpr std::size_t kDeviceAt = 8;
constexpr std::size_t kDirectionAt = 12;
constexpr std::size_t kEndpointAt = 16;
constexpr std::size_t kTargetAt = 20; // of an unlink
constexpr std::size_t kLengthAt = 24;
constexpr std::size_t kPacketsAt = 32; // of an isochronous transfer
constexpr std::size_t kSetupAt = 40;

constexpr std::uint32_t kOut = 0;
constexpr std::uint32_t kIn = 1;
constexpr std::uint32_t kMaxEndpoint = 15;
// What stands for "not isochronous": the protocol's text has the one, the kernel sends the other.
constexpr std::uint32_t kNoPackets = 0;
constexpr std::uint32_t kPacketsUnused = 0xFFFFFFFF;

struct Check {
    std::size_t at;
    std::string_view name;
    bool (*isGood)(std::uint32_t);
};

constexpr std::array<Check, 4> kSubmitChecks{{
    {kDirectionAt, "direction", [](std::uint32_t value) { return value == kOut || value == kIn; }},
    {kEndpointAt, "endpoint", [](std::uint32_t value) { return value <= kMaxEndpoint; }},
    {kLengthAt, "length", [](std::uint32_t value) { return value <= kMaxTransfer; }},
    {kPacketsAt, "packet count",
     [](std::uint32_t value) { return value == kNoPackets || value == kPacketsUnused; }},
}};

Result<Command> decodeSubmit(ByteView header) {
    for (const Check& check : kSubmitChecks)
        if (const std::uint32_t value = u32At(header, check.at); !check.isGood(value))
            return failure(fmt::format("a transfer with the {} {}", check.name, value));
    SubmitCommand submit;
    submit.sequence = u32At(header, kSequenceAt);
    submit.device = u32At(header, kDeviceAt);
    submit.isIn = u32At(header, kDirectionAt) == kIn;
    submit.endpoint = static_cast<std::uint8_t>(u32At(header, kEndpointAt));
    submit.length = u32At(header, kLengthAt);
    std::copy_n(header.begin() + kSetupAt, submit.setup.size(), submit.setup.begin());
    return submit;
}

// An answer names neither device nor endpoint.
void writeReplyStart(ByteWriter& writer, UrbCode code, std::uint32_t sequence, UrbStatus status) {
    constexpr std::size_t kUnusedSize = 12;
    writer.u32(static_cast<std::uint32_t>(code))
        .u32(sequence)
        .zeros(kUnusedSize)
        .i32(static_cast<std::int32_t>(status));
}

} // namespace

Result<OperationCode> decodeOperation(ByteView header) {
    if (header.size() < kOperationHeaderSize)
        return failure(fmt::format("an operation of {} bytes", header.size()));
    const std::uint16_t version = u16At(header, kVersionAt);
    if (version != kVersion)
        return failure(fmt::format("version {:04x} of the protocol", version));
    const auto code = static_cast<OperationCode>(u16At(header, kCodeAt));
    if (code != OperationCode::RequestImport && code != OperationCode::RequestDevices)
        return failure(fmt::format("an unknown operation {:04x}", u16At(header, kCodeAt)));
    if (const std::uint32_t status = u32At(header, kStatusAt); status != 0)
        return failure(fmt::format("a request with the status {}", status));
    return code;
}

std::optional<std::string> decodeBusId(ByteView field) {
    if (field.size() != kBusIdSize)
        return std::nullopt;
    const auto end = std::find(field.begin(), field.end(), std::uint8_t{0});
    const bool isPrintable = std::all_of(
        field.begin(), end, [](std::uint8_t byte) { return byte > 0x20 && byte < 0x7F; });
    if (end == field.begin() || end == field.end() || !isPrintable)
        return std::nullopt;
    return std::string(field.begin(), end);
}

Bytes encodeDevicesReply(std::span<const DeviceRecord> devices) {
    ByteWriter writer;
    writeHeader(writer, OperationCode::ReplyDevices, OperationStatus::Ok);
    writer.u32(static_cast<std::uint32_t>(devices.size()));
    for (const DeviceRecord& device : devices) {
        writeDevice(writer, device);
        for (const auto& interface : device.interfaces)
            writer.bytes(interface).u8(0);
    }
    return writer.take();
}

Bytes encodeImportReply(OperationStatus status, const DeviceRecord& device) {
    ByteWriter writer;
    writeHeader(writer, OperationCode::ReplyImport, status);
    if (status == OperationStatus::Ok)
        writeDevice(writer, device);
    return writer.take();
}

Result<Command> decodeCommand(ByteView header) {
    if (header.size() < kUrbHeaderSize)
        return failure(fmt::format("a command of {} bytes", header.size()));
    const std::uint32_t code = u32At(header, kCommandAt);
    if (code == static_cast<std::uint32_t>(UrbCode::Submit))
        return decodeSubmit(header);
    if (code == static_cast<std::uint32_t>(UrbCode::Unlink))
        return UnlinkCommand{u32At(header, kSequenceAt), u32At(header, kDeviceAt),
                             u32At(header, kTargetAt)};
    return failure(fmt::format("an unknown command {}", code));
}

Bytes encodeSubmitReply(std::uint32_t sequence, UrbStatus status, std::uint32_t moved,
                        ByteView data) {
    constexpr std::size_t kUnusedSize = 20; // isochronous fields, error count, padding
    ByteWriter writer;
    writeReplyStart(writer, UrbCode::SubmitReply, sequence, status);
    writer.u32(moved).zeros(kUnusedSize).bytes(data);
    return writer.take();
}

Bytes encodeUnlinkReply(std::uint32_t sequence, UrbStatus status) {
    constexpr std::size_t kUnusedSize = 24;
    ByteWriter writer;
    writeReplyStart(writer, UrbCode::UnlinkReply, sequence, status);
    writer.zeros(kUnusedSize);
    return writer.take();
}

} // namespace scenewright::usbip
