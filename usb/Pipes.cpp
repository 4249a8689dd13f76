// Moving bytes over the current interface's pipes, and telling the diagnostics what was moved.
#include "platform/Diagnostics.h"
#include "usb/InterfaceAction.h"

#include <algorithm>
#include <chrono>

namespace scenewright {

namespace {

constexpr std::uint8_t kReadPipe = 1;               // the interface's first endpoint, bulk IN
constexpr std::uint8_t kWritePipe = 2;              // its second endpoint, bulk OUT
constexpr std::chrono::milliseconds kWritePause{1}; // paces the device; owed before every write

constexpr std::size_t kVersionSize = 11; // texts
constexpr std::size_t kValueOffset = 14; // in the receive buffer

enum class ConsoleLine : std::uint8_t { Count, TextAndCount };

// How one of the reads differs from the others.
struct ReadKind {
    ConsoleLine console = ConsoleLine::Count;
    Format<std::string> logFormat; // takes the dump
    bool isVersionRead = false;
};

constexpr ReadKind kValueRead{ConsoleLine::Count, "ReadValueFromDevice %s"};
constexpr ReadKind kPlainRead{ConsoleLine::TextAndCount, "%s"};
constexpr ReadKind kVersionRead{ConsoleLine::TextAndCount, "readversion  %s", true};
constexpr ReadKind kDataRead{ConsoleLine::Count, "ReadDataFromDevice  %s"};

// Not before the dump is asked for: building it costs more than the rest of a transfer.
void logDump(Format<std::string> format, std::span<const std::uint8_t> bytes) {
    if (Diagnostics::logIsOn())
        Diagnostics::log(format, hexDump(bytes));
}

// Up to its first zero byte; the last byte is always zero.
std::string bufferText(std::span<const std::uint8_t> buffer) {
    const auto end = std::find(buffer.begin(), buffer.end(), std::uint8_t{0});
    return {buffer.begin(), end};
}

void printRead(ConsoleLine line, std::size_t delivered) {
    if (line == ConsoleLine::Count) {
        Diagnostics::console("Read %u bytes from bulk endpoint\n", delivered);
        return;
    }
    if (Diagnostics::consoleIsOn())
        Diagnostics::console("Read \"%s\" (%u bytes) from bulk endpoint\n",
                             bufferText(Transport::instance().buffer), delivered);
}

std::span<const std::uint8_t, kReceiveBufferSize> readTransfer(const ReadKind& kind) {
    Transport& transport = Transport::instance();
    const auto interface = transport.interface();
    const UsbRead moved =
        interface ? interface->read(kReadPipe, std::span(transport.buffer).first(kReadRoom))
                  : UsbRead{.delivered = 0, .code = kResultNotOpen};
    transport.countRead(moved, kind.isVersionRead);
    printRead(kind.console, moved.delivered);
    logDump(kind.logFormat, transport.buffer);
    return transport.buffer;
}

ResultCode writeTransfer(std::span<const std::uint8_t> bytes) {
    const auto interface = Transport::instance().interface();
    const auto written = interface ? interface->write(kWritePipe, bytes)
                                   : UsbResult<void>(failedStep(UsbStep::Write, kResultNotOpen));
    if (written)
        return kResultSuccess;
    const ResultCode result = written.error().code;
    Diagnostics::console("Unable to perform bulk write (%08x)\n", result);
    if (interface) {
        interface->close();
        interface->release();
    }
    return result;
}

} // namespace

ResultCode InterfaceAction::WriteToDeviceWithChar_andSize(const std::uint8_t* bytes,
                                                          std::int32_t size) {
    Transport& transport = Transport::instance();
    transport.pause(kWritePause);
    Diagnostics::log("sleep(0.001)");
    const std::span<const std::uint8_t> whole(bytes, size > 0 ? static_cast<std::size_t>(size) : 0);
    const ResultCode result = writeTransfer(whole);
    transport.countWrite(result);
    logDump("%s", whole);
    Diagnostics::console("Wrote %d bytes to bulk endpoint\n", size);
    return result;
}

std::span<const std::uint8_t, kReceiveBufferSize> InterfaceAction::ReadDataFromDevice() {
    return readTransfer(kDataRead);
}

std::vector<std::string> InterfaceAction::ReadVersionFromDevice() {
    const auto reply = readTransfer(kVersionRead).first<kVersionSize>();
    std::vector<std::string> texts;
    texts.reserve(kVersionSize);
    for (const std::uint8_t byte : reply)
        texts.push_back(printfText("%02x", byte));
    return texts;
}

void InterfaceAction::ReadFromDevice() {
    readTransfer(kPlainRead);
}

std::int32_t InterfaceAction::ReadValueFromDevice() {
    return static_cast<std::int8_t>(readTransfer(kValueRead)[kValueOffset]);
}

} // namespace scenewright
