#include "tests/usb/ScriptedHost.h"

#include "platform/Diagnostics.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace scenewright::testing {

namespace {

using Script = std::shared_ptr<HostScript>;

// Which function of the seam takes a step; of several steps, the first is what answer() means.
struct StepName {
    UsbStep step;
    std::string_view name;
};

constexpr std::array kStepNames{
    StepName{UsbStep::MatchDevices, "canMatch"},
    StepName{UsbStep::MatchVendor, "canMatch"},
    StepName{UsbStep::MatchProduct, "canMatch"},
    StepName{UsbStep::ListDevices, "devices"},
    StepName{UsbStep::DevicePlugIn, "prepare"},
    StepName{UsbStep::DeviceHandle, "prepare"},
    StepName{UsbStep::InterfacePlugIn, "interface"},
    StepName{UsbStep::InterfaceHandle, "interface"},
    StepName{UsbStep::Open, "open"},
    StepName{UsbStep::EndpointCount, "endpointCount"},
    StepName{UsbStep::PipeProperties, "pipeProperties"},
    StepName{UsbStep::Write, "write"},
    StepName{UsbStep::Write, "read"}, // a read's error has no step
    StepName{UsbStep::Close, "close"},
    StepName{UsbStep::Release, "release"},
};
// They cannot fail, but can be recorded, or throw.
constexpr std::array<std::string_view, 4> kOtherSteps{"vendor", "product", "interfaceClass",
                                                      "pause"};

const std::string& known(const std::string& step) {
    if (std::ranges::find(kStepNames, step, &StepName::name) == kStepNames.end() &&
        std::ranges::find(kOtherSteps, step) == kOtherSteps.end())
        throw std::invalid_argument("no step of the seam: " + step);
    return step;
}

std::string idText(std::optional<std::int32_t> id) {
    return id ? fmt::sprintf("%04x", *id) : "any";
}

std::string matchText(const DeviceMatch& match) {
    return idText(match.vendor) + ' ' + idText(match.product);
}

} // namespace

void HostScript::answer(const std::string& step, const std::vector<ResultCode>& codes) {
    const auto* const row = std::ranges::find(kStepNames, step, &StepName::name);
    if (row == kStepNames.end())
        throw std::invalid_argument("no step that fails: " + step);
    auto& errors = errors_[step];
    errors.clear();
    for (const ResultCode code : codes)
        errors.push_back({row->step, code});
}

void HostScript::fail(UsbStep step, ResultCode code) {
    const auto* const row = std::ranges::find(kStepNames, step, &StepName::step);
    errors_[std::string(row->name)].assign(1, {step, code});
}

void HostScript::raise(const std::string& step) {
    ++raises_[known(step)];
}

void HostScript::note(const std::string& event) {
    const std::lock_guard lock(mutex);
    events.push_back(event);
}

UsbResult<void> HostScript::call(const std::string& step, const std::string& details) {
    std::unique_lock lock(mutex);
    calls.push_back(details.empty() ? step : step + ' ' + details);
    events.push_back(calls.back());
    if (const auto happening = meanwhile.find(step); happening != meanwhile.end()) {
        lock.unlock();
        happening->second();
        lock.lock();
    }
    if (int& raises = raises_[step]; raises > 0) {
        --raises;
        throw std::runtime_error(step);
    }
    auto& errors = errors_[step];
    if (errors.empty())
        return {};
    const UsbError error = errors.front();
    errors.pop_front();
    if (error.code == kResultSuccess)
        return {};
    return tl::unexpected(error);
}

