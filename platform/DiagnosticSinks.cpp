#include "platform/DiagnosticSinks.h"

#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace scenewright {

namespace {

constexpr mode_t kNewFileMode = 0666; // before the process's umask

void writeFlushed(std::FILE* file, std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), file);
    std::fflush(file);
}

std::string asOneLine(std::string_view line) {
    std::string text;
    text.reserve(line.size() + 1);
    for (const char c : line) {
        if (c == '\n')
            text += "\\n";
        else
            text += c;
    }
    text += '\n';
    return text;
}

// Empties or makes the file. Both streams may name the same one: each piece then goes to its end.
std::shared_ptr<std::FILE> openForAppending(const std::string& name) {
    const int fd =
        ::open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, kNewFileMode);
    if (fd < 0)
        return nullptr;
    std::FILE* file = ::fdopen(fd, "a");
    if (file == nullptr) {
        ::close(fd);
        return nullptr;
    }
    return {file, [](std::FILE* owned) { std::fclose(owned); }};
}

using MakeSink = Diagnostics::Sink (*)(std::FILE*);
using SetSink = void (*)(Diagnostics::Sink);

std::optional<std::string> sendTo(const std::string& name, MakeSink makeSink, SetSink setSink) {
    if (name == "-") {
        setSink(makeSink(stderr));
        return std::nullopt;
    }
    std::shared_ptr<std::FILE> file = openForAppending(name);
    if (file == nullptr)
        return "Cannot write " + name + ": " + std::generic_category().message(errno) + ".";
    setSink([file, sink = makeSink(file.get())](std::string_view text) { sink(text); });
    return std::nullopt;
}

} // namespace

Diagnostics::Sink consoleSink(std::FILE* file) {
    return [file](std::string_view text) { writeFlushed(file, text); };
}

Diagnostics::Sink logSink(std::FILE* file) {
    return [file](std::string_view line) { writeFlushed(file, asOneLine(line)); };
}

std::optional<std::string> sendConsoleTo(const std::string& name) {
    return sendTo(name, consoleSink, Diagnostics::setConsole);
}

std::optional<std::string> sendLogTo(const std::string& name) {
    return sendTo(name, logSink, Diagnostics::setLog);
}

} // namespace scenewright
