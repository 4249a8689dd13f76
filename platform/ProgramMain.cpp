#include "platform/Process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <new>
#include <system_error>
#include <unistd.h>

namespace scenewright {

namespace {

// A line in a place of its own, as there may be no memory left.
class Line {
public:
    void add(std::string_view text) noexcept {
        text = text.substr(0, text_.size() - 1 - length_);
        std::ranges::replace_copy_if(
            text, text_.begin() + static_cast<std::ptrdiff_t>(length_),
            [](unsigned char c) { return c < ' ' || c > '~'; }, '?');
        length_ += text.size();
    }
    void write() noexcept {
        text_.at(length_) = '\n';
        writeStandardError(std::string_view(text_.data(), length_ + 1));
    }

private:
    std::array<char, 512> text_{};
    std::size_t length_ = 0;
};

[[noreturn]] void endWithSentence() noexcept {
    Line line;
    line.add(program_invocation_short_name);
    line.add(": ");
    if (const std::exception_ptr thrown = std::current_exception()) {
        try {
            std::rethrow_exception(thrown);
        } catch (const std::exception& error) {
            line.add(sentenceOf(error));
        } catch (...) {
            line.add("something went wrong that was not expected");
        }
    } else
        line.add("something went wrong that was not expected");
    line.write();
    ::_exit(kExitUnexpected);
}

// The first priority that is not the system's own.
[[gnu::constructor(101)]] void installHandler() noexcept {
    std::set_terminate(&endWithSentence);
}

} // namespace

std::string_view sentenceOf(const std::exception& error) noexcept {
    if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr)
        return "the system has no memory left";
    const auto* const system = dynamic_cast<const std::system_error*>(&error);
    if (system != nullptr && system->code() == std::errc::resource_unavailable_try_again)
        return "the system has no thread left";
    return error.what();
}

int runProgram(std::string_view name, int (*run)(int, char**), int argc, char** argv) noexcept {
    prepareProcess();
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        reportError(name, sentenceOf(error));
    }
    return kExitUnexpected;
}

} // namespace scenewright
