#include "virtual/program/Options.h"

#include "platform/Text.h"
#include "virtual/usbip/Sockets.h"

#include <fmt/format.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

// Up to four hexadecimal digits, with or without "0x".
std::optional<std::uint16_t> identifierFrom(std::string_view text) {
    if (text.starts_with("0x") || text.starts_with("0X"))
        text.remove_prefix(2);
    return text.size() <= 4 ? numberFrom<std::uint16_t>(text, 16) : std::nullopt;
}

Result<void> takeIdentity(const std::string& text, VirtualIdentity& identity) {
    const auto colon = text.find(':');
    const auto vendor = identifierFrom(std::string_view(text).substr(0, colon));
    const auto product = colon == std::string::npos
                             ? std::nullopt
                             : identifierFrom(std::string_view(text).substr(colon + 1));
    if (!vendor || !product)
        return failure(
            fmt::format("--identity: '{}' must be two hexadecimal numbers, as in 1209:0001", text));
    identity.vendor = *vendor;
    identity.product = *product;
    return {};
}

Result<void> takeFaults(const std::vector<std::string>& texts, FaultPlan& faults) {
    for (const std::string& text : texts) {
        const auto fault = parseFault(text);
        if (!fault)
            return failure("--fault: " + fault.error());
        faults.push_back(*fault);
    }
    return {};
}

Result<ProgramOptions> programOptions(const Arguments& arguments) {
    ProgramOptions options{.listen = arguments.text("--listen"),
                           .vhciPort = std::nullopt,
                           .bank = arguments.text("--bank"),
                           .faults = {},
                           .takesOrders = arguments.has("--orders"),
                           .trace = arguments.text("--trace"),
                           .resources = arguments.text("--resources"),
                           .identity = {}};
    if (!usbip::Listener::isAddress(options.listen))
        return failure(fmt::format(
            "--listen: '{}' must be an address and a port, as in 127.0.0.1:3240", options.listen));
    for (const std::string& port : arguments.texts("--vhci")) // one at most
        if (options.vhciPort = numberFrom<std::uint32_t>(port); !options.vhciPort)
            return failure(fmt::format("Could not convert: --vhci = {}", port));
    if (const auto taken = takeFaults(arguments.texts("--fault"), options.faults); !taken)
        return failure(taken.error());
    if (const auto count = arguments.number("--interfaces"))
        options.identity.interfaces = static_cast<std::uint8_t>(*count);
    if (arguments.has("--identity"))
        if (const auto taken = takeIdentity(arguments.text("--identity"), options.identity); !taken)
            return failure(taken.error());
    return options;
}

} // namespace

Result<ProgramLine> parseProgramLine(int argc, const char* const* argv) {
    const auto line = parseArguments(virtualSyntax(), argc, argv);
    if (!line)
        return failure(line.error());
    if (line->answer)
        return *line->answer;
    return programOptions(line->arguments)
        .map([](const ProgramOptions& options) { return ProgramLine(options); })
        .map_error(&refusedArgument);
}

} // namespace scenewright
