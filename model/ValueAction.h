// The value codec: option index to device byte and back, and a byte's two-digit hexadecimal text.
//
// Every operation is a lookup in a constant table, but for the reverses marked as numbers. An index
// is a 32-bit signed integer; a byte is signed, so 0x80 to 0xFF are -128 to -1, and is compared by
// its 8 bits. Any thread, at any time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace scenewright {

// A device's byte codes for the choices of one setting: a constant table with both directions of
// its lookup worked out at compile time, so that neither searches.
class CodeTable {
public:
    // The codes, index 0 first; at most 256.
    template <std::size_t Size>
    consteval explicit CodeTable(const std::array<std::uint8_t, Size>& codes) : size_(Size) {
        static_assert(Size >= 1 && Size <= 256);
        for (std::size_t index = Size; index-- > 0;) {
            codes_[index] = codes[index];
            // Written from the end, so that the first of equal codes stays.
            indices_[codes[index]] = static_cast<std::uint8_t>(index);
        }
    }

    [[nodiscard]] constexpr std::int32_t size() const noexcept {
        return static_cast<std::int32_t>(size_);
    }

    // The code at an index; 0x00 for an index outside the table.
    [[nodiscard]] constexpr std::uint8_t byteAt(std::int32_t index) const noexcept {
        return index >= 0 && index < size() ? codes_[static_cast<std::size_t>(index)]
                                            : std::uint8_t{0};
    }

    // The first index that holds the code; 0 when none does.
    [[nodiscard]] constexpr std::int32_t indexOf(std::uint8_t code) const noexcept {
        return indices_[code];
    }

private:
    std::size_t size_;
    std::array<std::uint8_t, 256> codes_{};
    std::array<std::uint8_t, 256> indices_{};
};

namespace codes {

template <std::size_t Size>
consteval std::array<std::uint8_t, Size> identity() {
    std::array<std::uint8_t, Size> codes{};
    for (std::size_t index = 0; index < Size; ++index)
        codes[index] = static_cast<std::uint8_t>(index);
    return codes;
}

// The button identifiers are three runs: eight lead, 0x50 to 0x7F ascend, eight close.
consteval std::array<std::uint8_t, 64> buttonIds() {
    std::array<std::uint8_t, 64> codes{0x30, 0x01, 0x02, 0x09, 0x0B, 0x0C, 0x0D, 0x0E};
    std::size_t next = 8;
    for (unsigned code = 0x50; code <= 0x7F; ++code)
        codes[next++] = static_cast<std::uint8_t>(code);
    for (const unsigned code : {0x33U, 0x03U, 0x04U, 0x0AU, 0x05U, 0x06U, 0x07U, 0x08U})
        codes[next++] = static_cast<std::uint8_t>(code);
    return codes;
}

// The device's own codes, gaps included.
template <typename... Codes>
consteval CodeTable table(Codes... codes) {
    return CodeTable(std::array{static_cast<std::uint8_t>(codes)...});
}

inline constexpr CodeTable kButtonId{buttonIds()};
inline constexpr CodeTable kPadMode = table(0x00, 0x01, 0x08, 0x09);
inline constexpr CodeTable kOtherMode = table(0x00, 0x01, 0x04);
inline constexpr CodeTable kChannel = table(0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08,
                                            0x09, 0x0A, 0x0B, 0x0C, 0x0D, 0x0E, 0x0F, 0x41);
inline constexpr CodeTable kVelocityCurve{identity<4>()};
inline constexpr CodeTable kKnobRelativeMode = table(0x01, 0x7F);
inline constexpr CodeTable kOctaveTransposition =
    table(0x00, 0x01, 0x02, 0x03, 0x04, 0x41, 0x42, 0x43, 0x44);
inline constexpr CodeTable kGlobalMidiChannel{identity<16>()};
inline constexpr CodeTable kKnobAccelerationCurve{identity<3>()};
inline constexpr CodeTable kMemory{identity<9>()};
inline constexpr CodeTable k127{identity<128>()};
inline constexpr CodeTable k255{identity<256>()};

inline constexpr std::int32_t kTextCount = 128; // of the texts "00" to "7f"

[[nodiscard]] inline std::string hexText(std::int32_t value) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    const auto byte = static_cast<std::uint8_t>(value);
    return {kDigits[byte >> 4U], kDigits[byte & 0x0FU]};
}

} // namespace codes

class ValueAction {
    // One forward lookup: the byte at an index; 0x00 for an index outside the table.
    struct ByteAt {
        const CodeTable& table;
        constexpr std::int8_t operator()(std::int32_t index) const noexcept {
            return static_cast<std::int8_t>(table.byteAt(index));
        }
    };
    // One reverse lookup: the first index that holds the byte; 0 when none does.
    struct IndexOf {
        const CodeTable& table;
        constexpr std::int32_t operator()(std::int8_t byte) const noexcept {
            return table.indexOf(static_cast<std::uint8_t>(byte));
        }
    };
    // A reverse that searches no table: the byte's signed value.
    struct Number {
        constexpr std::int32_t operator()(std::int8_t byte) const noexcept { return byte; }
    };

public:
    ValueAction() = delete;

