#include "virtual/usbip/Urb.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace scenewright::usbip {

namespace {

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

DecodedCommand decodeSubmit(ByteView header) {
    for (const Check& check : kSubmitChecks)
        if (const std::uint32_t value = u32At(header, check.at); !check.isGood(value))
            return {{}, fmt::format("a transfer with the {} {}", check.name, value)};
    SubmitCommand submit;
    submit.sequence = u32At(header, kSequenceAt);
    submit.device = u32At(header, kDeviceAt);
    submit.isIn = u32At(header, kDirectionAt) == kIn;
    submit.endpoint = static_cast<std::uint8_t>(u32At(header, kEndpointAt));
    submit.length = u32At(header, kLengthAt);
    std::copy_n(header.begin() + kSetupAt, submit.setup.size(), submit.setup.begin());
    return {submit, {}};
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

DecodedCommand decodeCommand(ByteView header) {
    if (header.size() < kUrbHeaderSize)
        return {{}, fmt::format("a command of {} bytes", header.size())};
    const std::uint32_t code = u32At(header, kCommandAt);
    if (code == static_cast<std::uint32_t>(UrbCode::Submit))
        return decodeSubmit(header);
    if (code == static_cast<std::uint32_t>(UrbCode::Unlink))
        return {UnlinkCommand{u32At(header, kSequenceAt), u32At(header, kDeviceAt),
                              u32At(header, kTargetAt)},
                {}};
    return {{}, fmt::format("an unknown command {}", code)};
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
