// The host's real USB bus behind the transport's seam, over libusb.
//
// Listing devices and interfaces opens no device; an interface's open() opens its own. "Second
// interface" counts the interfaces of the active configuration. No device is reset or configured.
#pragma once

#include "usb/LibusbApi.h"
#include "usb/UsbHost.h"

#include <memory>

namespace scenewright {

[[nodiscard]] std::shared_ptr<UsbHost>
makeLibusbHost(std::shared_ptr<LibusbApi> api = makeLibusbApi());

} // namespace scenewright
