// What the transport needs of libusb, in this system's own terms; LibusbApi.cpp is the one file
// that includes the library. Tests put a scripted bus in its place.
//
// Each object owns one resource of the library and gives it back when destroyed: a device is a
// reference to a listed device, a handle an open one. A handle keeps its device alive, a device the
// library's context. One thread at a time, but for LibusbApi::cancelTransfers().
#pragma once

#include "usb/ResultCode.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace scenewright {

// Fields of the USB descriptors of the same names.
struct LibusbEndpoint {
    std::uint8_t address = 0; // bit 7 set: IN
    std::uint8_t attributes = 0;
    std::uint16_t maxPacketSize = 0;
    std::uint8_t interval = 0;
};

// Class codes of an interface, as USB gives them out: Audio, and its subclass for MIDI streaming.
inline constexpr std::uint8_t kAudioClass = 1;
inline constexpr std::uint8_t kMidiStreaming = 3;

struct LibusbInterfaceDescriptor {
    std::uint8_t number = 0;
    std::uint8_t alternateSetting = 0;
    std::uint8_t interfaceClass = 0;
    std::uint8_t subClass = 0;
    std::uint8_t protocol = 0;
    std::vector<LibusbEndpoint> endpoints{};
};

class LibusbHandle {
public:
    virtual ~LibusbHandle() = default;

    // Whether a kernel driver holds the interface; a program's claim does not count.
    virtual ResultCode hasDriver(std::uint8_t interface, bool& bound) = 0;
    virtual ResultCode detachDriver(std::uint8_t interface) = 0;
    // Lets the kernel look for a driver; kResultNotFound when none wants the interface.
    virtual ResultCode attachDriver(std::uint8_t interface) = 0;
    virtual ResultCode claim(std::uint8_t interface) = 0;
    virtual ResultCode release(std::uint8_t interface) = 0;
    // Lets an endpoint of a claimed interface carry again after a stall.
    virtual ResultCode clearHalt(std::uint8_t endpoint) = 0;

    // One bulk transfer without a time limit; the endpoint's direction bit must fit the call.
    // `moved` is set always.
    virtual ResultCode write(std::uint8_t endpoint, std::span<const std::uint8_t> bytes,
                             std::size_t& moved) = 0;
    virtual ResultCode read(std::uint8_t endpoint, std::span<std::uint8_t> room,
                            std::size_t& moved) = 0;
};

class LibusbDevice {
public:
    virtual ~LibusbDevice() = default;

    // From the device descriptor and the bus: known without opening the device.
    [[nodiscard]] virtual std::uint16_t vendor() const = 0;
    [[nodiscard]] virtual std::uint16_t product() const = 0;
    [[nodiscard]] virtual std::uint8_t bus() const = 0;
    [[nodiscard]] virtual std::uint8_t address() const = 0;
    // The first altsetting of each interface of the active configuration, in the descriptors'
    // order; also known without opening. kResultNotFound when the device is not configured.
    virtual ResultCode interfaces(std::vector<LibusbInterfaceDescriptor>& list) const = 0;

    virtual ResultCode open(std::unique_ptr<LibusbHandle>& handle) const = 0;
};

class LibusbApi {
public:
    virtual ~LibusbApi() = default;

    // The devices attached now, by bus and address.
    virtual ResultCode devices(std::vector<std::shared_ptr<LibusbDevice>>& list) = 0;

    // Ends every transfer in flight, and every later one at once, with kResultCancelled. Any
    // thread; does not wait.
    virtual void cancelTransfers() = 0;
};

[[nodiscard]] std::shared_ptr<LibusbApi> makeLibusbApi();

// The one place where a code of the library (libusb_error) becomes one of this system's.
[[nodiscard]] ResultCode resultOfLibusb(int code) noexcept;

// The outcome of a transfer by its libusb_transfer_status.
[[nodiscard]] ResultCode resultOfLibusbTransfer(int status) noexcept;

} // namespace scenewright
