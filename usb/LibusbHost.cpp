#include "usb/LibusbHost.h"

#include "usb/LibusbInterface.h"
#include "usb/PlatformIds.h"

#include <fmt/printf.h>

#include <deque>
#include <optional>
#include <string>
#include <utility>

namespace scenewright {

namespace {

using Interfaces = std::vector<LibusbInterfaceDescriptor>;

// A listed device, or one interface of a listed device.
class Service : public UsbService {
public:
    explicit Service(std::shared_ptr<LibusbDevice> device) : device_(std::move(device)) {}
    Service(std::shared_ptr<LibusbDevice> device, Interfaces interfaces, std::size_t index)
        : device_(std::move(device)), interfaces_(std::move(interfaces)), index_(index) {}

    [[nodiscard]] std::string name() const override {
        return fmt::sprintf("%04x:%04x at %03d/%03d", device_->vendor(), device_->product(),
                            device_->bus(), device_->address());
    }
    [[nodiscard]] const std::shared_ptr<LibusbDevice>& device() const { return device_; }
    // Null for a device.
    [[nodiscard]] std::unique_ptr<UsbInterface> makeInterface() const {
        if (index_ >= interfaces_.size())
            return nullptr;
        return std::make_unique<LibusbInterface>(device_, interfaces_, index_);
    }

private:
    std::shared_ptr<LibusbDevice> device_;
    Interfaces interfaces_;
    std::size_t index_ = 0;
};

class Iterator : public ServiceIterator {
public:
    explicit Iterator(std::deque<Service> services) : services_(std::move(services)) {}

    std::unique_ptr<UsbService> next() override {
        if (services_.empty())
            return nullptr;
        auto service = std::make_unique<Service>(std::move(services_.front()));
        services_.pop_front();
        return service;
    }

private:
    std::deque<Service> services_;
};

bool isAsked(std::uint16_t asked, std::uint8_t value) {
    constexpr std::uint16_t kAny = 0xFFFF;
    return asked == kAny || asked == value;
}

bool isAsked(const InterfaceRequest& request, const LibusbInterfaceDescriptor& interface) {
    return isAsked(request.interfaceClass, interface.interfaceClass) &&
           isAsked(request.subClass, interface.subClass) &&
           isAsked(request.protocol, interface.protocol) &&
           isAsked(request.alternateSetting, interface.alternateSetting);
}

class FoundDevice : public UsbDevice {
public:
    explicit FoundDevice(std::shared_ptr<LibusbDevice> device) : device_(std::move(device)) {}

    std::uint16_t vendor() override { return device_->vendor(); }
    std::uint16_t product() override { return device_->product(); }
    ResultCode interfaceIterator(const InterfaceRequest& request,
                                 std::unique_ptr<ServiceIterator>& iterator) override {
        Interfaces interfaces;
        const ResultCode result = device_->interfaces(interfaces);
        if (result != kResultSuccess)
            return result;
        std::deque<Service> services;
        for (std::size_t index = 0; index < interfaces.size(); ++index)
            if (isAsked(request, interfaces[index]))
                services.emplace_back(device_, interfaces, index);
        iterator = std::make_unique<Iterator>(std::move(services));
        return kResultSuccess;
    }

private:
    std::shared_ptr<LibusbDevice> device_;
};

class PlugIn : public UsbPlugIn {
public:
    PlugIn(const Service& service, PlugInType type) : service_(service), type_(type) {}

    ResultCode queryDevice(const UsbIdentifier& /*identifier*/,
                           std::unique_ptr<UsbDevice>& device) override {
        if (type_ != PlugInType::Device)
            return kResultNotSupported;
        device = std::make_unique<FoundDevice>(service_.device());
        return kResultSuccess;
    }
    ResultCode queryInterface(const UsbIdentifier& /*identifier*/,
                              std::unique_ptr<UsbInterface>& interface) override {
        if (type_ != PlugInType::Interface)
            return kResultNotSupported;
        interface = service_.makeInterface();
        return interface ? kResultSuccess : kResultNotFound;
    }

private:
    Service service_;
    PlugInType type_;
};

bool fits(const MatchingDictionary& dictionary, std::string_view key, std::uint16_t value) {
    const auto number = dictionary.numbers.find(key);
    return number == dictionary.numbers.end() || number->second == value;
}

class Host : public UsbHost {
public:
    explicit Host(std::shared_ptr<LibusbApi> api) : api_(std::move(api)) {}

    std::optional<MatchingDictionary> serviceMatching(std::string_view className) override {
        if (className != ids::kDeviceClass)
            return std::nullopt;
        return MatchingDictionary{std::string(className), {}};
    }
    bool addNumber(MatchingDictionary& dictionary, std::string_view key,
                   std::int32_t number) override {
        dictionary.numbers.insert_or_assign(std::string(key), number);
        return true;
    }
    ResultCode matchingServices(const MatchingDictionary& dictionary,
                                std::unique_ptr<ServiceIterator>& iterator) override;
    ResultCode makePlugIn(UsbService& service, PlugInType type,
                          const UsbIdentifier& plugInInterface,
                          std::unique_ptr<UsbPlugIn>& plugIn) override;
    void cancelTransfers() override { api_->cancelTransfers(); }

private:
    std::shared_ptr<LibusbApi> api_;
};

ResultCode Host::matchingServices(const MatchingDictionary& dictionary,
                                  std::unique_ptr<ServiceIterator>& iterator) {
    if (dictionary.className != ids::kDeviceClass)
        return kResultNotFound;
    std::vector<std::shared_ptr<LibusbDevice>> devices;
    const ResultCode result = api_->devices(devices);
    if (result != kResultSuccess)
        return result;
    std::deque<Service> services;
    for (auto& device : devices)
        if (fits(dictionary, ids::kVendorKey, device->vendor()) &&
            fits(dictionary, ids::kProductKey, device->product()))
            services.emplace_back(std::move(device));
    iterator = std::make_unique<Iterator>(std::move(services));
    return kResultSuccess;
}

ResultCode Host::makePlugIn(UsbService& service, PlugInType type,
                            const UsbIdentifier& /*plugInInterface*/,
                            std::unique_ptr<UsbPlugIn>& plugIn) {
    const auto* const listed = dynamic_cast<const Service*>(&service);
    if (!listed)
        return kResultInvalid; // a service of another host
    plugIn = std::make_unique<PlugIn>(*listed, type);
    return kResultSuccess;
}

} // namespace

std::shared_ptr<UsbHost> makeLibusbHost(std::shared_ptr<LibusbApi> api) {
    return std::make_shared<Host>(std::move(api));
}

} // namespace scenewright
