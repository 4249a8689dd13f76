// One interface of a libusb device behind the transport's seam.
//
// Opening it opens the device, makes the kernel's drivers leave, and claims the interface; a second
// opening finds it open. Closing gives up the claim alone, so that the next handshake can open it
// again at once; releasing also brings the drivers back and closes the device, in that order.
// Destroying it releases it. One thread at a time.
#pragma once

#include "usb/LibusbClaim.h"
#include "usb/LibusbDrivers.h"
#include "usb/UsbHost.h"

#include <memory>
#include <vector>

namespace scenewright {

class LibusbInterface : public UsbInterface {
public:
    // `index` is the interface's place in `interfaces`, which are those of `device`.
    LibusbInterface(std::shared_ptr<LibusbDevice> device,
                    std::vector<LibusbInterfaceDescriptor> interfaces, std::size_t index);

    std::uint8_t interfaceClass() override { return descriptor().interfaceClass; }
    std::uint8_t interfaceSubClass() override { return descriptor().subClass; }

    ResultCode open() override;
    ResultCode close() override;
    ResultCode release() override;

    ResultCode endpointCount(std::uint8_t& count) override;
    ResultCode pipeProperties(std::uint8_t pipe, PipeProperties& properties) override;

    ResultCode writePipe(std::uint8_t pipe, std::span<const std::uint8_t> bytes) override;
    ResultCode readPipe(std::uint8_t pipe, std::span<std::uint8_t> room,
                        std::size_t& delivered) override;

private:
    [[nodiscard]] const LibusbInterfaceDescriptor& descriptor() const {
        return interfaces_[index_];
    }
    ResultCode claim();
    // The endpoint of a pipe of the given direction bit, on an open interface.
    ResultCode endpointOf(std::uint8_t pipe, std::uint8_t direction, std::uint8_t& address) const;
    // Gives the result back, and keeps in mind what has to be put in order at the end.
    [[nodiscard]] ResultCode noted(std::uint8_t address, ResultCode result) const;

    std::shared_ptr<LibusbDevice> device_;
    std::vector<LibusbInterfaceDescriptor> interfaces_;
    std::size_t index_;
    // Each needs the one before it, and goes before it.
    std::unique_ptr<LibusbHandle> handle_;
    std::unique_ptr<DetachedDrivers> drivers_;
    std::unique_ptr<ClaimedInterface> claim_;
};

} // namespace scenewright
