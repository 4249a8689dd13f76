// A read or a send as a command needs it: with its progress line, waited for to its end, and with
// what went wrong reported on standard error.
#pragma once

#include "app/DeviceSession.h"
#include "model/SceneValue.h"
#include "protocol/SceneImage.h"
#include "usb/Transport.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

namespace scenewright {

struct ControllerRead {
    // The four scenes that the controller holds, if every one of their bytes came from it.
    std::optional<SceneList> scenes;
    int exitCode = 0; // of the outcome; may tell of an error after a read that went well
};

// `operation` says what the read is for.
[[nodiscard]] ControllerRead readController(DeviceOperation operation);

struct SendOrder {
    SceneList scenes;
    std::string subject{};             // the file that they come from; empty if it is none
    bool keepsCopy = true;             // of what the controller holds, among the earlier scenes
    std::optional<BankImage> before{}; // what it holds, where that was read before
};

// Gives the exit code; 0 when every transfer went well and was kept. Nothing is sent when a copy is
// to be kept and cannot be.
[[nodiscard]] int sendToController(SendOrder order);

// What a user is told of a transfer while the main thread is busy in it, on standard error: how far
// it is, on a terminal, and once what may be wrong with a controller that keeps it waiting. The
// transfer goes on: only the user ends it.

// Packets that a transaction writes when the first handshake is answered.
inline constexpr std::uint32_t kReadPackets = 2 + 1 + kBankSize + 1;
inline constexpr std::uint32_t kSendPackets = 2 + 2 + 1024;

// Makes the transfer, and tells of it: "Reading" or "Sending" `packets` packets.
void watchTransfer(std::string_view verb, std::uint32_t packets,
                   const std::function<void()>& transfer);

// Hands the transport's stats to `look` once each period, on a thread of its own, until `look`
// gives false or the thread is asked to stop. Without any where the system has no thread left.
[[nodiscard]] std::jthread watchStats(std::chrono::milliseconds period,
                                      std::function<bool(const TransferStats&)> look);

// How far a transaction is, once each kPeriod.
class ProgressLine {
public:
    static constexpr std::chrono::milliseconds kPeriod{100};

    ProgressLine(std::string_view verb, std::uint32_t packets) : verb_(verb), packets_(packets) {}
    // The text after `written` packets.
    [[nodiscard]] std::string next(std::uint32_t written);

private:
    static constexpr int kStuckAfter = 30; // periods without a packet

    std::string verb_;
    std::uint32_t packets_;
    std::uint32_t written_ = 0;
    int still_ = 0; // periods
};

// Waits for ten seconds without progress, whether the transaction waits or repeats its handshake.
class StallNotice {
public:
    static constexpr int kLooks = 20;
    static constexpr std::chrono::milliseconds kPeriod{10'000 / kLooks};

    // To be called once each kPeriod, until it gives false: then it has told what may be wrong.
    bool look(const TransferStats& stats);

private:
    std::int64_t most_ = 0;
    int still_ = 0; // periods
};

} // namespace scenewright
