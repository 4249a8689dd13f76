// Numbers out of text: what people type, what files and the system's own files hold. Any thread.
#pragma once

#include <charconv>
#include <concepts>
#include <optional>
#include <string_view>
#include <system_error>

namespace scenewright {

// The number that the whole text is, in digits of this base; a minus before them for a Number that
// has a sign. Nothing for anything else, a plus and blanks among it, nor for what no Number holds.
template <std::integral Number>
[[nodiscard]] std::optional<Number> numberFrom(std::string_view text, int base = 10) {
    Number number = 0;
    // cppcheck-suppress danglingTemporaryLifetime ; the caller's text lasts as long as the call
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number, base);
    const bool isWhole = read.ec == std::errc() && read.ptr == text.data() + text.size();
    return isWhole ? std::optional(number) : std::nullopt;
}

// The same in decimal digits, from `least` to `most`.
template <std::integral Number>
[[nodiscard]] std::optional<Number> numberWithin(std::string_view text, Number least, Number most) {
    const auto number = numberFrom<Number>(text);
    return number && *number >= least && *number <= most ? number : std::nullopt;
}

} // namespace scenewright
