#include "usb/ChosenHost.h"

#include <utility>
#include <vector>

namespace scenewright {

namespace {

class ChosenHost : public UsbHost {
public:
    ChosenHost(std::shared_ptr<UsbHost> bus, OfferedPort port)
        : bus_(std::move(bus)), port_(std::move(port)) {}

    UsbResult<void> canMatch(const DeviceMatch& match) override { return bus_->canMatch(match); }
    UsbResult<Devices> devices(const DeviceMatch& match) override {
        auto devices = bus_->devices(match);
        if (const auto port = port_(); devices && port)
            std::erase_if(*devices,
                          [&port](const auto& device) { return device->port() != *port; });
        return devices;
    }
    Result<void> storageResult() override { return bus_->storageResult(); }

private:
    std::shared_ptr<UsbHost> bus_;
    OfferedPort port_;
};

} // namespace

std::shared_ptr<UsbHost> offerChosen(std::shared_ptr<UsbHost> bus, OfferedPort port) {
    return std::make_shared<ChosenHost>(std::move(bus), std::move(port));
}

} // namespace scenewright
