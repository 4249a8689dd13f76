// Texts for a person, in the folders that know no toolkit: our own, as they are written in the code
// or in the person's language, and those that come from outside, made fit to be shown.
//
// Each of our own is marked where it stands, with the context that its translation is found under,
// and goes through the one translator that a program has put in. A program without one speaks as
// written; so do the streams, whatever the language of the window. Then numbers out of text: what
// people type, what files and the system's own files hold. At the end, what an operation gives that
// can fail, which is such a text when it does.
#pragma once

#include <fmt/format.h>

#include <charconv>
#include <concepts>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <tl/expected.hpp>
#include <type_traits>
#include <utility>

namespace scenewright {

// Both live as long as the program. `written` may hold places as fmt has them, "{}", which a
// translation keeps, in any order ("{1} ... {0}").
struct SourceText {
    const char* context;
    const char* written;
};

constexpr SourceText sourceText(const char* context, const char* written) {
    return {context, written};
}

// How a text reaches a person.
using Translator = std::string (*)(SourceText text);

// Through the translator that was put in last. Any thread.
[[nodiscard]] std::string translated(SourceText text);
// `translator` may be called on any thread; null for none.
void setTranslator(Translator translator);

[[nodiscard]] std::string filled(SourceText text, fmt::format_args values);

// The text in the language with its places filled. A translation whose places do not fit is passed
// over for the text as written.
template <typename... Values>
[[nodiscard]] std::string translated(SourceText text, const Values&... values) {
    return filled(text, fmt::make_format_args(values...));
}

// A text from outside, the name of a device or a file or an argument, as valid UTF-8 of one line:
// bytes that are no UTF-8, control characters, among them a terminal's commands, and those that end
// a line or turn its direction show as U+FFFD. Any thread.
[[nodiscard]] std::string readableText(std::string_view text);

// The bytes of a text. Refers to them.
[[nodiscard]] inline std::string_view asText(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

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

// What an operation gives that can fail: its value, or why there is none.
//
// The reason is one sentence for a person unless the operation names another type. It names the
// file or the device concerned and ends without a full stop, so that it can be put after a prefix.
template <typename Value, typename Error = std::string>
using Result = tl::expected<Value, Error>;

// `return failure("...")` from an operation that gives a Result.
template <typename Error>
[[nodiscard]] tl::unexpected<std::decay_t<Error>> failure(Error&& reason) {
    return tl::unexpected<std::decay_t<Error>>(std::forward<Error>(reason));
}
[[nodiscard]] inline tl::unexpected<std::string> failure(const char* reason) {
    return tl::unexpected<std::string>(reason);
}

} // namespace scenewright
