#include "cli/Command.h"

#include "platform/Process.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <poll.h>
#include <sys/signalfd.h>

namespace scenewright {

Result<CommandLine> parseCommandLine(int argc, const char* const* argv) {
    return parseArguments(commandLineSyntax(), argc, argv).map([](const ParsedArguments& line) {
        if (line.answer)
            return CommandLine{.options = {}, .choice = {}, .answer = line.answer};
        return CommandLine{.options = launchOptions(line.arguments),
                           .choice = chooseCommand(line.command, line.arguments),
                           .answer = std::nullopt};
    });
}

int reportError(std::string_view sentence, int exitCode) {
    reportError("scenewright-cli", sentence);
    return exitCode;
}

Waiting::Waiting() {
    ::sigset_t ending{};
    sigemptyset(&ending);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action {};
        if (::sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN)
            sigaddset(&ending, signal);
    }
    signals_ = FileDescriptor(::signalfd(-1, &ending, SFD_CLOEXEC | SFD_NONBLOCK));
    if (signals_.isOpen()) // else they end the program as they end any
        pthread_sigmask(SIG_BLOCK, &ending, nullptr);
}

Waiting::Come Waiting::wait(int input, int lines,
                            std::optional<std::chrono::steady_clock::time_point> until) const {
    using std::chrono::milliseconds;
    milliseconds limit{-1};
    if (until)
        limit =
            std::max(milliseconds(0),
                     std::chrono::ceil<milliseconds>(*until - std::chrono::steady_clock::now()));
    std::array<pollfd, 3> places{
        {{input, POLLIN, 0}, {lines, POLLIN, 0}, {signals_.get(), POLLIN, 0}}};
    ::poll(places.data(), places.size(), static_cast<int>(limit.count()));
    return {.hasInput = places[0].revents != 0,
            .hasLines = places[1].revents != 0,
            .isToEnd = places[2].revents != 0};
}

} // namespace scenewright
