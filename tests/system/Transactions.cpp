// Makes transactions as it is told, one after the other in one process: a line "read FILE" or
// "send FILE" of standard input is one, and its answer is "done N" on standard output, with the
// number of files that the process has open then, or "failed" and why. Without the pause before
// each write, so that many of them fit into a test.
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "platform/Resources.h"
#include "protocol/SendJob.h"
#include "usb/ConnectCause.h"
#include "usb/LibusbHost.h"
#include "usb/Shutdown.h"
#include "usb/Transport.h"

#include <fmt/format.h>

#include <chrono>
#include <filesystem>
#include <iostream>
#include <string>

namespace scenewright {

namespace {

std::string troubleOfTransfers() {
    const TransferTally tally = Transport::instance().tally();
    if (tally.writes == 0)
        return connectCause();
    return tally.isClean() ? std::string() : causeAndCure(tally.first->code);
}

std::string read(const std::string& file) {
    WindowAction::readSceneData();
    const std::string trouble = troubleOfTransfers();
    return trouble.empty() ? writeBank(file, WindowAction::scenes()).value_or("") : trouble;
}

std::string send(const std::string& file) {
    const BankFile bank = readBank(file);
    if (bank.trouble)
        return *bank.trouble;
    WindowAction::setScenes(bank.scenes);
    WindowAction::sendSceneData();
    SendJob::waitForEnd(std::chrono::minutes(1));
    SendJob::join();
    return troubleOfTransfers();
}

std::ptrdiff_t openFiles() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files)) - 1; // but for the iterator's own
}

int serve() {
    const Shutdown shutdown;
    Transport::instance().use(makeLibusbHost(), [](std::chrono::nanoseconds) {});
    std::string verb;
    std::string file;
    while (std::cin >> verb >> file) {
        const std::string trouble = verb == "send" ? send(file) : read(file);
        if (trouble.empty())
            fmt::print("done {}\n", openFiles());
        else
            fmt::print("failed {}\n", trouble);
        std::fflush(stdout);
    }
    return 0;
}

} // namespace

} // namespace scenewright

int main() {
    return scenewright::serve();
}
