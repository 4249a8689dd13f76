#include "tests/usb/ScriptedBus.h"

#include <fmt/printf.h>

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>

namespace scenewright::testing {

ResultCode BusScript::call(const std::string& name) {
    calls.push_back(name);
    if (const auto failure = failures.find(name); failure != failures.end())
        return failure->second;
    return isPlugged ? kResultSuccess : kResultNoDevice;
}

namespace {

using Script = std::shared_ptr<BusScript>;

class Handle : public LibusbHandle {
public:
    explicit Handle(Script script) : script_(std::move(script)) {}
    ~Handle() override { script_->calls.push_back("close"); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    ResultCode hasDriver(std::uint8_t interface, bool& bound) override {
        bound = script_->isPlugged && holder(interface) == Holder::Driver;
        return script_->isPlugged ? kResultSuccess : kResultNoDevice;
    }
    ResultCode detachDriver(std::uint8_t interface) override {
        const ResultCode result = called("detach", interface);
        if (result != kResultSuccess || holder(interface) != Holder::Driver)
            return result == kResultSuccess ? kResultNotFound : result;
        holder(interface) = Holder::Nobody;
        return kResultSuccess;
    }
    ResultCode attachDriver(std::uint8_t interface) override;
    ResultCode claim(std::uint8_t interface) override {
        const ResultCode result = called("claim", interface);
        if (result != kResultSuccess || holder(interface) != Holder::Nobody)
            return result == kResultSuccess ? kResultBusy : result;
        holder(interface) = Holder::Us;
        return kResultSuccess;
    }
    ResultCode release(std::uint8_t interface) override {
        const ResultCode result = called("release", interface);
        if (holder(interface) == Holder::Us)
            holder(interface) = Holder::Nobody;
        return result;
    }
    ResultCode clearHalt(std::uint8_t endpoint) override {
        return script_->call(fmt::sprintf("clear %02x", endpoint));
    }
    ResultCode write(std::uint8_t endpoint, std::span<const std::uint8_t> bytes,
                     std::size_t& moved) override {
        const ResultCode result =
            script_->call(fmt::sprintf("write %02x %d", endpoint, bytes.size()));
        moved = result == kResultSuccess ? bytes.size() - script_->writesShortBy : 0;
        return result;
    }
    ResultCode read(std::uint8_t endpoint, std::span<std::uint8_t> room,
                    std::size_t& moved) override;

private:
    Holder& holder(std::uint8_t interface) { return script_->holders.at(interface); }
    ResultCode called(const char* name, std::uint8_t interface) {
        return script_->call(fmt::sprintf("%s %d", name, interface));
    }

    Script script_;
};

ResultCode Handle::attachDriver(std::uint8_t interface) {
    const ResultCode result = called("attach", interface);
    if (result != kResultSuccess)
        return result;
    if (holder(interface) != Holder::Nobody)
        return kResultBusy;
    constexpr std::uint8_t kAudio = 1;
    constexpr std::uint8_t kAudioControl = 1;
    const auto wanted =
        std::ranges::find(script_->interfaces, interface, &LibusbInterfaceDescriptor::number);
    if (wanted == script_->interfaces.end() || wanted->subClass != kAudioControl)
        return kResultNotFound;
    for (const LibusbInterfaceDescriptor& taken : script_->interfaces)
        if (taken.number >= interface && taken.interfaceClass == kAudio &&
            holder(taken.number) == Holder::Nobody)
            holder(taken.number) = Holder::Driver;
    return kResultSuccess;
}

ResultCode Handle::read(std::uint8_t endpoint, std::span<std::uint8_t> room, std::size_t& moved) {
    moved = 0;
    const ResultCode result = script_->call(fmt::sprintf("read %02x %d", endpoint, room.size()));
    if (result != kResultSuccess || script_->replies.empty())
        return result == kResultSuccess ? kResultTimeout : result;
    const BusReply reply = std::move(script_->replies.front());
    script_->replies.pop_front();
    moved = std::min(room.size(), reply.bytes.size());
    std::copy_n(reply.bytes.begin(), moved, room.begin());
    return reply.result;
}

class Device : public LibusbDevice {
public:
    Device(Script script, std::size_t index) : script_(std::move(script)), index_(index) {}

    [[nodiscard]] std::uint16_t vendor() const override { return 0x1209; }
    [[nodiscard]] std::uint16_t product() const override { return script_->products.at(index_); }
    [[nodiscard]] std::uint8_t bus() const override { return 1; }
    [[nodiscard]] std::uint8_t address() const override {
        return static_cast<std::uint8_t>(index_ + 2);
    }
    ResultCode interfaces(std::vector<LibusbInterfaceDescriptor>& list) const override {
        list = script_->interfaces;
        return script_->isPlugged ? kResultSuccess : kResultNoDevice;
    }
    ResultCode open(std::unique_ptr<LibusbHandle>& handle) const override {
        const ResultCode result = script_->call("open");
        if (result == kResultSuccess)
            handle = std::make_unique<Handle>(script_);
        return result;
    }

private:
    Script script_;
    std::size_t index_;
};

class Bus : public LibusbApi {
public:
    explicit Bus(Script script) : script_(std::move(script)) {}

    ResultCode devices(std::vector<std::shared_ptr<LibusbDevice>>& list) override {
        if (const auto failure = script_->failures.find("devices");
            failure != script_->failures.end())
            return failure->second;
        for (std::size_t index = 0; index < script_->products.size(); ++index)
            list.push_back(std::make_shared<Device>(script_, index));
        return kResultSuccess;
    }
    void cancelTransfers() override { script_->calls.push_back("cancel"); }

private:
    Script script_;
};

} // namespace

std::shared_ptr<LibusbApi> makeScriptedBus(std::shared_ptr<BusScript> script) {
    return std::make_shared<Bus>(std::move(script));
}

} // namespace scenewright::testing
