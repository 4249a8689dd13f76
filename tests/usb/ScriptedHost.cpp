#include "tests/usb/ScriptedHost.h"

#include "platform/Diagnostics.h"
#include "usb/PlatformIds.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <utility>

namespace scenewright::testing {

void HostScript::answer(const std::string& step, const std::vector<ResultCode>& codes) {
    codes_[step].assign(codes.begin(), codes.end());
}

void HostScript::giveNothing(const std::string& step) {
    ++nothings_[step];
}

void HostScript::raise(const std::string& step) {
    ++raises_[step];
}

HostScript::Outcome HostScript::call(const std::string& step, const std::string& details) {
    calls.push_back(details.empty() ? step : step + ' ' + details);
    if (const auto happening = meanwhile.find(step); happening != meanwhile.end())
        happening->second();
    if (int& raises = raises_[step]; raises > 0) {
        --raises;
        throw std::runtime_error(step);
    }
    Outcome outcome;
    if (int& nothings = nothings_[step]; nothings > 0) {
        --nothings;
        outcome.givesNothing = true;
    }
    if (auto& codes = codes_[step]; !codes.empty()) {
        outcome.result = codes.front();
        codes.pop_front();
    }
    return outcome;
}

std::vector<std::string> HostScript::callsOf(const std::vector<std::string>& steps) const {
    std::vector<std::string> found;
    for (const std::string& text : calls) {
        const std::string step = text.substr(0, text.find(' '));
        if (std::find(steps.begin(), steps.end(), step) != steps.end())
            found.push_back(text);
    }
    return found;
}

std::vector<std::string> HostScript::written() const {
    std::vector<std::string> packets;
    for (const std::string& text : callsOf({"write"})) {
        // "write NAME PIPE BYTES"
        const auto pipe = text.find(' ', text.find(' ') + 1);
        const auto bytes = text.find(' ', pipe + 1);
        packets.push_back(bytes == std::string::npos ? "" : text.substr(bytes + 1));
    }
    return packets;
}

namespace {

using Script = std::shared_ptr<HostScript>;

std::string hex(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes)
        text += fmt::sprintf("%02x", byte);
    return text;
}

class Interface : public UsbInterface {
public:
    Interface(Script script, std::string name, ScriptedInterface shape)
        : script_(std::move(script)), name_(std::move(name)), shape_(std::move(shape)) {}
    ~Interface() override { unclaim(); }
    Interface(const Interface&) = delete;
    Interface& operator=(const Interface&) = delete;

    std::uint8_t interfaceClass() override {
        script_->call("interfaceClass", name_);
        return shape_.interfaceClass;
    }
    std::uint8_t interfaceSubClass() override {
        script_->call("interfaceSubClass", name_);
        return shape_.subClass;
    }
    ResultCode open() override;
    ResultCode close() override {
        unclaim();
        return script_->call("close", name_).result;
    }
    ResultCode release() override {
        unclaim();
        return script_->call("releaseInterface", name_).result;
    }
    ResultCode endpointCount(std::uint8_t& count) override {
        count = static_cast<std::uint8_t>(shape_.pipes.size());
        return script_->call("endpointCount", name_).result;
    }
    ResultCode pipeProperties(std::uint8_t pipe, PipeProperties& properties) override;
    ResultCode writePipe(std::uint8_t pipe, std::span<const std::uint8_t> bytes) override;
    ResultCode readPipe(std::uint8_t pipe, std::span<std::uint8_t> room,
                        std::size_t& delivered) override;

private:
    void unclaim() {
        if (std::exchange(isClaimed_, false))
            std::erase(script_->claimed, name_);
    }

