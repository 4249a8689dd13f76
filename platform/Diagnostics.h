// The two diagnostic streams of a program.
//
// The console carries text exactly as it is formatted: most pieces end in a line feed, some are
// pieces of a line. The system log carries one line an event, without a line feed of its own.
// Both are off until a program gives them a sink; a stream that is off costs one flag test, no
// formatting. Any thread may write; a sink is called by one thread at a time.
#pragma once

#include "platform/Text.h"

#include <fmt/printf.h>

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace scenewright {

// A text with its places filled, as printf has them: "%s", "%d". The templates that do it take the
// compiler a second in each file that calls them: this calls them in one.
[[nodiscard]] std::string formatPrintf(std::string_view format, fmt::printf_args values);

template <typename... Values>
[[nodiscard]] std::string printfText(std::string_view format, const Values&... values) {
    return formatPrintf(format, fmt::make_printf_args(values...));
}

// What a stream can write: a text with "%s", a number with "%d", "%u" and "%x".
template <typename T>
concept StreamText = std::convertible_to<const T&, std::string_view>;
template <typename T>
concept StreamNumber = std::integral<T> && !std::same_as<T, bool>;

// Whether each conversion of the printf format has its argument, of the kind that it asks for, and
// no argument is left over. A conversion is "%", flags, a width, "l" or "z" before a number's
// letter, and the letter; "%%" is a percent sign.
template <typename... Args>
constexpr bool formatFits(std::string_view format) {
    static_assert(((StreamText<Args> || StreamNumber<Args>)&&...), "a text or a number");
    constexpr std::array<bool, sizeof...(Args) + 1> kIsText{StreamText<Args>..., false};
    std::size_t argument = 0;
    for (std::size_t at = format.find('%'); at != std::string_view::npos;
         at = format.find('%', at + 1)) {
        if (format.substr(at + 1).starts_with('%')) {
            ++at;
            continue;
        }
        const std::size_t modifier = format.find_first_not_of("-+ #0123456789", at + 1);
        at = format.find_first_not_of("lz", modifier);
        if (at == std::string_view::npos || argument == sizeof...(Args))
            return false;
        const bool isText = format[at] == 's' && at == modifier;
        const bool isNumber = std::string_view("dux").find(format[at]) != std::string_view::npos;
        if (kIsText[argument] ? !isText : !isNumber)
            return false;
        ++argument;
    }
    return argument == sizeof...(Args);
}

// A printf format for arguments of these types, checked when it is compiled: made from a literal,
// or kept as a constant of its own, as in a table.
template <typename... Args>
class Format {
public:
    template <StreamText Text>
    // NOLINTNEXTLINE(google-explicit-constructor,hicpp-explicit-conversions): literals are passed
    consteval Format(const Text& text) : text_(text) {
        if (!formatFits<Args...>(text_))
            argumentsDoNotFitTheFormat();
    }
    [[nodiscard]] constexpr std::string_view text() const noexcept { return text_; }

private:
    static void argumentsDoNotFitTheFormat() {} // is no constant: calling it ends the compilation

    std::string_view text_;
};

class Diagnostics {
public:
    Diagnostics() = delete;

    // Receives one piece of console text, or one log line. It must not write to a stream itself.
    using Sink = std::function<void(std::string_view)>;

    // An empty sink turns the stream off.
    static void setConsole(Sink sink);
    static void setLog(Sink sink);

    [[nodiscard]] static bool consoleIsOn() noexcept;
    [[nodiscard]] static bool logIsOn() noexcept;

    // The arguments are formatted only when the stream is on.
    template <typename... Args>
    static void console(std::type_identity_t<Format<Args...>> format, const Args&... args) {
        if (consoleIsOn())
            writeConsole(formatted(format.text(), args...));
    }
    template <typename... Args>
    static void log(std::type_identity_t<Format<Args...>> format, const Args&... args) {
        if (logIsOn())
            writeLog(formatted(format.text(), args...));
    }

private:
    template <StreamText T>
    static std::string_view argument(const T& text) {
        return text;
    }
    template <StreamNumber T>
    static T argument(T number) {
        return number;
    }
    template <typename... Args>
    static std::string formatted(std::string_view format, const Args&... args) {
        return printfText(format, argument(args)...);
    }

    static void writeConsole(std::string_view text);
    static void writeLog(std::string_view line);
};

// "%02x " for each byte: two lower-case hexadecimal digits and one blank, so 3n characters.
[[nodiscard]] std::string hexDump(std::span<const std::uint8_t> bytes);

// ---- Where the streams can go: the program's own streams, or a file that the user names.
//
// No sink throws, nor waits for a reader for longer than half a second: what cannot be written is
// dropped.

// Console text to an open descriptor, as it stands. The caller keeps it open.
[[nodiscard]] Diagnostics::Sink consoleSink(int fd);

// Log lines, each ended by one line feed; a line feed inside a line is written as \n.
[[nodiscard]] Diagnostics::Sink logSink(int fd);

// Empties or makes the file, or takes the descriptor that it stands for ('-' is standard error),
// and hands the stream over to it. On error the stream stays as it is;
// a pipe that nobody reads is one.
[[nodiscard]] Result<void> sendConsoleTo(const std::string& name);
[[nodiscard]] Result<void> sendLogTo(const std::string& name);

// Turns both streams off and closes their files. The error is the first file that was not written
// whole since it was opened. Main thread, once no other thread writes.
[[nodiscard]] Result<void> endDiagnostics();

} // namespace scenewright
