// The faults that the virtual controller is ordered to have, at its start or while it runs: taken
// ones mean what they say, refused ones are told in one sentence.
#include "tests/fuzz/Checks.h"
#include "virtual/usbip/Server.h"

#include <fmt/format.h>

namespace scenewright::fuzz {

namespace {

void checkFault(std::string_view text) {
    const auto fault = parseFault(text);
    if (!fault)
        return checkSentence(fault.error());
    const std::uint32_t count = fault->count + (faultIsPlanted() ? 1U : 0U);
    const std::string again = fmt::format("{}:{}", text.substr(0, text.find(':')), count);
    check(parseFault(again) == fault, "a fault does not count as it says");
}

void checkCommand(std::string_view line) {
    using Kind = usbip::ServerCommand::Kind;
    const auto command = usbip::parseCommand(line);
    if (!command) {
        checkSentence(command.error());
        return;
    }
    check(command->kind == Kind::Faults || command->faults.empty(), "a command of two kinds");
    if (command->kind != Kind::Play)
        return;
    Playing playing;
    const BankImage bank{};
    playing.take(command->play, bank, {});
    playing.advance(bank, PlayingTime(command->play.time));
    check(!playing.next(), "a slide lasts longer than its time");
}

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = scenewright::fuzz::textOf(std::span(data, size));
    scenewright::fuzz::checkFault(text);
    scenewright::fuzz::checkCommand(text);
    return 0;
}
