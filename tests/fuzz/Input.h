// The bytes that a fuzzer got, taken piece by piece from their front. Once they are used up every
// number is 0 and every run of bytes is empty, so that a short input has a plain meaning.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace scenewright::fuzz {

class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

    [[nodiscard]] bool isUsedUp() const { return rest_.empty(); }

    std::uint8_t u8() {
        const auto byte = bytes(1);
        return byte.empty() ? std::uint8_t{0} : byte.front();
    }
    // Big-endian.
    std::uint16_t u16() {
        const std::uint8_t high = u8();
        return static_cast<std::uint16_t>(high << 8U | u8());
    }
    // A number from 0 to `count` - 1, from one byte.
    std::size_t below(std::size_t count) { return u8() % count; }

    // The next `count` bytes, or as many as are left.
    std::span<const std::uint8_t> bytes(std::size_t count) {
        const auto taken = rest_.first(std::min(count, rest_.size()));
        rest_ = rest_.subspan(taken.size());
        return taken;
    }
    std::span<const std::uint8_t> rest() { return bytes(rest_.size()); }

private:
    std::span<const std::uint8_t> rest_;
};

} // namespace scenewright::fuzz
