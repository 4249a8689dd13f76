// A USB bus whose devices describe themselves, and answer, as the input orders: the controller is
// taken or the reason is told, what was taken from the bus and from the kernel's drivers is given
// back, and the list of MIDI devices stays a list that a person and a program can read.
#include "bank/JsonTree.h"
#include "cli/DeviceTable.h"
#include "platform/ReadableText.h"
#include "protocol/Handshake.h"
#include "tests/fuzz/Checks.h"
#include "tests/fuzz/Input.h"
#include "tests/support/TempFolder.h"
#include "tests/usb/ScriptedBus.h"
#include "usb/ConnectCause.h"
#include "usb/InterfaceAction.h"
#include "usb/LibusbHost.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>

namespace scenewright::fuzz {

namespace {

using testing::BusScript;
using testing::Holder;

constexpr int kMostOrders = 16;
constexpr int kAttempts = 3; // at the handshake
constexpr std::size_t kLongestText = 80;

constexpr std::array<const char*, 12> kCalls{"devices", "open",     "detach 0",   "detach 1",
                                             "claim 1", "attach 0", "attach 1",   "release 1",
                                             "claim 0", "claim 2",  "write 02 4", "read 81 63"};

std::vector<std::uint8_t> copied(std::span<const std::uint8_t> bytes) {
    return {bytes.begin(), bytes.end()};
}

void orderInterfaces(BusScript& bus, Input& input) {
    bus.interfaces.resize(input.below(5));
    for (auto& interface : bus.interfaces) {
        interface.number = input.u8();
        interface.alternateSetting = input.u8();
        interface.interfaceClass = static_cast<std::uint8_t>(input.below(3));
        interface.subClass = static_cast<std::uint8_t>(input.below(4));
        interface.endpoints.resize(input.below(20));
        for (auto& endpoint : interface.endpoints)
            endpoint = {input.u8(), input.u8(), input.u16(), input.u8()};
    }
}

ResultCode codeFrom(Input& input) {
    return kResultOther + static_cast<ResultCode>(input.below(kResultCancelled - kResultOther + 1));
}

void order(BusScript& bus, Input& input) {
    switch (input.below(7)) {
    case 0:
        return orderInterfaces(bus, input);
    case 1:
        bus.holders.at(input.below(4)) = static_cast<Holder>(input.below(3));
        return;
    case 2: {
        const char* const call = kCalls[input.below(kCalls.size())];
        bus.failures[call] = codeFrom(input);
        return;
    }
    case 3: {
        auto bytes = copied(input.bytes(input.below(70)));
        bus.replies.push_back({std::move(bytes), kResultSuccess});
        return;
    }
    case 4:
        bus.replies.push_back({{}, codeFrom(input)});
        return;
    case 5:
        bus.products.push_back(input.u16());
        return;
    default:
        bus.writesShortBy = input.below(4);
        bus.isPlugged = input.below(4) != 0;
        return;
    }
}

void connect(const std::shared_ptr<BusScript>& bus) {
    Transport& transport = Transport::instance();
    transport.use(makeLibusbHost(testing::makeScriptedBus(bus)), [](std::chrono::nanoseconds) {});
    if (InterfaceAction::FindDevice() && InterfaceAction::CreateInterface())
        for (int i = 0; i < kAttempts && !handshakeOnce(); ++i)
            InterfaceAction::closeInterface();
    checkSentence(connectCause());
    transport.use(nullptr);
}

std::ptrdiff_t countOf(const BusScript& bus, std::string_view call) {
    return std::ranges::count(bus.calls, call);
}

void checkGivenBack(const BusScript& bus) {
    check(std::ranges::count(bus.holders, Holder::Us) == (faultIsPlanted() ? 1 : 0),
          "an interface is still claimed");
    const bool canOpen = !bus.failures.contains("open") && bus.isPlugged;
    check(!canOpen || countOf(bus, "open") == countOf(bus, "close"), "a device is still open");
}

// The kernel's words of the one device: its folder has files as sysfs has.
class DeviceWords {
public:
    DeviceWords() {
        std::filesystem::create_directory(folder_.path() / "1-1");
        write("busnum", bytesOf("1\n"));
        write("devnum", bytesOf("2\n"));
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

void checkList(const std::shared_ptr<BusScript>& bus, Input& input) {
    static DeviceWords words;
    words.write("manufacturer", input.bytes(input.below(kLongestText)));
    words.write("product", input.bytes(input.below(kLongestText)));
    std::vector<MidiDevice> devices;
    static_cast<void>(listMidiDevices(*testing::makeScriptedBus(bus), devices, words.path()));
    const DeviceListPlace place{{{0x1209, 0x0001}}, "/list/project.plist", "/own/project.plist"};
    checkLines(deviceTable(devices, place));
    const std::string json = deviceJson(devices, place);
    checkLines(json);
    const JsonTree tree = parseJson(json);
    check(!tree.trouble && tree.root.values.size() == devices.size(), "not an object a device");
}

} // namespace

} // namespace scenewright::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace scenewright::fuzz;
    static_cast<void>(defaultScenes()); // the list of devices is the tree's own
    Input input(data, size);
    const auto bus = std::make_shared<BusScript>();
    bus->holders.resize(256, Holder::Nobody);
    const std::size_t orders = input.below(kMostOrders);
    for (std::size_t i = 0; i < orders; ++i)
        order(*bus, input);
    connect(bus);
    checkGivenBack(*bus);
    checkList(bus, input);
    return 0;
}
