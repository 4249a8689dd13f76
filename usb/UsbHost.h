// The seam to the platform's USB service: one operation for each step that the transport takes.
//
// The transport never touches a USB library. A host is one of these: the real one, a scripted one
// in tests, or the virtual controller. Every step that can fail says so with its own result code.
// Hosts are called by one thread at a time, but for cancelTransfers().
#pragma once

#include "usb/ResultCode.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace scenewright {

using UsbIdentifier = std::array<std::uint8_t, 16>;

// What services to list: a class of service, and numbers that a service must carry.
struct MatchingDictionary {
    std::string className;
    std::map<std::string, std::int32_t, std::less<>> numbers;
};

enum class PlugInType : std::uint8_t { Device, Interface };

// What an interface must be, to be listed; 0xFFFF is any.
struct InterfaceRequest {
    std::uint16_t interfaceClass = 0xFFFF;
    std::uint16_t subClass = 0xFFFF;
    std::uint16_t protocol = 0xFFFF;
    std::uint16_t alternateSetting = 0xFFFF;
};

struct PipeProperties {
    std::uint8_t direction = 0;    // 0 out, 1 in, 2 none, 3 any
    std::uint8_t number = 0;       // endpoint number
    std::uint8_t transferType = 0; // 0 control, 1 isochronous, 2 bulk, 3 interrupt, 255 any
    std::uint16_t maxPacketSize = 0;
    std::uint8_t interval = 0;
};

// One interface of a device. Pipes are numbered from 1 in the interface's endpoint order.
class UsbInterface {
public:
    virtual ~UsbInterface() = default;

    [[nodiscard]] virtual std::uint8_t interfaceClass() = 0;
    [[nodiscard]] virtual std::uint8_t interfaceSubClass() = 0;

    // Exclusive use; opening what is open already succeeds.
    virtual ResultCode open() = 0;
    virtual ResultCode close() = 0;
    // Gives the handle up; the last call on it. What open() took is given back if close() did not.
    virtual ResultCode release() = 0;

    virtual ResultCode endpointCount(std::uint8_t& count) = 0;
    virtual ResultCode pipeProperties(std::uint8_t pipe, PipeProperties& properties) = 0;

    // Synchronous, whole or an error.
    virtual ResultCode writePipe(std::uint8_t pipe, std::span<const std::uint8_t> bytes) = 0;
    // One transfer of at most `room` bytes, waited for without limit. `delivered` is set always.
    virtual ResultCode readPipe(std::uint8_t pipe, std::span<std::uint8_t> room,
                                std::size_t& delivered) = 0;
};

// A device or an interface that the platform lists.
class UsbService {
public:
    virtual ~UsbService() = default;
    [[nodiscard]] virtual std::string name() const = 0;
};

class ServiceIterator {
public:
    virtual ~ServiceIterator() = default;
    // Null when exhausted.
    [[nodiscard]] virtual std::unique_ptr<UsbService> next() = 0;
};

class UsbDevice {
public:
    virtual ~UsbDevice() = default;
    [[nodiscard]] virtual std::uint16_t vendor() = 0;
    [[nodiscard]] virtual std::uint16_t product() = 0;
    // `iterator` stays null on failure.
    virtual ResultCode interfaceIterator(const InterfaceRequest& request,
                                         std::unique_ptr<ServiceIterator>& iterator) = 0;
};

// A service's plug-in, from which the device or interface handle is asked by its identifier.
// Destroying it gives it up; the handle lives on.
class UsbPlugIn {
public:
    virtual ~UsbPlugIn() = default;
    virtual ResultCode queryDevice(const UsbIdentifier& identifier,
                                   std::unique_ptr<UsbDevice>& device) = 0;
    virtual ResultCode queryInterface(const UsbIdentifier& identifier,
                                      std::unique_ptr<UsbInterface>& interface) = 0;
};

class UsbHost {
public:
    virtual ~UsbHost() = default;

    // A dictionary for all services of a class; nothing when the platform has none.
    [[nodiscard]] virtual std::optional<MatchingDictionary>
    serviceMatching(std::string_view className) = 0;
    // Adds a number to a dictionary; false when the platform cannot make it.
    [[nodiscard]] virtual bool addNumber(MatchingDictionary& dictionary, std::string_view key,
                                         std::int32_t number) = 0;

    virtual ResultCode matchingServices(const MatchingDictionary& dictionary,
                                        std::unique_ptr<ServiceIterator>& iterator) = 0;
    virtual ResultCode makePlugIn(UsbService& service, PlugInType type,
                                  const UsbIdentifier& plugInInterface,
                                  std::unique_ptr<UsbPlugIn>& plugIn) = 0;

    // Ends every transfer in flight and every later one with kResultCancelled. Any thread; returns
    // at once, the cancelled calls return soon after.
    virtual void cancelTransfers() = 0;
};

} // namespace scenewright
