#include "virtual/VirtualHost.h"

#include "platform/Files.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace scenewright {

namespace {

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

} // namespace

class VirtualHost::Interface : public UsbInterface {
public:
    Interface(std::shared_ptr<VirtualHost> host, const InterfaceShape& shape)
        : host_(std::move(host)), shape_(shape) {}
    ~Interface() override { host_->unclaim(this); }
    Interface(const Interface&) = delete;
    Interface& operator=(const Interface&) = delete;
    Interface(Interface&&) = delete;
    Interface& operator=(Interface&&) = delete;

    InterfaceClass interfaceClass() override { return shape_.kind; }
    UsbResult<void> open() override { return resultOf(UsbStep::Open, host_->claim(this)); }
    UsbResult<void> close() override {
        host_->unclaim(this);
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
                        isPipe(pipe, kOutPipe) ? host_->write(this, bytes) : kResultNotFound);
    }
    UsbRead read(std::uint8_t pipe, std::span<std::uint8_t> room) override {
        if (!isPipe(pipe, kInPipe))
            return {.delivered = 0, .code = kResultNotFound};
        return host_->read(this, room);
    }

private:
    [[nodiscard]] bool isPipe(std::uint8_t pipe, std::uint8_t wanted) const {
        return pipe == wanted && pipe <= shape_.endpoints;
    }

    std::shared_ptr<VirtualHost> host_;
    InterfaceShape shape_;
};

class VirtualHost::Device : public UsbDevice {
public:
    explicit Device(std::shared_ptr<VirtualHost> host) : host_(std::move(host)) {}
    [[nodiscard]] std::string name() const override { return "Virtual controller"; }
    std::uint16_t vendor() override { return host_->identity_.vendor; }
    std::uint16_t product() override { return host_->identity_.product; }
    UsbResult<std::unique_ptr<UsbInterface>> interface(std::size_t place) override {
        if (!host_->isPresent())
            return failedStep(UsbStep::InterfacePlugIn, kResultNoDevice);
        if (place >= std::min<std::size_t>(host_->identity_.interfaces, kInterfaces.size()))
            return failedStep(UsbStep::InterfacePlugIn, kResultNotFound);
        return std::make_unique<Interface>(host_, kInterfaces.at(place));
    }

private:
    std::shared_ptr<VirtualHost> host_;
};

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

VirtualHost::VirtualHost(std::shared_ptr<VirtualController> device, BankFileStore keeper,
                         VirtualIdentity identity)
    : device_(std::move(device)), keeper_(std::move(keeper)), identity_(identity) {}

bool VirtualHost::isPresent() const {
    const std::lock_guard lock(mutex_);
    return device_->isPresent();
}

ResultCode VirtualHost::claim(const Interface* owner) {
    const std::lock_guard lock(mutex_);
    if (!device_->isPresent())
        return kResultNoDevice;
    if (owner_ != nullptr && owner_ != owner)
        return kResultBusy;
    if (owner_ == nullptr) // taking an interface sets its alternate setting, which ends a halt
        for (const auto pipe : {VirtualController::Pipe::In, VirtualController::Pipe::Out})
            device_->clearHalt(pipe);
    owner_ = owner;
    return kResultSuccess;
}

void VirtualHost::unclaim(const Interface* owner) {
    std::unique_lock lock(mutex_);
    if (owner_ != owner)
        return;
    owner_ = nullptr;
    changed_.notify_all();
    changed_.wait(lock, [this] { return reads_ == 0; });
}

ResultCode VirtualHost::write(const Interface* owner, std::span<const std::uint8_t> bytes) {
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

UsbRead VirtualHost::read(const Interface* owner, std::span<std::uint8_t> room) {
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

std::optional<UsbRead> VirtualHost::tryRead(const Interface* owner, std::span<std::uint8_t> room) {
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

Result<void> VirtualHost::storageResult() {
    const std::lock_guard lock(mutex_);
    return keeper_.result();
}

BankImage VirtualHost::bank() const {
    const std::lock_guard lock(mutex_);
    return device_->bank();
}

void VirtualHost::setListener(Listener listener) {
    const std::lock_guard lock(mutex_);
    listener_ = std::move(listener);
}

void VirtualHost::play(const Packet& packet) {
    Listener listener;
    {
        const std::lock_guard lock(mutex_);
        if (device_->isPresent() && owner_ == nullptr)
            listener = listener_;
    }
    if (listener)
        listener(packet);
}

UsbResult<UsbHost::Devices> VirtualHost::devices(const DeviceMatch& match) {
    const bool isWanted = match.vendor.value_or(identity_.vendor) == identity_.vendor &&
                          match.product.value_or(identity_.product) == identity_.product;
    if (!isWanted || !isPresent())
        return Devices{};
    return Devices{std::make_shared<Device>(shared_from_this())};
}

std::shared_ptr<VirtualHost> makeVirtualHost(std::shared_ptr<VirtualController> device,
                                             BankFileStore keeper, VirtualIdentity identity) {
    return std::make_shared<VirtualHost>(std::move(device), std::move(keeper), identity);
}

} // namespace scenewright
