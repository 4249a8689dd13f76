#include "platform/DiagnosticSinks.h"
#include "platform/ReadableText.h"
#include "platform/Resources.h"
#include "virtual/program/BankMemory.h"
#include "virtual/program/Options.h"
#include "virtual/usbip/Server.h"

#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <memory>
#include <unistd.h>

namespace scenewright {

namespace {

constexpr int kExitTrouble = 1;
constexpr int kExitUsage = 2;

void say(std::string_view line) {
    // A file's name or a client's words in it may hold anything, a terminal's commands included.
    fmt::print(stderr, "{}: {}\n", kVirtualProgram, readableText(line));
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
    const ProgramLine line = parseProgramLine(argc, argv);
    if (line.answer) {
        fmt::print("{}", *line.answer);
        return 0;
    }
    return line.trouble ? complain(*line.trouble, kExitUsage) : run(*line.options);
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