    static constexpr ByteAt GetButtonIDCharFromIndex{codes::kButtonId};
    static constexpr IndexOf GetButtonIDIndexFromChar{codes::kButtonId};
    static constexpr ByteAt GetPadModeCharFromIndex{codes::kPadMode};
    static constexpr IndexOf GetPadModeIndexFromChar{codes::kPadMode};
    static constexpr ByteAt GetOtherModeCharFromIndex{codes::kOtherMode};
    static constexpr IndexOf GetOtherModeIndexFromChar{codes::kOtherMode};
    static constexpr ByteAt GetChannelCharFromIndex{codes::kChannel};
    static constexpr IndexOf GetChannelIndexFromChar{codes::kChannel};
    static constexpr ByteAt GetGlobalKnobRelativeModeCharFromIndex{codes::kKnobRelativeMode};
    static constexpr IndexOf GetGlobalKnobRelativeModeIndexFromChar{codes::kKnobRelativeMode};
    static constexpr ByteAt GetGlobalOctaveTranspositionCharFromIndex{codes::kOctaveTransposition};
    static constexpr IndexOf GetGlobalOctaveTranspositionIndexFromChar{codes::kOctaveTransposition};
    static constexpr ByteAt GetGlobalMIDIChannelCharFromIndex{codes::kGlobalMidiChannel};
    static constexpr IndexOf GetGlobalMIDIChannelIndexFromChar{codes::kGlobalMidiChannel};
    static constexpr ByteAt GetGlobalVelocityCurveCharFromIndex{codes::kVelocityCurve};
    static constexpr IndexOf GetGlobalVelocityCurveIndexFromChar{codes::kVelocityCurve};
    static constexpr ByteAt GetGlobalPadVelocityCurveCharFromIndex{codes::kVelocityCurve};
    static constexpr IndexOf GetGlobalPadVelocityCurveIndexFromChar{codes::kVelocityCurve};
    static constexpr ByteAt GetGlobalKnobAccelerationCurveCharFromIndex{
        codes::kKnobAccelerationCurve};
    static constexpr IndexOf GetGlobalKnobAccelerationCurveIndexFromChar{
        codes::kKnobAccelerationCurve};
    static constexpr ByteAt GetMemCharFromIndex{codes::kMemory};
    static constexpr IndexOf GetMemIndexFromChar{codes::kMemory};
    static constexpr ByteAt GetFrom127WithIndex{codes::k127};
    static constexpr IndexOf GetFrom127WirhChar{codes::k127};
    static constexpr ByteAt GetFrom255WithIndex{codes::k255};
    static constexpr IndexOf GetFrom255WirhChar{codes::k255};

    // Pairs that lean on the 127 table one way and are numbers the other way: unlike
    // GetFrom127WirhChar they give -128 to -1 for the bytes 0x80 to 0xFF.
    static constexpr ByteAt GetValueCharFromIndex{codes::k127};
    static constexpr Number GetValueIndexFromChar{};
    static constexpr ByteAt GetMIDInumbCharFromIndex{codes::k127};
    static constexpr Number GetMIDInumbIndexFromChar{};
    static constexpr ByteAt GetMinCharFromIndex{codes::k127};
    static constexpr Number GetMinIndexFromChar{};
    static constexpr ByteAt GetMaxCharFromIndex{codes::k127};
    static constexpr Number GetMaxIndexFromChar{};
    static constexpr ByteAt GetCRCharFromIndex{codes::k127};
    static constexpr Number GetCRIndexFromChar{};
    static constexpr ByteAt GetCGCharFromIndex{codes::k127};
    static constexpr Number GetCGIndexFromChar{};
    static constexpr ByteAt GetCBCharFromIndex{codes::k127};
    static constexpr Number GetCBIndexFromChar{};
    // Lopsided on purpose: a table one way, the number the other.
    static constexpr ByteAt GetModeOptionCharFromIndex{codes::kVelocityCurve};
    static constexpr Number GetModeOptionIndexFromChar{};

    // "00" to "7f". Throws std::out_of_range for an index outside 0..127.
    [[nodiscard]] static std::string GetStrFrom127WithIndex(std::int32_t index) {
        if (index < 0 || index >= codes::kTextCount)
            throw std::out_of_range("no two-digit text for index " + std::to_string(index));
        return codes::hexText(index);
    }
    // The index of the first equal text of "00" to "7f"; 0 when none is, case included.
    [[nodiscard]] static std::int32_t GetFrom127WirhStr(std::string_view text) {
        for (std::int32_t index = 0; index < codes::kTextCount; ++index)
            if (codes::hexText(index) == text)
                return index;
        return 0;
    }
    // The byte's text in the device's 256-text list, which repeats "01" to "0f" where 81 to 8f
    // would stand.
    [[nodiscard]] static std::string GetStrWirhChar(std::int8_t byte) {
        const std::int32_t position = GetFrom255WirhChar(byte);
        const bool losesHighDigit = position > 0x80 && position < 0x90;
        return codes::hexText(losesHighDigit ? position - 0x80 : position);
    }
};

} // namespace scenewright
