#include "model/ValueAction.h"

#include <array>
#include <stdexcept>

namespace scenewright {

namespace {

constexpr std::int32_t kTextCount = 128; // of the texts "00" to "7f"

using HexText = std::array<char, 2>;

constexpr HexText hexText(std::int32_t value) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    const auto byte = static_cast<std::uint8_t>(value);
    return {kDigits[byte >> 4U], kDigits[byte & 0x0FU]};
}

constexpr std::string_view view(const HexText& text) {
    return {text.data(), text.size()};
}

// The device's 256-text list repeats "01" to "0f" where 81 to 8f would stand.
constexpr HexText textInLongList(std::int32_t position) {
    const bool losesHighDigit = position > 0x80 && position < 0x90;
    return hexText(losesHighDigit ? position - 0x80 : position);
}

} // namespace

std::string ValueAction::GetStrFrom127WithIndex(std::int32_t index) {
    if (index < 0 || index >= kTextCount)
        throw std::out_of_range("no two-digit text for index " + std::to_string(index));
    return std::string(view(hexText(index)));
}

std::int32_t ValueAction::GetFrom127WirhStr(std::string_view text) {
    for (std::int32_t index = 0; index < kTextCount; ++index)
        if (view(hexText(index)) == text)
            return index;
    return 0;
}

std::string ValueAction::GetStrWirhChar(std::int8_t byte) {
    return std::string(view(textInLongList(GetFrom255WirhChar(byte))));
}

} // namespace scenewright
