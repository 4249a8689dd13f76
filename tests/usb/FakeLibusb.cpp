#include "tests/usb/FakeLibusb.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <libusb.h>

#include <algorithm>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <thread>
#include <utility>
#include <vector>

using scenewright::testing::FakeDevice;
using scenewright::testing::FakeEvent;
using scenewright::testing::FakeInterface;
using scenewright::testing::FakeLibusb;
using scenewright::testing::fakeLibusb;
using scenewright::testing::Holder;

namespace scenewright::testing {

namespace {

thread_local int depth = 0; // of calls of the library

} // namespace

FakeLibusb& fakeLibusb() {
    static FakeLibusb library;
    return library;
}

bool isInLibrary() noexcept {
    return depth > 0;
}

} // namespace scenewright::testing

// The library's own types, which only it looks into.
struct libusb_context {};
struct libusb_device {
    FakeDevice fake;
    int references;
};
struct libusb_device_handle {
    libusb_device* device;
};

namespace {

// A transfer that the library has; which thread submitted it, and whether it is to be cancelled.
struct InFlight {
    libusb_transfer* transfer;
    std::thread::id thread;
    bool isCancelled = false;
};

std::mutex mutex;
std::condition_variable cancelled;
std::vector<InFlight> inFlight;

// A call of the library: it has the bus to itself, and no allocation in it fails.
class Use {
public:
    Use() { ++scenewright::testing::depth; }
    ~Use() { --scenewright::testing::depth; }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
    Use(Use&&) = delete;
    Use& operator=(Use&&) = delete;

    FakeLibusb* operator->() const { return &fakeLibusb(); }
    std::unique_lock<std::mutex>& lock() { return lock_; }
    // The failure that is scripted for the call, or that the device has gone.
    [[nodiscard]] int resultOf(const std::string& call) const {
        if (const auto failure = fakeLibusb().failures.find(call);
            failure != fakeLibusb().failures.end())
            return failure->second;
        return fakeLibusb().isPlugged ? LIBUSB_SUCCESS : LIBUSB_ERROR_NO_DEVICE;
    }
    static void note(const std::string& call) {
        fakeLibusb().calls.push_back(call);
        if (fakeLibusb().whenCalled)
            fakeLibusb().whenCalled(call);
    }
    // The same for a call that is recorded.
    [[nodiscard]] int called(const std::string& call) const {
        note(call);
        return resultOf(call);
    }
    [[nodiscard]] Holder& holder(int interface) const { return fakeLibusb().holders[interface]; }

private:
    std::unique_lock<std::mutex> lock_{mutex};
};

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
    descriptor.bInterfaceClass = fake.interfaceClass;
    descriptor.bInterfaceSubClass = fake.subClass;
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

// The sound driver's probe of `interface` on the device.
int probe(const Use& library, const FakeDevice& device, int interface) {
    if (library.holder(interface) != Holder::Nobody)
        return LIBUSB_ERROR_BUSY;
    const auto wanted = std::ranges::find(device.interfaces, interface, &FakeInterface::number);
    if (wanted == device.interfaces.end() || wanted->interfaceClass != LIBUSB_CLASS_AUDIO ||
        wanted->subClass != 1)
        return LIBUSB_ERROR_NOT_FOUND;
    for (const FakeInterface& taken : device.interfaces)
        if (taken.number >= interface && taken.interfaceClass == LIBUSB_CLASS_AUDIO &&
            library.holder(taken.number) == Holder::Nobody)
            library.holder(taken.number) = Holder::Driver;
    return LIBUSB_SUCCESS;
}

bool isIn(const libusb_transfer& transfer) {
    return (transfer.endpoint & LIBUSB_ENDPOINT_IN) != 0;
}

// Ends a transfer the way the event says.
void complete(const InFlight& ended, const FakeEvent& event) {
    libusb_transfer* const transfer = ended.transfer;
    const auto delivered =
        std::min(event.delivers.size(), static_cast<std::size_t>(transfer->length));
    std::copy_n(event.delivers.begin(), delivered, transfer->buffer);
    const int all = isIn(*transfer) ? static_cast<int>(delivered) : transfer->length;
    transfer->actual_length = event.moved >= 0 ? std::min(event.moved, transfer->length) : all;
    transfer->status = static_cast<libusb_transfer_status>(event.status);
    if (ended.isCancelled) {
        transfer->status = LIBUSB_TRANSFER_CANCELLED;
        transfer->actual_length = 0;
    }
    transfer->callback(transfer);
}

std::vector<InFlight>::iterator ownTransfer() {
    return std::ranges::find(inFlight, std::this_thread::get_id(), &InFlight::thread);
}

} // namespace

