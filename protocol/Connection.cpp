#include "protocol/Connection.h"

#include "platform/Diagnostics.h"
#include "usb/InterfaceAction.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace scenewright {

namespace {

Outcome::End endOf(const TransferStats& stats) {
    if (!stats.first)
        return Outcome::End::Done;
    // Only the end of the program closes or gives up an interface while transfers go on.
    const ResultCode code = stats.first->code;
    const bool isCancelled = code == kResultCancelled || code == kResultGivenUp;
    return isCancelled ? Outcome::End::Cancelled : Outcome::End::Unreliable;
}

constexpr std::string_view kCouldNotConnect = "Could not connect to midi device";

constexpr std::size_t kExpectedSize = 8; // of the reply's bytes; those behind them are only logged

// The request, repeated, and the device's own packet, as the texts that the transport hands out.
constexpr std::array<std::string_view, kExpectedSize> kExpected{"09", "9c", "01", "02",
                                                                "09", "9c", "01", "38"};

std::size_t matchesOf(const std::vector<std::string>& reply) {
    std::size_t matches = 0;
    for (std::size_t i = 0; i < kExpectedSize; ++i)
        if (reply[i] == kExpected[i])
            ++matches;
    return matches;
}

// Tells the progress record and the log what kept the transaction from the device; false.
bool couldNotConnect(MessageValue& progress, std::string_view logLine) {
    progress.setMessage(std::string(kCouldNotConnect));
    Diagnostics::log("%s", logLine);
    return false;
}

} // namespace

Outcome connectionOutcome() {
    const Transport& transport = Transport::instance();
    return {.end = transport.isShutDown() ? Outcome::End::Cancelled : Outcome::End::NotConnected,
            .cause = transport.connectFailure,
            .stats = transport.stats()};
}

Outcome transferOutcome() {
    const TransferStats stats = Transport::instance().stats();
    return {.end = endOf(stats),
            .cause = stats.first ? stats.first->code : kResultSuccess,
            .stats = stats};
}

void addStorageError(Outcome& outcome) {
    UsbHost* const host = Transport::instance().host();
    if (auto stored = host != nullptr ? host->storageResult() : Result<void>(); !stored)
        outcome.notKept.push_back(std::move(stored.error()));
}

void releaseKeyboard(Outcome& outcome) {
    InterfaceAction::KillInterface();
    if (const auto interface = Transport::instance().interface())
        outcome.release = interface->releaseCode();
}

void writePacket(const Packet& packet) {
    InterfaceAction::WriteToDeviceWithChar_andSize(packet.data(),
                                                   static_cast<std::int32_t>(packet.size()));
}

bool handshakeOnce() {
    InterfaceAction::openInterface();
    writePacket(packets::kHandshakeRequest);
    writePacket(packets::kHandshakeConfirm);
    const std::vector<std::string> reply = InterfaceAction::ReadVersionFromDevice();
    if (reply[0] != kExpected[0])
        return false;
    Diagnostics::log("version    %s %s %s %s %s %s %s %s %s %s %s", reply[0], reply[1], reply[2],
                     reply[3], reply[4], reply[5], reply[6], reply[7], reply[8], reply[9],
                     reply[10]);
    const bool answered = matchesOf(reply) == kExpectedSize;
    Diagnostics::log("%s", answered ? "handshake yes" : "handshake no");
    return answered;
}

void handshakeUntilAnswered() {
    Diagnostics::log("开始握手协议");
    while (!handshakeOnce()) {
        Diagnostics::log("do HandshakeOperation");
        InterfaceAction::closeInterface();
    }
}

bool connectToDevice(MessageValue& progress) {
    if (!InterfaceAction::FindDevice())
        return couldNotConnect(progress, "无法找到设备");
    if (!InterfaceAction::CreateInterface())
        return couldNotConnect(progress, kCouldNotConnect);
    handshakeUntilAnswered();
    return true;
}

} // namespace scenewright
