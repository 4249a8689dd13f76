#include "virtual/usbip/Commands.h"

#include "platform/Text.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <sstream>
#include <unistd.h>
#include <utility>

namespace scenewright::usbip {

namespace {

constexpr std::size_t kMaxLine = 4096; // bytes
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

std::vector<Result<ServerCommand>> CommandReader::take() {
    std::array<char, kMaxLine> room{};
    const ssize_t count = ::read(descriptor_, room.data(), room.size());
    std::vector<Result<ServerCommand>> commands;
    for (ssize_t place = 0; place < count; ++place) {
        const char letter = room[static_cast<std::size_t>(place)];
        if (letter == '\n')
            commands.push_back(endLine());
        else if (begun_.size() < kMaxLine)
            begun_ += letter;
        else
            isTooLong_ = true;
    }
    if (count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN)) {
        descriptor_ = -1;
        if (!begun_.empty())
            commands.push_back(endLine());
    }
    return commands;
}

Result<ServerCommand> CommandReader::endLine() {
    const std::string line = std::exchange(begun_, {});
    if (std::exchange(isTooLong_, false))
        return failure(
            fmt::format("a line of more than {} bytes is no order: {}", kMaxLine, kCommands));
    return parseCommand(line);
}

} // namespace scenewright::usbip
