#include "virtual/usbip/Commands.h"

#include "platform/Text.h"

#include <fmt/format.h>

#include <sstream>

namespace scenewright::usbip {

namespace {

constexpr std::string_view kCommands =
    "those are faults, unplug, plug, scene, press, release, turn and slide";

Result<ServerCommand> parseFaults(std::istream& words) {
    ServerCommand command;
    std::string word;
    while (words >> word) {
        const auto fault = parseFault(word);
        if (!fault)
            return failure(fault.error());
        command.faults.push_back(*fault);
    }
    return command;
}

} // namespace

Result<ServerCommand> parseCommand(std::string_view line) {
    std::istringstream words{std::string(line)};
    std::string verb;
    std::string rest;
    words >> verb;
    if (verb == "faults")
        return parseFaults(words);
    if (verb == "unplug" && !(words >> rest))
        return ServerCommand{.kind = ServerCommand::Kind::Unplug};
    if (verb == "plug" && !(words >> rest))
        return ServerCommand{.kind = ServerCommand::Kind::Plug};
    if (const auto order = parsePlayOrder(line))
        return order->map([](const PlayOrder& play) {
            return ServerCommand{.kind = ServerCommand::Kind::Play, .play = play};
        });
    return failure(fmt::format("'{}' is no order: {}", readableText(line), kCommands));
}

} // namespace scenewright::usbip
