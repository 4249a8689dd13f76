// The command that shows what the keyboard sends: monitor.
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Monitor.h"
#include "cli/Waiting.h"
#include "model/PopUpValue.h"

#include <string>

namespace scenewright {

namespace {

struct MonitorRequest {
    std::string bank;   // empty for none
    std::string device; // the same
    bool asJson = false;
    bool showsAll = false;
};

int follow(Sequencer& sequencer, Monitor& monitor) {
    const Waiting waiting;
    if (!monitor.start())
        return kExitController;
    for (bool isToEnd = false; !isToEnd;) {
        isToEnd = waiting.wait(sequencer.descriptor()).isToEnd;
        const std::string lines = monitor.take(Monitor::Clock::now());
        if (!lines.empty())
            if (const auto printed = printOut(lines); !printed)
                return reportError(printed.error(), kExitOutput);
    }
    return kExitDone;
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
    const Keyboards keyboards(request.device);
    if (const auto checked = keyboards.checkChosen(); !checked)
        return reportError(checked.error(), kExitController);
    const auto sequencer = openSequencer("Scenewright monitor");
    if (!sequencer)
        return reportError(sequencer.error(), kExitController);
    Monitor monitor(
        **sequencer, [&keyboards] { return heardKeyboards(keyboards); }, std::move(options),
        [](const std::string& sentence) { reportError(sentence, 0); });
    return follow(**sequencer, monitor);
}

} // namespace

CommandChoice monitorCommand(const Arguments& arguments) {
    const MonitorRequest request{.bank = arguments.text("--bank"),
                                 .device = arguments.text("--device"),
                                 .asJson = arguments.has("--json"),
                                 .showsAll = arguments.has("--all")};
    CommandChoice choice{.run = [request] { return runMonitor(request); }};
    if (!request.bank.empty())
        choice.files = {bankToRead(request.bank, "the bank whose controls are told")};
    return choice;
}

} // namespace scenewright
