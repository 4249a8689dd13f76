#include "model/SceneValue.h"
#include "platform/Diagnostics.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/Resources.h"
#include "virtual/program/Options.h"
#include "virtual/usbip/Server.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>
#include <variant>

namespace scenewright {

namespace {

constexpr int kExitError = 1;
constexpr int kExitUsage = 2;
constexpr std::size_t kMaxRead = std::size_t{1} << 20U; // enough to tell a wrong file's size
// What is still to be written after a signal gets this long, so that the end comes within a second.
constexpr std::chrono::milliseconds kEndTime{450};

void logLine(std::string_view line) {
    reportError(kVirtualProgram, line);
}

int failed(std::string_view sentence, int status) {
    logLine(sentence);
    return status;
}

BankImage defaultBank() {
    BankImage bank{};
    std::span<std::uint8_t> rest(bank);
    for (int number = 1; !rest.empty(); ++number) {
        const auto scene = FileAction::GetSceneFromDefault();
        scene->commonValue()->setSceneName(fmt::format("SCENE{}", number));
        std::ranges::copy(encodeScene(*scene), rest.begin());
        rest = rest.subspan(kSceneImageSize);
    }
    return bank;
}

// What the controller holds when it is switched on: the file, or the default scenes when there is
// none. An error also when what is sent could not be kept there.
Result<BankImage> loadBank(const std::filesystem::path& file) {
    BankImage bank = defaultBank();
    if (file.empty())
        return bank;
    if (const auto checked = checkReplaceable(file); !checked)
        return failure(checked.error());
    if (!std::filesystem::exists(file))
        return bank;
    const auto bytes = readFile(file, kMaxRead);
    if (!bytes)
        return failure(bytes.error());
    if (bytes->size() != kBankSize)
        return failure(fmt::format("{}: a bank has {} bytes, and this file has {}", file.string(),
                                   kBankSize, bytes->size()));
    std::ranges::copy(*bytes, bank.begin());
    return bank;
}

int serve(usbip::ServerState& state, const ProgramOptions& options) {
    usbip::Server server(state, logLine);
    if (const auto begun =
            options.vhciPort ? server.attach(*options.vhciPort) : server.listen(options.listen);
        !begun)
        return failed(begun.error(), kExitError);
    if (options.takesOrders)
        server.takeCommands(STDIN_FILENO);
    if (const auto served = server.run(); !served)
        return failed(served.error(), kExitError);
    return 0;
}

// A thread that the system keeps is not waited for, and so nothing of the process may be undone.
void finish(usbip::BankSaver& saver, std::optional<usbip::LineFile>& trace) {
    const usbip::Moment limit = std::chrono::steady_clock::now() + kEndTime;
    const Result<void> saved = saver.finish(limit);
    const Result<void> traced = trace ? trace->finish(limit) : Result<void>{};
    for (const Result<void>* const result : {&saved, &traced})
        if (!*result)
            logLine(result->error());
    if (!saved || !traced)
        ::_exit(kExitError);
}

Result<void> checkFiles(const ProgramOptions& options) {
    const std::string trace = options.trace == "-" ? "/dev/stdout" : options.trace;
    const auto list = Resources::find("default", "plist");
    const std::array<NamedFile, 3> files{{
        {trace, FileUse::Appended, "--trace " + options.trace + ": it", "the trace"},
        {options.bank, FileUse::Replaced, options.bank + ": it", "the controller's memory"},
        {list ? list->string() : "", FileUse::Read, {}, "a property list that is in use"},
    }};
    return checkNamedFiles(files);
}

int run(const ProgramOptions& options) {
    Resources::setFolder(options.resources);
    if (const auto checked = checkFiles(options); !checked)
        return failed(checked.error(), kExitUsage);
    Diagnostics::setLog(logLine);
    const Result<BankImage> bank = loadBank(options.bank);
    if (!bank)
        return failed(bank.error(), kExitUsage);
    std::optional<usbip::LineFile> trace;
    usbip::LineSink traceLine;
    if (!options.trace.empty()) {
        auto file = usbip::LineFile::open(options.trace);
        if (!file)
            return failed(file.error(), kExitUsage);
        trace.emplace(std::move(*file));
        traceLine = [&trace](std::string_view line) { trace->write(line); };
    }
    VirtualController controller(*bank, options.faults);
    usbip::BankSaver saver(options.bank, logLine);
    usbip::ServerState state{controller, saver, options.identity, traceLine};
    const int status = serve(state, options);
    finish(saver, trace);
    return status;
}

int parseAndRun(int argc, char** argv) {
    usbip::blockServerSignals();
    const Result<ProgramLine> line = parseProgramLine(argc, argv);
    if (!line)
        return failed(line.error(), kExitUsage);
    if (const auto* const options = std::get_if<ProgramOptions>(&*line))
        return run(*options);
    if (const auto written = writeStandardOutput(std::get<std::string>(*line)); !written)
        return failed(written.error(), kExitError);
    return 0;
}

} // namespace

} // namespace scenewright

int main(int argc, char** argv) {
    return scenewright::runProgram(scenewright::kVirtualProgram, &scenewright::parseAndRun, argc,
                                   argv);
}
