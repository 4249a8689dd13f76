// One interface of a device on the real bus, with all that stands between it and a bulk transfer:
// the kernel's drivers, the claim, the library's transfers.
#include "usb/LibusbHost.h"

#include <libusb.h>

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <utility>
#include <vector>

namespace scenewright {

namespace {

// wMaxPacketSize of an endpoint descriptor, in bytes; its higher bits mean something else.
constexpr std::uint16_t kSizeMask = 0x07FF;

// How often the library may fail to handle events before a cancelled transfer is given up.
constexpr int kMaxEventFailures = 5;

using OpenDevice = std::unique_ptr<libusb_device_handle, decltype(&libusb_close)>;

// The interfaces of the active configuration, each by its first altsetting, in the descriptors'
// order; none for a device that is not configured.
class Interfaces {
public:
    explicit Interfaces(libusb_device& device) : Interfaces(device, nullptr) {}
    [[nodiscard]] ResultCode result() const { return result_; }
    [[nodiscard]] std::span<const libusb_interface_descriptor* const> list() const { return list_; }

private:
    Interfaces(libusb_device& device, libusb_config_descriptor* found)
        : result_(resultOfLibusb(libusb_get_active_config_descriptor(&device, &found))) {
        if (result_ != kResultSuccess)
            return;
        configuration_ = {found, &libusb_free_config_descriptor};
        for (const auto& interface : std::span(found->interface, found->bNumInterfaces))
            if (interface.num_altsetting > 0)
                list_.push_back(interface.altsetting);
    }

    ResultCode result_;
    std::shared_ptr<libusb_config_descriptor> configuration_; // has what the list points to
    std::vector<const libusb_interface_descriptor*> list_;
};

// The kernel drivers that have to leave an audio device's interfaces so that a program can take one
// of them, and their way back.
//
// The sound driver of a MIDI keyboard binds to the audio control interface and takes the MIDI
// streaming interface along; only a probe of the former brings the latter back. So drivers leave
// from the highest interface down and are brought back from the lowest up, and an interface that
// the probe of a lower one has taken along is left alone.
class DetachedDrivers {
public:
    // For `target` and every audio interface of `interfaces`. `handle` must outlive the object.
    DetachedDrivers(libusb_device_handle& handle, std::uint8_t target, const Interfaces& interfaces)
        : handle_(handle) {
        for (const libusb_interface_descriptor* const interface : interfaces.list()) {
            const bool isAudio = interface->bInterfaceClass == LIBUSB_CLASS_AUDIO;
            if (isAudio || interface->bInterfaceNumber == target)
                group_.push_back({interface->bInterfaceNumber, isAudio, false});
        }
        std::ranges::sort(group_, {}, &Interface::number);
    }
    ~DetachedDrivers() { bringBack(); }
    DetachedDrivers(const DetachedDrivers&) = delete;
    DetachedDrivers& operator=(const DetachedDrivers&) = delete;
    DetachedDrivers(DetachedDrivers&&) = delete;
    DetachedDrivers& operator=(DetachedDrivers&&) = delete;

    // Detaches what is bound; may be called again. A failure leaves those detached that went first.
    ResultCode detach() noexcept;

    // Says that the target could be claimed, so that nobody else was using it: audio interfaces
    // that had no driver at the beginning were left without by a program that was killed, and get
    // theirs at the end too.
    void rebindUnowned() noexcept {
        for (Interface& interface : group_)
            interface.comesBack = interface.comesBack || interface.isAudio;
    }

    // Whether every driver is back that is to be. May be called again.
    bool bringBack() noexcept;

private:
    struct Interface {
        std::uint8_t number = 0;
        bool isAudio = false;
        bool comesBack = false; // a driver is to be bound at the end
    };

    [[nodiscard]] bool isBound(const Interface& interface) const noexcept {
        return libusb_kernel_driver_active(&handle_, interface.number) == 1;
    }
    // An interface whose device has gone misses nothing.
    [[nodiscard]] bool isMissing(const Interface& interface) const noexcept {
        return interface.comesBack &&
               libusb_kernel_driver_active(&handle_, interface.number) == LIBUSB_SUCCESS;
    }
    [[nodiscard]] bool isAnyMissing() const noexcept {
        return std::ranges::any_of(group_, [this](const Interface& i) { return isMissing(i); });
    }

