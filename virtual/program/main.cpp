#include "platform/DiagnosticSinks.h"
#include "platform/Resources.h"
#include "virtual/program/BankMemory.h"
#include "virtual/program/Options.h"
#include "virtual/usbip/Server.h"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <memory>
#include <unistd.h>

namespace scenewright {

namespace {

constexpr const char* kProgram = "scenewright-virtual";
constexpr int kExitTrouble = 1;
constexpr int kExitUsage = 2;

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
    "SIGINT and SIGTERM end it; with --vhci, SIGUSR1 plugs it in again after an unplug.";

void say(std::string_view line) {
    fmt::print(stderr, "{}: {}\n", kProgram, line);
    std::fflush(stderr);
}

int complain(std::string_view sentence, int status) {
    say(sentence);
    return status;
}

struct FileCloser {
    void operator()(std::FILE* file) const {
        if (file != stdout)
            std::fclose(file);
    }
};
using File = std::shared_ptr<std::FILE>;

File openTrace(const std::string& name) {
    return {name == "-" ? stdout : std::fopen(name.c_str(), "we"), [](std::FILE* file) {
                if (file)
                    FileCloser{}(file);
            }};
}

usbip::LineSink traceTo(File file) {
    return [file = std::move(file)](std::string_view line) {
        fmt::print(file.get(), "{}\n", line);
        std::fflush(file.get());
    };
}

int serve(usbip::Exported& exported, const ProgramOptions& options) {
    usbip::Server server(exported, say);
    if (const auto trouble =
            options.vhciPort ? server.attach(*options.vhciPort) : server.listen(options.listen))
        return complain(*trouble, kExitTrouble);
    if (options.takesOrders)
        server.takeOrders(STDIN_FILENO);
    if (const auto trouble = server.run())
        return complain(*trouble, kExitTrouble);
    return 0;
}

int run(const ProgramOptions& options) {
    Resources::setFolder(options.resources);
    Diagnostics::setLog(logSink(stderr));
    BankImage bank{};
    if (const auto trouble = loadBankMemory(options.bank, bank))
        return complain(*trouble, kExitUsage);
    usbip::LineSink trace;
    if (!options.trace.empty()) {
        File file = openTrace(options.trace);
        if (!file)
            return complain(fmt::format("{}: cannot be written", options.trace), kExitUsage);
        trace = traceTo(std::move(file));
    }
    VirtualController controller(bank, options.faults);
    BankKeeper keeper(options.bank);
    usbip::Exported exported{controller, keeper, options.identity, std::move(trace)};
    return serve(exported, options);
}

int parseAndRun(int argc, char** argv) {
    CLI::App app(kDescription, kProgram);
    ProgramOptions options;
    app.footer(kFooter);
    app.set_version_flag("--version", std::string(kProgram) + " " SCENEWRIGHT_VERSION);
    addProgramOptions(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& request) {
        return app.exit(request);
    } catch (const CLI::ParseError& error) {
        return complain(fmt::format("{} (--help tells more)", error.what()), kExitUsage);
    }
    return run(options);
}

} // namespace

} // namespace scenewright

int main(int argc, char** argv) {
    try {
        scenewright::usbip::blockServerSignals();
        return scenewright::parseAndRun(argc, argv);
    } catch (const std::exception& error) {
        return scenewright::complain(error.what(), scenewright::kExitTrouble);
    }
}
