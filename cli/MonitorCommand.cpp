// The command that shows what the keyboard sends: monitor.
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Monitor.h"
#include "model/PopUpValue.h"
#include "platform/Process.h"

#include <csignal>
#include <poll.h>
#include <string>
#include <sys/signalfd.h>

namespace scenewright {

namespace {

struct MonitorRequest {
    std::string bank; // empty for none
    bool asJson = false;
    bool showsAll = false;
};

// The signals that end a program, as a descriptor: readable once one has come. One that was ignored
// at the start stays ignored.
FileDescriptor endingSignals() {
    ::sigset_t ending{};
    sigemptyset(&ending);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action {};
        if (::sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN)
            sigaddset(&ending, signal);
    }
    pthread_sigmask(SIG_BLOCK, &ending, nullptr);
    return FileDescriptor(::signalfd(-1, &ending, SFD_CLOEXEC | SFD_NONBLOCK));
}

int follow(Sequencer& sequencer, Monitor& monitor, int signals) {
    monitor.start();
    for (;;) {
        std::array<pollfd, 2> places{{{sequencer.descriptor(), POLLIN, 0}, {signals, POLLIN, 0}}};
        ::poll(places.data(), places.size(), -1);
        const std::string lines = monitor.take(Monitor::Clock::now());
        if (!lines.empty())
            if (const auto printed = printOut(lines); !printed)
                return reportError(printed.error(), kExitOutput);
        if (places[1].revents != 0)
            return kExitDone;
    }
}

int runMonitor(const MonitorRequest& request) {
    const auto lists = loadPopUpValue();
    MonitorOptions options{.asJson = request.asJson,
                           .showsAll = request.showsAll,
                           .hasBank = !request.bank.empty(),
                           .noteNames = lists->pad_NoteNumber_Array()};
    if (options.hasBank) {
        auto bank = loadBank(request.bank);
        if (!bank)
            return reportError(bank.error(), kExitUsage);
        options.bank = std::move(bank->scenes);
    }
    const auto sequencer = openSequencer("Scenewright");
    if (!sequencer)
        return reportError(sequencer.error(), kExitController);
    const FileDescriptor signals = endingSignals();
    Monitor monitor(**sequencer, &soundKeyboards, std::move(options),
                    [](const std::string& sentence) { reportError(sentence, 0); });
    return follow(**sequencer, monitor, signals.get());
}

} // namespace

CommandChoice monitorCommand(const Arguments& arguments) {
    const MonitorRequest request{.bank = arguments.text("--bank"),
                                 .asJson = arguments.has("--json"),
                                 .showsAll = arguments.has("--all")};
    CommandChoice choice{.run = [request] { return runMonitor(request); }};
    if (!request.bank.empty())
        choice.files = {bankToRead(request.bank, "the bank whose controls are told")};
    return choice;
}

} // namespace scenewright
