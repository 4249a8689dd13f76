// USB/IP on the wire: the questions that a connection begins with, and the commands and answers
// that carry transfers once a device has been given away.
//
// Layouts and numbers are those of version 1.1.1 of the protocol, as the Linux kernel's
// documentation lays them out; numbers are big-endian. Pure functions; any thread. What cannot be
// decoded is an error.
#pragma once

#include "platform/Text.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace scenewright::usbip {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

// Appends to a message.
class ByteWriter {
public:
    ByteWriter& u8(std::uint8_t value) {
        bytes_.push_back(value);
        return *this;
    }
    ByteWriter& u16(std::uint16_t value) {
        return u8(static_cast<std::uint8_t>(value >> 8U)).u8(static_cast<std::uint8_t>(value));
    }
    ByteWriter& u32(std::uint32_t value) {
        return u16(static_cast<std::uint16_t>(value >> 16U)).u16(static_cast<std::uint16_t>(value));
    }
    ByteWriter& i32(std::int32_t value) { return u32(static_cast<std::uint32_t>(value)); }
    ByteWriter& zeros(std::size_t count) {
        bytes_.insert(bytes_.end(), count, std::uint8_t{0});
        return *this;
    }
    ByteWriter& bytes(ByteView more) {
        bytes_.insert(bytes_.end(), more.begin(), more.end());
        return *this;
    }
    // The text in a field of `width` bytes, zeros behind it; cut so that one zero stays.
    ByteWriter& text(std::string_view text, std::size_t width) {
        text = text.substr(0, width - 1);
        bytes_.insert(bytes_.end(), text.begin(), text.end());
        return zeros(width - text.size());
    }
    [[nodiscard]] Bytes take() { return std::move(bytes_); }

private:
    Bytes bytes_;
};

// Both read whole numbers at `offset`, which must lie inside.
[[nodiscard]] constexpr std::uint16_t u16At(ByteView bytes, std::size_t offset) {
    return static_cast<std::uint16_t>(bytes[offset] << 8U | bytes[offset + 1]);
}
[[nodiscard]] constexpr std::uint32_t u32At(ByteView bytes, std::size_t offset) {
    return static_cast<std::uint32_t>(u16At(bytes, offset)) << 16U | u16At(bytes, offset + 2);
}

// The questions that a connection begins with: which devices are there, and give me one.

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

// The code of a request, one of the two, from its header.
[[nodiscard]] Result<OperationCode> decodeOperation(ByteView header);

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

// Transfers. Each command and answer has a header of 48 bytes; the data of an OUT transfer follows
// its command, that of an IN transfer its answer.

inline constexpr std::size_t kUrbHeaderSize = 48;
// The longest transfer taken; a host's MIDI driver and a USB library ask for far less.
inline constexpr std::uint32_t kMaxTransfer = 65536;

using Setup = std::array<std::uint8_t, 8>; // a control transfer's first stage

struct SubmitCommand {
    std::uint32_t sequence = 0;
    std::uint32_t device = 0; // bus number and device number, 16 bits each
    bool isIn = false;
    std::uint8_t endpoint = 0;
    std::uint32_t length = 0; // bytes that follow (OUT) or that there is room for (IN)
    Setup setup{};
    friend bool operator==(const SubmitCommand&, const SubmitCommand&) = default;
};

struct UnlinkCommand {
    std::uint32_t sequence = 0;
    std::uint32_t device = 0;
    std::uint32_t target = 0; // the sequence number of the transfer to take back
    friend bool operator==(const UnlinkCommand&, const UnlinkCommand&) = default;
};

using Command = std::variant<SubmitCommand, UnlinkCommand>;

[[nodiscard]] Result<Command> decodeCommand(ByteView header);

// What an answer says of a transfer: 0, or a negative error number as the kernel's.
enum class UrbStatus : std::int32_t {
    Ok = 0,
    Stall = -32,     // EPIPE
    Failed = -71,    // EPROTO
    Overflow = -75,  // EOVERFLOW
    Unlinked = -104, // ECONNRESET
};

// `moved` is the number of bytes that were carried; `data` is empty for an OUT transfer.
[[nodiscard]] Bytes encodeSubmitReply(std::uint32_t sequence, UrbStatus status, std::uint32_t moved,
                                      ByteView data);
// Unlinked when the transfer was taken back, Ok when it had been answered already.
[[nodiscard]] Bytes encodeUnlinkReply(std::uint32_t sequence, UrbStatus status);

} // namespace scenewright::usbip
