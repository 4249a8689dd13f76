#include "tests/usb/FakeLibusb.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <libusb.h>

#include <algorithm>
#include <memory>
#include <span>
#include <utility>

using scenewright::testing::FakeDevice;
using scenewright::testing::FakeEvent;
using scenewright::testing::FakeInterface;
using scenewright::testing::FakeLibusb;
using scenewright::testing::fakeLibusb;

namespace scenewright::testing {

FakeLibusb& fakeLibusb() {
    static FakeLibusb library;
    return library;
}

} // namespace scenewright::testing

// The library's own types, which only it looks into.
struct libusb_context {
    libusb_transfer* inFlight = nullptr;
    bool isCancelled = false;
};
struct libusb_device {
    libusb_context* context;
    FakeDevice fake;
};
struct libusb_device_handle {
    libusb_context* context;
};

namespace {

// A configuration with the memory that its pointers lead to.
struct Configuration {
    libusb_config_descriptor descriptor{};
    std::vector<libusb_interface> interfaces{};
    std::vector<std::vector<libusb_interface_descriptor>> altsettings{};
    std::vector<std::vector<libusb_endpoint_descriptor>> endpoints{};
};

std::vector<std::unique_ptr<Configuration>>& configurations() {
    static std::vector<std::unique_ptr<Configuration>> kept;
    return kept;
}

libusb_interface_descriptor describe(const FakeInterface& fake,
                                     const std::vector<libusb_endpoint_descriptor>& endpoints) {
    libusb_interface_descriptor descriptor{};
    descriptor.bInterfaceNumber = fake.number;
    descriptor.bAlternateSetting = fake.alternateSetting;
    descriptor.bInterfaceClass = fake.interfaceClass;
    descriptor.bInterfaceSubClass = fake.subClass;
    descriptor.bInterfaceProtocol = fake.protocol;
    descriptor.bNumEndpoints = static_cast<std::uint8_t>(endpoints.size());
    descriptor.endpoint = endpoints.data();
    return descriptor;
}

std::unique_ptr<Configuration> configure(const FakeDevice& device) {
    auto made = std::make_unique<Configuration>();
    for (const FakeInterface& fake : device.interfaces) {
        auto& endpoints = made->endpoints.emplace_back();
        for (const auto& endpoint : fake.endpoints) {
            libusb_endpoint_descriptor& descriptor = endpoints.emplace_back();
            descriptor.bEndpointAddress = endpoint.address;
            descriptor.bmAttributes = endpoint.attributes;
            descriptor.wMaxPacketSize = endpoint.maxPacketSize;
            descriptor.bInterval = endpoint.interval;
        }
        auto& altsettings = made->altsettings.emplace_back();
        if (fake.hasAltsettings) {
            altsettings.push_back(describe(fake, endpoints));
            // A second one, which nobody asked for.
            altsettings.emplace_back().bInterfaceNumber = 0xEE;
        }
        made->interfaces.push_back({altsettings.data(), static_cast<int>(altsettings.size())});
    }
    made->descriptor.bNumInterfaces = static_cast<std::uint8_t>(made->interfaces.size());
    made->descriptor.interface = made->interfaces.data();
    return made;
}

int driverCall(const char* name, int interface) {
    fakeLibusb().calls.push_back(fmt::format("{} {}", name, interface));
    return fakeLibusb().driverResult;
}

// Ends the transfer in flight the way the event says.
void complete(libusb_context& context, const FakeEvent& event) {
    libusb_transfer* const transfer = std::exchange(context.inFlight, nullptr);
    std::ranges::copy(event.delivers, transfer->buffer);
    const bool isIn = (transfer->endpoint & LIBUSB_ENDPOINT_IN) != 0;
    const int all = isIn ? static_cast<int>(event.delivers.size()) : transfer->length;
    transfer->actual_length = event.moved >= 0 ? event.moved : all;
    transfer->status = static_cast<libusb_transfer_status>(event.status);
    if (context.isCancelled) {
        transfer->status = LIBUSB_TRANSFER_CANCELLED;
        transfer->actual_length = 0;
    }
    transfer->callback(transfer);
}

} // namespace

