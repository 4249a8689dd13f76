// Taking, opening and listing the controller's second interface, and giving it up.
#include "platform/Diagnostics.h"
#include "usb/InterfaceAction.h"
#include "usb/PlatformIds.h"

#include <array>

namespace scenewright {

namespace {

constexpr std::array<std::string_view, 4> kDirections{"out", "in", "none", "any"};
// By transfer type plus one, so that 255, any type, comes first.
constexpr std::array<std::string_view, 5> kTransferTypes{"any", "control", "isoc", "bulk",
                                                         "interrupt"};

std::string_view textAt(std::span<const std::string_view> texts, std::uint8_t index) {
    return index < texts.size() ? texts[index] : "???";
}

// Prints the step's failure and notes it for the user; null, so that the caller can return it.
std::shared_ptr<InterfaceHandle> failed(Format<ResultCode> format, ResultCode result) {
    Diagnostics::console(format, result);
    Transport::instance().noteConnectFailure(result);
    return nullptr;
}

// The second interface that the platform lists, or null. The first is not the one for data: it
// carries the device's audio controls.
std::unique_ptr<UsbService> secondInterface(UsbDevice& device) {
    std::unique_ptr<ServiceIterator> interfaces;
    const ResultCode listed = device.interfaceIterator(InterfaceRequest{}, interfaces);
    if (listed != kResultSuccess)
        Transport::instance().noteConnectFailure(listed);
    if (!interfaces)
        return nullptr;
    const auto skipped = interfaces->next();
    return skipped ? interfaces->next() : nullptr;
}

ResultCode makeInterfacePlugIn(std::unique_ptr<UsbService> service,
                               std::unique_ptr<UsbPlugIn>& plugIn) {
    UsbHost* const host = Transport::instance().host();
    if (!host || !service)
        return kResultNotFound;
    return host->makePlugIn(*service, PlugInType::Interface, ids::kIOCFPlugInInterfaceID, plugIn);
}

// Makes the service's interface the current one, not open yet.
std::shared_ptr<InterfaceHandle> takeInterface(std::unique_ptr<UsbService> service) {
    std::unique_ptr<UsbPlugIn> plugIn;
    const ResultCode made = makeInterfacePlugIn(std::move(service), plugIn);
    if (made != kResultSuccess || !plugIn)
        return failed("Unable to create a plug-in (%08x)\n", made);
    std::unique_ptr<UsbInterface> interface;
    const ResultCode queried = plugIn->queryInterface(ids::kInterfaceInterface, interface);
    plugIn.reset();
    const bool taken = queried == kResultSuccess && interface;
    auto handle = taken ? std::make_shared<InterfaceHandle>(std::move(interface)) : nullptr;
    Transport::instance().setInterface(handle);
    if (!taken)
        return failed("Couldn’t create a device interface for the interface(%08x)\n", queried);
    return handle;
}

ResultCode listPipe(InterfaceHandle& interface, std::uint8_t pipe) {
    PipeProperties properties;
    const ResultCode result = interface.pipeProperties(pipe, properties);
    if (result != kResultSuccess)
        return result;
    const auto typeIndex = static_cast<std::uint8_t>(properties.transferType + 1U);
    Diagnostics::console("PipeRef %d:", pipe);
    Diagnostics::console("direction %s,", textAt(kDirections, properties.direction));
    Diagnostics::console("transfer type %s, maxPacketSize %d\n", textAt(kTransferTypes, typeIndex),
                         properties.maxPacketSize);
    return result;
}

// Lists every pipe; false when one would not tell its properties. The interface stays open then.
bool listPipes(InterfaceHandle& interface, std::uint8_t endpoints) {
    Diagnostics::console("Interface has %d endpoints\n", endpoints);
    for (unsigned pipe = 1; pipe <= endpoints; ++pipe) {
        const ResultCode result = listPipe(interface, static_cast<std::uint8_t>(pipe));
        if (result == kResultSuccess)
            continue;
        Diagnostics::console("Unable to get properties of pipe %d (%08x)\n", pipe, result);
        Transport::instance().noteConnectFailure(result);
        return false;
    }
    return true;
}

} // namespace

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
    const auto interface = takeInterface(secondInterface(device));
    if (!interface)
        return nullptr;
    const std::uint8_t interfaceClass = interface->interfaceClass();
    const std::uint8_t subClass = interface->interfaceSubClass();
    Diagnostics::console("Interface class %d, subclass %d\n", interfaceClass, subClass);
    if (const ResultCode opened = interface->open(); opened != kResultSuccess) {
        interface->release();
        return failed("Unable to open interface (%08x)\n", opened);
    }
    std::uint8_t endpoints = 0;
    if (const ResultCode counted = interface->endpointCount(endpoints); counted != kResultSuccess) {
        interface->close();
        interface->release();
        return failed("Unable to get number of endpoints (%08x)\n", counted);
    }
    return listPipes(*interface, endpoints) ? interface : nullptr;
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

} // namespace scenewright
