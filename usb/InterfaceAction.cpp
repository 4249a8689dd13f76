// Finding the controller among the attached devices; taking, opening and listing its second
// interface, and giving it up.
#include "usb/InterfaceAction.h"

#include "platform/Diagnostics.h"
#include "usb/Devices.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <new>
#include <string_view>
#include <utility>

namespace scenewright {

namespace {

// The controller's own pair. It only proves that devices can be matched by their ids; what is
// accepted is the list's business.
constexpr std::int32_t kGateVendor = 0x1209;
constexpr std::int32_t kGateProduct = 0x0001;

// The first interface carries the device's audio controls, the second one MIDI.
constexpr std::size_t kMidiInterface = 1;

constexpr std::array<std::string_view, 4> kDirections{"out", "in", "none", "any"};
// By transfer type plus one, so that 255, any type, comes first.
constexpr std::array<std::string_view, 5> kTransferTypes{"any", "control", "isoc", "bulk",
                                                         "interrupt"};

std::string_view textAt(std::span<const std::string_view> texts, std::uint8_t index) {
    return index < texts.size() ? texts[index] : "???";
}

// What the streams say of a step that failed; nothing of those that are only noted.
void printFailure(const UsbError& error) {
    switch (error.step) {
    case UsbStep::MatchDevices:
        return Diagnostics::log("NO FOUND IOService");
    case UsbStep::MatchVendor:
        return Diagnostics::log("NO FOUND idVendor");
    case UsbStep::MatchProduct:
        return Diagnostics::log("NO FOUND idProduct");
    case UsbStep::DevicePlugIn:
    case UsbStep::InterfacePlugIn:
        return Diagnostics::console("Unable to create a plug-in (%08x)\n", error.code);
    case UsbStep::DeviceHandle:
        return Diagnostics::console("Unable to create a device interface (%08x)\n", error.code);
    case UsbStep::InterfaceHandle:
        return Diagnostics::console("Couldn’t create a device interface for the interface(%08x)\n",
                                    error.code);
    case UsbStep::Open:
        return Diagnostics::console("Unable to open interface (%08x)\n", error.code);
    case UsbStep::EndpointCount:
        return Diagnostics::console("Unable to get number of endpoints (%08x)\n", error.code);
    case UsbStep::ListDevices:
    case UsbStep::PipeProperties:
    case UsbStep::Write:
    case UsbStep::Close:
    case UsbStep::Release:
        return;
    }
}

// Prints the failure and keeps it for the user; null, for whoever returns a handle.
std::nullptr_t failed(const UsbError& error) {
    printFailure(error);
    Transport::instance().noteConnectFailure(error.code);
    return nullptr;
}

// None when they cannot be listed.
UsbHost::Devices listDevices(const DeviceMatch& match) {
    UsbHost* const host = Transport::instance().host();
    auto devices = host != nullptr ? host->devices(match) : UsbHost::Devices{};
    if (devices)
        return *std::move(devices);
    failed(devices.error());
    return {};
}

// The list is asked for anew for every device, so that a user's change counts at once.
bool isListed(std::int32_t vendor, std::int32_t product) {
    const auto list = readDeviceEntries();
    if (!list) { // an empty one
        Transport::instance().noteConnectFailure(kResultNoList);
        return false;
    }
    std::int32_t index = 0;
    for (const PropertyValue& entry : *list) {
        const std::int32_t listedVendor = entry["VID"].integer();
        const std::int32_t listedProduct = entry["PID"].integer();
        Diagnostics::console("list index:%d (vendor %ld, product %ld)\n", index, listedVendor,
                             listedProduct);
        if (vendor == listedVendor && product == listedProduct) {
            Diagnostics::console("get it");
            return true;
        }
        ++index;
    }
    return false;
}

bool isSupported(UsbDevice& device) {
    if (const auto prepared = device.prepare(); !prepared) {
        failed(prepared.error());
        return false;
    }
    const std::int32_t vendor = device.vendor();
    const std::int32_t product = device.product();
    Diagnostics::console("Found device (vendor %d, product %d)\n", vendor, product);
    return isListed(vendor, product);
}

// What fails here keeps the former device.
bool findDeviceOrThrow() {
    Transport& transport = Transport::instance();
    transport.clearStats();
    if (!InterfaceAction::MyCreateUSBMatchingDictionaryWithVendorID_andProductID(kGateVendor,
                                                                                 kGateProduct)) {
        Diagnostics::log("无法创建匹配字典");
        return false;
    }
    transport.setDevice(InterfaceAction::MyFindMatchingDevicesWithTestSend(0));
    if (transport.device())
        return true;
    Diagnostics::log("无法找到匹配的设备");
    transport.noteConnectFailure(kResultNotPlugged);
    return false;
}

UsbResult<void> listPipe(InterfaceHandle& interface, std::uint8_t pipe) {
    const auto properties = interface.pipeProperties(pipe);
    if (!properties)
        return tl::unexpected(properties.error());
    const auto typeIndex = static_cast<std::uint8_t>(properties->transferType + 1U);
    Diagnostics::console("PipeRef %d:", pipe);
    Diagnostics::console("direction %s,", textAt(kDirections, properties->direction));
    Diagnostics::console("transfer type %s, maxPacketSize %d\n", textAt(kTransferTypes, typeIndex),
                         properties->maxPacketSize);
    return {};
}

// Lists every pipe; false when one would not tell its properties. The interface stays open then.
bool listPipes(InterfaceHandle& interface, std::uint8_t endpoints) {
    Diagnostics::console("Interface has %d endpoints\n", endpoints);
    for (unsigned pipe = 1; pipe <= endpoints; ++pipe) {
        const auto listed = listPipe(interface, static_cast<std::uint8_t>(pipe));
        if (listed)
            continue;
        Diagnostics::console("Unable to get properties of pipe %d (%08x)\n", pipe,
                             listed.error().code);
        Transport::instance().noteConnectFailure(listed.error().code);
        return false;
    }
    return true;
}

} // namespace

bool InterfaceAction::FindDevice() {
    try {
        return findDeviceOrThrow();
    } catch (const std::bad_alloc&) {
        Transport::instance().noteConnectFailure(kResultNoMemory);
    } catch (...) {
        Transport::instance().noteConnectFailure(kResultOther);
    }
    return false;
}

std::optional<DeviceMatch>
InterfaceAction::MyCreateUSBMatchingDictionaryWithVendorID_andProductID(std::int32_t vendorId,
                                                                        std::int32_t productId) {
    const DeviceMatch match{.vendor = vendorId, .product = productId};
    UsbHost* const host = Transport::instance().host();
    const auto matched = host != nullptr
                             ? host->canMatch(match)
                             : UsbResult<void>(failedStep(UsbStep::MatchDevices, kResultOther));
    if (matched)
        return match;
    failed(matched.error());
    return std::nullopt;
}

std::shared_ptr<UsbDevice>
InterfaceAction::MyFindMatchingDevicesWithTestSend([[maybe_unused]] std::int32_t testSend) {
    for (const auto& device : listDevices({})) {
        if (!isSupported(*device))
            continue;
        // What kept other devices from being looked at no longer matters.
        Transport::instance().connectFailure = kResultSuccess;
        return device;
    }
    return nullptr;
}

std::shared_ptr<UsbDevice>
InterfaceAction::MyFindMatchingDevicesWithDictionary(const DeviceMatch& match) {
    std::shared_ptr<UsbDevice> last;
    for (const auto& service : listDevices(match)) {
        Diagnostics::log("Found device with name:%s", service->name());
        last = MyStartDriverWithService(service);
    }
    return last;
}

std::shared_ptr<UsbDevice>
InterfaceAction::MyStartDriverWithService(const std::shared_ptr<UsbDevice>& service) {
    return service->prepare() ? service : nullptr;
}

bool InterfaceAction::CreateInterface() {
    Transport& transport = Transport::instance();
    const auto device = transport.device();
    if (!device)
        return false;
    transport.setInterface(FindInterfacesWithDevice(*device));
    if (!transport.interface()) {
        Diagnostics::log("无法找到设备接口");
        return false;
    }
    transport.connectFailure = kResultSuccess;
    return true;
}

std::shared_ptr<InterfaceHandle> InterfaceAction::FindInterfacesWithDevice(UsbDevice& device) {
    auto taken = device.interface(kMidiInterface);
    if (!taken)
        return failed(taken.error());
    const auto interface = std::make_shared<InterfaceHandle>(*std::move(taken));
    // The former one goes here, before this one is opened: a host may refuse an interface to a
    // second handle.
    Transport::instance().setInterface(interface);
    const InterfaceClass kind = interface->interfaceClass();
    Diagnostics::console("Interface class %d, subclass %d\n", kind.code, kind.subClass);
    if (const auto opened = interface->open(); !opened) {
        failed(opened.error());
        interface->release();
        return nullptr;
    }
    const auto endpoints = interface->endpointCount();
    if (!endpoints) {
        failed(endpoints.error());
        interface->close();
        interface->release();
        return nullptr;
    }
    return listPipes(*interface, *endpoints) ? interface : nullptr;
}

void InterfaceAction::openInterface() {
    if (const auto interface = Transport::instance().interface())
        interface->open();
}

void InterfaceAction::closeInterface() {
    if (const auto interface = Transport::instance().interface())
        interface->close();
}

void InterfaceAction::KillInterface() {
    if (const auto interface = Transport::instance().interface()) {
        interface->close();
        interface->release();
    }
}

// ---- Moving bytes over the current interface's pipes, and telling the diagnostics what was moved

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
