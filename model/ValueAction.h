// The value codec: option index to device byte and back, and a byte's two-digit hexadecimal text.
//
// Every operation is a lookup in a constant table, but for the reverses marked as numbers. An index
// is a 32-bit signed integer; a byte is signed, so 0x80 to 0xFF are -128 to -1, and is compared by
// its 8 bits. Any thread, at any time.
#pragma once

#include "model/CodeTable.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace scenewright {

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
    [[nodiscard]] static std::string GetStrFrom127WithIndex(std::int32_t index);
    // The index of the first equal text of "00" to "7f"; 0 when none is, case included.
    [[nodiscard]] static std::int32_t GetFrom127WirhStr(std::string_view text);
    // The byte's text in the device's 256-text list, in which 0x81 to 0x8f lose their high digit.
    [[nodiscard]] static std::string GetStrWirhChar(std::int8_t byte);
};

} // namespace scenewright