// NOLINTBEGIN(cppcoreguidelines-owning-memory): the library's interface is one of plain pointers.
extern "C" {

int libusb_init(libusb_context** context) {
    if (fakeLibusb().initResult != 0)
        return fakeLibusb().initResult;
    *context = std::make_unique<libusb_context>().release();
    ++fakeLibusb().contexts;
    return 0;
}

void libusb_exit(libusb_context* context) {
    const std::unique_ptr<libusb_context> ended(context);
    --fakeLibusb().contexts;
}

ssize_t libusb_get_device_list(libusb_context* context, libusb_device*** list) {
    FakeLibusb& library = fakeLibusb();
    if (library.listResult != 0)
        return library.listResult;
    auto made = std::make_unique<libusb_device*[]>(library.devices.size() + 1);
    for (std::size_t i = 0; i < library.devices.size(); ++i) {
        made[i] =
            std::make_unique<libusb_device>(libusb_device{context, library.devices[i]}).release();
        ++library.deviceReferences;
    }
    *list = made.release();
    return static_cast<ssize_t>(library.devices.size());
}

void libusb_free_device_list(libusb_device** list, int unrefs) {
    const std::unique_ptr<libusb_device*[]> freed(list);
    fakeLibusb().calls.push_back(fmt::format("free list {}", unrefs));
}

void libusb_unref_device(libusb_device* device) {
    const std::unique_ptr<libusb_device> freed(device);
    --fakeLibusb().deviceReferences;
}

std::uint8_t libusb_get_bus_number(libusb_device* device) {
    return device->fake.bus;
}

std::uint8_t libusb_get_device_address(libusb_device* device) {
    return device->fake.address;
}

int libusb_get_device_descriptor(libusb_device* device, libusb_device_descriptor* descriptor) {
    descriptor->idVendor = device->fake.vendor;
    descriptor->idProduct = device->fake.product;
    return device->fake.descriptorResult;
}

int libusb_get_active_config_descriptor(libusb_device* device, libusb_config_descriptor** found) {
    if (device->fake.configurationResult != 0)
        return device->fake.configurationResult;
    configurations().push_back(configure(device->fake));
    *found = &configurations().back()->descriptor;
    ++fakeLibusb().configurations;
    return 0;
}

void libusb_free_config_descriptor(libusb_config_descriptor* freed) {
    std::erase_if(configurations(), [&](const auto& kept) { return &kept->descriptor == freed; });
    --fakeLibusb().configurations;
}

int libusb_open(libusb_device* device, libusb_device_handle** handle) {
    if (device->fake.openResult != 0)
        return device->fake.openResult;
    *handle =
        std::make_unique<libusb_device_handle>(libusb_device_handle{device->context}).release();
    ++fakeLibusb().handles;
    return 0;
}

void libusb_close(libusb_device_handle* handle) {
    const std::unique_ptr<libusb_device_handle> closed(handle);
    --fakeLibusb().handles;
}

int libusb_kernel_driver_active(libusb_device_handle* /*handle*/, int interface) {
    return driverCall("active", interface);
}

int libusb_detach_kernel_driver(libusb_device_handle* /*handle*/, int interface) {
    return driverCall("detach", interface);
}

int libusb_attach_kernel_driver(libusb_device_handle* /*handle*/, int interface) {
    return driverCall("attach", interface);
}

int libusb_claim_interface(libusb_device_handle* /*handle*/, int interface) {
    return driverCall("claim", interface);
}

int libusb_release_interface(libusb_device_handle* /*handle*/, int interface) {
    return driverCall("release", interface);
}

int libusb_clear_halt(libusb_device_handle* /*handle*/, unsigned char endpoint) {
    return driverCall("clear", endpoint);
}

libusb_transfer* libusb_alloc_transfer(int /*isoPackets*/) {
    if (fakeLibusb().isOutOfMemory)
        return nullptr;
    ++fakeLibusb().transfers;
    return std::make_unique<libusb_transfer>().release();
}

int libusb_submit_transfer(libusb_transfer* transfer) {
    FakeLibusb& library = fakeLibusb();
    const std::span bytes(transfer->buffer, static_cast<std::size_t>(transfer->length));
    const bool isIn = (transfer->endpoint & LIBUSB_ENDPOINT_IN) != 0;
    library.calls.push_back(isIn ? fmt::format("read {:02x}: {} bytes, {} ms", transfer->endpoint,
                                               bytes.size(), transfer->timeout)
                                 : fmt::format("write {:02x}: {:02x}, {} ms", transfer->endpoint,
                                               fmt::join(bytes, " "), transfer->timeout));
    if (library.submitResult == 0)
        transfer->dev_handle->context->inFlight = transfer;
    return library.submitResult;
}

int libusb_cancel_transfer(libusb_transfer* transfer) {
    fakeLibusb().calls.emplace_back("cancel");
    transfer->dev_handle->context->isCancelled = true;
    return 0;
}

void libusb_free_transfer(libusb_transfer* transfer) {
    const std::unique_ptr<libusb_transfer> freed(transfer);
    --fakeLibusb().transfers;
}

int libusb_handle_events_completed(libusb_context* context, int* completed) {
    FakeLibusb& library = fakeLibusb();
    FakeEvent event;
    if (!library.events.empty()) {
        event = library.events.front();
        library.events.pop_front();
    }
    library.calls.push_back(fmt::format("events, completed {}", *completed));
    if (event.meanwhile)
        event.meanwhile();
    if (event.completes)
        complete(*context, event);
    return event.result;
}

} // extern "C"
// NOLINTEND(cppcoreguidelines-owning-memory)