std::vector<std::string> HostScript::callsOf(const std::vector<std::string>& steps) const {
    std::for_each(steps.begin(), steps.end(), known);
    std::vector<std::string> found;
    for (const std::string& text : calls)
        if (std::ranges::find(steps, text.substr(0, text.find(' '))) != steps.end())
            found.push_back(text);
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

class Interface : public UsbInterface {
public:
    Interface(Script script, std::string name, ScriptedInterface shape)
        : script_(std::move(script)), name_(std::move(name)), shape_(std::move(shape)) {}
    ~Interface() override { unclaim(); }
    Interface(const Interface&) = delete;
    Interface& operator=(const Interface&) = delete;
    Interface(Interface&&) = delete;
    Interface& operator=(Interface&&) = delete;

    InterfaceClass interfaceClass() override {
        static_cast<void>(script_->call("interfaceClass", name_));
        return shape_.kind;
    }
    UsbResult<void> open() override;
    UsbResult<void> close() override {
        unclaim();
        return script_->call("close", name_);
    }
    UsbResult<void> release() override {
        unclaim();
        return script_->call("release", name_);
    }
    UsbResult<std::uint8_t> endpointCount() override {
        const auto called = script_->call("endpointCount", name_);
        if (!called)
            return tl::unexpected(called.error());
        return static_cast<std::uint8_t>(shape_.pipes.size());
    }
    UsbResult<PipeProperties> pipeProperties(std::uint8_t pipe) override;
    UsbResult<void> write(std::uint8_t pipe, std::span<const std::uint8_t> bytes) override;
    UsbRead read(std::uint8_t pipe, std::span<std::uint8_t> room) override;

private:
    void unclaim();
    [[nodiscard]] ResultCode readWithoutReply();

    Script script_;
    std::string name_;
    ScriptedInterface shape_;
    std::condition_variable changed_;
    bool isClaimed_ = false; // guarded by the script's mutex, as the next
    int waitingReads_ = 0;
};

UsbResult<void> Interface::open() {
    auto result = script_->call("open", name_);
    const std::lock_guard lock(script_->mutex);
    if (!result || isClaimed_)
        return result;
    auto& claimed = script_->claimed;
    if (std::ranges::find(claimed, name_) != claimed.end())
        return failedStep(UsbStep::Open, kResultBusy);
    claimed.push_back(name_);
    isClaimed_ = true;
    return result;
}

void Interface::unclaim() {
    std::unique_lock lock(script_->mutex);
    if (std::exchange(isClaimed_, false))
        std::erase(script_->claimed, name_);
    changed_.notify_all();
    changed_.wait(lock, [this] { return waitingReads_ == 0; });
}

UsbResult<PipeProperties> Interface::pipeProperties(std::uint8_t pipe) {
    const auto called = script_->call("pipeProperties", name_ + ' ' + std::to_string(pipe));
    if (!called)
        return tl::unexpected(called.error());
    if (pipe == 0 || pipe > shape_.pipes.size())
        return failedStep(UsbStep::PipeProperties, kResultNotFound);
    return shape_.pipes[pipe - 1U];
}

UsbResult<void> Interface::write(std::uint8_t pipe, std::span<const std::uint8_t> bytes) {
    std::string dump = hexDump(bytes);
    if (!dump.empty())
        dump.pop_back();
    auto called = script_->call("write", name_ + ' ' + std::to_string(pipe) +
                                             (dump.empty() ? "" : " " + dump));
    if (called && script_->onWrite)
        script_->onWrite(bytes);
    return called;
}

ResultCode Interface::readWithoutReply() {
    if (script_->whenNoReply)
        return script_->whenNoReply();
    if (!script_->readsWait)
        return kResultTimeout;
    std::unique_lock lock(script_->mutex);
    ++waitingReads_;
    changed_.wait(lock, [this] { return !isClaimed_; });
    --waitingReads_;
    changed_.notify_all();
    return kResultCancelled;
}

UsbRead Interface::read(std::uint8_t pipe, std::span<std::uint8_t> room) {
    const auto called = script_->call("read", name_ + ' ' + std::to_string(pipe) + ' ' +
                                                  std::to_string(room.size()));
    if (!called)
        return {.delivered = 0, .code = called.error().code};
    if (script_->replies.empty())
        return {.delivered = 0, .code = readWithoutReply()};
    const ScriptedReply reply = std::move(script_->replies.front());
    script_->replies.pop_front();
    const std::size_t delivered = std::min(room.size(), reply.bytes.size());
    std::copy_n(reply.bytes.begin(), delivered, room.begin());
    return {.delivered = delivered, .code = reply.result};
}

class Device : public UsbDevice {
public:
    Device(Script script, ScriptedDevice shape)
        : script_(std::move(script)), shape_(std::move(shape)) {}

    [[nodiscard]] std::string name() const override { return shape_.name; }
    [[nodiscard]] std::string port() const override { return shape_.port; }
    UsbResult<void> prepare() override { return script_->call("prepare", shape_.name); }
    std::uint16_t vendor() override {
        static_cast<void>(script_->call("vendor", shape_.name));
        return shape_.vendor;
    }
    std::uint16_t product() override {
        static_cast<void>(script_->call("product", shape_.name));
        return shape_.product;
    }
    UsbResult<std::unique_ptr<UsbInterface>> interface(std::size_t place) override {
        const std::string number = std::to_string(place);
        const auto called = script_->call("interface", shape_.name + ' ' + number);
        if (!called)
            return tl::unexpected(called.error());
        if (place >= shape_.interfaces.size())
            return failedStep(UsbStep::InterfacePlugIn, kResultNotFound);
        return std::make_unique<Interface>(script_, shape_.name + '/' + number,
                                           shape_.interfaces[place]);
    }

private:
    Script script_;
    ScriptedDevice shape_;
};

class Host : public UsbHost {
public:
    explicit Host(Script script) : script_(std::move(script)) {}

    UsbResult<void> canMatch(const DeviceMatch& match) override {
        return script_->call("canMatch", matchText(match));
    }
    UsbResult<Devices> devices(const DeviceMatch& match) override {
        const auto called = script_->call("devices", matchText(match));
        if (!called)
            return tl::unexpected(called.error());
        Devices found;
        for (const ScriptedDevice& device : script_->devices)
            if (match.vendor.value_or(device.vendor) == device.vendor &&
                match.product.value_or(device.product) == device.product)
                found.push_back(std::make_shared<Device>(script_, device));
        return found;
    }
    Result<void> storageResult() override { return script_->storageResult; }

private:
    Script script_;
};

} // namespace

std::shared_ptr<UsbHost> makeScriptedHost(std::shared_ptr<HostScript> script) {
    return std::make_shared<Host>(std::move(script));
}

} // namespace scenewright::testing
