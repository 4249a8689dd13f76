#include "virtual/VirtualHost.h"

#include "platform/Files.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace scenewright {

// The wire between the in-process host and the virtual controller: what all handles of a host
// share. Every operation may be called from any thread.
class VirtualBus {
public:
    VirtualBus(std::shared_ptr<VirtualController> device, BankFileStore keeper,
               VirtualIdentity identity);

    [[nodiscard]] const VirtualIdentity& identity() const noexcept { return identity_; }
    [[nodiscard]] bool isPresent() const;

    // Exclusive use by `owner`, which is only compared; busy while another owner has it.
    ResultCode claim(const void* owner);
    // Ends a read of the owner, and returns when it has ended.
    void unclaim(const void* owner);

    // Both need the owner's claim.
    ResultCode write(const void* owner, std::span<const std::uint8_t> bytes);
    // Ends with kResultCancelled when the owner gives its claim up meanwhile.
    UsbRead read(const void* owner, std::span<std::uint8_t> room);

    [[nodiscard]] Result<void> storageResult() const;

    [[nodiscard]] BankImage bank() const;
    void setListener(VirtualHost::Listener listener);
    void play(const Packet& packet);

private:
    // Nothing as long as there is a reason to wait.
    [[nodiscard]] std::optional<UsbRead> tryRead(const void* owner, std::span<std::uint8_t> room);

    mutable std::mutex mutex_; // guards all below but identity_
    std::condition_variable changed_;
    std::shared_ptr<VirtualController> device_;
    BankFileStore keeper_;
    const VirtualIdentity identity_;
    const void* owner_ = nullptr;
    int reads_ = 0; // going on now
    VirtualHost::Listener listener_;
};

namespace {

using Bus = std::shared_ptr<VirtualBus>;

// As a USB MIDI keyboard has them: audio control first, MIDI streaming second.
struct InterfaceShape {
    InterfaceClass kind;
    std::uint8_t endpoints;
};
constexpr std::array<InterfaceShape, 2> kInterfaces{{{{1, 1}, 0}, {{1, 3}, 2}}};

constexpr std::uint8_t kInPipe = 1;
constexpr std::uint8_t kOutPipe = 2;
constexpr std::array<PipeProperties, 2> kPipes{{
    {.direction = 1, .number = 1, .transferType = 2, .maxPacketSize = 64, .interval = 0},
    {.direction = 0, .number = 1, .transferType = 2, .maxPacketSize = 64, .interval = 0},
}};

class VirtualInterface : public UsbInterface {
public:
    VirtualInterface(Bus bus, const InterfaceShape& shape) : bus_(std::move(bus)), shape_(shape) {}
    ~VirtualInterface() override { bus_->unclaim(this); }
    VirtualInterface(const VirtualInterface&) = delete;
    VirtualInterface& operator=(const VirtualInterface&) = delete;
    VirtualInterface(VirtualInterface&&) = delete;
    VirtualInterface& operator=(VirtualInterface&&) = delete;

    InterfaceClass interfaceClass() override { return shape_.kind; }
    UsbResult<void> open() override { return resultOf(UsbStep::Open, bus_->claim(this)); }
    UsbResult<void> close() override {
        bus_->unclaim(this);
        return {};
    }
    UsbResult<void> release() override { return close(); }
    UsbResult<std::uint8_t> endpointCount() override { return shape_.endpoints; }
    UsbResult<PipeProperties> pipeProperties(std::uint8_t pipe) override {
        if (pipe == 0 || pipe > shape_.endpoints)
            return failedStep(UsbStep::PipeProperties, kResultNotFound);
        return kPipes.at(pipe - 1U);
    }
    UsbResult<void> write(std::uint8_t pipe, std::span<const std::uint8_t> bytes) override {
        return resultOf(UsbStep::Write,
                        isPipe(pipe, kOutPipe) ? bus_->write(this, bytes) : kResultNotFound);
    }
    UsbRead read(std::uint8_t pipe, std::span<std::uint8_t> room) override {
        if (!isPipe(pipe, kInPipe))
            return {.delivered = 0, .code = kResultNotFound};
        return bus_->read(this, room);
    }

private:
    static UsbResult<void> resultOf(UsbStep step, ResultCode code) {
        if (code != kResultSuccess)
            return failedStep(step, code);
        return {};
    }
    [[nodiscard]] bool isPipe(std::uint8_t pipe, std::uint8_t wanted) const {
        return pipe == wanted && pipe <= shape_.endpoints;
    }

    Bus bus_;
    InterfaceShape shape_;
};

class VirtualDevice : public UsbDevice {
public:
    explicit VirtualDevice(Bus bus) : bus_(std::move(bus)) {}
    [[nodiscard]] std::string name() const override { return "Virtual controller"; }
    std::uint16_t vendor() override { return bus_->identity().vendor; }
    std::uint16_t product() override { return bus_->identity().product; }
    UsbResult<std::unique_ptr<UsbInterface>> interface(std::size_t place) override {
        if (!bus_->isPresent())
            return failedStep(UsbStep::InterfacePlugIn, kResultNoDevice);
        if (place >= std::min<std::size_t>(bus_->identity().interfaces, kInterfaces.size()))
            return failedStep(UsbStep::InterfacePlugIn, kResultNotFound);
        return std::make_unique<VirtualInterface>(bus_, kInterfaces.at(place));
    }

private:
    Bus bus_;
};

} // namespace

