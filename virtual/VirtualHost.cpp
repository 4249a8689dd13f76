#include "virtual/VirtualHost.h"

#include "virtual/VirtualBus.h"

#include <algorithm>
#include <array>
#include <utility>

namespace scenewright {

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

UsbResult<UsbHost::Devices> VirtualHost::devices(const DeviceMatch& match) {
    const VirtualIdentity& identity = bus_->identity();
    const bool isWanted = match.vendor.value_or(identity.vendor) == identity.vendor &&
                          match.product.value_or(identity.product) == identity.product;
    if (!isWanted || !bus_->isPresent())
        return Devices{};
    return Devices{std::make_shared<VirtualDevice>(bus_)};
}

std::optional<std::string> VirtualHost::storageError() {
    return bus_->storageError();
}

std::shared_ptr<VirtualHost> makeVirtualHost(std::shared_ptr<VirtualController> device,
                                             BankFileStore keeper, VirtualIdentity identity) {
    return std::make_shared<VirtualHost>(
        std::make_shared<VirtualBus>(std::move(device), std::move(keeper), identity));
}

} // namespace scenewright
