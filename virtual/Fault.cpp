#include "virtual/Fault.h"

#include "platform/ReadableText.h"

#include <fmt/format.h>

#include <array>
#include <charconv>

namespace scenewright {

namespace {

struct FaultName {
    std::string_view name;
    Fault::Kind kind;
};

constexpr std::array<FaultName, 7> kFaultNames{{{"handshake", Fault::Kind::WrongHandshake},
                                                {"silent", Fault::Kind::NoAnswer},
                                                {"short", Fault::Kind::ShortTransfer},
                                                {"nibble", Fault::Kind::WrongNibble},
                                                {"write", Fault::Kind::FailedWrite},
                                                {"unplug", Fault::Kind::Unplug},
                                                {"stall", Fault::Kind::Stall}}};

std::optional<Fault::Kind> kindNamed(std::string_view name) {
    for (const FaultName& row : kFaultNames)
        if (row.name == name)
            return row.kind;
    return std::nullopt;
}

std::optional<std::uint32_t> countFrom(std::string_view digits) {
    std::uint32_t count = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, count);
    return error == std::errc{} && stop == end ? std::optional(count) : std::nullopt;
}

} // namespace

std::optional<Fault> parseFault(std::string_view text, std::string& trouble) {
    const auto colon = text.find(':');
    const auto kind = kindNamed(text.substr(0, colon));
    if (!kind) {
        trouble = fmt::format("'{}' is no fault: it must be handshake:N, silent:N, short:N, "
                              "nibble:N, write:N, unplug:N or stall:N",
                              readableText(text));
        return std::nullopt;
    }
    const auto count =
        colon == std::string_view::npos ? std::nullopt : countFrom(text.substr(colon + 1));
    if (!count) {
        trouble = fmt::format("'{}' is no fault: a number from 0 to 4294967295 must follow '{}:'",
                              readableText(text), text.substr(0, colon));
        return std::nullopt;
    }
    return Fault{*kind, *count};
}

} // namespace scenewright