// NOLINTBEGIN(cppcoreguidelines-owning-memory): the library's interface is one of plain pointers.
extern "C" {

int libusb_init(libusb_context** context) {
    const Use library;
    if (const int result = library.resultOf("init"); result != 0 && library->isPlugged)
        return result;
    *context = std::make_unique<libusb_context>().release();
    ++library->contexts;
    return 0;
}

void libusb_exit(libusb_context* context) {
    const Use library;
    const std::unique_ptr<libusb_context> ended(context);
    if (--library->contexts == 0 && library->deviceReferences + library->handles > 0)
        library->misuses.emplace_back("ended before what came from it");
}

ssize_t libusb_get_device_list(libusb_context* /*context*/, libusb_device*** list) {
    const Use library;
    if (const auto failure = library->failures.find("list"); failure != library->failures.end())
        return failure->second;
    const std::size_t count = library->isPlugged ? library->devices.size() : 0;
    auto made = std::make_unique<libusb_device*[]>(count + 1);
    for (std::size_t i = 0; i < count; ++i)
        made[i] = std::make_unique<libusb_device>(libusb_device{library->devices[i], 1}).release();
    library->deviceReferences += static_cast<int>(count);
    *list = made.release();
    return static_cast<ssize_t>(count);
}

libusb_device* libusb_ref_device(libusb_device* device) {
    const Use library;
    ++library->deviceReferences;
    ++device->references;
    return device;
}

void libusb_unref_device(libusb_device* device) {
    const Use library;
    --library->deviceReferences;
    if (--device->references == 0)
        const std::unique_ptr<libusb_device> freed(device);
}

void libusb_free_device_list(libusb_device** list, int unrefs) {
    const std::unique_ptr<libusb_device*[]> freed(list);
    for (libusb_device** device = list; unrefs != 0 && *device != nullptr; ++device)
        libusb_unref_device(*device);
}

std::uint8_t libusb_get_bus_number(libusb_device* device) {
    return device->fake.bus;
}

std::uint8_t libusb_get_device_address(libusb_device* device) {
    return device->fake.address;
}

int libusb_get_port_numbers(libusb_device* device, std::uint8_t* numbers, int room) {
    const auto& ports = device->fake.ports;
    if (static_cast<std::size_t>(room) < ports.size())
        return LIBUSB_ERROR_OVERFLOW;
    std::ranges::copy(ports, numbers);
    return static_cast<int>(ports.size());
}

int libusb_get_device_descriptor(libusb_device* device, libusb_device_descriptor* descriptor) {
    descriptor->idVendor = device->fake.vendor;
    descriptor->idProduct = device->fake.product;
    return device->fake.descriptorResult;
}

int libusb_get_active_config_descriptor(libusb_device* device, libusb_config_descriptor** found) {
    const Use library;
    if (device->fake.configurationResult != 0)
        return device->fake.configurationResult;
    if (const int result = library.resultOf("configuration"); result != 0)
        return result;
    configurations().push_back(configure(device->fake));
    *found = &configurations().back()->descriptor;
    ++library->configurations;
    return 0;
}

void libusb_free_config_descriptor(libusb_config_descriptor* freed) {
    const Use library;
    std::erase_if(configurations(), [&](const auto& kept) { return &kept->descriptor == freed; });
    --library->configurations;
}

int libusb_open(libusb_device* device, libusb_device_handle** handle) {
    const Use library;
    if (const int result = library.called("open"); result != 0)
        return result;
    *handle = std::make_unique<libusb_device_handle>(libusb_device_handle{device}).release();
    ++library->handles;
    ++library->deviceReferences;
    ++device->references;
    return 0;
}

void libusb_close(libusb_device_handle* handle) {
    const std::unique_ptr<libusb_device_handle> closed(handle);
    {
        const Use library;
        Use::note("close");
        --library->handles;
        for (auto& [interface, holder] : library->holders)
            holder = holder == Holder::Us ? Holder::Nobody : holder;
        std::erase_if(inFlight, [handle](const InFlight& transfer) {
            return transfer.transfer->dev_handle == handle;
        });
    }
    libusb_unref_device(handle->device);
}

int libusb_kernel_driver_active(libusb_device_handle* /*handle*/, int interface) {
    const Use library;
    if (!library->isPlugged)
        return LIBUSB_ERROR_NO_DEVICE;
    return library.holder(interface) == Holder::Driver ? 1 : 0;
}

int libusb_detach_kernel_driver(libusb_device_handle* /*handle*/, int interface) {
    const Use library;
    if (const int result = library.called(fmt::format("detach {}", interface)); result != 0)
        return result;
    if (library.holder(interface) != Holder::Driver)
        return LIBUSB_ERROR_NOT_FOUND;
    library.holder(interface) = Holder::Nobody;
    return 0;
}

int libusb_attach_kernel_driver(libusb_device_handle* handle, int interface) {
    const Use library;
    if (const int result = library.called(fmt::format("attach {}", interface)); result != 0)
        return result;
    return probe(library, handle->device->fake, interface);
}

int libusb_claim_interface(libusb_device_handle* handle, int interface) {
    const Use library;
    if (const int result = library.called(fmt::format("claim {}", interface)); result != 0)
        return result;
    if (library.holder(interface) == Holder::Us && library->claimer == handle)
        return 0;
    if (library.holder(interface) != Holder::Nobody)
        return LIBUSB_ERROR_BUSY;
    library.holder(interface) = Holder::Us;
    library->claimer = handle;
    return 0;
}

int libusb_release_interface(libusb_device_handle* handle, int interface) {
    const Use library;
    // Where events fail for good, a transfer cannot be ended before.
    if (library->eventsResult == 0 && std::ranges::any_of(inFlight, [&](const InFlight& own) {
            return own.transfer->dev_handle == handle;
        }))
        library->misuses.emplace_back("released an interface with a transfer in flight");
    const int result = library.called(fmt::format("release {}", interface));
    if (library.holder(interface) == Holder::Us)
        library.holder(interface) = Holder::Nobody;
    return result;
}

int libusb_clear_halt(libusb_device_handle* /*handle*/, unsigned char endpoint) {
    const Use library;
    return library.called(fmt::format("clear {:02x}", endpoint));
}

libusb_transfer* libusb_alloc_transfer(int /*isoPackets*/) {
    const Use library;
    if (library->failures.contains("alloc"))
        return nullptr;
    ++library->transfers;
    return std::make_unique<libusb_transfer>().release();
}

void libusb_free_transfer(libusb_transfer* transfer) {
    const Use library;
    if (transfer == nullptr)
        return;
    const std::unique_ptr<libusb_transfer> freed(transfer);
    if (std::erase_if(inFlight, [&](const InFlight& own) { return own.transfer == transfer; }) > 0)
        library->misuses.emplace_back("freed a transfer in flight");
    --library->transfers;
}

int libusb_submit_transfer(libusb_transfer* transfer) {
    const Use library;
    const std::span bytes(transfer->buffer, static_cast<std::size_t>(transfer->length));
    Use::note(isIn(*transfer) ? fmt::format("read {:02x}: {} bytes, {} ms", transfer->endpoint,
                                            bytes.size(), transfer->timeout)
                              : fmt::format("write {:02x}: {:02x}, {} ms", transfer->endpoint,
                                            fmt::join(bytes, " "), transfer->timeout));
    if (const int result = library.resultOf("submit"); result != 0)
        return result;
    inFlight.push_back({transfer, std::this_thread::get_id()});
    return 0;
}

int libusb_cancel_transfer(libusb_transfer* transfer) {
    const Use library;
    Use::note("cancel");
    const auto found = std::ranges::find(inFlight, transfer, &InFlight::transfer);
    if (found == inFlight.end())
        return LIBUSB_ERROR_NOT_FOUND;
    found->isCancelled = true;
    cancelled.notify_all();
    return 0;
}

int libusb_handle_events_completed(libusb_context* /*context*/, int* /*completed*/) {
    Use library;
    Use::note("events");
    FakeEvent event{.result = library->eventsResult, .completes = library->eventsResult == 0};
    if (!library->events.empty()) {
        event = std::move(library->events.front());
        library->events.pop_front();
    } else if (library->readsWait && event.completes && isIn(*ownTransfer()->transfer)) {
        if (library->whenReadWaits)
            library->whenReadWaits();
        cancelled.wait(library.lock(), [] { return ownTransfer()->isCancelled; });
    }
    if (event.meanwhile) {
        library.lock().unlock();
        event.meanwhile();
        library.lock().lock();
    }
    if (const auto own = ownTransfer(); event.completes && own != inFlight.end()) {
        const InFlight ended = *own;
        inFlight.erase(own);
        complete(ended, event);
    }
    return event.result;
}

} // extern "C"
// NOLINTEND(cppcoreguidelines-owning-memory)
