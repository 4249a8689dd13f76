// The real USB bus behind the transport's seam, over libusb. LibusbHost.cpp and LibusbInterface.cpp
// alone include the library.
//
// Listing devices and interfaces opens no device. Opening an interface opens its device, makes the
// kernel's drivers leave and claims the interface; closing gives up the claim alone, so that the
// next handshake can open it again at once; releasing also brings the drivers back and closes the
// device. No device is reset or configured.
#pragma once

#include "usb/UsbHost.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

struct libusb_context;
struct libusb_device;

namespace scenewright {

[[nodiscard]] std::shared_ptr<UsbHost> makeLibusbHost();

// The one place where a code of the library (libusb_error) becomes one of this system's.
[[nodiscard]] ResultCode resultOfLibusb(int code) noexcept;

// The outcome of a transfer by its libusb_transfer_status.
[[nodiscard]] ResultCode resultOfLibusbTransfer(int status) noexcept;

using LibusbContext = std::shared_ptr<libusb_context>;
// Its deleter holds the context, which must outlive the reference.
using LibusbDeviceReference = std::shared_ptr<libusb_device>;

// The interface at `place` of the active configuration, from 0; not open. For LibusbHost.cpp.
[[nodiscard]] UsbResult<std::unique_ptr<UsbInterface>>
takeLibusbInterface(LibusbContext context, LibusbDeviceReference device, std::size_t place);

// The port of the one device that is to be found, asked for at each listing; nothing to offer every
// device.
using OfferedPort = std::function<std::optional<std::string>()>;

// The bus with that device alone, whatever else is plugged in. All but the listing is the bus's
// own.
[[nodiscard]] std::shared_ptr<UsbHost> offerChosen(std::shared_ptr<UsbHost> bus, OfferedPort port);

} // namespace scenewright