    Script script_;
    std::string name_;
    ScriptedInterface shape_;
    bool isClaimed_ = false;
};

ResultCode Interface::open() {
    const ResultCode result = script_->call("open", name_).result;
    if (result != kResultSuccess || isClaimed_)
        return result;
    auto& claimed = script_->claimed;
    if (std::find(claimed.begin(), claimed.end(), name_) != claimed.end())
        return kResultBusy;
    claimed.push_back(name_);
    isClaimed_ = true;
    return result;
}

ResultCode Interface::pipeProperties(std::uint8_t pipe, PipeProperties& properties) {
    const auto outcome = script_->call("pipeProperties", name_ + ' ' + std::to_string(pipe));
    if (pipe == 0 || pipe > shape_.pipes.size())
        return kResultNotFound;
    properties = shape_.pipes[pipe - 1U];
    return outcome.result;
}

ResultCode Interface::writePipe(std::uint8_t pipe, std::span<const std::uint8_t> bytes) {
    std::string dump = hexDump(bytes);
    if (!dump.empty())
        dump.pop_back();
    const auto outcome = script_->call("write", name_ + ' ' + std::to_string(pipe) +
                                                    (dump.empty() ? "" : " " + dump));
    if (outcome.result == kResultSuccess && script_->onWrite)
        script_->onWrite(bytes);
    return outcome.result;
}

ResultCode Interface::readPipe(std::uint8_t pipe, std::span<std::uint8_t> room,
                               std::size_t& delivered) {
    const auto outcome = script_->call("read", name_ + ' ' + std::to_string(pipe) + ' ' +
                                                   std::to_string(room.size()));
    delivered = 0;
    if (outcome.result != kResultSuccess)
        return outcome.result;
    if (script_->replies.empty())
        return script_->whenNoReply ? script_->whenNoReply() : kResultTimeout;
    const ScriptedReply reply = std::move(script_->replies.front());
    script_->replies.pop_front();
    delivered = std::min(room.size(), reply.bytes.size());
    std::copy_n(reply.bytes.begin(), delivered, room.begin());
    return reply.result;
}

// A device, or one of its interfaces.
class Service : public UsbService {
public:
    Service(Script script, ScriptedDevice device, std::optional<std::size_t> interface = {})
        : script_(std::move(script)), device_(std::move(device)), interface_(interface) {}
    ~Service() override { script_->calls.push_back("releaseService " + name()); }
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    std::string name() const override {
        return interface_ ? device_.name + '/' + std::to_string(*interface_) : device_.name;
    }
    const ScriptedDevice& device() const { return device_; }
    std::optional<std::size_t> interface() const { return interface_; }

private:
    Script script_;
    ScriptedDevice device_;
    std::optional<std::size_t> interface_;
};

class Iterator : public ServiceIterator {
public:
    Iterator(Script script, std::string name, std::deque<std::unique_ptr<UsbService>> services)
        : script_(std::move(script)), name_(std::move(name)), services_(std::move(services)) {}
    ~Iterator() override { script_->calls.push_back("releaseIterator " + name_); }
    Iterator(const Iterator&) = delete;
    Iterator& operator=(const Iterator&) = delete;

    std::unique_ptr<UsbService> next() override {
        script_->call("nextService", services_.empty() ? "none" : services_.front()->name());
        if (services_.empty())
            return nullptr;
        auto service = std::move(services_.front());
        services_.pop_front();
        return service;
    }

private:
    Script script_;
    std::string name_;
    std::deque<std::unique_ptr<UsbService>> services_;
};

class Device : public UsbDevice {
public:
    Device(Script script, ScriptedDevice shape)
        : script_(std::move(script)), shape_(std::move(shape)) {}
    ~Device() override { script_->calls.push_back("releaseDevice " + shape_.name); }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    std::uint16_t vendor() override {
        script_->call("vendor", shape_.name);
        return shape_.vendor;
    }
    std::uint16_t product() override {
        script_->call("product", shape_.name);
        return shape_.product;
    }
    ResultCode interfaceIterator(const InterfaceRequest& request,
                                 std::unique_ptr<ServiceIterator>& iterator) override;

private:
    Script script_;
    ScriptedDevice shape_;
};

ResultCode Device::interfaceIterator(const InterfaceRequest& request,
                                     std::unique_ptr<ServiceIterator>& iterator) {
    const auto outcome =
        script_->call("interfaceIterator",
                      fmt::sprintf("%s %04x %04x %04x %04x", shape_.name, request.interfaceClass,
                                   request.subClass, request.protocol, request.alternateSetting));
    if (outcome.givesNothing || outcome.result != kResultSuccess)
        return outcome.result;
    std::deque<std::unique_ptr<UsbService>> services;
    for (std::size_t index = 0; index < shape_.interfaces.size(); ++index)
        services.push_back(std::make_unique<Service>(script_, shape_, index));
    iterator = std::make_unique<Iterator>(script_, shape_.name, std::move(services));
    return outcome.result;
}

class PlugIn : public UsbPlugIn {
public:
    PlugIn(Script script, ScriptedDevice device, std::optional<std::size_t> interface,
           std::string name)
        : script_(std::move(script)), device_(std::move(device)), interface_(interface),
          name_(std::move(name)) {}
    ~PlugIn() override { script_->calls.push_back("releasePlugIn " + name_); }
    PlugIn(const PlugIn&) = delete;
    PlugIn& operator=(const PlugIn&) = delete;