Result<void> BankFileStore::storeImage(const std::filesystem::path& file, const BankImage& bank) {
    return replaceFile(file, bank).map([](const Replaced&) {});
}

void BankFileStore::afterTransfer(const VirtualController& controller) {
    if (sendsKept_ == controller.sendsEnded())
        return;
    sendsKept_ = controller.sendsEnded();
    if (file_.empty())
        return;
    result_ = store_(file_, controller.bank());
}

VirtualBus::VirtualBus(std::shared_ptr<VirtualController> device, BankFileStore keeper,
                       VirtualIdentity identity)
    : device_(std::move(device)), keeper_(std::move(keeper)), identity_(identity) {}

bool VirtualBus::isPresent() const {
    const std::lock_guard lock(mutex_);
    return device_->isPresent();
}

ResultCode VirtualBus::claim(const void* owner) {
    const std::lock_guard lock(mutex_);
    if (!device_->isPresent())
        return kResultNoDevice;
    if (owner_ != nullptr && owner_ != owner)
        return kResultBusy;
    if (owner_ == nullptr) {
        // Taking an interface sets its alternate setting, which ends a halt.
        device_->clearHalt(VirtualController::Pipe::In);
        device_->clearHalt(VirtualController::Pipe::Out);
    }
    owner_ = owner;
    return kResultSuccess;
}

void VirtualBus::unclaim(const void* owner) {
    std::unique_lock lock(mutex_);
    if (owner_ != owner)
        return;
    owner_ = nullptr;
    changed_.notify_all();
    changed_.wait(lock, [this] { return reads_ == 0; });
}

ResultCode VirtualBus::write(const void* owner, std::span<const std::uint8_t> bytes) {
    const std::lock_guard lock(mutex_);
    if (owner_ != owner)
        return kResultNotOpen;
    const auto result = device_->receive(bytes);
    keeper_.afterTransfer(*device_);
    changed_.notify_all();
    switch (result) {
    case VirtualController::WriteResult::Taken:
        return kResultSuccess;
    case VirtualController::WriteResult::Failed:
        return kResultInputOutput;
    case VirtualController::WriteResult::Halted:
        return kResultStall;
    case VirtualController::WriteResult::Gone:
        return kResultNoDevice;
    }
    return kResultOther;
}

UsbRead VirtualBus::read(const void* owner, std::span<std::uint8_t> room) {
    std::unique_lock lock(mutex_);
    if (owner_ != owner)
        return {.delivered = 0, .code = kResultNotOpen};
    ++reads_;
    UsbRead moved;
    changed_.wait(lock, [&] {
        const auto outcome = tryRead(owner, room);
        moved = outcome.value_or(UsbRead{});
        return outcome.has_value();
    });
    --reads_;
    changed_.notify_all();
    return moved;
}

std::optional<UsbRead> VirtualBus::tryRead(const void* owner, std::span<std::uint8_t> room) {
    if (owner_ != owner)
        return UsbRead{.delivered = 0, .code = kResultCancelled};
    if (!device_->isPresent())
        return UsbRead{.delivered = 0, .code = kResultNoDevice};
    if (device_->isHalted(VirtualController::Pipe::In))
        return UsbRead{.delivered = 0, .code = kResultStall};
    const auto reply = device_->nextReply();
    if (!reply)
        return std::nullopt;
    // A bus cannot cut a transfer to the room: it has none for the rest.
    if (reply->size() > room.size())
        return UsbRead{.delivered = 0, .code = kResultOverflow};
    std::ranges::copy(*reply, room.begin());
    return UsbRead{.delivered = reply->size(), .code = kResultSuccess};
}

Result<void> VirtualBus::storageResult() const {
    const std::lock_guard lock(mutex_);
    return keeper_.result();
}

BankImage VirtualBus::bank() const {
    const std::lock_guard lock(mutex_);
    return device_->bank();
}

void VirtualBus::setListener(VirtualHost::Listener listener) {
    const std::lock_guard lock(mutex_);
    listener_ = std::move(listener);
}

void VirtualBus::play(const Packet& packet) {
    VirtualHost::Listener listener;
    {
        const std::lock_guard lock(mutex_);
        if (device_->isPresent() && owner_ == nullptr)
            listener = listener_;
    }
    if (listener)
        listener(packet);
}

UsbResult<UsbHost::Devices> VirtualHost::devices(const DeviceMatch& match) {
    const VirtualIdentity& identity = bus_->identity();
    const bool isWanted = match.vendor.value_or(identity.vendor) == identity.vendor &&
                          match.product.value_or(identity.product) == identity.product;
    if (!isWanted || !bus_->isPresent())
        return Devices{};
    return Devices{std::make_shared<VirtualDevice>(bus_)};
}

Result<void> VirtualHost::storageResult() {
    return bus_->storageResult();
}

BankImage VirtualHost::bank() const {
    return bus_->bank();
}

void VirtualHost::setListener(Listener listener) {
    bus_->setListener(std::move(listener));
}

void VirtualHost::play(const Packet& packet) {
    bus_->play(packet);
}

std::shared_ptr<VirtualHost> makeVirtualHost(std::shared_ptr<VirtualController> device,
                                             BankFileStore keeper, VirtualIdentity identity) {
    return std::make_shared<VirtualHost>(
        std::make_shared<VirtualBus>(std::move(device), std::move(keeper), identity));
}

} // namespace scenewright
