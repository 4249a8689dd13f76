#include "usb/LibusbHost.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <libusb.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace scenewright {

ResultCode resultOfLibusb(int code) noexcept {
    switch (static_cast<libusb_error>(code)) {
    case LIBUSB_SUCCESS:
        return kResultSuccess;
    case LIBUSB_ERROR_IO:
        return kResultInputOutput;
    case LIBUSB_ERROR_INVALID_PARAM:
        return kResultInvalid;
    case LIBUSB_ERROR_ACCESS:
        return kResultAccess;
    case LIBUSB_ERROR_NO_DEVICE:
        return kResultNoDevice;
    case LIBUSB_ERROR_NOT_FOUND:
        return kResultNotFound;
    case LIBUSB_ERROR_BUSY:
        return kResultBusy;
    case LIBUSB_ERROR_TIMEOUT:
        return kResultTimeout;
    case LIBUSB_ERROR_OVERFLOW:
        return kResultOverflow;
    case LIBUSB_ERROR_PIPE:
        return kResultStall;
    case LIBUSB_ERROR_INTERRUPTED:
        return kResultInterrupted;
    case LIBUSB_ERROR_NO_MEM:
        return kResultNoMemory;
    case LIBUSB_ERROR_NOT_SUPPORTED:
        return kResultNotSupported;
    case LIBUSB_ERROR_OTHER:
        return kResultOther;
    }
    return kResultOther; // a code of a later library
}

ResultCode resultOfLibusbTransfer(int status) noexcept {
    switch (static_cast<libusb_transfer_status>(status)) {
    case LIBUSB_TRANSFER_COMPLETED:
        return resultOfLibusb(LIBUSB_SUCCESS);
    case LIBUSB_TRANSFER_ERROR:
        return resultOfLibusb(LIBUSB_ERROR_IO);
    case LIBUSB_TRANSFER_TIMED_OUT:
        return resultOfLibusb(LIBUSB_ERROR_TIMEOUT);
    case LIBUSB_TRANSFER_CANCELLED:
        return kResultCancelled; // by close()
    case LIBUSB_TRANSFER_STALL:
        return resultOfLibusb(LIBUSB_ERROR_PIPE);
    case LIBUSB_TRANSFER_NO_DEVICE:
        return resultOfLibusb(LIBUSB_ERROR_NO_DEVICE);
    case LIBUSB_TRANSFER_OVERFLOW:
        return resultOfLibusb(LIBUSB_ERROR_OVERFLOW);
    }
    return kResultOther;
}

namespace {

using Context = LibusbContext;
using DeviceReference = LibusbDeviceReference;

class LibusbDevice : public UsbDevice {
public:
    LibusbDevice(Context context, DeviceReference device,
                 const libusb_device_descriptor& descriptor)
        : context_(std::move(context)), device_(std::move(device)), vendor_(descriptor.idVendor),
          product_(descriptor.idProduct) {}

    [[nodiscard]] std::string name() const override {
        return fmt::format("{:04x}:{:04x} at {:03}/{:03}", vendor_, product_,
                           libusb_get_bus_number(device_.get()),
                           libusb_get_device_address(device_.get()));
    }
    [[nodiscard]] std::string port() const override;
    [[nodiscard]] std::uint16_t vendor() override { return vendor_; }
    [[nodiscard]] std::uint16_t product() override { return product_; }
    UsbResult<std::unique_ptr<UsbInterface>> interface(std::size_t place) override {
        return takeLibusbInterface(context_, device_, place);
    }

private:
    Context context_;
    DeviceReference device_;
    std::uint16_t vendor_;
    std::uint16_t product_;
};

// As the kernel names it. A root hub is at no port.
std::string LibusbDevice::port() const {
    constexpr std::size_t kDeepest = 7; // hubs after one another, by USB 3.0
    std::array<std::uint8_t, kDeepest> ports{};
    const int count =
        libusb_get_port_numbers(device_.get(), ports.data(), static_cast<int>(ports.size()));
    if (count <= 0)
        return {};
    return fmt::format("{}-{}", libusb_get_bus_number(device_.get()),
                       fmt::join(std::span(ports).first(static_cast<std::size_t>(count)), "."));
}

bool matches(const std::optional<std::int32_t>& wanted, std::uint16_t id) {
    return !wanted || *wanted == id;
}

// In the order of their places on the bus.
Result<std::vector<DeviceReference>, ResultCode> listReferences(const Context& context) {
    libusb_device** found = nullptr;
    const auto count = libusb_get_device_list(context.get(), &found);
    if (count < 0)
        return failure(resultOfLibusb(static_cast<int>(count)));
    constexpr auto kFree = [](libusb_device** list) { libusb_free_device_list(list, 1); };
    const std::unique_ptr<libusb_device*, decltype(kFree)> list(found);
    std::vector<DeviceReference> devices;
    for (libusb_device* const device : std::span(found, static_cast<std::size_t>(count))) {
        DeviceReference reference(libusb_ref_device(device),
                                  [context](libusb_device* held) { libusb_unref_device(held); });
        devices.push_back(std::move(reference));
    }
    std::ranges::sort(devices, {}, [](const DeviceReference& device) {
        return std::pair(libusb_get_bus_number(device.get()),
                         libusb_get_device_address(device.get()));
    });
    return devices;
}

// A context that ends with the last device or interface that came from it. Each listing starts
// anew: without a running udev a context never learns of devices that come later.
Result<Context, ResultCode> startContext() {
    libusb_context* started = nullptr;
    if (const int result = libusb_init(&started); result != LIBUSB_SUCCESS)
        return failure(resultOfLibusb(result));
    return Context(started, &libusb_exit);
}

class LibusbHost : public UsbHost {
public:
    UsbResult<Devices> devices(const DeviceMatch& match) override {
        const auto context = startContext();
        if (!context)
            return failedStep(UsbStep::ListDevices, context.error());
        auto listed = listReferences(*context);
        if (!listed)
            return failedStep(UsbStep::ListDevices, listed.error());
        Devices devices;
        for (auto& device : *listed) {
            libusb_device_descriptor descriptor{};
            if (libusb_get_device_descriptor(device.get(), &descriptor) == LIBUSB_SUCCESS &&
                matches(match.vendor, descriptor.idVendor) &&
                matches(match.product, descriptor.idProduct))
                devices.push_back(
                    std::make_shared<LibusbDevice>(*context, std::move(device), descriptor));
        }
        return devices;
    }
};

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

std::shared_ptr<UsbHost> makeLibusbHost() {
    return std::make_shared<LibusbHost>();
}

std::shared_ptr<UsbHost> offerChosen(std::shared_ptr<UsbHost> bus, OfferedPort port) {
    return std::make_shared<ChosenHost>(std::move(bus), std::move(port));
}

} // namespace scenewright