    ResultCode queryDevice(const UsbIdentifier& identifier,
                           std::unique_ptr<UsbDevice>& device) override {
        const auto outcome = script_->call("queryDevice", name_ + ' ' + hex(identifier));
        if (!outcome.givesNothing && outcome.result == kResultSuccess)
            device = std::make_unique<Device>(script_, device_);
        return outcome.result;
    }
    ResultCode queryInterface(const UsbIdentifier& identifier,
                              std::unique_ptr<UsbInterface>& interface) override {
        const auto outcome = script_->call("queryInterface", name_ + ' ' + hex(identifier));
        if (!outcome.givesNothing && outcome.result == kResultSuccess)
            interface = std::make_unique<Interface>(script_, name_,
                                                    device_.interfaces.at(interface_.value()));
        return outcome.result;
    }

private:
    Script script_;
    ScriptedDevice device_;
    std::optional<std::size_t> interface_;
    std::string name_;
};

class Host : public UsbHost {
public:
    explicit Host(Script script) : script_(std::move(script)) {}

    std::optional<MatchingDictionary> serviceMatching(std::string_view className) override {
        const auto outcome = script_->call("serviceMatching", std::string(className));
        if (outcome.givesNothing)
            return std::nullopt;
        return MatchingDictionary{std::string(className), {}};
    }
    bool addNumber(MatchingDictionary& dictionary, std::string_view key,
                   std::int32_t number) override {
        const auto outcome =
            script_->call("addNumber", std::string(key) + '=' + std::to_string(number));
        dictionary.numbers.insert_or_assign(std::string(key), number);
        return !outcome.givesNothing && key != script_->refusedNumber;
    }
    ResultCode matchingServices(const MatchingDictionary& dictionary,
                                std::unique_ptr<ServiceIterator>& iterator) override;
    ResultCode makePlugIn(UsbService& service, PlugInType type,
                          const UsbIdentifier& plugInInterface,
                          std::unique_ptr<UsbPlugIn>& plugIn) override;
    void cancelTransfers() override {
        script_->call("cancelTransfers", "");
        if (script_->onCancel)
            script_->onCancel();
    }

private:
    Script script_;
};

ResultCode Host::matchingServices(const MatchingDictionary& dictionary,
                                  std::unique_ptr<ServiceIterator>& iterator) {
    std::string details = dictionary.className;
    for (const auto& [key, number] : dictionary.numbers)
        details += ' ' + key + '=' + std::to_string(number);
    const auto outcome = script_->call("matchingServices", details);
    if (outcome.givesNothing || outcome.result != kResultSuccess)
        return outcome.result;
    std::deque<std::unique_ptr<UsbService>> services;
    for (const ScriptedDevice& device : script_->devices)
        services.push_back(std::make_unique<Service>(script_, device));
    iterator = std::make_unique<Iterator>(script_, dictionary.className, std::move(services));
    return outcome.result;
}

ResultCode Host::makePlugIn(UsbService& service, PlugInType type,
                            const UsbIdentifier& plugInInterface,
                            std::unique_ptr<UsbPlugIn>& plugIn) {
    const auto& listed = dynamic_cast<Service&>(service);
    const auto outcome = script_->call(
        "makePlugIn", listed.name() + (type == PlugInType::Device ? " device " : " interface ") +
                          hex(ids::plugInTypeIdentifier(type)) + ' ' + hex(plugInInterface));
    if (!outcome.givesNothing && outcome.result == kResultSuccess)
        plugIn =
            std::make_unique<PlugIn>(script_, listed.device(), listed.interface(), listed.name());
    return outcome.result;
}

} // namespace

std::shared_ptr<UsbHost> makeScriptedHost(std::shared_ptr<HostScript> script) {
    return std::make_shared<Host>(std::move(script));
}

} // namespace scenewright::testing
