#include "virtual/usbip/Operations.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <span>

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

} // namespace

OperationRequest decodeOperation(ByteView header) {
    if (header.size() < kOperationHeaderSize)
        return {{}, fmt::format("an operation of {} bytes", header.size())};
    const std::uint16_t version = u16At(header, kVersionAt);
    if (version != kVersion)
        return {{}, fmt::format("version {:04x} of the protocol", version)};
    const auto code = static_cast<OperationCode>(u16At(header, kCodeAt));
    if (code != OperationCode::RequestImport && code != OperationCode::RequestDevices)
        return {{}, fmt::format("an unknown operation {:04x}", u16At(header, kCodeAt))};
    if (const std::uint32_t status = u32At(header, kStatusAt); status != 0)
        return {{}, fmt::format("a request with the status {}", status)};
    return {code, {}};
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

} // namespace scenewright::usbip
