// A USB bus whose devices describe themselves, and answer, as the input orders: the controller is
// taken or the reason is told, what was taken from the bus and from the kernel's drivers is given
// back, and the list of MIDI devices stays a list that a person and a program can read.
#include "app/DeviceSession.h"
#include "cli/Reports.h"
#include "platform/Text.h"
#include "protocol/Connection.h"
#include "tests/fuzz/Checks.h"
#include "tests/fuzz/Input.h"
#include "tests/support/TempFolder.h"
#include "tests/usb/FakeLibusb.h"
#include "usb/InterfaceAction.h"
#include "usb/LibusbHost.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace scenewright::fuzz {

namespace {

using testing::FakeLibusb;
using testing::fakeLibusb;
using testing::Holder;

constexpr int kMaxOrders = 16;
constexpr int kAttempts = 3; // at the handshake
constexpr std::size_t kMaxTextSize = 80;
constexpr std::size_t kErrors = 13; // of the library, from -1
constexpr int kInterrupted = -10;

constexpr std::array<const char*, 14> kCalls{
    "init",     "list",     "open",      "detach 0", "detach 1", "claim 0",       "claim 1",
    "attach 0", "attach 1", "release 1", "clear 02", "clear 81", "configuration", "submit"};

std::vector<std::uint8_t> copied(std::span<const std::uint8_t> bytes) {
    return {bytes.begin(), bytes.end()};
}

void orderInterfaces(FakeLibusb& bus, Input& input) {
    auto& interfaces = bus.devices.front().interfaces;
    interfaces.resize(input.below(5));
    for (auto& interface : interfaces) {
        interface.number = input.u8();
        interface.interfaceClass = static_cast<std::uint8_t>(input.below(3));
        interface.subClass = static_cast<std::uint8_t>(input.below(4));
        interface.endpoints.resize(input.below(20));
        for (auto& endpoint : interface.endpoints)
            endpoint = {input.u8(), input.u8(), input.u16(), input.u8()};
    }
}

int errorFrom(Input& input) {
    return -1 - static_cast<int>(input.below(kErrors));
}

void order(FakeLibusb& bus, Input& input) {
    switch (input.below(8)) {
    case 0:
        return orderInterfaces(bus, input);
    case 1: {
        const auto interface = static_cast<int>(input.below(4));
        bus.holders[interface] = static_cast<Holder>(input.below(3));
        return;
    }
    case 2: {
        const char* const call = kCalls[input.below(kCalls.size())];
        bus.failures[call] = errorFrom(input);
        return;
    }
    case 3:
        bus.events.push_back({.delivers = copied(input.bytes(input.below(70)))});
        return;
    case 4:
        bus.events.push_back({.status = static_cast<int>(input.below(8))});
        return;
    case 5:
        bus.devices.push_back({.product = input.u16()});
        return;
    case 6:
        bus.eventsResult = errorFrom(input);
        // Signals that come in without an end are none of the library's errors.
        if (bus.eventsResult == kInterrupted)
            bus.eventsResult = 0;
        return;
    default:
        bus.events.push_back({.moved = static_cast<int>(input.below(4))});
        bus.isPlugged = input.below(4) != 0;
        return;
    }
}

void connect() {
    Transport& transport = Transport::instance();
    transport.use(makeLibusbHost(), [](std::chrono::nanoseconds) {});
    if (InterfaceAction::FindDevice() && InterfaceAction::CreateInterface())
        for (int i = 0; i < kAttempts && !handshakeOnce(); ++i)
            InterfaceAction::closeInterface();
    checkSentence(causeAndCure(transport.connectFailure));
    transport.use(nullptr);
}

void checkGivenBack(const FakeLibusb& bus) {
    check(bus.hasNothingOut() != faultIsPlanted(), "something of the library is not given back");
    check(bus.misuses.empty(), "the library was misused");
    check(
        std::ranges::none_of(bus.holders, [](const auto& row) { return row.second == Holder::Us; }),
        "an interface is still claimed");
}

// The kernel's words of the one device: its folder has files as sysfs has.
class DeviceWords {
public:
    DeviceWords() {
        std::filesystem::create_directories(folder_.path() / "1-1/1-1:1.1");
        for (const auto& [name, text] : std::map<std::string, std::string>{
                 {"busnum", "1"}, {"devnum", "2"}, {"idVendor", "1209"}, {"idProduct", "0001"}})
            write(name, bytesOf(text));
    }
    void write(const std::string& name, std::span<const std::uint8_t> bytes) {
        testing::writeBytes(folder_.file("1-1/" + name), bytes);
    }
    [[nodiscard]] const std::filesystem::path& path() const { return folder_.path(); }

private:
    testing::TempFolder folder_;
};

void checkLines(const std::string& text) {
    for (const std::string& line : split(text, '\n'))
        check(readableText(line) == line, "unreadable bytes in the list of devices");
}

void checkList(Input& input) {
    static DeviceWords words;
    for (const char* const name : {"manufacturer", "product", "serial", "1-1:1.1/bInterfaceClass"})
        words.write(name, input.bytes(input.below(kMaxTextSize)));
    const auto devices = attachedDevices({.devices = words.path(), .nodes = words.path()});
    check(devices.size() == 1, "the device is not listed");
    const std::vector<PluggedDevice> plugged{{.device = devices.front()}};
    checkLines(deviceTable(plugged));
    const std::string json = deviceJson(plugged);
    checkLines(json);
    const auto list = nlohmann::json::parse(json, nullptr, false);
    check(list.is_array() && list.size() == devices.size(), "not an object a device");
}

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright::fuzz;
    using scenewright::testing::FakeLibusb;
    using scenewright::testing::fakeLibusb;
    static_cast<void>(defaultScenes()); // the list of devices is the tree's own
    Input input(data, size);
    FakeLibusb& bus = fakeLibusb();
    bus.reset();
    const std::size_t orders = input.below(kMaxOrders);
    for (std::size_t i = 0; i < orders; ++i)
        order(bus, input);
    connect();
    checkGivenBack(bus);
    checkList(input);
    return 0;
}
