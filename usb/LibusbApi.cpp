#include "usb/LibusbApi.h"

#include <libusb.h>

#include <algorithm>
#include <mutex>
#include <utility>

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
        return kResultCancelled; // nobody else cancels: the program is ending
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

using Context = std::shared_ptr<libusb_context>;
using Transfer = std::unique_ptr<libusb_transfer, decltype(&libusb_free_transfer)>;
using OpenDevice = std::unique_ptr<libusb_device_handle, decltype(&libusb_close)>;

// A listed device; the deleter holds the context, which must outlive the reference.
using DeviceReference = std::shared_ptr<libusb_device>;

// The transfers that are in flight, so that another thread can end them.
class Flights {
public:
    // Submits unless the end has come; `transfer` stays listed until land().
    ResultCode launch(libusb_transfer& transfer) {
        const std::lock_guard lock(mutex_);
        if (isOver_)
            return kResultCancelled;
        const ResultCode result = resultOfLibusb(libusb_submit_transfer(&transfer));
        if (result == kResultSuccess)
            transfers_.push_back(&transfer);
        return result;
    }
    // The transfer has completed; its memory may go.
    void land(libusb_transfer& transfer) {
        const std::lock_guard lock(mutex_);
        std::erase(transfers_, &transfer);
    }
    void cancelAll() {
        const std::lock_guard lock(mutex_);
        isOver_ = true;
        for (libusb_transfer* const transfer : transfers_)
            libusb_cancel_transfer(transfer); // one that has just completed is none to cancel
    }

private:
    std::mutex mutex_;
    bool isOver_ = false;
    std::vector<libusb_transfer*> transfers_; // owned by the calls that wait for them
};

void onCompletion(libusb_transfer* transfer) {
    *static_cast<int*>(transfer->user_data) = 1;
}

// Handles the bus's events on this thread, which sleeps meanwhile, until the transfer has ended.
void awaitCompletion(libusb_context* context, libusb_transfer& transfer, int& completed) {
    while (completed == 0) {
        const int result = libusb_handle_events_completed(context, &completed);
        if (result < 0 && result != LIBUSB_ERROR_INTERRUPTED)
            libusb_cancel_transfer(&transfer);
    }
}

class Handle : public LibusbHandle {
public:
    Handle(Context context, DeviceReference device, OpenDevice handle,
           std::shared_ptr<Flights> flights)
        : context_(std::move(context)), device_(std::move(device)), handle_(std::move(handle)),
          flights_(std::move(flights)) {}

    ResultCode hasDriver(std::uint8_t interface, bool& bound) override {
        const int result = libusb_kernel_driver_active(handle_.get(), interface);
        bound = result == 1;
        return result == 1 ? kResultSuccess : resultOfLibusb(result);
    }
    ResultCode detachDriver(std::uint8_t interface) override {
        return resultOfLibusb(libusb_detach_kernel_driver(handle_.get(), interface));
    }
    ResultCode attachDriver(std::uint8_t interface) override {
        return resultOfLibusb(libusb_attach_kernel_driver(handle_.get(), interface));
    }
    ResultCode claim(std::uint8_t interface) override {
        return resultOfLibusb(libusb_claim_interface(handle_.get(), interface));
    }
    ResultCode release(std::uint8_t interface) override {
        return resultOfLibusb(libusb_release_interface(handle_.get(), interface));
    }
    ResultCode clearHalt(std::uint8_t endpoint) override {
        return resultOfLibusb(libusb_clear_halt(handle_.get(), endpoint));
    }
    ResultCode write(std::uint8_t endpoint, std::span<const std::uint8_t> bytes,
                     std::size_t& moved) override {
        std::vector<std::uint8_t> copy(bytes.begin(), bytes.end());
        return transfer(endpoint, copy, moved);
    }
    ResultCode read(std::uint8_t endpoint, std::span<std::uint8_t> room,
                    std::size_t& moved) override {
        return transfer(endpoint, room, moved);
    }

private:
    ResultCode transfer(std::uint8_t endpoint, std::span<std::uint8_t> bytes, std::size_t& moved);

    Context context_;
    DeviceReference device_;
    OpenDevice handle_;
    std::shared_ptr<Flights> flights_;
};

ResultCode Handle::transfer(std::uint8_t endpoint, std::span<std::uint8_t> bytes,
                            std::size_t& moved) {
    constexpr unsigned kNoTimeLimit = 0;
    moved = 0;
    const Transfer transfer(libusb_alloc_transfer(0), &libusb_free_transfer);
    if (!transfer)
        return kResultNoMemory;
    int completed = 0;
    libusb_fill_bulk_transfer(transfer.get(), handle_.get(), endpoint, bytes.data(),
                              static_cast<int>(bytes.size()), &onCompletion, &completed,
                              kNoTimeLimit);
    const ResultCode launched = flights_->launch(*transfer);
    if (launched != kResultSuccess)
        return launched;
    awaitCompletion(context_.get(), *transfer, completed);
    flights_->land(*transfer);
    moved = static_cast<std::size_t>(transfer->actual_length);
    return resultOfLibusbTransfer(transfer->status);
}

