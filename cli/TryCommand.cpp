// The command that lets a player touch each control and compares what comes: try.
#include "app/KeyboardListener.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Trial.h"
#include "cli/Waiting.h"
#include "platform/LineReader.h"

#include <chrono>
#include <string>
#include <vector>

namespace scenewright {

namespace {

constexpr int kExitWrong = 1; // a control sends something else

struct TryRequest {
    std::string bank;
    std::string device; // empty for all
    int scene = 0;      // from 1; 0 is all
    bool asJson = false;
};

void tell(const std::string& sentence) {
    reportError(sentence, kExitDone);
}

Result<void> print(Trial& trial) {
    const std::string results = trial.results();
    auto printed = results.empty() ? Result<void>{} : printOut(results);
    for (const std::string& sentence : trial.words())
        tell(sentence);
    return printed;
}

int follow(Sequencer& sequencer, KeyboardListener& listener, Trial& trial) {
    const Waiting waiting;
    LineReader lines(STDIN_FILENO);
    for (;;) {
        if (const auto printed = print(trial); !printed)
            return reportError(printed.error(), kExitOutput);
        if (trial.isDone())
            return trial.hasWrong() ? kExitWrong : kExitDone;
        const auto come = waiting.wait(sequencer.descriptor(), lines.descriptor());
        for (const MidiMessage& message : listener.take())
            trial.take(message, std::chrono::steady_clock::now());
        if (come.hasLines)
            for (const auto& line : lines.take())
                if (const auto done = line.and_then(
                        [&trial](const std::string& order) { return trial.order(order); });
                    !done)
                    tell(done.error());
        if (come.isToEnd)
            static_cast<void>(trial.order("end"));
    }
}

int runTry(const TryRequest& request) {
    const auto bank = loadBank(request.bank);
    if (!bank)
        return reportError(bank.error(), kExitUsage);
    const Keyboards keyboards(request.device);
    if (const auto checked = keyboards.checkChosen(); !checked)
        return reportError(checked.error(), kExitController);
    const auto sequencer = openSequencer("Scenewright try");
    if (!sequencer)
        return reportError(sequencer.error(), kExitController);
    KeyboardListener listener(
        **sequencer, [&keyboards] { return heardKeyboards(keyboards); }, &tell);
    if (!listener.start())
        return kExitController;
    std::vector<int> scenes{1, 2, 3, 4};
    if (request.scene != 0)
        scenes = {request.scene};
    Trial trial(bank->scenes, scenes,
                {.asJson = request.asJson, .noteNames = loadPopUpValue()->pad_NoteNumber_Array()});
    return follow(**sequencer, listener, trial);
}

} // namespace

CommandChoice tryCommand(const Arguments& arguments) {
    const TryRequest request{.bank = arguments.text("BANK"),
                             .device = arguments.text("--device"),
                             .scene = arguments.number("--scene").value_or(0),
                             .asJson = arguments.has("--json")};
    return {.run = [request] { return runTry(request); },
            .files = {bankToRead(request.bank, "the bank that is to be tried")}};
}

} // namespace scenewright
