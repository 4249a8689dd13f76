#include "platform/Diagnostics.h"

#include <atomic>
#include <mutex>
#include <utility>

namespace scenewright {

namespace {

// One stream. The flag stands apart from the sink so that a stream that is off takes no lock.
struct Stream {
    std::atomic<bool> on = false;
    std::mutex mutex;
    Diagnostics::Sink sink;

    void set(Diagnostics::Sink newSink) {
        const std::lock_guard lock(mutex);
        sink = std::move(newSink);
        on = static_cast<bool>(sink);
    }
    // The stream may have been turned off since the caller looked at the flag.
    void write(std::string_view text) {
        const std::lock_guard lock(mutex);
        if (sink)
            sink(text);
    }
};

Stream& consoleStream() {
    static Stream stream;
    return stream;
}

Stream& logStream() {
    static Stream stream;
    return stream;
}

} // namespace

void Diagnostics::setConsole(Sink sink) {
    consoleStream().set(std::move(sink));
}
void Diagnostics::setLog(Sink sink) {
    logStream().set(std::move(sink));
}

bool Diagnostics::consoleIsOn() noexcept {
    return consoleStream().on;
}
bool Diagnostics::logIsOn() noexcept {
    return logStream().on;
}

void Diagnostics::writeConsole(std::string_view text) {
    consoleStream().write(text);
}
void Diagnostics::writeLog(std::string_view line) {
    logStream().write(line);
}

std::string hexDump(std::span<const std::uint8_t> bytes) {
    static constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    text.reserve(bytes.size() * 3);
    for (const std::uint8_t byte : bytes) {
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 0x0FU];
        text += ' ';
    }
    return text;
}

} // namespace scenewright
