// The virtual controller behind the USB seam, in the same process: a bus with one device of two
// interfaces, the second of which has bulk IN first and bulk OUT second.
#pragma once

#include "usb/UsbHost.h"
#include "virtual/BankKeeper.h"
#include "virtual/VirtualController.h"

#include <memory>
#include <optional>
#include <string>

namespace scenewright {

// Which device the host pretends to have on its bus.
struct VirtualIdentity {
    std::uint16_t vendor = 0x1209;
    std::uint16_t product = 0x0001;
    std::uint8_t interfaces = 2; // 1 leaves the data interface out
};

class VirtualBus;

// As any host, called by one thread at a time; the controller must not be touched meanwhile.
class VirtualHost : public UsbHost {
public:
    explicit VirtualHost(std::shared_ptr<VirtualBus> bus);

    std::optional<MatchingDictionary> serviceMatching(std::string_view className) override;
    bool addNumber(MatchingDictionary& dictionary, std::string_view key,
                   std::int32_t number) override;
    // The controller, unless it is unplugged.
    ResultCode matchingServices(const MatchingDictionary& dictionary,
                                std::unique_ptr<ServiceIterator>& iterator) override;
    ResultCode makePlugIn(UsbService& service, PlugInType type,
                          const UsbIdentifier& plugInInterface,
                          std::unique_ptr<UsbPlugIn>& plugIn) override;
    void cancelTransfers() override;

    // The sentence of the last send that could not be kept in the bank file. Any thread.
    [[nodiscard]] std::optional<std::string> bankTrouble() const;

private:
    std::shared_ptr<VirtualBus> bus_;
};

// A read waits until the controller has a reply, or for ever; cancelTransfers() ends it. Every
// send that has reached its end goes to the keeper; what keeps it from being kept is logged and
// told by bankTrouble().
[[nodiscard]] std::shared_ptr<VirtualHost>
makeVirtualHost(std::shared_ptr<VirtualController> device, BankKeeper keeper = BankKeeper({}),
                VirtualIdentity identity = {});

} // namespace scenewright
