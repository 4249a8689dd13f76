// Makes transactions as it is told, one after the other in one process: a line "read FILE" or
// "send FILE" of standard input is one, and "release" gives up the interface, which a read leaves
// open. The answer on standard output is "done", or "failed" and why. Without the pause before each
// write, so that many of them fit into a test.
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "platform/Resources.h"
#include "protocol/SendJob.h"
#include "usb/ConnectCause.h"
#include "usb/InterfaceAction.h"
#include "usb/LibusbHost.h"
#include "usb/Shutdown.h"
#include "usb/Transport.h"

#include <fmt/format.h>

#include <chrono>
#include <iostream>
#include <string>

namespace scenewright {

namespace {

std::string troubleOfTransfers() {
    const TransferTally tally = Transport::instance().tally();
    if (tally.writes == 0)
        return connectCause();
    if (tally.isClean())
        return {};
    return fmt::format("{} writes and {} reads failed. {}", tally.failedWrites, tally.failedReads,
                       causeAndCure(tally.first->code));
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

std::string perform(const std::string& verb) {
    if (verb == "release") {
        InterfaceAction::KillInterface();
        return {};
    }
    std::string file;
    std::cin >> file;
    return verb == "send" ? send(file) : read(file);
}

int serve() {
    const Shutdown shutdown;
    Transport::instance().use(makeLibusbHost(), [](std::chrono::nanoseconds) {});
    std::string verb;
    while (std::cin >> verb) {
        const std::string trouble = perform(verb);
        fmt::print("{}\n", trouble.empty() ? "done" : "failed " + trouble);
        std::fflush(stdout);
    }
    return 0;
}

} // namespace

} // namespace scenewright

int main() {
    return scenewright::serve();
}
