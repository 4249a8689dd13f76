#include "model/ValueAction.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <stdexcept>

namespace scenewright {
namespace {

// A device byte as the signed value that the codec takes and gives.
constexpr std::int8_t operator""_byte(unsigned long long value) {
    return static_cast<std::int8_t>(value);
}

TEST(ValueAction, HexTextLosesItsHighDigitBetween0x81And0x8F) {
    EXPECT_EQ(ValueAction::GetStrWirhChar(0x00_byte), "00");
    EXPECT_EQ(ValueAction::GetStrWirhChar(0x7F_byte), "7f");
    EXPECT_EQ(ValueAction::GetStrWirhChar(0x80_byte), "80");
    EXPECT_EQ(ValueAction::GetStrWirhChar(0x81_byte), "01");
    EXPECT_EQ(ValueAction::GetStrWirhChar(0x8A_byte), "0a");
    EXPECT_EQ(ValueAction::GetStrWirhChar(0x8F_byte), "0f");
    EXPECT_EQ(ValueAction::GetStrWirhChar(0x90_byte), "90");
    EXPECT_EQ(ValueAction::GetStrWirhChar(0x9C_byte), "9c");
    EXPECT_EQ(ValueAction::GetStrWirhChar(0xFF_byte), "ff");
}

TEST(ValueAction, EveryHexTextIsThatOfItsPlaceInTheDevicesList) {
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

template <typename Reverse>
void expectSignedNumber(const Reverse& reverse) {
    EXPECT_EQ(reverse(0x00_byte), 0);
    EXPECT_EQ(reverse(0x7F_byte), 127);
    EXPECT_EQ(reverse(0x80_byte), -128);
    EXPECT_EQ(reverse(0x90_byte), -112);
    EXPECT_EQ(reverse(0xFF_byte), -1);
}

TEST(ValueAction, SomeReversesGiveTheBytesSignedValue) {
    expectSignedNumber(ValueAction::GetValueIndexFromChar);
    expectSignedNumber(ValueAction::GetMIDInumbIndexFromChar);
    expectSignedNumber(ValueAction::GetMinIndexFromChar);
    expectSignedNumber(ValueAction::GetMaxIndexFromChar);
    expectSignedNumber(ValueAction::GetCRIndexFromChar);
    expectSignedNumber(ValueAction::GetCGIndexFromChar);
    expectSignedNumber(ValueAction::GetCBIndexFromChar);
    expectSignedNumber(ValueAction::GetModeOptionIndexFromChar);
}

template <typename Forward>
void expect127Table(const Forward& forward) {
    for (std::int32_t index = 0; index < 128; ++index)
        EXPECT_EQ(forward(index), index);
    EXPECT_EQ(forward(128), 0);
}

TEST(ValueAction, TheirForwardsLeanOnThe127Table) {
    expect127Table(ValueAction::GetValueCharFromIndex);
    expect127Table(ValueAction::GetMIDInumbCharFromIndex);
    expect127Table(ValueAction::GetMinCharFromIndex);
    expect127Table(ValueAction::GetMaxCharFromIndex);
    expect127Table(ValueAction::GetCRCharFromIndex);
    expect127Table(ValueAction::GetCGCharFromIndex);
    expect127Table(ValueAction::GetCBCharFromIndex);
}

TEST(ValueAction, ModeOptionIsATableOneWayAndANumberTheOther) {
    EXPECT_EQ(ValueAction::GetModeOptionCharFromIndex(3), 3);
    EXPECT_EQ(ValueAction::GetModeOptionCharFromIndex(4), 0);
    EXPECT_EQ(ValueAction::GetModeOptionIndexFromChar(0x02_byte), 2);
    EXPECT_EQ(ValueAction::GetModeOptionIndexFromChar(0x04_byte), 4);
}

} // namespace
} // namespace scenewright
