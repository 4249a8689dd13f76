// The two diagnostic streams of a program.
//
// The console carries text exactly as it is formatted: most pieces end in a line feed, some are
// pieces of a line. The system log carries one line an event, without a line feed of its own.
// Both are off until a program gives them a sink; a stream that is off costs one flag test, no
// formatting. Any thread may write; a sink is called by one thread at a time.
#pragma once

#include <fmt/printf.h>

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace scenewright {

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

    // `format` is a printf format; the arguments are formatted only when the stream is on.
    template <typename... Args>
    static void console(std::string_view format, const Args&... args) {
        if (consoleIsOn())
            writeConsole(fmt::sprintf(format, args...));
    }
    template <typename... Args>
    static void log(std::string_view format, const Args&... args) {
        if (logIsOn())
            writeLog(fmt::sprintf(format, args...));
    }

private:
    static void writeConsole(std::string_view text);
    static void writeLog(std::string_view line);
};

// "%02x " for each byte: two lower-case hexadecimal digits and one blank, so 3n characters.
[[nodiscard]] std::string hexDump(std::span<const std::uint8_t> bytes);

} // namespace scenewright
