#include "model/ValueAction.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <stdexcept>
#include <vector>

namespace scenewright {

namespace {

// A device byte as the signed value that the codec takes and gives.
constexpr std::int8_t operator""_byte(unsigned long long value) {
    return static_cast<std::int8_t>(value);
}

TEST(ValueAction, HexTextLosesItsHighDigitBetween0x81And0x8F) {
    for (int value = 0; value < 256; ++value) {
        std::array<char, 3> expected{};
        const bool repeats = value >= 0x81 && value <= 0x8F;
        std::snprintf(expected.data(), expected.size(), "%02x", repeats ? value - 0x80 : value);
        EXPECT_EQ(ValueAction::GetStrWirhChar(static_cast<std::int8_t>(value)), expected.data());
    }
}

TEST(ValueAction, TextsOfThe127ListAreFoundExactly) {
    EXPECT_EQ(ValueAction::GetFrom127WirhStr("00"), 0);
    EXPECT_EQ(ValueAction::GetFrom127WirhStr("01"), 1);
    EXPECT_EQ(ValueAction::GetFrom127WirhStr("0a"), 10);
    EXPECT_EQ(ValueAction::GetFrom127WirhStr("7f"), 127);
}

TEST(ValueAction, TextsThatTheListLacksGiveZero) {
    for (const std::string_view text : {"7F", "7", "0A", "80", "ff", "", "001", " 1", "zz"})
        EXPECT_EQ(ValueAction::GetFrom127WirhStr(text), 0) << text;
}

TEST(ValueAction, TextsByIndexAreTwoLowerCaseDigits) {
    EXPECT_EQ(ValueAction::GetStrFrom127WithIndex(0), "00");
    EXPECT_EQ(ValueAction::GetStrFrom127WithIndex(9), "09");
    EXPECT_EQ(ValueAction::GetStrFrom127WithIndex(10), "0a");
    EXPECT_EQ(ValueAction::GetStrFrom127WithIndex(127), "7f");
    for (std::int32_t index = 0; index < 128; ++index)
        EXPECT_EQ(ValueAction::GetFrom127WirhStr(ValueAction::GetStrFrom127WithIndex(index)),
                  index);
}

TEST(ValueAction, TextByIndexOutsideTheListThrows) {
    for (const std::int32_t index : {-1, 128, 255, std::numeric_limits<std::int32_t>::min(),
                                     std::numeric_limits<std::int32_t>::max()})
        EXPECT_THROW((void)ValueAction::GetStrFrom127WithIndex(index), std::out_of_range) << index;
}

TEST(ValueAction, SomeReversesGiveTheBytesSignedValue) {
    for (const auto reverse :
         {ValueAction::GetValueIndexFromChar, ValueAction::GetMIDInumbIndexFromChar,
          ValueAction::GetMinIndexFromChar, ValueAction::GetMaxIndexFromChar,
          ValueAction::GetCRIndexFromChar, ValueAction::GetCGIndexFromChar,
          ValueAction::GetCBIndexFromChar, ValueAction::GetModeOptionIndexFromChar})
        for (int byte = 0; byte < 256; ++byte)
            EXPECT_EQ(reverse(static_cast<std::int8_t>(byte)), byte < 128 ? byte : byte - 256);
}

TEST(ValueAction, TheirForwardsLeanOnThe127Table) {
    for (const auto forward :
         {ValueAction::GetValueCharFromIndex, ValueAction::GetMIDInumbCharFromIndex,
          ValueAction::GetMinCharFromIndex, ValueAction::GetMaxCharFromIndex,
          ValueAction::GetCRCharFromIndex, ValueAction::GetCGCharFromIndex,
          ValueAction::GetCBCharFromIndex}) {
        for (std::int32_t index = 0; index < 128; ++index)
            EXPECT_EQ(forward(index), index);
        EXPECT_EQ(forward(128), 0);
    }
}

TEST(ValueAction, ModeOptionIsATableOneWayAndANumberTheOther) {
    EXPECT_EQ(ValueAction::GetModeOptionCharFromIndex(3), 3);
    EXPECT_EQ(ValueAction::GetModeOptionCharFromIndex(4), 0);
    EXPECT_EQ(ValueAction::GetModeOptionIndexFromChar(0x02_byte), 2);
    EXPECT_EQ(ValueAction::GetModeOptionIndexFromChar(0x04_byte), 4);
}

// Every table pair of the codec against the device's codes, written out.
using Bytes = std::vector<std::uint8_t>;

// Forward over every index, reverse over every byte.
template <typename Forward, typename Reverse>
void expectPair(const Forward& forward, const Reverse& reverse, const Bytes& codes) {
    for (std::size_t i = 0; i < codes.size(); ++i)
        EXPECT_EQ(forward(static_cast<std::int32_t>(i)), static_cast<std::int8_t>(codes[i])) << i;
    const auto end = static_cast<std::int32_t>(codes.size());
    for (const std::int32_t outside : {end, 256, INT32_MAX, -1, INT32_MIN})
        EXPECT_EQ(forward(outside), 0) << outside;
    for (int byte = 0; byte < 256; ++byte) {
        std::int32_t expected = 0;
        for (std::size_t i = codes.size(); i-- > 0;)
            if (codes[i] == byte)
                expected = static_cast<std::int32_t>(i);
        EXPECT_EQ(reverse(static_cast<std::int8_t>(byte)), expected) << byte;
    }
}

Bytes upTo(int end) {
    Bytes bytes;
    for (int byte = 0; byte < end; ++byte)
        bytes.push_back(static_cast<std::uint8_t>(byte));
    return bytes;
}

TEST(ValueTables, ButtonIdentifiers) {
    expectPair(ValueAction::GetButtonIDCharFromIndex, ValueAction::GetButtonIDIndexFromChar,
               {0x30, 0x01, 0x02, 0x09, 0x0B, 0x0C, 0x0D, 0x0E, 0x50, 0x51, 0x52, 0x53, 0x54,
                0x55, 0x56, 0x57, 0x58, 0x59, 0x5A, 0x5B, 0x5C, 0x5D, 0x5E, 0x5F, 0x60, 0x61,
                0x62, 0x63, 0x64, 0x65, 0x66, 0x67, 0x68, 0x69, 0x6A, 0x6B, 0x6C, 0x6D, 0x6E,
                0x6F, 0x70, 0x71, 0x72, 0x73, 0x74, 0x75, 0x76, 0x77, 0x78, 0x79, 0x7A, 0x7B,
                0x7C, 0x7D, 0x7E, 0x7F, 0x33, 0x03, 0x04, 0x0A, 0x05, 0x06, 0x07, 0x08});
}

TEST(ValueTables, TheOthers) {
    using V = ValueAction;
    const Bytes channels{0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08,
                         0x09, 0x0A, 0x0B, 0x0C, 0x0D, 0x0E, 0x0F, 0x41};
    const Bytes octaves{0x00, 0x01, 0x02, 0x03, 0x04, 0x41, 0x42, 0x43, 0x44};
    expectPair(V::GetPadModeCharFromIndex, V::GetPadModeIndexFromChar, {0x00, 0x01, 0x08, 0x09});
    expectPair(V::GetOtherModeCharFromIndex, V::GetOtherModeIndexFromChar, {0x00, 0x01, 0x04});
    expectPair(V::GetChannelCharFromIndex, V::GetChannelIndexFromChar, channels);
    expectPair(V::GetGlobalKnobRelativeModeCharFromIndex, V::GetGlobalKnobRelativeModeIndexFromChar,
               {0x01, 0x7F});
    expectPair(V::GetGlobalOctaveTranspositionCharFromIndex,
               V::GetGlobalOctaveTranspositionIndexFromChar, octaves);
    expectPair(V::GetGlobalMIDIChannelCharFromIndex, V::GetGlobalMIDIChannelIndexFromChar,
               upTo(16));
    expectPair(V::GetGlobalVelocityCurveCharFromIndex, V::GetGlobalVelocityCurveIndexFromChar,
               upTo(4));
    expectPair(V::GetGlobalPadVelocityCurveCharFromIndex, V::GetGlobalPadVelocityCurveIndexFromChar,
               upTo(4));
    expectPair(V::GetGlobalKnobAccelerationCurveCharFromIndex,
               V::GetGlobalKnobAccelerationCurveIndexFromChar, upTo(3));
    expectPair(V::GetMemCharFromIndex, V::GetMemIndexFromChar, upTo(9));
    expectPair(V::GetFrom127WithIndex, V::GetFrom127WirhChar, upTo(128));
    expectPair(V::GetFrom255WithIndex, V::GetFrom255WirhChar, upTo(256));
}

TEST(ValueTables, FirstOfEqualCodesIsFound) {
    constexpr CodeTable kTable(std::array<std::uint8_t, 4>{5, 7, 7, 5});
    EXPECT_EQ(kTable.size(), 4);
    EXPECT_EQ(kTable.indexOf(7), 1);
    EXPECT_EQ(kTable.indexOf(5), 0);
    EXPECT_EQ(kTable.indexOf(6), 0);
}

} // namespace

} // namespace scenewright
