#include "virtual/VirtualHost.h"

#include "usb/PlatformIds.h"
#include "virtual/VirtualBus.h"

#include <algorithm>
#include <array>
#include <utility>

namespace scenewright {

namespace {

using Bus = std::shared_ptr<VirtualBus>;

// As a USB MIDI keyboard has them: audio control first, MIDI streaming second.
struct InterfaceShape {
    std::uint8_t interfaceClass;
    std::uint8_t subClass;
    std::uint8_t endpoints;
};
constexpr std::array<InterfaceShape, 2> kInterfaces{{{1, 1, 0}, {1, 3, 2}}};

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

    std::uint8_t interfaceClass() override { return shape_.interfaceClass; }
    std::uint8_t interfaceSubClass() override { return shape_.subClass; }
    ResultCode open() override { return bus_->claim(this); }
    ResultCode close() override {
        bus_->unclaim(this);
        return kResultSuccess;
    }
    ResultCode release() override { return close(); }
    ResultCode endpointCount(std::uint8_t& count) override {
        count = shape_.endpoints;
        return kResultSuccess;
    }
    ResultCode pipeProperties(std::uint8_t pipe, PipeProperties& properties) override {
        if (pipe == 0 || pipe > shape_.endpoints)
            return kResultNotFound;
        properties = kPipes.at(pipe - 1U);
        return kResultSuccess;
    }
    ResultCode writePipe(std::uint8_t pipe, std::span<const std::uint8_t> bytes) override {
        return isPipe(pipe, kOutPipe) ? bus_->write(this, bytes) : kResultNotFound;
    }
    ResultCode readPipe(std::uint8_t pipe, std::span<std::uint8_t> room,
                        std::size_t& delivered) override {
        delivered = 0;
        return isPipe(pipe, kInPipe) ? bus_->read(this, room, delivered) : kResultNotFound;
    }

private:
    [[nodiscard]] bool isPipe(std::uint8_t pipe, std::uint8_t wanted) const {
        return pipe == wanted && pipe <= shape_.endpoints;
    }

    Bus bus_;
    InterfaceShape shape_;
};

// The device, or the interface of its number.
class VirtualService : public UsbService {
public:
    explicit VirtualService(std::optional<std::size_t> interface = {}) : interface_(interface) {}
    [[nodiscard]] std::string name() const override { return "Virtual controller"; }
    [[nodiscard]] std::optional<std::size_t> interface() const noexcept { return interface_; }

private:
    std::optional<std::size_t> interface_;
};

// The device once, or its interfaces from 0.
class VirtualIterator : public ServiceIterator {
public:
    static std::unique_ptr<ServiceIterator> overDevice(bool isPresent) {
        return std::make_unique<VirtualIterator>(isPresent ? 1 : 0, false);
    }
    static std::unique_ptr<ServiceIterator> overInterfaces(std::size_t count) {
        return std::make_unique<VirtualIterator>(count, true);
    }
    VirtualIterator(std::size_t count, bool areInterfaces)
        : count_(count), areInterfaces_(areInterfaces) {}

    std::unique_ptr<UsbService> next() override {
        if (next_ == count_)
            return nullptr;
        const std::size_t index = next_++;
        return std::make_unique<VirtualService>(areInterfaces_ ? std::optional(index)
                                                               : std::nullopt);
    }

private:
    std::size_t count_;
    bool areInterfaces_;
    std::size_t next_ = 0;
};

class VirtualDevice : public UsbDevice {
public:
    explicit VirtualDevice(Bus bus) : bus_(std::move(bus)) {}
    std::uint16_t vendor() override { return bus_->identity().vendor; }
    std::uint16_t product() override { return bus_->identity().product; }
    ResultCode interfaceIterator(const InterfaceRequest& /*request*/,
                                 std::unique_ptr<ServiceIterator>& iterator) override {
        if (!bus_->isPresent())
            return kResultNoDevice;
        iterator = VirtualIterator::overInterfaces(
            std::min<std::size_t>(bus_->identity().interfaces, kInterfaces.size()));
        return kResultSuccess;
    }

private:
    Bus bus_;
};

class VirtualPlugIn : public UsbPlugIn {
public:
    VirtualPlugIn(Bus bus, std::optional<std::size_t> interface)
        : bus_(std::move(bus)), interface_(interface) {}

    ResultCode queryDevice(const UsbIdentifier& /*identifier*/,
                           std::unique_ptr<UsbDevice>& device) override {
        if (interface_)
            return kResultNotSupported;
        device = std::make_unique<VirtualDevice>(bus_);
        return kResultSuccess;
    }
    ResultCode queryInterface(const UsbIdentifier& /*identifier*/,
                              std::unique_ptr<UsbInterface>& interface) override {
        if (!interface_)
            return kResultNotSupported;
        interface = std::make_unique<VirtualInterface>(bus_, kInterfaces.at(*interface_));
        return kResultSuccess;
    }

private:
    Bus bus_;
    std::optional<std::size_t> interface_;
};

} // namespace

VirtualHost::VirtualHost(std::shared_ptr<VirtualBus> bus) : bus_(std::move(bus)) {}

std::optional<MatchingDictionary> VirtualHost::serviceMatching(std::string_view className) {
    if (className != ids::kDeviceClass)
        return std::nullopt;
    return MatchingDictionary{std::string(className), {}};
}

bool VirtualHost::addNumber(MatchingDictionary& dictionary, std::string_view key,
                            std::int32_t number) {
    dictionary.numbers.insert_or_assign(std::string(key), number);
    return true;
}

ResultCode VirtualHost::matchingServices(const MatchingDictionary& dictionary,
                                         std::unique_ptr<ServiceIterator>& iterator) {
    const auto differs = [&](std::string_view key, std::int32_t number) {
        const auto wanted = dictionary.numbers.find(key);
        return wanted != dictionary.numbers.end() && wanted->second != number;
    };
    const VirtualIdentity& identity = bus_->identity();
    const bool isWanted =
        !differs(ids::kVendorKey, identity.vendor) && !differs(ids::kProductKey, identity.product);
    iterator = VirtualIterator::overDevice(isWanted && bus_->isPresent());
    return kResultSuccess;
}

ResultCode VirtualHost::makePlugIn(UsbService& service, PlugInType type,
                                   const UsbIdentifier& /*plugInInterface*/,
                                   std::unique_ptr<UsbPlugIn>& plugIn) {
    const auto* const listed = dynamic_cast<const VirtualService*>(&service);
    if (listed == nullptr || listed->interface().has_value() != (type == PlugInType::Interface))
        return kResultInvalid;
    plugIn = std::make_unique<VirtualPlugIn>(bus_, listed->interface());
    return kResultSuccess;
}

void VirtualHost::cancelTransfers() {
    bus_->cancel();
}

std::optional<std::string> VirtualHost::bankTrouble() const {
    return bus_->bankTrouble();
}

std::shared_ptr<VirtualHost> makeVirtualHost(std::shared_ptr<VirtualController> device,
                                             BankKeeper keeper, VirtualIdentity identity) {
    return std::make_shared<VirtualHost>(
        std::make_shared<VirtualBus>(std::move(device), std::move(keeper), identity));
}

} // namespace scenewright