    libusb_device_handle& handle_;
    std::vector<Interface> group_; // by number, lowest first
};

ResultCode DetachedDrivers::detach() noexcept {
    for (std::size_t left = group_.size(); left > 0; --left) {
        Interface& interface = group_[left - 1];
        if (!isBound(interface))
            continue;
        interface.comesBack = true;
        const ResultCode result =
            resultOfLibusb(libusb_detach_kernel_driver(&handle_, interface.number));
        if (result != kResultSuccess && result != kResultNotFound)
            return result;
    }
    return kResultSuccess;
}

bool DetachedDrivers::bringBack() noexcept {
    if (!isAnyMissing())
        return true;
    // A driver that was bound meanwhile would keep its probe from taking the others along.
    detach();
    for (const Interface& interface : group_)
        if (isMissing(interface))
            libusb_attach_kernel_driver(&handle_, interface.number);
    return !isAnyMissing();
}

// A claimed interface: exclusive use among programs, given back at the end, and its endpoints with
// it as they were found: an endpoint stays halted after a stall until its host clears that, and
// nobody else would before the device is plugged in again.
class ClaimedInterface {
public:
    // Not claimed yet; `handle` must outlive the object.
    ClaimedInterface(libusb_device_handle& handle, const libusb_interface_descriptor& interface)
        : handle_(handle), interface_(interface.bInterfaceNumber) {
        halted_.reserve(interface.bNumEndpoints);
    }
    ~ClaimedInterface() {
        if (!isClaimed_)
            return;
        for (const std::uint8_t endpoint : halted_)
            libusb_clear_halt(&handle_, endpoint); // if it stays halted, the next transfer says so
        libusb_release_interface(&handle_, interface_);
    }
    ClaimedInterface(const ClaimedInterface&) = delete;
    ClaimedInterface& operator=(const ClaimedInterface&) = delete;
    ClaimedInterface(ClaimedInterface&&) = delete;
    ClaimedInterface& operator=(ClaimedInterface&&) = delete;

    ResultCode claim() noexcept {
        const int result = libusb_claim_interface(&handle_, interface_);
        isClaimed_ = result == LIBUSB_SUCCESS;
        return resultOfLibusb(result);
    }
    // A transfer on this endpoint has ended by a stall.
    void recordStall(std::uint8_t endpoint) {
        if (std::ranges::find(halted_, endpoint) == halted_.end())
            halted_.push_back(endpoint);
    }

private:
    libusb_device_handle& handle_;
    std::uint8_t interface_;
    bool isClaimed_ = false;
    std::vector<std::uint8_t> halted_; // with room for every endpoint
};

// One bulk transfer without a time limit, with the memory that it moves.
struct BulkTransfer {
    explicit BulkTransfer(std::size_t size)
        : buffer(size), transfer(libusb_alloc_transfer(0), &libusb_free_transfer) {}

    std::vector<std::uint8_t> buffer;
    std::unique_ptr<libusb_transfer, decltype(&libusb_free_transfer)> transfer;
    int hasCompleted = 0; // as the library's event handling wants it
};

void onCompletion(libusb_transfer* transfer) {
    static_cast<BulkTransfer*>(transfer->user_data)->hasCompleted = 1;
}

class LibusbInterface : public UsbInterface {
public:
    // `place` is the interface's own among `interfaces`, which are those of `device`.
    LibusbInterface(LibusbContext context, LibusbDeviceReference device, Interfaces interfaces,
                    std::size_t place)
        : context_(std::move(context)), device_(std::move(device)),
          interfaces_(std::move(interfaces)), descriptor_(*interfaces_.list()[place]) {}

    InterfaceClass interfaceClass() override {
        return {descriptor_.bInterfaceClass, descriptor_.bInterfaceSubClass};
    }

    UsbResult<void> open() override;
    UsbResult<void> close() override;
    UsbResult<void> release() override;

    UsbResult<std::uint8_t> endpointCount() override { return descriptor_.bNumEndpoints; }
    UsbResult<PipeProperties> pipeProperties(std::uint8_t pipe) override;

    UsbResult<void> write(std::uint8_t pipe, std::span<const std::uint8_t> bytes) override;
    UsbRead read(std::uint8_t pipe, std::span<std::uint8_t> room) override;

private:
    ResultCode claim();
    // Null when the interface has no such pipe.
    [[nodiscard]] const libusb_endpoint_descriptor* endpoint(std::uint8_t pipe) const {
        return pipe == 0 || pipe > descriptor_.bNumEndpoints ? nullptr
                                                             : &descriptor_.endpoint[pipe - 1];
    }
    // A transfer on a pipe of that direction. What it moved stands at its buffer's start.
    UsbRead run(std::unique_ptr<BulkTransfer>& bulk, std::uint8_t pipe, std::uint8_t direction);
    ResultCode submit(BulkTransfer& bulk);
    ResultCode awaitCompletion(BulkTransfer& bulk);

