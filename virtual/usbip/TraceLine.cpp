#include "virtual/usbip/TraceLine.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <cstdint>
#include <string_view>

namespace scenewright::usbip {

namespace {

std::string_view word(UrbStatus status) {
    switch (status) {
    case UrbStatus::Ok:
        return "ok";
    case UrbStatus::Stall:
        return "stall";
    case UrbStatus::Failed:
        return "failed";
    case UrbStatus::Overflow:
        return "overflow";
    case UrbStatus::Unlinked:
        return "unlinked";
    }
    return "unknown";
}

std::string hex(ByteView bytes) {
    return fmt::format("{:02x}", fmt::join(bytes, " "));
}

} // namespace

std::string traceLine(const Completion& completion) {
    const SubmitCommand& command = completion.command;
    std::string line =
        fmt::format("{} ep{} {} {} {}", command.sequence, command.endpoint,
                    command.isIn ? "in" : "out", word(completion.status), completion.moved);
    if (command.endpoint == 0)
        line += fmt::format(" ({})", hex(command.setup));
    if (!completion.data.empty())
        line += ": " + hex(completion.data);
    return line;
}

std::string unlinkTraceLine(std::uint32_t sequence) {
    return fmt::format("{} unlinked", sequence);
}

} // namespace scenewright::usbip
