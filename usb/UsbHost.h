// The one seam to whatever provides the bus: libusb, the in-process virtual controller, a script in
// tests.
//
// A host lists devices; a device gives its interfaces by their place; an interface opens, closes,
// describes its pipes, writes and reads. Each step can fail, with the step and a result code. One
// thread at a time uses a host and what it gave, but for UsbInterface::close().
#pragma once

#include "platform/Text.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace scenewright {

// The 32-bit result codes of the transport, printed as "%08x". 0 is success; every other outcome
// has a value of its own. The high half marks the codes as this system's.
using ResultCode = std::uint32_t;

inline constexpr ResultCode kResultSuccess = 0x00000000;
inline constexpr ResultCode kResultOther = 0x5C570001;       // the platform gave no better reason
inline constexpr ResultCode kResultInputOutput = 0x5C570002; // the bus failed
inline constexpr ResultCode kResultInvalid = 0x5C570003;     // a parameter the platform refuses
inline constexpr ResultCode kResultAccess = 0x5C570004;      // the user has no permission
inline constexpr ResultCode kResultNoDevice = 0x5C570005;    // unplugged
inline constexpr ResultCode kResultNotFound = 0x5C570006;    // no such interface or pipe
inline constexpr ResultCode kResultBusy = 0x5C570007;        // another program holds it
inline constexpr ResultCode kResultTimeout = 0x5C570008;
inline constexpr ResultCode kResultOverflow = 0x5C570009; // the device sent more than asked for
inline constexpr ResultCode kResultStall = 0x5C57000A;    // the pipe is halted
inline constexpr ResultCode kResultInterrupted = 0x5C57000B;
inline constexpr ResultCode kResultNoMemory = 0x5C57000C;
inline constexpr ResultCode kResultNotSupported = 0x5C57000D;
inline constexpr ResultCode kResultShort = 0x5C57000E;      // a write that moved a part only
inline constexpr ResultCode kResultNotOpen = 0x5C57000F;    // the interface is closed
inline constexpr ResultCode kResultGivenUp = 0x5C570010;    // the handle is stale
inline constexpr ResultCode kResultCancelled = 0x5C570011;  // the interface was closed meanwhile
inline constexpr ResultCode kResultNotPlugged = 0x5C570012; // no device of the list is attached
inline constexpr ResultCode kResultNoDriver = 0x5C570013;   // the kernel's driver did not come back
inline constexpr ResultCode kResultNoList = 0x5C570015;     // project.plist cannot be read
inline constexpr ResultCode kResultNoThread = 0x5C570014;   // the system has no thread to send on

// What can fail, in the order in which a connection takes the steps.
// As wide as the code beside it in UsbError: g++ takes copied padding for uninitialized.
enum class UsbStep : std::int32_t {
    MatchDevices, // the platform has no way to match devices
    MatchVendor,  // ... or not by their vendor id
    MatchProduct, // ... or not by their product id
    ListDevices,
    DevicePlugIn,    // access to a listed device
    DeviceHandle,    // the device itself
    InterfacePlugIn, // access to an interface; also when the device has none at that place
    InterfaceHandle, // the interface itself
    Open,
    EndpointCount,
    PipeProperties,
    Write,
    Close,
    Release,
};

struct UsbError {
    UsbStep step = UsbStep::MatchDevices;
    ResultCode code = kResultOther;
    friend bool operator==(const UsbError&, const UsbError&) = default;
};

template <typename Value>
using UsbResult = Result<Value, UsbError>;

[[nodiscard]] constexpr tl::unexpected<UsbError> failedStep(UsbStep step, ResultCode code) {
    return tl::unexpected<UsbError>(UsbError{step, code});
}

// The same of a step that a result code tells of.
[[nodiscard]] inline UsbResult<void> resultOf(UsbStep step, ResultCode code) {
    if (code != kResultSuccess)
        return failedStep(step, code);
    return {};
}

// Which devices to list; without an id, those of any.
struct DeviceMatch {
    std::optional<std::int32_t> vendor;
    std::optional<std::int32_t> product;
};

struct PipeProperties {
    std::uint8_t direction = 0;    // 0 out, 1 in, 2 none, 3 any
    std::uint8_t number = 0;       // endpoint number
    std::uint8_t transferType = 0; // 0 control, 1 isochronous, 2 bulk, 3 interrupt, 255 any
    std::uint16_t maxPacketSize = 0;
    std::uint8_t interval = 0;
};

// Class codes of an interface, as USB gives them out.
struct InterfaceClass {
    std::uint8_t code = 0;
    std::uint8_t subClass = 0;
};

// A read that failed may have delivered bytes all the same.
struct UsbRead {
    std::size_t delivered = 0;
    ResultCode code = kResultSuccess;
};

// One interface of a device. Pipes are numbered from 1 in the interface's endpoint order.
class UsbInterface {
public:
    // Gives back whatever release() has not.
    virtual ~UsbInterface() = default;

    [[nodiscard]] virtual InterfaceClass interfaceClass() = 0;

    // Exclusive use; opening what is open already succeeds.
    virtual UsbResult<void> open() = 0;
    // Ends a transfer in flight with kResultCancelled, and returns when it has ended. Any thread.
    virtual UsbResult<void> close() = 0;
    // The last call: gives back what open() took.
    virtual UsbResult<void> release() = 0;

    [[nodiscard]] virtual UsbResult<std::uint8_t> endpointCount() = 0;
    [[nodiscard]] virtual UsbResult<PipeProperties> pipeProperties(std::uint8_t pipe) = 0;

    // One transfer, synchronous, whole or an error.
    virtual UsbResult<void> write(std::uint8_t pipe, std::span<const std::uint8_t> bytes) = 0;
    // One transfer of at most `room` bytes, waited for without limit.
    virtual UsbRead read(std::uint8_t pipe, std::span<std::uint8_t> room) = 0;
};

class UsbDevice {
public:
    virtual ~UsbDevice() = default;

    // For a log: "1209:0001 at 001/004".
    [[nodiscard]] virtual std::string name() const = 0;
    // "1-2.3": the bus, and the ports on the way to it; empty where nobody knows.
    [[nodiscard]] virtual std::string port() const { return {}; }
    // Before anything below: fails as DevicePlugIn or DeviceHandle. Opens nothing.
    virtual UsbResult<void> prepare() { return {}; }
    [[nodiscard]] virtual std::uint16_t vendor() = 0;
    [[nodiscard]] virtual std::uint16_t product() = 0;
    // The interface at a place among those of the active configuration, from 0; not open yet.
    [[nodiscard]] virtual UsbResult<std::unique_ptr<UsbInterface>> interface(std::size_t place) = 0;
};

class UsbHost {
public:
    using Devices = std::vector<std::shared_ptr<UsbDevice>>;

    virtual ~UsbHost() = default;

    // Whether devices can be matched by these ids at all: fails as one of the Match steps.
    virtual UsbResult<void> canMatch(const DeviceMatch& /*match*/) { return {}; }
    // The devices attached now that match, in the platform's order.
    [[nodiscard]] virtual UsbResult<Devices> devices(const DeviceMatch& match) = 0;

    // Whether what was sent is kept: a virtual controller's memory may belong in a file. Any
    // thread.
    [[nodiscard]] virtual Result<void> storageResult() { return {}; }
};

} // namespace scenewright