    LibusbContext context_;
    LibusbDeviceReference device_;
    Interfaces interfaces_;
    const libusb_interface_descriptor& descriptor_; // one of interfaces_
    // Transfers that could not be ended; the library forgets them when the device is closed.
    std::vector<std::unique_ptr<BulkTransfer>> abandoned_;
    // Each needs the one before it, and goes before it.
    OpenDevice handle_{nullptr, &libusb_close};
    std::unique_ptr<DetachedDrivers> drivers_;
    std::unique_ptr<ClaimedInterface> claim_; // guarded by mutex_

    std::mutex mutex_;
    std::condition_variable removed_;          // a transfer, or the claim by close()
    bool isClosing_ = false;                   // guarded by mutex_
    std::vector<BulkTransfer*> inFlight_;      // guarded by mutex_; owned by those who wait
    ResultCode eventFailure_ = kResultSuccess; // of the library's event handling, for good
};

UsbResult<void> LibusbInterface::open() {
    {
        // A claim beside one that is being released would be taken for that one, and lost with it.
        std::unique_lock lock(mutex_);
        removed_.wait(lock, [this] { return !isClosing_; });
        if (claim_)
            return {};
    }
    const ResultCode result = claim();
    if (result != kResultSuccess)
        release();
    return resultOf(UsbStep::Open, result);
}

ResultCode LibusbInterface::claim() {
    if (!handle_) {
        libusb_device_handle* opened = nullptr;
        if (const int result = libusb_open(device_.get(), &opened); result != LIBUSB_SUCCESS)
            return resultOfLibusb(result);
        handle_.reset(opened);
    }
    if (!drivers_)
        drivers_ =
            std::make_unique<DetachedDrivers>(*handle_, descriptor_.bInterfaceNumber, interfaces_);
    if (const ResultCode detached = drivers_->detach(); detached != kResultSuccess)
        return detached;
    auto claimed = std::make_unique<ClaimedInterface>(*handle_, descriptor_);
    if (const ResultCode result = claimed->claim(); result != kResultSuccess)
        return result;
    const std::lock_guard lock(mutex_);
    claim_ = std::move(claimed);
    drivers_->rebindUnowned();
    return kResultSuccess;
}

UsbResult<void> LibusbInterface::close() {
    std::unique_lock lock(mutex_);
    removed_.wait(lock, [this] { return !isClosing_; });
    if (!claim_)
        return failedStep(UsbStep::Close, kResultNotOpen);
    isClosing_ = true; // nothing is submitted from here on
    for (const BulkTransfer* const bulk : inFlight_)
        libusb_cancel_transfer(bulk->transfer.get()); // one that has just ended is none to cancel
    removed_.wait(lock, [this] { return inFlight_.empty(); });
    claim_.reset();
    isClosing_ = false;
    removed_.notify_all();
    return {};
}

UsbResult<void> LibusbInterface::release() {
    close();
    const bool isBack = !drivers_ || drivers_->bringBack();
    drivers_.reset();
    handle_.reset();
    abandoned_.clear();
    return resultOf(UsbStep::Release, isBack ? kResultSuccess : kResultNoDriver);
}

UsbResult<PipeProperties> LibusbInterface::pipeProperties(std::uint8_t pipe) {
    const libusb_endpoint_descriptor* const found = endpoint(pipe);
    if (found == nullptr)
        return failedStep(UsbStep::PipeProperties, kResultNotFound);
    const bool isIn = (found->bEndpointAddress & LIBUSB_ENDPOINT_IN) != 0;
    return PipeProperties{
        .direction = static_cast<std::uint8_t>(isIn ? 1 : 0),
        .number = static_cast<std::uint8_t>(found->bEndpointAddress & LIBUSB_ENDPOINT_ADDRESS_MASK),
        .transferType = static_cast<std::uint8_t>(found->bmAttributes & LIBUSB_TRANSFER_TYPE_MASK),
        .maxPacketSize = static_cast<std::uint16_t>(found->wMaxPacketSize & kSizeMask),
        .interval = found->bInterval};
}

UsbResult<void> LibusbInterface::write(std::uint8_t pipe, std::span<const std::uint8_t> bytes) {
    auto bulk = std::make_unique<BulkTransfer>(bytes.size());
    std::ranges::copy(bytes, bulk->buffer.begin());
    const UsbRead moved = run(bulk, pipe, LIBUSB_ENDPOINT_OUT);
    const bool isShort = moved.code == kResultSuccess && moved.delivered != bytes.size();
    return resultOf(UsbStep::Write, isShort ? kResultShort : moved.code);
}

UsbRead LibusbInterface::read(std::uint8_t pipe, std::span<std::uint8_t> room) {
    auto bulk = std::make_unique<BulkTransfer>(room.size());
    const UsbRead moved = run(bulk, pipe, LIBUSB_ENDPOINT_IN);
    if (bulk)
        std::copy_n(bulk->buffer.begin(), moved.delivered, room.begin());
    return moved;
}

UsbRead LibusbInterface::run(std::unique_ptr<BulkTransfer>& bulk, std::uint8_t pipe,
                             std::uint8_t direction) {
    constexpr unsigned kNoTimeLimit = 0;
    const libusb_endpoint_descriptor* const found = endpoint(pipe);
    if (found == nullptr)
        return {.delivered = 0, .code = kResultNotFound};
    const std::uint8_t address = found->bEndpointAddress;
    if ((address & LIBUSB_ENDPOINT_DIR_MASK) != direction)
        return {.delivered = 0, .code = kResultInvalid};
    if (!bulk->transfer)
        return {.delivered = 0, .code = kResultNoMemory};
    libusb_fill_bulk_transfer(bulk->transfer.get(), handle_.get(), address, bulk->buffer.data(),
                              static_cast<int>(bulk->buffer.size()), &onCompletion, bulk.get(),
                              kNoTimeLimit);
    if (const ResultCode submitted = submit(*bulk); submitted != kResultSuccess)
        return {.delivered = 0, .code = submitted};
    const ResultCode handled = awaitCompletion(*bulk);
    const std::lock_guard lock(mutex_);
    std::erase(inFlight_, bulk.get());
    removed_.notify_all();
    if (bulk->hasCompleted == 0) {
        eventFailure_ = handled;
        abandoned_.push_back(std::move(bulk)); // submit() has made room
        return {.delivered = 0, .code = handled};
    }
    const ResultCode result = resultOfLibusbTransfer(bulk->transfer->status);
    if (result == kResultStall && claim_)
        claim_->recordStall(address);
    return {.delivered = static_cast<std::size_t>(bulk->transfer->actual_length), .code = result};
}

ResultCode LibusbInterface::submit(BulkTransfer& bulk) {
    const std::lock_guard lock(mutex_);
    if (!claim_ || isClosing_)
        return kResultNotOpen;
    if (eventFailure_ != kResultSuccess)
        return eventFailure_;
    abandoned_.reserve(abandoned_.size() + inFlight_.size() + 1);
    inFlight_.push_back(&bulk);
    const ResultCode result = resultOfLibusb(libusb_submit_transfer(bulk.transfer.get()));
    if (result != kResultSuccess)
        inFlight_.pop_back();
    return result;
}

// Handles the bus's events on this thread, which sleeps meanwhile, until the transfer has ended.
ResultCode LibusbInterface::awaitCompletion(BulkTransfer& bulk) {
    int failures = 0;
    while (bulk.hasCompleted == 0) {
        const int result = libusb_handle_events_completed(context_.get(), &bulk.hasCompleted);
        if (result >= 0 || result == LIBUSB_ERROR_INTERRUPTED)
            continue;
        libusb_cancel_transfer(bulk.transfer.get());
        if (++failures == kMaxEventFailures)
            return resultOfLibusb(result);
    }
    return kResultSuccess;
}

} // namespace

UsbResult<std::unique_ptr<UsbInterface>>
takeLibusbInterface(LibusbContext context, LibusbDeviceReference device, std::size_t place) {
    Interfaces interfaces(*device);
    if (interfaces.result() != kResultSuccess)
        return failedStep(UsbStep::InterfacePlugIn, interfaces.result());
    if (place >= interfaces.list().size())
        return failedStep(UsbStep::InterfacePlugIn, kResultNotFound);
    return std::make_unique<LibusbInterface>(std::move(context), std::move(device),
                                             std::move(interfaces), place);
}

} // namespace scenewright
