// The virtual controller behind the USB seam, in the same process: a bus with one device of two
// interfaces, the second of which has bulk IN first and bulk OUT second.
#pragma once

#include "usb/UsbHost.h"
#include "virtual/BankFileStore.h"
#include "virtual/VirtualController.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace scenewright {

// Which device the host pretends to have on its bus.
struct VirtualIdentity {
    std::uint16_t vendor = 0x1209;
    std::uint16_t product = 0x0001;
    std::uint8_t interfaces = 2; // 1 leaves the data interface out
};

class VirtualBus;

// The controller must not be touched while a host has it.
class VirtualHost : public UsbHost {
public:
    explicit VirtualHost(std::shared_ptr<VirtualBus> bus) : bus_(std::move(bus)) {}

    // The controller, unless it is unplugged or has other ids.
    UsbResult<Devices> devices(const DeviceMatch& match) override;
    // Why the last send could not be kept in the bank file.
    std::optional<std::string> storageError() override;

private:
    std::shared_ptr<VirtualBus> bus_;
};

// A read waits until the controller has a reply, or for ever; a close ends it. Every send that has
// reached its end goes to the keeper.
[[nodiscard]] std::shared_ptr<VirtualHost>
makeVirtualHost(std::shared_ptr<VirtualController> device, BankFileStore keeper = BankFileStore({}),
                VirtualIdentity identity = {});

} // namespace scenewright
