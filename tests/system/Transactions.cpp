// Makes transactions as it is told, one after the other in one process: a line "read FILE" or
// "send FILE" of standard input is one, and "release" gives up the interface, which a read leaves
// open. The answer on standard output is "done", or "failed" and why. Without the pause before each
// write, so that many of them fit into a test.
//
// With --watch it says instead, a line each time that changes, whether a listed keyboard is there:
// "unplugged", "no permission", "claimed" or "usable".
#include "protocol/Transactions.h"

#include "app/DeviceSession.h"
#include "app/Keyboards.h"
#include "app/WindowAction.h"
#include "bank/BankFile.h"
#include "platform/MainQueue.h"
#include "usb/Devices.h"
#include "usb/InterfaceAction.h"
#include "usb/LibusbHost.h"
#include "usb/Shutdown.h"
#include "usb/Transport.h"

#include <fmt/format.h>

#include <chrono>
#include <cstdio>
#include <iostream>
#include <optional>
#include <poll.h>
#include <string>
#include <string_view>
#include <utility>

namespace scenewright {

namespace {

std::string errorOf(DeviceOperation operation, const Outcome& outcome) {
    const OutcomeText text = textOf(operation, outcome);
    if (text.exitCode == 0) // what is noted beside it, such as values read as 0, is no error
        return "";
    std::string error = text.sentence;
    for (const std::string& detail : text.details)
        error += ". " + detail;
    return error;
}

std::string read(const std::string& file) {
    std::string error;
    WindowAction::readSceneData([&error](const Outcome& outcome) {
        error = errorOf(DeviceOperation::SaveScenes, outcome);
    });
    if (!error.empty())
        return error;
    const auto written = writeBank(file, WindowAction::scenes(), BankFormat::Image, {});
    return written ? "" : written.error();
}

std::string send(const std::string& file) {
    const auto bank = readBank(file);
    if (!bank)
        return bank.error();
    WindowAction::setScenes(bank->scenes);
    std::optional<std::string> error;
    WindowAction::sendSceneData(
        [&error](const Outcome& outcome) { error = errorOf(DeviceOperation::Send, outcome); });
    MainQueue::pumpUntil([&error] { return error.has_value(); });
    SendJob::join();
    return *error;
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
        const std::string error = perform(verb);
        fmt::print("{}\n", error.empty() ? "done" : "failed " + error);
        std::fflush(stdout);
    }
    return 0;
}

const char* nameOf(KeyboardPresence presence) {
    switch (presence) {
    case KeyboardPresence::Unplugged:
        return "unplugged";
    case KeyboardPresence::NoPermission:
        return "no permission";
    case KeyboardPresence::Claimed:
        return "claimed";
    case KeyboardPresence::Usable:
        return "usable";
    }
    return "";
}

int watch() {
    auto monitor = DeviceMonitor::start();
    if (!monitor) {
        fmt::print(stderr, "{}\n", monitor.error());
        return 1;
    }
    const Keyboards keyboards;
    std::optional<KeyboardPresence> said;
    for (;;) {
        const KeyboardPresence presence = keyboards.presence();
        if (std::exchange(said, presence) != presence)
            fmt::print("{}\n", nameOf(presence));
        std::fflush(stdout);
        pollfd waiting{.fd = monitor->descriptor(), .events = POLLIN, .revents = 0};
        poll(&waiting, 1, -1);
        monitor->drain();
    }
}

} // namespace

} // namespace scenewright

int main(int argc, char** argv) {
    if (argc == 2 && std::string_view(argv[1]) == "--watch")
        return scenewright::watch();
    return scenewright::serve();
}
