// Numbers as USB/IP carries them: big-endian, at fixed places.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
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

} // namespace scenewright::usbip
