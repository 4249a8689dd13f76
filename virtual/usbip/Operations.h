// The questions that a USB/IP connection begins with: which devices are there, and give me one.
//
// Layouts and numbers are those of version 1.1.1 of the protocol, as the Linux kernel's
// documentation lays them out. Pure functions; any thread.
#pragma once

#include "virtual/usbip/Bytes.h"

#include <array>
#include <optional>
#include <string>

namespace scenewright::usbip {

inline constexpr std::uint16_t kVersion = 0x0111;

enum class OperationCode : std::uint16_t {
    RequestImport = 0x8003,
    RequestDevices = 0x8005,
    ReplyImport = 0x0003,
    ReplyDevices = 0x0005,
};

enum class OperationStatus : std::uint32_t { Ok = 0, Busy = 2, NoDevice = 4 };

inline constexpr std::size_t kOperationHeaderSize = 8;
inline constexpr std::size_t kBusIdSize = 32; // what follows the header of an import request

// A request's header: the code, or one sentence on what is wrong with it.
struct OperationRequest {
    std::optional<OperationCode> code; // one of the two requests
    std::string trouble;
};
[[nodiscard]] OperationRequest decodeOperation(ByteView header);

// The bus id of an import request; nothing when the field is not a text that ends in it.
[[nodiscard]] std::optional<std::string> decodeBusId(ByteView field);

struct DeviceRecord {
    std::string path;
    std::string busId;
    std::uint32_t busNumber = 0;
    std::uint32_t deviceNumber = 0;
    std::uint32_t speed = 0; // as the kernel numbers speeds: 2 is full speed
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    std::uint16_t release = 0;             // binary-coded decimal
    std::array<std::uint8_t, 3> classes{}; // class, subclass, protocol
    std::uint8_t configurationValue = 0;
    std::uint8_t configurations = 0;
    std::vector<std::array<std::uint8_t, 3>> interfaces; // class, subclass, protocol of each
};

[[nodiscard]] Bytes encodeDevicesReply(std::span<const DeviceRecord> devices);
// The device follows only when the status is Ok.
[[nodiscard]] Bytes encodeImportReply(OperationStatus status, const DeviceRecord& device);

} // namespace scenewright::usbip
