// The commands and answers that carry transfers once a device has been given away.
//
// Each has a header of 48 bytes; the data of an OUT transfer follows its command, that of an IN
// transfer its answer. Pure functions; any thread.
#pragma once

#include "virtual/usbip/Bytes.h"

#include <array>
#include <optional>
#include <string>
#include <variant>

namespace scenewright::usbip {

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

// A command, or one sentence on what is wrong with its header.
struct DecodedCommand {
    std::optional<Command> command;
    std::string trouble;
};
[[nodiscard]] DecodedCommand decodeCommand(ByteView header);

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
