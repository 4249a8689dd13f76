// The command that plays a bank as the keyboard would: play.
#include "app/ScenePlayer.h"
#include "cli/BankArgument.h"
#include "cli/Command.h"
#include "cli/Listening.h"
#include "platform/Process.h"
#include "platform/Text.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <memory>
#include <string>
#include <utility>

namespace scenewright {

namespace {

// Where it is played to: the port, unless nothing but words is wanted, and standard output.
class Destination {
public:
    Destination(std::unique_ptr<PlayPort> port, Titles noteNames)
        : port_(std::move(port)), noteNames_(std::move(noteNames)) {}

    [[nodiscard]] int descriptor() const { return port_ ? port_->descriptor() : -1; }
    // What became of the output so far.
    [[nodiscard]] const Result<void>& printed() const { return printed_; }

    void send(const MidiMessage& message) {
        if (port_)
            if (const auto sent = port_->send(message); !sent)
                tell(sent.error());
        if (printed_)
            printed_ = writeStandardOutput(messageText(message, noteNames_) + "\n");
    }
    // As PlayPort::process().
    bool process() {
        const bool hasGone = port_->process();
        tellListeners();
        return hasGone;
    }
    void tellListeners() {
        if (port_)
            tell(port_->listeners().empty()
                     ? fmt::format("nothing is connected to the MIDI port {} ({}) yet",
                                   PlayPort::kName, port_->address())
                     : fmt::format("playing to {}", fmt::join(port_->listeners(), ", ")));
    }

private:
    void tell(const std::string& sentence) {
        if (std::exchange(told_, sentence) != sentence)
            reportError(sentence, 0);
    }

    std::unique_ptr<PlayPort> port_;
    Titles noteNames_;
    Result<void> printed_;
    std::string told_; // the last sentence
};

Result<PlayOrder> orderOf(const std::string& line) {
    const auto order = parsePlayOrder(line);
    return order.value_or(failure(fmt::format(
        "'{}' is no order: those are scene, press, release, turn and slide", readableText(line))));
}

// The exit code: whether each line was an order.
int follow(ScenePlayer& player, Destination& destination) {
    int exitCode = kExitDone;
    const Waiting waiting;
    LineReader lines(STDIN_FILENO);
    while (destination.printed() && (lines.descriptor() >= 0 || player.next())) {
        const auto come = waiting.wait(destination.descriptor(), lines.descriptor(), player.next());
        if (come.isToEnd)
            break;
        if (come.hasInput && destination.process())
            player.releaseAll();
        player.advance();
        if (!come.hasLines)
            continue;
        for (const auto& line : lines.take())
            if (const auto order = line.and_then(&orderOf); order)
                player.play(*order);
            else
                exitCode = reportError(order.error(), kExitUsage);
    }
    return exitCode;
}

int runPlay(const Arguments& arguments) {
    const std::string name = arguments.text("BANK");
    if (inputDescriptor(name) == STDIN_FILENO)
        return reportError(
            "what is to be played comes from standard input, so that the bank cannot", kExitUsage);
    const auto bank = loadShown(name, &loadBank);
    if (!bank)
        return reportError(bank.error(), kExitUsage);
    std::unique_ptr<PlayPort> port;
    if (!arguments.has("--virtual")) {
        auto opened = PlayPort::openMachines();
        if (!opened)
            return reportError(opened.error(), kExitController);
        port = std::make_unique<PlayPort>(std::move(*opened));
    }
    Destination destination(std::move(port), bank->lists->pad_NoteNumber_Array());
    destination.tellListeners();
    int exitCode = kExitDone;
    {
        ScenePlayer player(
            [image = encodeBank(bank->scenes)] { return image; },
            [&destination](const MidiMessage& message) { destination.send(message); });
        player.play(
            {.kind = PlayOrder::Kind::Scene, .number = arguments.number("--scene").value_or(1)});
        exitCode = follow(player, destination);
    }
    if (!destination.printed())
        return reportError(destination.printed().error(), kExitOutput);
    return exitCode;
}

} // namespace

CommandChoice playCommand(const Arguments& arguments) {
    return {.run = &runPlay,
            .files = {bankToRead(arguments.text("BANK"), "the bank that is to be played")}};
}

} // namespace scenewright