LibusbInterfaceDescriptor interfaceOf(const libusb_interface_descriptor& descriptor) {
    LibusbInterfaceDescriptor interface {
        .number = descriptor.bInterfaceNumber, .alternateSetting = descriptor.bAlternateSetting,
        .interfaceClass = descriptor.bInterfaceClass, .subClass = descriptor.bInterfaceSubClass,
        .protocol = descriptor.bInterfaceProtocol, .endpoints = {}
    };
    for (const auto& endpoint : std::span(descriptor.endpoint, descriptor.bNumEndpoints))
        interface.endpoints.push_back({.address = endpoint.bEndpointAddress,
                                       .attributes = endpoint.bmAttributes,
                                       .maxPacketSize = endpoint.wMaxPacketSize,
                                       .interval = endpoint.bInterval});
    return interface;
}

class OpenedDevice : public LibusbDevice {
public:
    OpenedDevice(Context context, DeviceReference device,
                 const libusb_device_descriptor& descriptor, std::shared_ptr<Flights> flights)
        : context_(std::move(context)), device_(std::move(device)), vendor_(descriptor.idVendor),
          product_(descriptor.idProduct), flights_(std::move(flights)) {}

    [[nodiscard]] std::uint16_t vendor() const override { return vendor_; }
    [[nodiscard]] std::uint16_t product() const override { return product_; }
    [[nodiscard]] std::uint8_t bus() const override { return libusb_get_bus_number(device_.get()); }
    [[nodiscard]] std::uint8_t address() const override {
        return libusb_get_device_address(device_.get());
    }

    ResultCode interfaces(std::vector<LibusbInterfaceDescriptor>& list) const override {
        libusb_config_descriptor* found = nullptr;
        const int result = libusb_get_active_config_descriptor(device_.get(), &found);
        if (result != LIBUSB_SUCCESS)
            return resultOfLibusb(result);
        const std::unique_ptr<libusb_config_descriptor, decltype(&libusb_free_config_descriptor)>
            configuration(found, &libusb_free_config_descriptor);
        for (const auto& interface :
             std::span(configuration->interface, configuration->bNumInterfaces))
            if (interface.num_altsetting > 0)
                list.push_back(interfaceOf(*interface.altsetting));
        return kResultSuccess;
    }

    ResultCode open(std::unique_ptr<LibusbHandle>& handle) const override {
        libusb_device_handle* opened = nullptr;
        const int result = libusb_open(device_.get(), &opened);
        if (result != LIBUSB_SUCCESS)
            return resultOfLibusb(result);
        handle = std::make_unique<Handle>(context_, device_, OpenDevice(opened, &libusb_close),
                                          flights_);
        return kResultSuccess;
    }

private:
    Context context_;
    DeviceReference device_;
    std::uint16_t vendor_;
    std::uint16_t product_;
    std::shared_ptr<Flights> flights_;
};

class Api : public LibusbApi {
public:
    ResultCode devices(std::vector<std::shared_ptr<LibusbDevice>>& list) override;
    void cancelTransfers() override { flights_->cancelAll(); }

private:
    std::shared_ptr<Flights> flights_ = std::make_shared<Flights>();
};

// A context that ends with the last device or handle that came from it. Each listing starts anew:
// without a running udev a context never learns of devices that come later.
ResultCode startContext(Context& context) {
    libusb_context* started = nullptr;
    const int result = libusb_init(&started);
    if (result == LIBUSB_SUCCESS)
        context = Context(started, &libusb_exit);
    return resultOfLibusb(result);
}

// Takes over the library's list and the references in it.
std::vector<DeviceReference> references(const Context& context, std::span<libusb_device*> list) {
    std::vector<DeviceReference> devices;
    for (libusb_device* const device : list)
        devices.emplace_back(device, [context](libusb_device* held) { libusb_unref_device(held); });
    return devices;
}

ResultCode Api::devices(std::vector<std::shared_ptr<LibusbDevice>>& list) {
    Context context;
    if (const ResultCode started = startContext(context); started != kResultSuccess)
        return started;
    libusb_device** found = nullptr;
    const auto count = libusb_get_device_list(context.get(), &found);
    if (count < 0)
        return resultOfLibusb(static_cast<int>(count));
    auto devices = references(context, std::span(found, static_cast<std::size_t>(count)));
    libusb_free_device_list(found, 0);
    std::ranges::sort(devices, {}, [](const DeviceReference& device) {
        return std::pair(libusb_get_bus_number(device.get()),
                         libusb_get_device_address(device.get()));
    });
    for (auto& device : devices) {
        libusb_device_descriptor descriptor{};
        if (libusb_get_device_descriptor(device.get(), &descriptor) == LIBUSB_SUCCESS)
            list.push_back(
                std::make_shared<OpenedDevice>(context, std::move(device), descriptor, flights_));
    }
    return kResultSuccess;
}

} // namespace

std::shared_ptr<LibusbApi> makeLibusbApi() {
    return std::make_shared<Api>();
}

} // namespace scenewright
