#include "virtual/program/Options.h"

#include "platform/ReadableText.h"
#include "virtual/usbip/Sockets.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <charconv>
#include <cstdint>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

constexpr const char* kDescription =
    "A keyboard controller for those who have none at hand: a real USB device to Linux,\n"
    "served over USB/IP.";

constexpr const char* kFooter =
    "Faults, N counted from 0 since the controller was plugged in:\n"
    "  handshake:N  the first N handshakes are answered wrong\n"
    "  silent:N     after N replies nothing is answered any more\n"
    "  short:N      reply N with a byte of the bank has 2 bytes instead of 4\n"
    "  nibble:N     reply N with a byte of the bank has a nibble above 15\n"
    "  write:N      every write after N packets fails\n"
    "  unplug:N     at byte N of the bank, read or sent, the controller leaves the bus, once\n"
    "  stall:N      at byte N of the bank, read or sent, the pipe halts\n\n"
    "Orders, a line each:\n"
    "  faults KIND:N ...  other faults from now on; without any, none\n"
    "  unplug             the controller leaves the bus\n"
    "  plug               it is plugged in again (with --vhci)\n\n"
    "Example:\n"
    "  scenewright-virtual --bank pretend.bank\n"
    "  sudo modprobe vhci_hcd && sudo usbip attach -r 127.0.0.1 -b 1-1\n\n"
    "SIGINT, SIGTERM and SIGHUP end it; with --vhci, SIGUSR1 plugs it in again after an unplug.";

// Up to four hexadecimal digits, with or without "0x".
std::optional<std::uint16_t> identifierFrom(std::string_view text) {
    if (text.starts_with("0x") || text.starts_with("0X"))
        text.remove_prefix(2);
    std::uint16_t value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    const bool isWhole = error == std::errc{} && stop == text.data() + text.size();
    return isWhole && text.size() <= 4 ? std::optional(value) : std::nullopt;
}

void takeIdentity(const std::string& text, VirtualIdentity& identity) {
    const auto colon = text.find(':');
    const auto vendor = identifierFrom(std::string_view(text).substr(0, colon));
    const auto product = colon == std::string::npos
                             ? std::nullopt
                             : identifierFrom(std::string_view(text).substr(colon + 1));
    if (!vendor || !product)
        throw CLI::ValidationError(
            "--identity",
            fmt::format("'{}' must be two hexadecimal numbers, as in 1209:0001", text));
    identity.vendor = *vendor;
    identity.product = *product;
}

void takeFault(const std::string& text, FaultPlan& faults) {
    std::string trouble;
    const auto fault = parseFault(text, trouble);
    if (!fault)
        throw CLI::ValidationError("--fault", trouble);
    faults.push_back(*fault);
}

std::string checkAddress(const std::string& text) {
    if (usbip::Listener::isAddress(text))
        return {};
    return fmt::format("'{}' must be an address and a port, as in 127.0.0.1:3240", text);
}

void addProgramOptions(CLI::App& app, ProgramOptions& options) {
    auto* const listen =
        app.add_option("--listen", options.listen, "Where usbip attaches: address and TCP port")
            ->type_name("ADDR:PORT")
            ->capture_default_str()
            ->check(checkAddress);
    app.add_option("--vhci", options.vhciPort,
                   "Plug into this port of the kernel's vhci_hcd instead (needs root)")
        ->type_name("PORT")
        ->excludes(listen);
    app.add_option("--bank", options.bank,
                   "The controller's memory: read at the start if it exists, kept after each send")
        ->type_name("FILE");
    app.add_option_function<std::vector<std::string>>(
           "--fault",
           [&options](const std::vector<std::string>& texts) {
               for (const std::string& text : texts)
                   takeFault(text, options.faults);
           },
           "What goes wrong, and when (may be given again; see below)")
        ->type_name("KIND:N")
        ->allow_extra_args(false)
        ->take_all();
    app.add_flag("--orders", options.takesOrders,
                 "Take orders from standard input while it runs (see below)");
    app.add_option("--trace", options.trace, "One line a transfer; - is standard output")
        ->type_name("FILE");
    app.add_option_function<std::string>(
           "--identity",
           [&options](const std::string& text) { takeIdentity(text, options.identity); },
           "Vendor and product in hexadecimal [1209:0001]")
        ->type_name("VID:PID");
    app.add_option("--interfaces", options.identity.interfaces,
                   "1 leaves the MIDI interface out [2]")
        ->type_name("COUNT")
        ->check(CLI::Range(1, 2));
    app.add_option("--resources", options.resources, "Where default.plist is, if there is no bank")
        ->type_name("DIR");
}

} // namespace

Result<ProgramLine> parseProgramLine(int argc, const char* const* argv) {
    CLI::App app(kDescription, kVirtualProgram);
    ProgramOptions options;
    app.footer(kFooter);
    app.set_version_flag("--version", std::string(kVirtualProgram) + " " SCENEWRIGHT_VERSION);
    addProgramOptions(app, options);
    try {
        app.parse(argc, argv);
        return options;
    } catch (const CLI::CallForVersion& version) {
        return std::string(version.what()) + '\n';
    } catch (const CLI::Success&) {
        return app.help();
    } catch (const CLI::ParseError& error) {
        return failure(fmt::format("{} (--help tells more)", readableText(error.what())));
    }
}

} // namespace scenewright
